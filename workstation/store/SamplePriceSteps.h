// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The price-step tables of the sample. Inside of the sample loader.

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "workstation/market/MarketRows.h"
#include "workstation/store/CsvTable.h"

namespace ws {

inline constexpr char kLineStepsOverlap[] = "Res_LineStepsOverlap";  // table, edge of the band that is not above
inline constexpr char kLineStepsKinds[] = "Res_LineStepsKinds";      // table
inline constexpr char kLineStepsNone[] = "Res_LineStepsNone";        // table
inline constexpr char kLineStepsDropped[] = "Res_LineStepsDropped";  // table

struct TSamplePriceSteps {
    std::vector<TSpreadBandRow> Bands;  // of the usable tables; those of one table stand together, ascending
    std::set<std::string> Codes;        // also of tables that were refused: their contracts are listed without one
};

// A table is used whole or not at all: without a band a price would be walked with the step of the band below. The
// line on which a table is refused is named in Problems.
TSamplePriceSteps ReadPriceSteps(const std::filesystem::path& Folder, std::vector<TLineProblem>& Problems);

}  // namespace ws
