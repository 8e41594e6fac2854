// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace ws {

// Why a package is not there; a resource key and its arguments, the file first.
struct TPackageProblem {
    std::string Key;
    std::vector<std::string> Args;
};

// Loads every package ("*.so") of a folder, in the order of their names: each is opened, its framework version compared,
// and only then asked to initialise itself. A package that cannot be used is named and left out. Packages stay loaded
// until the process ends.
std::vector<TPackageProblem> LoadPackages(const std::filesystem::path& Folder);

// The same for one file.
std::vector<TPackageProblem> LoadPackage(const std::filesystem::path& File);

}  // namespace ws
