// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/store/CsvTable.h"

#include <csv.h>

#include <algorithm>
#include <fstream>
#include <utility>

namespace ws {
namespace {

// Feeds libcsv line by line, which is how the line numbers are known.
class TCsvFeed {
public:
    TCsvFeed(TCsvTable& Table, std::vector<TLineProblem>& Problems) : FTable(Table), FProblems(Problems) {
        csv_init(&FParser, CSV_STRICT | CSV_STRICT_FINI);
    }
    ~TCsvFeed() { csv_free(&FParser); }
    TCsvFeed(const TCsvFeed&) = delete;
    TCsvFeed& operator=(const TCsvFeed&) = delete;

    // Text is one line with its line ending. False: the rest of the file cannot be understood.
    bool Line(int Number, const std::string& Text) {
        if (!FInQuotes) {
            if (!Text.empty() && Text.front() == '#') return true;
            FStart = Number;
        }
        if (std::count(Text.begin(), Text.end(), '"') % 2 != 0) FInQuotes = !FInQuotes;
        if (csv_parse(&FParser, Text.data(), Text.size(), OnCell, OnRow, this) == Text.size()) return true;
        FProblems.push_back({FTable.File, FStart, kLineBrokenQuote, {}});
        return false;
    }

    void End() {
        if (csv_fini(&FParser, OnCell, OnRow, this) != 0)
            FProblems.push_back({FTable.File, FStart, kLineBrokenQuote, {}});
    }

private:
    static void OnCell(void* Cell, size_t Size, void* Self) {
        static_cast<TCsvFeed*>(Self)->FCells.emplace_back(static_cast<const char*>(Cell), Size);
    }
    static void OnRow(int, void* Self) { static_cast<TCsvFeed*>(Self)->Row(); }

    void Row() {
        std::vector<std::string> Cells = std::exchange(FCells, {});
        if (FTable.HeaderLine == 0) {
            FTable.HeaderLine = FStart;
            FTable.Header = std::move(Cells);
        } else if (Cells.size() != FTable.Header.size()) {
            FProblems.push_back({FTable.File,
                                 FStart,
                                 kLineCellCount,
                                 {std::to_string(Cells.size()), std::to_string(FTable.Header.size())}});
        } else {
            FTable.Rows.push_back({FStart, std::move(Cells)});
        }
    }

    TCsvTable& FTable;
    std::vector<TLineProblem>& FProblems;
    csv_parser FParser{};
    std::vector<std::string> FCells;
    bool FInQuotes = false;
    int FStart = 0;
};

}  // namespace

TCsvTable ReadCsv(const std::filesystem::path& Path, std::vector<TLineProblem>& Problems) {
    TCsvTable Table;
    Table.File = Path.filename().string();
    std::ifstream In(Path, std::ios::binary);
    if (!In) {
        Problems.push_back({Table.File, 0, kLineNoFile, {}});
        return Table;
    }
    TCsvFeed Feed(Table, Problems);
    std::string Text;
    for (int Number = 1; std::getline(In, Text); ++Number) {
        if (Number == 1 && Text.starts_with("\xEF\xBB\xBF")) Text.erase(0, 3);
        if (!In.eof()) Text += '\n';
        if (!Feed.Line(Number, Text)) return Table;
    }
    Feed.End();
    return Table;
}

}  // namespace ws
