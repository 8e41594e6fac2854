// SPDX-License-Identifier: Apache-2.0
// A table view that shows a data source.
#include <optional>

#include "tests/framework/controls/GridFixture.h"

namespace fw {
namespace {

using testing::ElementsAre;

class TSquares : public TCustomDataControl {
public:
    int32_t Count = 2000000000;
    int32_t GetCount() override {
        if (Fails) throw std::runtime_error("count");
        return Count;
    }
    Variant GetValue(int32_t RecordIndex, int32_t Attribute) override {
        return Variant(static_cast<double>(RecordIndex) * RecordIndex + Attribute);
    }
    Text GetDisplayValue(int32_t RecordIndex, int32_t Attribute) override {
        if (Fails) throw std::runtime_error("display");
        return std::to_string(RecordIndex) + "^2+" + std::to_string(Attribute);
    }
    bool Fails = false;
};

class GridBindingTest : public TGridFixture {
protected:
    GridBindingTest() {
        Source.emplace([this] {
            auto Made = std::make_unique<TSquares>();
            Squares = Made.get();
            return Made;
        });
        Links += View.OnRecordsChanged.Connect([this] { ++Reloads; });
        View.SetCustomDataSource(&*Source);
    }
    TSquares* Squares = nullptr;
    std::optional<TCustomGridDataSource> Source;
    int Reloads = 0;
};

TEST_F(GridBindingTest, RecordsAndValuesAreTheDataControls) {
    EXPECT_EQ(View.GetDataControl(), Squares);
    EXPECT_EQ(Reloads, 1);
    EXPECT_EQ(Data.GetRecordCount(), 2000000000);
    EXPECT_EQ(Cell(3, kPremium), Variant(112.0)) << "asked by the column's tag";
    EXPECT_EQ(View.GetCellText(1999999999, kPremium), "1999999999^2+103");
    EXPECT_TRUE(Cell(2000000000, 0).IsNull());
    EXPECT_TRUE(Cell(-1, 0).IsNull());
}

TEST_F(GridBindingTest, TheFormMayReplaceTheText) {
    View.GetColumn(0)->OnGetDisplayText = [](TGridColumn&, int, Text& Shown) { Shown += "!"; };
    EXPECT_EQ(View.GetCellText(2, 0), "2^2+0!");
}

TEST_F(GridBindingTest, NothingIsWrittenOrEdited) {
    Data.SetValue(0, 0, "x");
    EXPECT_EQ(Cell(0, 0), Variant(0.0));
    Data.SetRecordCount(5);
    Data.DeleteRecord(0);
    EXPECT_EQ(Data.GetRecordCount(), 2000000000);
    EXPECT_EQ(View.StartEdit(0, 0), nullptr);
    View.OnEditing = [](TGridTableView&, TGridColumn&, bool& Allow) { Allow = true; };
    EXPECT_EQ(View.StartEdit(0, 0), nullptr);
    EXPECT_FALSE(View.CanEdit(0, 0));
}

TEST_F(GridBindingTest, ChangedDataReloadsAndKeepsTheFocusInRange) {
    View.SetFocusedCell(1000, 0);
    Squares->Count = 10;
    Squares->NotifyDataChanged();
    EXPECT_EQ(Reloads, 2);
    EXPECT_EQ(View.GetFocusedRecord(), 9);
    Squares->Count = 0;
    Squares->NotifyDataChanged();
    EXPECT_EQ(View.GetFocusedRecord(), -1);
}

TEST_F(GridBindingTest, ASourceThatDiesIsForgotten) {
    View.SetFocusedCell(1000, 0);
    Source.reset();
    EXPECT_EQ(View.GetDataControl(), nullptr);
    EXPECT_EQ(Data.GetRecordCount(), 3) << "the view's own cells again";
    EXPECT_EQ(View.GetFocusedRecord(), -1);
    EXPECT_EQ(Reloads, 2);
    Data.SetValue(0, kMemo, "x");
    EXPECT_EQ(Cell(0, kMemo), Variant("x"));
}

TEST_F(GridBindingTest, AnUnboundSourceIsNotHeardAnyMore) {
    View.SetCustomDataSource(nullptr);
    View.SetCustomDataSource(nullptr);
    EXPECT_EQ(Reloads, 2);
    Squares->NotifyDataChanged();
    EXPECT_EQ(Reloads, 2);
}

TEST_F(GridBindingTest, ASourceMayOutliveTheView) {
    {
        TGridTableView Brief;
        Brief.SetCustomDataSource(&*Source);
    }
    Squares->NotifyDataChanged();
    EXPECT_EQ(Reloads, 2);
}

TEST_F(GridBindingTest, ADataControlThatThrowsShowsNothing) {
    Squares->Fails = true;
    EXPECT_EQ(Data.GetRecordCount(), 0);
    EXPECT_THAT(TakeLog(), ElementsAre("E Res_LogHandlerFailed|grid.GetCount|count"));
}

TEST_F(GridBindingTest, ANegativeCountIsNoRecords) {
    Squares->Count = -5;
    EXPECT_EQ(Data.GetRecordCount(), 0);
}

TEST_F(GridBindingTest, BindingCancelsTheEditor) {
    View.SetCustomDataSource(nullptr);
    Type(0, kMemo, "lost");
    View.SetCustomDataSource(&*Source);
    EXPECT_EQ(View.GetEditor(), nullptr);
    View.SetCustomDataSource(nullptr);
    EXPECT_TRUE(Cell(0, kMemo).IsNull());
}

}  // namespace
}  // namespace fw
