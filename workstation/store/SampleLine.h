// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// One line of a sample file, read cell by cell with every rule a cell can break. Inside of the sample loader.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "workstation/store/CsvTable.h"

namespace ws {

inline constexpr char kLineNoColumn[] = "Res_LineNoColumn";            // a column the header lacks
inline constexpr char kLineUnknownColumn[] = "Res_LineUnknownColumn";  // a column nobody reads
inline constexpr char kLineEmpty[] = "Res_LineEmpty";                  // a column that must be filled
inline constexpr char kLineNotNumber[] = "Res_LineNotNumber";          // column, text
inline constexpr char kLineOutOfRange[] = "Res_LineOutOfRange";        // column, text
inline constexpr char kLineUnknownCode[] = "Res_LineUnknownCode";      // column, text
inline constexpr char kLineTwice[] = "Res_LineTwice";                  // what is listed a second time
inline constexpr char kLineBadDate[] = "Res_LineBadDate";              // column, text
inline constexpr char kLineBadText[] = "Res_LineBadText";              // column, text

// Reads cells by column name. The first thing wrong is reported once, and Good() is false from then on; the caller
// reads all cells it wants and asks at the end.
class TSampleLine {
public:
    TSampleLine(const TCsvTable& Table, const TCsvRow& Row, std::vector<TLineProblem>& Problems);

    bool Good() const { return FGood; }
    void Fail(const char* Key, std::vector<std::string> Args);

    std::string Text(const char* Column);      // may be empty
    std::string Required(const char* Column);  // reported when empty
    // Numbers are plain ("-12.5", no blanks, no thousands), finite and within [Low, High].
    double Number(const char* Column, double Low, double High);
    std::optional<double> OptionalNumber(const char* Column, double Low, double High);
    int Whole(const char* Column, int Low, int High);
    int OptionalWhole(const char* Column, int Default, int Low, int High);
    bool Flag(const char* Column, bool Default);                              // "1"/"0", empty = Default
    std::vector<std::string> List(const char* Column, char Separator = ' ');  // without empty parts
    std::vector<int> WholeList(const char* Column, int Low, int High);        // at least one

private:
    const TCsvTable& FTable;
    const TCsvRow& FRow;
    std::vector<TLineProblem>& FProblems;
    bool FGood = true;
};

// Reads Folder/File and checks its header: every one of Columns must be there and no other. Without a usable
// header the table has no rows.
TCsvTable ReadSampleFile(const std::filesystem::path& Folder, const char* File, const std::vector<const char*>& Columns,
                         std::vector<TLineProblem>& Problems);

std::optional<double> NumberFromText(const std::string& Text);  // whole text, finite
std::optional<int> WholeFromText(const std::string& Text);

}  // namespace ws
