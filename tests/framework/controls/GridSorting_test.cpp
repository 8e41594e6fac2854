// SPDX-License-Identifier: Apache-2.0
// Order and selection of a table view that shows a data source.
#include <cmath>
#include <limits>
#include <memory>
#include <optional>

#include "framework/controls/GridText.h"
#include "tests/framework/controls/GridFixture.h"

namespace fw {
namespace {

using testing::ElementsAre;

enum { kName = 1, kNumber = 2 };

class TPeople : public TCustomDataControl {
public:
    struct TRow {
        Text Name;
        Variant Number;
    };
    std::vector<std::unique_ptr<TRow>> Rows;
    bool KnowsRows = true;

    void Add(Text Name, Variant Number) {
        Rows.insert(Rows.begin(), std::make_unique<TRow>(TRow{std::move(Name), std::move(Number)}));
    }
    int32_t GetCount() override { return static_cast<int32_t>(Rows.size()); }
    Variant GetValue(int32_t Record, int32_t Attribute) override {
        const TRow& Row = *Rows[static_cast<size_t>(Record)];
        return Attribute == kName ? Variant(Row.Name) : Row.Number;
    }
    Text GetDisplayValue(int32_t Record, int32_t Attribute) override { return GetValue(Record, Attribute).AsText(); }
    bool GetRowValue(int32_t Record, void*& Value) override {
        if (KnowsRows) Value = Rows[static_cast<size_t>(Record)].get();
        return KnowsRows;
    }
};

class GridSortingTest : public TLogFixture {
protected:
    GridSortingTest() {
        Source.emplace([this] {
            auto Made = std::make_unique<TPeople>();
            People = Made.get();
            return Made;
        });
        for (int Tag : {kName, kNumber}) {
            TGridColumn& Column = View.CreateColumn();
            Column.Tag = Tag;
            Column.Sorting = true;
        }
        for (const auto& [Name, Number] : std::vector<std::pair<const char*, Variant>>{
                 {"e", 10.0}, {"d", Variant()}, {"c", 9.0}, {"b", 9.0}, {"a", 100}})
            People->Add(Name, Number);
        View.SetCustomDataSource(&*Source);
        Links += View.OnRecordsChanged.Connect([this] { ++Reloads; });
    }
    Text Names() {
        Text Result;
        for (int i = 0; i < View.GetDataController().GetRecordCount(); ++i) Result += View.GetCellText(i, 0);
        return Result;
    }
    Text Selected() {
        Text Result;
        for (int i = 0; i < View.GetDataController().GetRecordCount(); ++i)
            if (Selection.Contains(i)) Result += View.GetCellText(i, 0);
        return Result;
    }

    TGridTableView View;
    TGridSelection& Selection = View.GetSelection();
    TPeople* People = nullptr;
    std::optional<TCustomGridDataSource> Source;
    TConnections Links;
    int Reloads = 0;
};

TEST_F(GridSortingTest, AColumnSortsUpThenDownThenNotAtAll) {
    EXPECT_EQ(Names(), "abcde");
    View.SortBy(1);
    EXPECT_EQ(Names(), "bcead") << "numbers as numbers, equal ones as the data come, those without a value last";
    EXPECT_EQ(View.GetSortedColumn(), 1);
    EXPECT_EQ(View.GetSortOrder(), ESortOrder::Ascending);
    EXPECT_EQ(View.GetDataRecord(2), 4);
    View.SortBy(1);
    EXPECT_EQ(Names(), "aebcd");
    EXPECT_EQ(View.GetSortOrder(), ESortOrder::Descending);
    View.SortBy(1);
    EXPECT_EQ(Names(), "abcde");
    EXPECT_EQ(View.GetSortedColumn(), -1);
    EXPECT_EQ(Reloads, 3);
}

TEST_F(GridSortingTest, AnotherColumnBeginsAnewAndOneWithoutSortingDoesNothing) {
    View.SortBy(1);
    View.SortBy(0);
    View.SortBy(0);
    EXPECT_EQ(Names(), "edcba");
    View.GetColumn(1)->Sorting = false;
    View.SortBy(1);
    View.SortBy(7);
    EXPECT_EQ(Names(), "edcba");
    View.ClearColumns();
    EXPECT_EQ(View.GetSortedColumn(), -1);
}

TEST_F(GridSortingTest, ChangedDataStaySorted) {
    View.SortBy(1);
    People->Add("f", 9.5);
    People->Rows[1]->Number = std::numeric_limits<double>::quiet_NaN();  // a
    People->NotifyDataChanged();
    EXPECT_EQ(Names(), "bcfead") << "what is no number counts as none";
    EXPECT_EQ(TGridText(View, ETextForm::Tabs).Record(2), "f\t9.5\n") << "copied as it is seen";
}

TEST_F(GridSortingTest, TheSelectionStaysWithItsRowsAndNoneJoins) {
    Selection.Select(1);
    Selection.Select(2, true);
    EXPECT_EQ(Selected(), "bc");
    People->Add("f", 9.0);
    People->Rows.insert(People->Rows.begin() + 3, std::make_unique<TPeople::TRow>(TPeople::TRow{"x", 9.0}));
    People->NotifyDataChanged();
    EXPECT_EQ(Names(), "fabxcde");
    EXPECT_EQ(Selected(), "bc") << "what came between them was never chosen";
    EXPECT_EQ(Selection.GetFirst(), 2);
    EXPECT_EQ(Selection.GetLast(), 4);
    EXPECT_EQ(View.GetCellText(Selection.GetCurrent(), 0), "c");
    View.SortBy(0);
    View.SortBy(0);
    EXPECT_EQ(Names(), "xfedcba");
    EXPECT_EQ(Selected(), "cb");
    EXPECT_EQ(View.GetCellText(Selection.GetCurrent(), 0), "c");
    Selection.Select(Selection.GetCurrent() - 1, true);
    EXPECT_EQ(Selected(), "dcb") << "the anchor went along";
}

TEST_F(GridSortingTest, RowsThatAreGoneAreNotSelected) {
    Selection.Select(1);
    Selection.Select(3, true);
    People->Rows.erase(People->Rows.begin() + 3);  // d, the current one
    People->NotifyDataChanged();
    EXPECT_EQ(Selected(), "bc");
    EXPECT_EQ(Selection.GetCurrent(), 1);
    People->Rows.clear();
    People->NotifyDataChanged();
    EXPECT_TRUE(Selection.IsEmpty());
    EXPECT_EQ(Selection.GetFirst(), -1);
    Selection.Select(0);
    EXPECT_TRUE(Selection.IsEmpty());
}

TEST_F(GridSortingTest, WithoutRowObjectsTheRangeStays) {
    People->KnowsRows = false;
    Selection.Select(1);
    Selection.Select(2, true);
    People->Add("f", 1.0);
    People->NotifyDataChanged();
    EXPECT_EQ(Selected(), "ab");
    People->Rows.resize(2);
    People->NotifyDataChanged();
    EXPECT_TRUE(Selection.IsEmpty());
}

TEST_F(GridSortingTest, SelectingStopsAtTheEdges) {
    int Told = 0;
    Links += Selection.OnChanged.Connect([&Told] { ++Told; });
    Selection.Select(99);
    EXPECT_EQ(Selection.GetCurrent(), 4);
    Selection.Select(-5, true);
    EXPECT_EQ(Selected(), "abcde");
    Selection.Select(2);
    Selection.SelectAll();
    EXPECT_EQ(Selection.GetCurrent(), 4);
    EXPECT_EQ(Selection.GetFirst(), 0);
    EXPECT_EQ(Told, 4);
}

TEST_F(GridSortingTest, ActivatingGivesTheCurrentRecord) {
    std::vector<Text> Seen;
    View.OnActivate = [&Seen](TGridTableView& Sender, int Record) { Seen.push_back(Sender.GetCellText(Record, 0)); };
    View.Activate();
    EXPECT_TRUE(Seen.empty());
    Selection.Select(1);
    View.SortBy(1);
    View.Activate();
    EXPECT_THAT(Seen, ElementsAre("b"));
    View.OnActivate = [](TGridTableView&, int) { throw std::runtime_error("handler"); };
    View.Activate();
    EXPECT_THAT(TakeLog(), ElementsAre("E Res_LogHandlerFailed|OnActivate|handler"));
}

TEST_F(GridSortingTest, AHintIsTheCellsTextOrTheForms) {
    EXPECT_EQ(View.GetCellHint(0, 0), "");
    View.Options.CellHints = true;
    EXPECT_EQ(View.GetCellHint(0, 0), "a");
    View.GetColumn(0)->OnGetHint = [](TGridColumn&, int Record, Text& Hint) { Hint += std::to_string(Record); };
    EXPECT_EQ(View.GetCellHint(1, 0), "b1");
    EXPECT_EQ(View.GetCellHint(9, 0), "");
}

}  // namespace
}  // namespace fw
