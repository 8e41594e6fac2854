// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/store/SamplePriceSteps.h"

#include <map>

#include "workstation/store/SampleLine.h"

namespace ws {
namespace {

constexpr double kHighestEdge = 1e12;
constexpr double kSmallestStep = 1e-6;
constexpr double kSamePrice = 1e-7;  // two edges closer than that are one

struct TTable {
    std::vector<TSpreadBandRow> Bands;
    bool Refused = false;
};

// True: the band was added. Otherwise the line has failed.
bool AddBand(TSampleLine& Line, TTable& Table, TSpreadBandRow Row) {
    Row.Kind = Line.OptionalWhole("Kind", 1, 1, 9);
    if (Line.Text("From").empty() && Line.Text("Step").empty()) Line.Fail(kLineStepsNone, {Row.Code});
    Row.Lower = Line.Number("From", -kHighestEdge, kHighestEdge);
    Row.Step = Line.Number("Step", kSmallestStep, kHighestEdge);
    if (!Line.Good()) return false;
    if (!Table.Bands.empty()) {
        const TSpreadBandRow& Below = Table.Bands.back();
        if (Row.Kind != Below.Kind) Line.Fail(kLineStepsKinds, {Row.Code});
        if (!(Row.Lower - Below.Lower > kSamePrice)) Line.Fail(kLineStepsOverlap, {Row.Code, Line.Text("From")});
    }
    if (Line.Good()) Table.Bands.push_back(std::move(Row));
    return Line.Good();
}

bool IsOfTable(const std::string& Key) {
    return Key == kLineStepsOverlap || Key == kLineStepsKinds || Key == kLineStepsNone;
}

}  // namespace

TSamplePriceSteps ReadPriceSteps(const std::filesystem::path& Folder, std::vector<TLineProblem>& Problems) {
    std::map<std::string, TTable> Tables;
    const TCsvTable File = ReadSampleFile(Folder, "price-steps.csv", {"Code", "Kind", "From", "Step"}, Problems);
    for (const auto& Row : File.Rows) {
        TSampleLine Line(File, Row, Problems);
        const std::string Code = Line.Required("Code");
        if (!Line.Good()) continue;
        TTable& Table = Tables[Code];
        if (Table.Refused || AddBand(Line, Table, {Code})) continue;
        Table.Refused = true;
        // A reason of the line alone does not say what becomes of the table.
        if (!IsOfTable(Problems.back().Key)) Problems.push_back({File.File, Row.Line, kLineStepsDropped, {Code}});
    }
    TSamplePriceSteps Steps;
    for (const auto& [Code, Table] : Tables) {
        Steps.Codes.insert(Code);
        if (!Table.Refused) Steps.Bands.insert(Steps.Bands.end(), Table.Bands.begin(), Table.Bands.end());
    }
    return Steps;
}

}  // namespace ws
