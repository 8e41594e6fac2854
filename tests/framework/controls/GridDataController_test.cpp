// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/GridDataController.h"

#include "tests/framework/controls/GridFixture.h"

namespace fw {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class GridDataControllerTest : public TGridFixture {
protected:
    void NumberRecords() {
        for (int Record = 0; Record < Data.GetRecordCount(); ++Record)
            Data.SetValue(Record, kMemo, std::to_string(Record));
    }
};

TEST_F(GridDataControllerTest, ReadsOutOfRangeAreNullAndWritesDoNothing) {
    struct TCase {
        const char* Why;
        int Record, Column;
    };
    const TCase Cases[] = {
        {"record below", -1, 0}, {"record beyond", 3, 0}, {"column below", 0, -1}, {"column beyond", 0, 6}};
    int Told = 0;
    Links += View.OnCellChanged.Connect([&](int, int) { ++Told; });
    for (const auto& c : Cases) {
        SCOPED_TRACE(c.Why);
        Data.SetValue(c.Record, c.Column, "x");
        EXPECT_TRUE(Cell(c.Record, c.Column).IsNull());
    }
    EXPECT_EQ(Told, 0);
    EXPECT_EQ(Data.GetRecordCount(), 3);
}

TEST_F(GridDataControllerTest, NewRecordsAreNullAndAShrunkTailIsForgotten) {
    NumberRecords();
    Data.SetRecordCount(1);
    Data.SetRecordCount(3);
    EXPECT_EQ(Cell(0, kMemo), Variant("0"));
    EXPECT_TRUE(Cell(1, kMemo).IsNull());
    EXPECT_TRUE(Cell(2, kMemo).IsNull());
    Data.SetRecordCount(-1);
    EXPECT_EQ(Data.GetRecordCount(), 3);
    Data.SetRecordCount(0);
    EXPECT_EQ(Data.GetRecordCount(), 0);
}

TEST_F(GridDataControllerTest, CellsKeepTheKindThatWasWritten) {
    for (const Variant& Value : {Variant(1), Variant(1.0), Variant("1"), Variant("")}) {
        Data.SetValue(0, kMemo, Value);
        EXPECT_EQ(Cell(0, kMemo), Value);
    }
    Data.SetValue(0, kMemo, Variant());
    EXPECT_TRUE(Cell(0, kMemo).IsNull());
}

TEST_F(GridDataControllerTest, ACellIsToldWhenItChanges) {
    TSteps Told;
    Links +=
        View.OnCellChanged.Connect([&](int R, int C) { Told.push_back(std::to_string(R) + "," + std::to_string(C)); });
    Data.SetValue(1, kMemo, "x");
    Data.SetValue(1, kMemo, "x");
    Data.SetValue(2, kSymbol, Variant());
    EXPECT_THAT(Told, ElementsAre("1,4"));
}

TEST_F(GridDataControllerTest, DeletingMovesTheLaterRecordsUp) {
    NumberRecords();
    int Told = 0;
    Links += View.OnRecordsChanged.Connect([&] { ++Told; });
    Data.DeleteRecord(1);
    EXPECT_EQ(Data.GetRecordCount(), 2);
    EXPECT_EQ(Cell(1, kMemo), Variant("2"));
    Data.DeleteRecord(2);
    Data.DeleteRecord(-1);
    EXPECT_EQ(Data.GetRecordCount(), 2);
    EXPECT_EQ(Told, 1);
}

TEST_F(GridDataControllerTest, TheFocusMovesWithTheRecords) {
    struct TCase {
        const char* Why;
        int Count, Focused, Deleted, After;
    };
    const TCase Cases[] = {
        {"a later record", 3, 0, 2, 0},
        {"an earlier record", 3, 2, 0, 1},
        {"itself: the next takes its place", 3, 1, 1, 1},
        {"itself, the last one", 3, 2, 2, 1},
        {"itself, the only one", 1, 0, 0, -1},
    };
    for (const auto& c : Cases) {
        SCOPED_TRACE(c.Why);
        Data.SetRecordCount(c.Count);
        View.SetFocusedCell(c.Focused, kMemo);
        ASSERT_EQ(View.GetFocusedRecord(), c.Focused);
        Data.DeleteRecord(c.Deleted);
        EXPECT_EQ(View.GetFocusedRecord(), c.After);
        EXPECT_EQ(View.GetFocusedColumn(), kMemo);
    }
}

TEST_F(GridDataControllerTest, ShrinkingTakesTheFocusToTheLastRecordLeft) {
    View.SetFocusedCell(2, kMemo);
    Data.SetRecordCount(2);
    EXPECT_EQ(View.GetFocusedRecord(), 1);
    Data.SetRecordCount(0);
    EXPECT_EQ(View.GetFocusedRecord(), -1);
}

TEST_F(GridDataControllerTest, AnEditorInTheDeletedRecordIsCancelled) {
    Type(1, kMemo, "lost");
    Data.DeleteRecord(1);
    EXPECT_EQ(View.GetEditor(), nullptr);
    EXPECT_THAT(Editors, ElementsAre("open", "closed"));
    EXPECT_THAT(Edits, IsEmpty());
    for (int Record = 0; Record < 2; ++Record) EXPECT_TRUE(Cell(Record, kMemo).IsNull());
}

TEST_F(GridDataControllerTest, AnEditorInALaterRecordPostsIntoItsOwn) {
    NumberRecords();
    const TCellEditor& Editor = Type(2, kMemo, "two");
    Data.DeleteRecord(0);
    EXPECT_EQ(Editor.GetRecord(), 1);
    View.PostEditor();
    EXPECT_EQ(Cell(0, kMemo), Variant("1"));
    EXPECT_EQ(Cell(1, kMemo), Variant("two"));
    EXPECT_THAT(Edits, ElementsAre("1,4: two > two"));
}

TEST_F(GridDataControllerTest, AnEditorInAnEarlierRecordStays) {
    const TCellEditor& Editor = Type(0, kMemo, "zero");
    Data.DeleteRecord(2);
    EXPECT_EQ(View.GetEditor(), &Editor);
    EXPECT_EQ(Editor.GetRecord(), 0);
}

TEST_F(GridDataControllerTest, AnEditorInADroppedTailIsCancelled) {
    Type(2, kMemo, "lost");
    Data.SetRecordCount(2);
    EXPECT_EQ(View.GetEditor(), nullptr);
    Type(1, kMemo, "kept");
    Data.SetRecordCount(5);
    EXPECT_NE(View.GetEditor(), nullptr);
}

TEST_F(GridDataControllerTest, AnUntouchedEditorTakesOverWhatIsWrittenIntoItsCell) {
    TCellEditor* Editor = View.StartEdit(0, kSymbol);
    Data.SetValue(0, kSymbol, "HSI");
    EXPECT_EQ(Editor->GetText(), "HSI");
    EXPECT_FALSE(Editor->IsModified());
    Editor->SetEditText("typed");
    Data.SetValue(0, kSymbol, "MHI");
    EXPECT_EQ(Editor->GetText(), "typed") << "the user's text stays";
    Data.SetValue(1, kSymbol, "other");
    EXPECT_EQ(Editor->GetText(), "typed");
}

TEST_F(GridDataControllerTest, AChoiceOfTheOpenPopupReplacesWhatWasTyped) {
    TPopupControl Selector;
    Popup->PopupControl = &Selector;
    TCellEditor& Editor = Type(0, kSymbol, "HS");
    Editor.OpenList();
    Data.SetValue(0, kSymbol, "HSI");
    EXPECT_EQ(Editor.GetText(), "HSI");
    View.PostEditor();
    EXPECT_EQ(Cell(0, kSymbol), Variant("HSI"));
    EXPECT_THAT(Edits, IsEmpty());
}

}  // namespace
}  // namespace fw
