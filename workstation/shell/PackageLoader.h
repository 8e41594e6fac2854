// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

namespace ws {

// Loads packages: shared libraries built against this framework version. Whatever is wrong with one is said in the log,
// with the file and the reason, and the program goes on without it. A package is initialised once and never unloaded.

// Every *.so of the folder, in the order of their names; returns how many are there afterwards. None at all is said,
// too.
int LoadPackages(const std::filesystem::path& Folder);

bool LoadPackage(const std::filesystem::path& File);

// Those of the installation, then the user's own: of $VENTIQ_PACKAGES or, where it is unset, of packages/ beside the
// store, where none need be. Returns how many are there afterwards.
int LoadPackages();

// The prefix below which the running program was installed; in a build folder that folder, laid out the same way.
std::filesystem::path InstallFolder();

}  // namespace ws
