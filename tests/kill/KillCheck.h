// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <filesystem>

namespace ws::kill {

inline constexpr std::size_t kMostInBatch = 8;  // orders that are written together

// What must hold in Folder after so many kills, whenever they came. Prints what it counted, or the breaches; true:
// there are none.
bool CheckAfterKill(const std::filesystem::path& Folder, std::size_t Kills);

}  // namespace ws::kill
