// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

#include "framework/view/Frame.h"

namespace ws {

// Writes what a payoff view shows: payoff.csv (the price-range table, streamed row by row) and keyprices.csv (the
// points of the chart's line), each with the first line "price,pl" and numbers in C form that read back to the last
// bit. Throws std::filesystem::filesystem_error when a file cannot be written.
void WritePayoffFiles(fw::TFrame& Frame, const std::filesystem::path& Folder);

}  // namespace ws
