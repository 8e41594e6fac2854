// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/GridNavigation.h"

#include "tests/framework/controls/GridFixture.h"

namespace fw {

class TGridNavigationTest : public TGridFixture {
protected:
    static constexpr int kKey = 68;

    TGridNavigationTest() {
        View.GetColumn(kMemo)->SetVisible(false);
        View.GetColumn(kStrike)->Editing = false;
        View.OnEditing = [this](TGridTableView&, TGridColumn& Column, bool& Allow) {
            Allow = Column.Editing && View.GetFocusedRecord() >= FirstInputRow;
        };
        View.OnEditKeyDown = [this](TGridTableView&, TGridColumn& Column, TCellEditor& Editor, int& Key, int) {
            Keys.push_back(std::to_string(Column.Tag) + ": " + std::to_string(Key) + " at " + Editor.GetText());
        };
    }
    Text Focus() const {
        return std::to_string(View.GetFocusedRecord()) + "," + std::to_string(View.GetFocusedColumn());
    }

    int FirstInputRow = 0;
    TSteps Keys;
};

TEST_F(TGridNavigationTest, TheFocusWalksOverVisibleCellsAndStopsAtTheEdges) {
    const struct {
        const char* Why;
        int Record, Column, Records, Columns;
        const char* Expected;
    } Cases[] = {
        {"down", 0, kSide, 1, 0, "1,1"},
        {"past the last record", 2, kSide, 1, 0, "2,1"},
        {"far past the last record", 0, kSide, 2147483647, 0, "2,1"},
        {"above the first record", 0, kSide, -10, 0, "0,1"},
        {"over the hidden column", 0, kQuantity, 0, 1, "0,5"},
        {"back over the hidden column", 0, kStrike, 0, -1, "0,3"},
        {"to the last column", 1, kSymbol, 0, 100, "1,5"},
        {"to the first column", 1, kStrike, 0, -100, "1,0"},
    };
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        View.SetFocusedCell(Case.Record, Case.Column);
        EXPECT_TRUE(MoveCell(View, Case.Records, Case.Columns));
        EXPECT_EQ(Focus(), Case.Expected);
    }
}

TEST_F(TGridNavigationTest, AnEmptyTableHasNowhereToGo) {
    Data.SetRecordCount(0);
    EXPECT_FALSE(MoveCell(View, 1, 0));
    EXPECT_FALSE(MoveToEditable(View, true));
    EXPECT_FALSE(MoveToEditable(View, false));
    EXPECT_FALSE(MoveToInputRow(View));
    EXPECT_EQ(EmptyCell(View, kKey), ECellEntry::Locked);
}

TEST_F(TGridNavigationTest, EditableCellsFollowRowByRow) {
    View.SetFocusedCell(0, kQuantity);
    EXPECT_TRUE(MoveToEditable(View, true));  // neither the hidden nor the read-only column
    EXPECT_EQ(Focus(), "1,0");
    EXPECT_TRUE(MoveToEditable(View, false));
    EXPECT_EQ(Focus(), "0,3");
    View.SetFocusedCell(2, kQuantity);
    EXPECT_FALSE(MoveToEditable(View, true));
    View.SetFocusedCell(0, kSymbol);
    EXPECT_FALSE(MoveToEditable(View, false));
    EXPECT_EQ(Focus(), "0,0");
}

TEST_F(TGridNavigationTest, WithoutAFocusTheWalkBeginsAtItsEnd) {
    EXPECT_TRUE(MoveToEditable(View, false));
    EXPECT_EQ(Focus(), "2,3");
    Data.SetRecordCount(0);
    Data.SetRecordCount(2);
    EXPECT_TRUE(MoveToEditable(View, true));
    EXPECT_EQ(Focus(), "0,0");
}

TEST_F(TGridNavigationTest, AnEditorThatRefusesToBeLeftKeepsTheFocus) {
    Popup->OnValidate = [](TObject*, Variant&, Text& ErrorText, bool& Error) {
        Error = true;
        ErrorText = "no";
    };
    Type(0, kSymbol, "X");
    EXPECT_FALSE(MoveCell(View, 1, 0));
    EXPECT_FALSE(MoveToEditable(View, true));
    EXPECT_FALSE(MoveToInputRow(View));
    EXPECT_EQ(Focus(), "0,0");
    EXPECT_EQ(EnterText(View, "Y", kKey), ECellEntry::Kept);
    EXPECT_EQ(View.GetEditor()->GetText(), "Y");
}

TEST_F(TGridNavigationTest, TheInputRowIsTheLastOneAndNoneIsAdded) {
    View.SetFocusedCell(0, kQuantity);
    EXPECT_TRUE(MoveToInputRow(View));
    EXPECT_EQ(Focus(), "2,0");
    EXPECT_EQ(Data.GetRecordCount(), 3);
}

TEST_F(TGridNavigationTest, EmptyingGoesThroughTheEditorOfEachKind) {
    Data.SetValue(0, kSymbol, "AAA");
    Data.SetValue(0, kSide, "Sell");
    Data.SetValue(0, kPremium, 5.0);
    for (const int Column : {kSymbol, kSide, kPremium}) {
        View.SetFocusedCell(0, Column);
        EXPECT_EQ(EmptyCell(View, kKey), ECellEntry::Posted);
        EXPECT_EQ(View.GetEditor(), nullptr);
    }
    EXPECT_EQ(Cell(0, kSymbol), Variant(""));
    EXPECT_TRUE(Cell(0, kSide).IsNull());
    EXPECT_TRUE(Cell(0, kPremium).IsNull());
    EXPECT_EQ(Keys, (TSteps{"0: 68 at AAA", "11: 68 at Sell", "103: 68 at 5"}));
    EXPECT_EQ(Edits, (TSteps{"0,0:  > ", "0,1:  > ", "0,2:  > "}));
}

TEST_F(TGridNavigationTest, FillingDownTakesTheCellAboveWithItsFullValue) {
    Data.SetValue(0, kSymbol, "AAA");
    Data.SetValue(0, kSide, "Sell");
    Data.SetValue(0, kPremium, 1.0 / 3.0);
    Data.SetValue(1, kQuantity, 7.0);
    Popup->OnValidate = [](TObject*, Variant& Value, Text&, bool&) { Value = Value.AsText() + "!"; };
    for (const int Column : {kSymbol, kSide, kPremium, kQuantity}) {
        View.SetFocusedCell(1, Column);
        EXPECT_EQ(FillDown(View, kKey), ECellEntry::Posted);
    }
    EXPECT_EQ(Cell(1, kSymbol), Variant("AAA!"));
    EXPECT_EQ(Cell(1, kSide), Variant("Sell"));
    EXPECT_EQ(Cell(1, kPremium), Variant(1.0 / 3.0));
    EXPECT_TRUE(Cell(1, kQuantity).IsNull());  // nothing stands above
    EXPECT_EQ(Keys.size(), 4u);
    View.SetFocusedCell(0, kSide);
    EXPECT_EQ(FillDown(View, kKey), ECellEntry::Posted);
    EXPECT_EQ(Cell(0, kSide), Variant("Sell"));
}

TEST_F(TGridNavigationTest, AnItemThatTheRowDoesNotOfferIsRefusedWhenFilledDown) {
    Data.SetValue(0, kSide, "Short");
    View.SetFocusedCell(1, kSide);
    FillDown(View, kKey);
    EXPECT_TRUE(Cell(1, kSide).IsNull());
    EXPECT_EQ(TakeLog(), TSteps{"W Res_LogChoiceRefused|Short"});
}

TEST_F(TGridNavigationTest, FillingDownReplacesWhatIsBeingTyped) {
    Data.SetValue(0, kPremium, 5.0);
    Type(1, kPremium, "12");
    EXPECT_EQ(FillDown(View, kKey), ECellEntry::Posted);
    EXPECT_EQ(Cell(1, kPremium), Variant(5.0));
}

TEST_F(TGridNavigationTest, ALockedCellStaysAsItIs) {
    FirstInputRow = 2;
    Data.SetValue(0, kPremium, 5.0);
    Data.SetValue(1, kPremium, 6.0);
    View.SetFocusedCell(1, kPremium);
    EXPECT_EQ(EmptyCell(View, kKey), ECellEntry::Locked);
    EXPECT_EQ(FillDown(View, kKey), ECellEntry::Locked);
    EXPECT_EQ(EnterText(View, "7", kKey), ECellEntry::Locked);
    EXPECT_EQ(Cell(1, kPremium), Variant(6.0));
    EXPECT_TRUE(Keys.empty());
}

TEST_F(TGridNavigationTest, ANumberOutOfBoundsEmptiesNothing) {
    Data.SetValue(0, kQuantity, 4.0);
    View.SetFocusedCell(0, kQuantity);
    EXPECT_EQ(EnterText(View, "1001", kKey), ECellEntry::Posted);
    EXPECT_EQ(Cell(0, kQuantity), Variant(4.0));
    EXPECT_EQ(TakeLog(), TSteps{"W Res_LogNumberRefused|1001"});
}

}  // namespace fw
