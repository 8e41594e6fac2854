// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/store/SampleLine.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace ws {

std::optional<double> NumberFromText(const std::string& Text) {
    double Value = 0;
    const auto [End, Error] = std::from_chars(Text.data(), Text.data() + Text.size(), Value, std::chars_format::fixed);
    if (Error != std::errc() || End != Text.data() + Text.size() || !std::isfinite(Value)) return std::nullopt;
    return Value;
}

std::optional<int> WholeFromText(const std::string& Text) {
    int Value = 0;
    const auto [End, Error] = std::from_chars(Text.data(), Text.data() + Text.size(), Value);
    if (Error != std::errc() || End != Text.data() + Text.size()) return std::nullopt;
    return Value;
}

TSampleLine::TSampleLine(const TCsvTable& Table, const TCsvRow& Row, std::vector<TLineProblem>& Problems)
    : FTable(Table), FRow(Row), FProblems(Problems) {}

void TSampleLine::Fail(const char* Key, std::vector<std::string> Args) {
    if (FGood) FProblems.push_back({FTable.File, FRow.Line, Key, std::move(Args)});
    FGood = false;
}

std::string TSampleLine::Text(const char* Column) {
    const auto It = std::find(FTable.Header.begin(), FTable.Header.end(), Column);
    return FRow.Cells[static_cast<std::size_t>(It - FTable.Header.begin())];
}

std::string TSampleLine::Required(const char* Column) {
    std::string Cell = Text(Column);
    if (Cell.empty()) Fail(kLineEmpty, {Column});
    return Cell;
}

double TSampleLine::Number(const char* Column, double Low, double High) {
    if (Required(Column).empty()) return Low;
    return OptionalNumber(Column, Low, High).value_or(Low);
}

std::optional<double> TSampleLine::OptionalNumber(const char* Column, double Low, double High) {
    const std::string Cell = Text(Column);
    if (Cell.empty()) return std::nullopt;
    const auto Value = NumberFromText(Cell);
    if (!Value)
        Fail(kLineNotNumber, {Column, Cell});
    else if (*Value < Low || *Value > High)
        Fail(kLineOutOfRange, {Column, Cell});
    return Value;
}

int TSampleLine::Whole(const char* Column, int Low, int High) {
    if (Required(Column).empty()) return Low;
    return OptionalWhole(Column, Low, Low, High);
}

int TSampleLine::OptionalWhole(const char* Column, int Default, int Low, int High) {
    const std::string Cell = Text(Column);
    if (Cell.empty()) return Default;
    const auto Value = WholeFromText(Cell);
    if (!Value)
        Fail(kLineNotNumber, {Column, Cell});
    else if (*Value < Low || *Value > High)
        Fail(kLineOutOfRange, {Column, Cell});
    return Value.value_or(Default);
}

bool TSampleLine::Flag(const char* Column, bool Default) { return OptionalWhole(Column, Default ? 1 : 0, 0, 1) != 0; }

std::vector<std::string> TSampleLine::List(const char* Column, char Separator) {
    std::vector<std::string> Parts;
    const std::string Cell = Text(Column);
    for (std::size_t Start = 0; Start <= Cell.size();) {
        const std::size_t End = std::min(Cell.find(Separator, Start), Cell.size());
        if (End > Start) Parts.push_back(Cell.substr(Start, End - Start));
        Start = End + 1;
    }
    return Parts;
}

std::vector<int> TSampleLine::WholeList(const char* Column, int Low, int High) {
    std::vector<int> Values;
    for (const auto& Part : List(Column)) {
        const auto Value = WholeFromText(Part);
        if (!Value)
            Fail(kLineNotNumber, {Column, Part});
        else if (*Value < Low || *Value > High)
            Fail(kLineOutOfRange, {Column, Part});
        Values.push_back(Value.value_or(Low));
    }
    if (Values.empty()) Fail(kLineEmpty, {Column});
    return Values;
}

TCsvTable ReadSampleFile(const std::filesystem::path& Folder, const char* File, const std::vector<const char*>& Columns,
                         std::vector<TLineProblem>& Problems) {
    TCsvTable Table = ReadCsv(Folder / File, Problems);
    if (Table.HeaderLine == 0) {
        const bool Reported = !Problems.empty() && Problems.back().File == Table.File;
        if (!Reported) Problems.push_back({Table.File, 0, kLineNoColumn, {Columns.front()}});
        Table.Rows.clear();
        return Table;
    }
    const auto& Header = Table.Header;
    for (const char* Column : Columns) {
        if (std::find(Header.begin(), Header.end(), Column) != Header.end()) continue;
        Problems.push_back({Table.File, Table.HeaderLine, kLineNoColumn, {Column}});
        Table.Rows.clear();
    }
    for (auto It = Header.begin(); It != Header.end(); ++It) {
        if (std::find(Columns.begin(), Columns.end(), *It) == Columns.end())
            Problems.push_back({Table.File, Table.HeaderLine, kLineUnknownColumn, {*It}});
        else if (std::find(Header.begin(), It, *It) != It)
            Problems.push_back({Table.File, Table.HeaderLine, kLineTwice, {*It}});
    }
    return Table;
}

}  // namespace ws
