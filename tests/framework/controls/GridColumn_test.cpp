// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/GridColumn.h"

#include "tests/framework/controls/GridFixture.h"

namespace fw {
namespace {

using testing::ElementsAre;

class GridColumnTest : public TGridFixture {
protected:
    std::vector<int> Tags() const {
        std::vector<int> Result;
        for (int Index = 0; Index < View.GetColumnCount(); ++Index) Result.push_back(View.GetColumn(Index)->Tag);
        return Result;
    }
};

TEST_F(GridColumnTest, ColumnsStandInTheOrderOfTheirCreation) {
    EXPECT_THAT(Tags(), ElementsAre(0, 11, 103, 4, 7, 27));
    EXPECT_EQ(View.GetColumn(2)->GetIndex(), 2);
    EXPECT_EQ(View.GetColumn(-1), nullptr);
    EXPECT_EQ(View.GetColumn(6), nullptr);
}

TEST_F(GridColumnTest, CellsMoveWithTheirColumn) {
    struct TCase {
        const char* Why;
        int From, To;
        std::vector<int> Tags;
    };
    const TCase Cases[] = {
        {"to the right", 0, 3, {11, 103, 4, 0, 7, 27}}, {"back to the left", 3, 0, {0, 11, 103, 4, 7, 27}},
        {"to the end", 1, 5, {0, 103, 4, 7, 27, 11}},   {"from the end", 5, 1, {0, 11, 103, 4, 7, 27}},
        {"onto itself", 2, 2, {0, 11, 103, 4, 7, 27}},  {"from nowhere", 6, 0, {0, 11, 103, 4, 7, 27}},
        {"to nowhere", 0, -1, {0, 11, 103, 4, 7, 27}},
    };
    for (int Column = 0; Column < 4; ++Column) Data.SetValue(1, Column, Tags()[static_cast<size_t>(Column)]);
    for (const auto& c : Cases) {
        SCOPED_TRACE(c.Why);
        View.MoveColumn(c.From, c.To);
        EXPECT_EQ(Tags(), c.Tags);
        for (int Column = 0; Column < 6; ++Column) {
            const int Tag = View.GetColumn(Column)->Tag;
            const bool Written = Tag != 7 && Tag != 27;
            EXPECT_EQ(Cell(1, Column), Written ? Variant(Tag) : Variant());
            EXPECT_TRUE(Cell(0, Column).IsNull());
        }
    }
}

TEST_F(GridColumnTest, TheFocusMovesWithItsColumnAndTheEditorIsPosted) {
    Type(1, kMemo, "text");
    View.MoveColumn(kMemo, 0);
    EXPECT_EQ(View.GetEditor(), nullptr);
    EXPECT_EQ(Cell(1, 0), Variant("text"));
    EXPECT_EQ(View.GetFocusedColumn(), 0);
    EXPECT_EQ(View.GetFocusedRecord(), 1);
}

TEST_F(GridColumnTest, ClearingDropsTheCellsAndKeepsTheRecords) {
    Data.SetValue(0, kMemo, "x");
    Type(1, kMemo, "lost");
    View.ClearColumns();
    EXPECT_EQ(View.GetColumnCount(), 0);
    EXPECT_EQ(View.GetEditor(), nullptr);
    EXPECT_EQ(View.GetFocusedColumn(), -1);
    EXPECT_EQ(Data.GetRecordCount(), 3);
    for (int Tag = 0; Tag < 6; ++Tag) Add(Tag, EValueType::String);
    for (int Column = 0; Column < 6; ++Column)
        for (int Record = 0; Record < 3; ++Record) EXPECT_TRUE(Cell(Record, Column).IsNull());
}

TEST_F(GridColumnTest, ReplacingTheEditorOfAColumnCancelsTheOneThatIsOpenInIt) {
    Type(0, kMemo, "lost");
    View.GetColumn(kStrike)->SetProperties<TcxTextEditProperties>();
    EXPECT_NE(View.GetEditor(), nullptr) << "another column's";
    View.GetColumn(kMemo)->SetProperties<TcxTextEditProperties>();
    EXPECT_EQ(View.GetEditor(), nullptr);
    EXPECT_TRUE(Cell(0, kMemo).IsNull());
}

TEST_F(GridColumnTest, AnUpdateTellsRenderersOnceAtItsOutermostEnd) {
    TSteps Told;
    Links += View.OnColumnsChanged.Connect([&] { Told.push_back("columns"); });
    Links += View.OnRecordsChanged.Connect([&] { Told.push_back("records"); });
    Links += View.OnCellChanged.Connect([&](int, int) { Told.push_back("cell"); });
    TGridColumn& Column = *View.GetColumn(kMemo);
    Column.SetCaption("Memo");
    Column.SetCaption("Memo");
    Column.SetWidth(70);
    Column.SetVisible(false);
    EXPECT_THAT(Told, ElementsAre("columns", "columns", "columns"));
    Told.clear();
    View.BeginUpdate();
    View.BeginUpdate();
    Data.SetRecordCount(9);
    Data.SetValue(8, kMemo, "x");
    Column.SetCaption("Text");
    Column.SetVisible(true);
    View.EndUpdate();
    EXPECT_THAT(Told, testing::IsEmpty());
    View.EndUpdate();
    EXPECT_THAT(Told, ElementsAre("columns", "records"));
    View.EndUpdate();  // one too many
    Column.SetWidth(71);
    EXPECT_EQ(Told.size(), 3u);
    EXPECT_EQ(Column.GetCaption(), "Text");
    EXPECT_EQ(Column.GetWidth(), 71);
    EXPECT_TRUE(Column.IsVisible());
}

}  // namespace
}  // namespace fw
