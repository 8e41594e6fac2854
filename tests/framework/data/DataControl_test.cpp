// SPDX-License-Identifier: Apache-2.0
#include "framework/data/DataControl.h"

#include <gtest/gtest.h>

#include "framework/data/GridDataSource.h"

namespace fw {
namespace {

TEST(DataControl, BaseHasNothing) {
    TObject Owner;
    TCustomDataControl Control(&Owner);
    EXPECT_EQ(Control.GetOwner(), &Owner);
    EXPECT_EQ(Control.GetCount(), 0);
    EXPECT_TRUE(Control.GetValue(0, 3).IsNull());
    EXPECT_EQ(Control.GetDisplayValue(0, 3), "");
    int Sentinel = 0;
    void* Value = &Sentinel;
    EXPECT_FALSE(Control.GetRowValue(0, Value));
    EXPECT_FALSE(Control.GetColValue(0, Value));
    EXPECT_EQ(Value, &Sentinel) << "left alone";
    EXPECT_EQ(Control.GetColList(), nullptr);
}

TEST(DataControl, EmptyCellTextIsEmptyUnlessSet) {
    TCustomDataControl Control;
    EXPECT_EQ(Control.GetEmptyCellText(), "");
    Control.SetEmptyCellText("-");
    EXPECT_EQ(Control.GetEmptyCellText(), "-");
}

TEST(DataControl, TellsThatRowsChanged) {
    TCustomDataControl Control;
    Control.NotifyDataChanged();
    int Calls = 0;
    const auto Link = Control.OnChanged.Connect([&] { ++Calls; });
    Control.NotifyDataChanged();
    Control.NotifyDataChanged();
    EXPECT_EQ(Calls, 2);
}

class TMortalControl : public TCustomDataControl {
public:
    explicit TMortalControl(bool& Alive) : FAlive(Alive) { FAlive = true; }
    ~TMortalControl() override { FAlive = false; }

private:
    bool& FAlive;
};

TEST(GridDataSource, OwnsItsDataControlAndSaysGoodbyeFirst) {
    bool Alive = false, AliveAtGoodbye = false;
    auto Source = std::make_unique<TCustomGridDataSource>([&] { return std::make_unique<TMortalControl>(Alive); });
    EXPECT_TRUE(Alive);
    EXPECT_NE(dynamic_cast<TMortalControl*>(Source->GetDataControl()), nullptr);
    const auto Link = Source->OnDestroyed.Connect([&] { AliveAtGoodbye = Alive; });
    Source.reset();
    EXPECT_TRUE(AliveAtGoodbye);
    EXPECT_FALSE(Alive);
}

TEST(ColumnInfo, IsVisibleAndNotEditable) {
    const auto Info = TColumnInfo::AddColumn(11, "Res_Side", 60);
    EXPECT_EQ(Info->Id, 11);
    EXPECT_EQ(Info->CaptionKey, "Res_Side");
    EXPECT_EQ(Info->Width, 60);
    EXPECT_EQ(Info->MinWidth, 0);
    EXPECT_EQ(Info->Value, "");
    EXPECT_TRUE(Info->Visible);
    EXPECT_FALSE(Info->Editable);
    EXPECT_FALSE(Info->Numeric);
    EXPECT_FALSE(Info->RightAlignedText);
    EXPECT_EQ(Info->HeaderAlignment, EAlignment::Left);
}

TEST(ColumnInfo, NumericColumnIsRightAligned) {
    const auto Info = TColumnInfo::AddColumn(607, "Res_PL", 50, "preset", true);
    EXPECT_TRUE(Info->Numeric);
    EXPECT_TRUE(Info->RightAlignedText);
    EXPECT_EQ(Info->HeaderAlignment, EAlignment::Right);
    EXPECT_EQ(Info->Value, "preset");
}

}  // namespace
}  // namespace fw
