// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A comma-separated file with a header line, as people write it: quoted cells, blank lines, lines that begin with
// '#' as remarks, a byte-order mark, either line ending. Cells come with blanks around unquoted text removed.

#include <filesystem>
#include <string>
#include <vector>

namespace ws {

// What is wrong with a line, for the user: a resource key and its arguments.
struct TLineProblem {
    std::string File;               // name without folder
    int Line = 0;                   // counted from 1; 0 = the file as a whole
    std::string Key;                // the reason, "Res_..."; its text begins with %1 file and %2 line
    std::vector<std::string> Args;  // from %3 on
};

struct TCsvRow {
    int Line = 0;  // where the row begins
    std::vector<std::string> Cells;
};

struct TCsvTable {
    std::string File;
    std::vector<std::string> Header;
    int HeaderLine = 0;
    std::vector<TCsvRow> Rows;  // every row has as many cells as the header; others are reported
};

// Never throws. A file that is missing or cannot be read gives an empty table and one problem; a row with too few
// or too many cells is reported and left out; text after a broken quote is reported and not read.
TCsvTable ReadCsv(const std::filesystem::path& Path, std::vector<TLineProblem>& Problems);

inline constexpr char kLineNoFile[] = "Res_LineNoFile";        // the file is missing or cannot be read
inline constexpr char kLineCellCount[] = "Res_LineCellCount";  // cells, expected cells
inline constexpr char kLineBrokenQuote[] = "Res_LineBrokenQuote";

}  // namespace ws
