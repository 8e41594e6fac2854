// SPDX-License-Identifier: Apache-2.0
// The model of a table with as many rows as 32 bits count: nothing is done for each of them.
#include <optional>

#include "framework/controls/GridNavigation.h"
#include "framework/controls/GridText.h"
#include "tests/framework/controls/LogFixture.h"

namespace fw {
namespace {

using testing::ElementsAre;

constexpr int32_t kMost = 2147483647;

class TCounted : public TCustomDataControl {
public:
    int32_t Count = kMost;
    int Asked = 0;  // calls, of whatever kind, that are about one row
    int32_t GetCount() override { return Count; }
    Variant GetValue(int32_t Record, int32_t) override { return ++Asked, Variant(static_cast<double>(Record)); }
    Text GetDisplayValue(int32_t Record, int32_t) override { return ++Asked, std::to_string(Record); }
    bool GetRowValue(int32_t, void*&) override { return ++Asked, false; }
};

class GridLong : public TLogFixture {
protected:
    GridLong() {
        Column.Sorting = Column.Editing = true;
        View.SetCustomDataSource(&Source);
        Rows().Asked = 0;
    }
    TCounted& Rows() { return static_cast<TCounted&>(*Source.GetDataControl()); }

    TCustomGridDataSource Source{[] { return std::make_unique<TCounted>(); }};
    TGridTableView View;
    TGridColumn& Column = View.CreateColumn();
    TGridSelection& Selection = View.GetSelection();
};

TEST_F(GridLong, SelectingIsARangeAndAsksForItsEndsOnly) {
    const struct {
        const char* What;
        std::function<void()> Do;
        int First, Last, Current;
    } Steps[] = {
        {"all", [this] { Selection.SelectAll(); }, 0, kMost - 1, kMost - 1},
        {"the last", [this] { Selection.Select(kMost - 1); }, kMost - 1, kMost - 1, kMost - 1},
        {"behind the last", [this] { Selection.Select(kMost); }, kMost - 1, kMost - 1, kMost - 1},
        {"from there to the first", [this] { Selection.Select(0, true); }, 0, kMost - 1, 0},
        {"data that changed", [this] { Rows().NotifyDataChanged(); }, 0, kMost - 1, 0},
    };
    for (const auto& Step : Steps) {
        SCOPED_TRACE(Step.What);
        Rows().Asked = 0;
        Step.Do();
        EXPECT_EQ(Selection.GetFirst(), Step.First);
        EXPECT_EQ(Selection.GetLast(), Step.Last);
        EXPECT_EQ(Selection.GetCurrent(), Step.Current);
        EXPECT_TRUE(Selection.Contains(Step.Last));
        EXPECT_FALSE(Selection.Contains(-1));
        EXPECT_LE(Rows().Asked, 2);
    }
    Rows().Count = kMost - 1;
    Rows().NotifyDataChanged();
    EXPECT_TRUE(Selection.IsEmpty()) << "one of its rows is gone";
}

TEST_F(GridLong, TheFocusStopsAtTheLastCell) {
    View.SetFocusedCell(kMost - 1, 0);
    EXPECT_EQ(View.GetFocusedRecord(), kMost - 1);
    EXPECT_TRUE(MoveCell(View, kMost, 0));
    EXPECT_EQ(View.GetFocusedRecord(), kMost - 1);
    EXPECT_FALSE(MoveToEditable(View, true));
    EXPECT_EQ(View.GetFocusedRecord(), kMost - 1);
    EXPECT_TRUE(MoveCell(View, -kMost, 0));
    EXPECT_EQ(View.GetFocusedRecord(), 0);
    EXPECT_TRUE(MoveToInputRow(View));
    EXPECT_EQ(View.GetFocusedRecord(), kMost - 1);
    EXPECT_EQ(View.StartEdit(kMost - 1, 0), nullptr);
    EXPECT_EQ(Rows().Asked, 0);
}

TEST_F(GridLong, AnyRowIsReadAloneInAnyForm) {
    EXPECT_EQ(View.GetCellText(kMost - 1, 0), "2147483646");
    EXPECT_EQ(View.GetCellText(kMost, 0), "");
    EXPECT_EQ(Rows().Asked, 1);
    EXPECT_EQ(TGridText(View, ETextForm::Csv).Record(kMost - 1), "2147483646\r\n");
    EXPECT_EQ(TGridText(View, ETextForm::Tabs).Record(kMost - 1), "2147483646\n");
    EXPECT_EQ(Rows().Asked, 3);
}

// Sorting asked for every value and held it: a click on a caption took all memory.
TEST_F(GridLong, ItIsNotSorted) {
    View.SortBy(0);
    EXPECT_EQ(View.GetSortedColumn(), -1);
    EXPECT_EQ(View.GetSortOrder(), ESortOrder::None);
    EXPECT_EQ(Rows().Asked, 0);
    EXPECT_THAT(TakeLog(), ElementsAre("W Res_LogNotSorted|2,147,483,647|1,000,000"));
    Rows().Count = 3;
    Rows().NotifyDataChanged();
    View.SortBy(0);
    View.SortBy(0);
    EXPECT_EQ(View.GetCellText(0, 0), "2");
    Rows().Count = kMostSorted + 1;
    Rows().Asked = 0;
    Rows().NotifyDataChanged();
    EXPECT_EQ(View.GetSortedColumn(), -1) << "it grew too long";
    EXPECT_THAT(TakeLog(), ElementsAre("W Res_LogNotSorted|1,000,001|1,000,000"));
    EXPECT_EQ(Rows().Asked, 0);
    EXPECT_EQ(View.GetCellText(0, 0), "0");
}

}  // namespace
}  // namespace fw
