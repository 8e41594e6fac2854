// SPDX-License-Identifier: Apache-2.0
// Opening, posting and closing the editor of a cell.
#include "tests/framework/controls/GridFixture.h"

namespace fw {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class GridEditingTest : public TGridFixture {};

TEST_F(GridEditingTest, StartingAsksInOrderAndThenCopies) {
    TSteps Steps;
    Links += View.OnFocusChanged.Connect([&] { Steps.push_back("focus " + std::to_string(View.GetFocusedRecord())); });
    View.OnEditing = [&](TGridTableView& Asked, TGridColumn& Column, bool& Allow) {
        EXPECT_EQ(&Asked, &View);
        EXPECT_FALSE(Allow);
        Steps.push_back("editing " + std::to_string(Column.Tag));
        Combo->Items = {"Kauf", "Verkauf"};
        Data.SetValue(1, kSide, "Verkauf");
        Allow = true;
    };
    View.GetColumn(kSide)->OnGetProperties = [&](TGridColumn&, int Row, TcxEditProperties*&) {
        Steps.push_back("properties " + std::to_string(Row));
    };
    TCellEditor* Editor = View.StartEdit(1, kSide);
    ASSERT_NE(Editor, nullptr);
    EXPECT_THAT(Steps, ElementsAre("focus 1", "editing 11", "properties 1"));
    EXPECT_EQ(Editor->GetProperties(), Combo);
    EXPECT_THAT(Editor->GetItems(), ElementsAre("Kauf", "Verkauf"));
    EXPECT_EQ(Editor->GetItemIndex(), 1);
    EXPECT_EQ(View.GetEditor(), Editor);
    EXPECT_TRUE(View.HasFocus());
    Combo->Items = {"other"};
    EXPECT_EQ(Editor->GetItems().size(), 2u) << "the editor's own copy";
    EXPECT_EQ(View.StartEdit(1, kSide), Editor) << "open already";
    EXPECT_EQ(Steps.size(), 3u);
}

TEST_F(GridEditingTest, WhoDecidesWhetherACellMayBeEdited) {
    struct TCase {
        const char* Why;
        bool Option;
        std::optional<bool> Handler;
        bool Enabled, Opens;
    };
    const TCase Cases[] = {
        {"no handler, option on", true, {}, true, true}, {"no handler, option off", false, {}, true, false},
        {"the form allows", false, true, true, true},    {"the form refuses", true, false, true, false},
        {"a disabled grid", true, true, false, false},
    };
    for (const auto& c : Cases) {
        SCOPED_TRACE(c.Why);
        View.GetColumn(kMemo)->Editing = c.Option;
        View.SetEnabled(c.Enabled);
        View.OnEditing = nullptr;
        if (c.Handler) View.OnEditing = [&](TGridTableView&, TGridColumn&, bool& Allow) { Allow = *c.Handler; };
        EXPECT_EQ(View.CanEdit(0, kMemo), c.Opens);
        EXPECT_EQ(View.GetEditor(), nullptr) << "asking opens nothing";
        EXPECT_EQ(View.StartEdit(0, kMemo) != nullptr, c.Opens);
        View.CancelEdit();
    }
}

TEST_F(GridEditingTest, AskingFocusesNothing) {
    EXPECT_TRUE(View.CanEdit(2, kMemo));
    EXPECT_EQ(View.GetFocusedRecord(), -1);
    EXPECT_FALSE(View.HasFocus());
}

TEST_F(GridEditingTest, CellsThatAreNotThereOrTakeNoFocusAreNotEdited) {
    View.GetColumn(kMemo)->Focusing = false;
    for (const auto& [Record, Column] : {std::pair(-1, 0), {3, 0}, {0, -1}, {0, 6}, {0, static_cast<int>(kMemo)}}) {
        EXPECT_EQ(View.StartEdit(Record, Column), nullptr);
        EXPECT_FALSE(View.CanEdit(Record, Column));
    }
    EXPECT_THAT(Editors, IsEmpty());
}

TEST_F(GridEditingTest, ACheckThatThrowsRefuses) {
    View.OnEditing = [](TGridTableView&, TGridColumn&, bool& Allow) {
        Allow = true;
        throw std::runtime_error("check");
    };
    EXPECT_EQ(View.StartEdit(0, kMemo), nullptr);
    EXPECT_THAT(TakeLog(), ElementsAre("E Res_LogHandlerFailed|grid.OnEditing|check"));
}

TEST_F(GridEditingTest, ACheckThatTakesTheCellAwayRefuses) {
    View.OnEditing = [this](TGridTableView&, TGridColumn&, bool& Allow) {
        Data.SetRecordCount(1);
        Allow = true;
    };
    EXPECT_EQ(View.StartEdit(2, kMemo), nullptr);
    EXPECT_EQ(View.GetEditor(), nullptr);
}

TEST_F(GridEditingTest, PostingWritesClosesAndTells) {
    Type(1, kMemo, "text");
    EXPECT_TRUE(Cell(1, kMemo).IsNull()) << "the cell waits for the posting";
    View.PostEditor();
    EXPECT_EQ(Cell(1, kMemo), Variant("text"));
    EXPECT_THAT(Editors, ElementsAre("open", "closed"));
    EXPECT_THAT(Edits, ElementsAre("1,4: text > text"));
    View.PostEditor();
    EXPECT_EQ(Edits.size(), 1u);
}

TEST_F(GridEditingTest, AnUntouchedEditorOnlyCloses) {
    Data.SetValue(0, kQuantity, 1);
    Popup->OnValidate = [](TObject*, Variant&, Text&, bool&) { FAIL() << "nothing was typed"; };
    for (int Column : {static_cast<int>(kSymbol), static_cast<int>(kQuantity)}) {
        ASSERT_NE(View.StartEdit(0, Column), nullptr);
        View.PostEditor();
        EXPECT_EQ(View.GetEditor(), nullptr);
    }
    EXPECT_EQ(Cell(0, kQuantity), Variant(1)) << "a whole number stays one";
    EXPECT_THAT(Edits, IsEmpty());
}

TEST_F(GridEditingTest, CancellingLeavesTheCell) {
    Type(0, kMemo, "lost");
    View.CancelEdit();
    View.CancelEdit();
    EXPECT_TRUE(Cell(0, kMemo).IsNull());
    EXPECT_THAT(Editors, ElementsAre("open", "closed"));
}

TEST_F(GridEditingTest, TypedNumbersFollowTheRulesInEveryFloatColumn) {
    struct TCase {
        const char* Typed;
        Variant After;
        bool Refused;
    };
    const TCase Cases[] = {
        {"250", 250.0, false},   {"1,000.0", 1000.0, false}, {"", Variant(), false},
        {" ", Variant(), false}, {"nan", 42.0, true},        {"inf", 42.0, true},
        {"1e999", 42.0, true},   {"many", 42.0, true},       {"12,3,4", 42.0, true},
    };
    for (int Column : {static_cast<int>(kPremium), static_cast<int>(kQuantity), static_cast<int>(kStrike)}) {
        for (const auto& c : Cases) {
            SCOPED_TRACE(c.Typed);
            Data.SetValue(0, Column, 42.0);
            Edits.clear();
            const TCellEditor& Editor = Type(0, Column, c.Typed);
            EXPECT_EQ(Editor.IsRefused(), c.Refused);
            EXPECT_EQ(Editor.GetText(), c.Typed);
            View.PostEditor();
            EXPECT_EQ(Cell(0, Column), c.After);
            EXPECT_EQ(View.GetEditor(), nullptr);
            EXPECT_EQ(Edits.size(), c.Refused ? 0u : 1u);
            EXPECT_EQ(TakeLog(), c.Refused ? TSteps{Text("W Res_LogNumberRefused|") + c.Typed} : TSteps{});
        }
    }
}

TEST_F(GridEditingTest, NumbersBeyondTheBoundsAreRefused) {
    for (const auto& [Typed, Refused] : {std::pair("0", false), {"1000", false}, {"-0.001", true}, {"1000.5", true}}) {
        SCOPED_TRACE(Typed);
        Data.SetValue(0, kQuantity, 42.0);
        Type(0, kQuantity, Typed);
        View.PostEditor();
        EXPECT_EQ(Cell(0, kQuantity) == Variant(42.0), Refused);
        EXPECT_EQ(TakeLog().size(), Refused ? 1u : 0u);
    }
}

TEST_F(GridEditingTest, WholeNumberEditorsRefuseFractions) {
    Quantity->FloatValues = false;
    Type(0, kQuantity, "2.5");
    View.PostEditor();
    EXPECT_THAT(TakeLog(), ElementsAre("W Res_LogNumberRefused|2.5"));
    Type(0, kQuantity, "3");
    View.PostEditor();
    EXPECT_EQ(Cell(0, kQuantity), Variant(3.0));
}

TEST_F(GridEditingTest, ATextThatIsNoItemOfAFixedListIsRefused) {
    Data.SetValue(0, kSide, "Sell");
    Type(0, kSide, "Bu");
    View.PostEditor();
    EXPECT_EQ(Cell(0, kSide), Variant("Sell"));
    EXPECT_THAT(TakeLog(), ElementsAre("W Res_LogChoiceRefused|Bu"));
    Type(0, kSide, "bUY");
    View.PostEditor();
    EXPECT_EQ(Cell(0, kSide), Variant("Buy"));
    Combo->FixedList = false;
    Type(0, kSide, "Hold");
    View.PostEditor();
    EXPECT_EQ(Cell(0, kSide), Variant("Hold"));
}

TEST_F(GridEditingTest, AButtonFindsThePostedCell) {
    Variant Seen;
    Button.OnClick = [&](TObject*) { Seen = Cell(0, kQuantity); };
    Type(0, kQuantity, "7");
    Button.Click();
    EXPECT_EQ(Seen, Variant(7.0));
    EXPECT_EQ(View.GetEditor(), nullptr);
}

TEST_F(GridEditingTest, AFrameThatPostsItsEditorsPostsTheCell) {
    Type(0, kMemo, "text");
    Scope.PostEditors();
    EXPECT_EQ(Cell(0, kMemo), Variant("text"));
}

TEST_F(GridEditingTest, StartingElsewherePostsFirst) {
    Type(0, kMemo, "first");
    EXPECT_NE(View.StartEdit(1, kMemo), nullptr);
    EXPECT_EQ(Cell(0, kMemo), Variant("first"));
    EXPECT_THAT(Editors, ElementsAre("open", "closed", "open"));
}

TEST_F(GridEditingTest, AListenerOfThePostedEditMayOpenTheNextEditor) {
    Links += View.OnEdited.Connect(
        [this](int Record, int Column, const Variant&, const Variant&) { View.StartEdit(Record + 1, Column); });
    Type(0, kMemo, "first");
    View.PostEditor();
    ASSERT_NE(View.GetEditor(), nullptr);
    EXPECT_EQ(View.GetEditor()->GetRecord(), 1);
}

TEST_F(GridEditingTest, ClosingHidesThePopup) {
    TPopupControl Selector;
    Popup->PopupControl = &Selector;
    for (const bool Post : {true, false}) {
        View.StartEdit(0, kSymbol)->OpenList();
        ASSERT_TRUE(Selector.IsShown());
        Post ? View.PostEditor() : View.CancelEdit();
        EXPECT_FALSE(Selector.IsShown());
    }
}

}  // namespace
}  // namespace fw
