// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

namespace ws {

// Folder of the running program.
std::filesystem::path ProgramFolder();
// Packages beside the program, or where an installed program has them.
std::filesystem::path PackageFolder();
// Files of the sample market beside the program, or where an installed program has them.
std::filesystem::path SampleFolder();

}  // namespace ws
