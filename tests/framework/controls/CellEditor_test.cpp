// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/CellEditor.h"

#include <cmath>

#include "tests/framework/controls/GridFixture.h"

namespace fw {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CellEditorTest : public TGridFixture {
protected:
    CellEditorTest() {
        for (TcxEditProperties* Properties :
             {static_cast<TcxEditProperties*>(Combo), static_cast<TcxEditProperties*>(Quantity)})
            Properties->OnChange = [this](TObject* Sender) {
                EXPECT_EQ(Sender, View.GetEditor());
                Changes.push_back(View.GetEditor()->GetValue().AsText());
            };
    }
    TSteps Changes;
};

TEST_F(CellEditorTest, KnowsItsKind) {
    const std::pair<int, EEditorKind> Cases[] = {{kSymbol, EEditorKind::Popup},
                                                 {kSide, EEditorKind::Combo},
                                                 {kQuantity, EEditorKind::Spin},
                                                 {kMemo, EEditorKind::Plain}};
    for (const auto& [Column, Kind] : Cases) {
        const TCellEditor* Editor = View.StartEdit(0, Column);
        ASSERT_NE(Editor, nullptr);
        EXPECT_EQ(Editor->GetKind(), Kind);
        EXPECT_EQ(Editor->IsSpin(), Kind == EEditorKind::Spin);
        EXPECT_EQ(Editor->IsCombo(), Kind == EEditorKind::Combo);
        EXPECT_EQ(&Editor->GetColumn(), View.GetColumn(Column));
    }
}

TEST_F(CellEditorTest, ShowsThePlainValueUntilSomethingIsTyped) {
    Data.SetValue(0, kPremium, 1234.5);
    Premium->NullText = "none";
    TCellEditor* Editor = View.StartEdit(0, kPremium);
    EXPECT_EQ(Editor->GetText(), "1234.5");
    Editor->SetEditText("12.");
    EXPECT_EQ(Editor->GetText(), "12.");
    EXPECT_EQ(Editor->GetValue(), Variant(12.0));
    EXPECT_EQ(View.StartEdit(1, kPremium)->GetText(), "") << "the null text is the cell's, not the editor's";
}

TEST_F(CellEditorTest, TypingIntoASpinEditorChangesTheValueAtOnce) {
    TCellEditor* Editor = View.StartEdit(0, kQuantity);
    for (const char* Typed : {"2", "25", "25x", "25", "", "-1", "1e999"}) Editor->SetEditText(Typed);
    EXPECT_THAT(Changes, ElementsAre("2", "25", "")) << "a refused text and the same number change nothing";
    EXPECT_TRUE(Editor->IsRefused());
    Editor->SetEditText("3");
    EXPECT_FALSE(Editor->IsRefused());
    EXPECT_TRUE(Editor->IsModified());
}

TEST_F(CellEditorTest, AProgramsValueFiresAsAUsersDoes) {
    TCellEditor* Editor = View.StartEdit(0, kQuantity);
    Editor->SetEditText("abc");
    Editor->SetValue(300);
    EXPECT_EQ(Editor->GetValue(), Variant(300.0));
    EXPECT_EQ(Editor->GetText(), "300");
    EXPECT_FALSE(Editor->IsRefused());
    Editor->SetValue(300.0);
    Editor->SetValue(NAN);
    Editor->SetValue("words");
    EXPECT_THAT(Changes, ElementsAre("300"));
    Editor->SetValue(5000.0);
    EXPECT_EQ(Editor->GetValue(), Variant(5000.0)) << "bounds hold for users";
    View.PostEditor();
    EXPECT_EQ(Cell(0, kQuantity), Variant(5000.0));
}

TEST_F(CellEditorTest, AHandlerMayCorrectTheValueAndWriteTheCell) {
    bool Updating = false;
    Quantity->Increment = 100;
    Quantity->OnChange = [&](TObject* Sender) {
        if (Updating) return;
        auto* Editor = dynamic_cast<TCellEditor*>(Sender);
        const double Snapped = std::trunc(Editor->GetValue().AsFloat() / 100) * 100;
        Changes.push_back(Editor->GetValue().AsText());
        Updating = true;
        Editor->SetValue(Snapped);
        Editor->SetCaretToEnd();
        Data.SetValue(0, kQuantity, Snapped);
        Updating = false;
    };
    Data.SetValue(0, kQuantity, 250.0);
    TCellEditor* Editor = View.StartEdit(0, kQuantity);
    Editor->Spin(1);
    EXPECT_THAT(Changes, ElementsAre("350"));
    EXPECT_EQ(Editor->GetText(), "300");
    EXPECT_TRUE(Editor->IsCaretAtEnd());
    EXPECT_EQ(Cell(0, kQuantity), Variant(300.0));
    View.PostEditor();
    EXPECT_EQ(Cell(0, kQuantity), Variant(300.0));
}

TEST_F(CellEditorTest, SpinningStaysWithinTheBoundsAndCountsNullAsZero) {
    TCellEditor* Editor = View.StartEdit(0, kQuantity);
    Editor->Spin(-1);
    EXPECT_EQ(Editor->GetValue(), Variant(0.0));
    Quantity->Increment = 0;
    Editor->Spin(1);
    EXPECT_EQ(Editor->GetValue(), Variant(1.0)) << "an increment of 0 spins by 1";
    Quantity->Increment = 600;
    Editor->Spin(2);
    EXPECT_EQ(Editor->GetValue(), Variant(1000.0));
    Editor->Spin(1);
    EXPECT_THAT(Changes, ElementsAre("0", "1", "1000"));
}

TEST_F(CellEditorTest, SpinningDropsARefusedTextAndStartsFromTheLastGoodValue) {
    Data.SetValue(0, kQuantity, 7);
    TCellEditor* Editor = View.StartEdit(0, kQuantity);
    Editor->SetEditText("nonsense");
    Editor->Spin(1);
    EXPECT_EQ(Editor->GetText(), "8");
    EXPECT_FALSE(Editor->IsRefused());
}

TEST_F(CellEditorTest, OnlySpinEditorsSpin) {
    TCellEditor* Editor = View.StartEdit(0, kMemo);
    Editor->Spin(1);
    Editor->KeyDown(kKeyUp);
    EXPECT_TRUE(Editor->GetValue().IsNull());
    EXPECT_FALSE(Editor->IsModified());
}

TEST_F(CellEditorTest, KeysAreToldToTheFormBeforeTheySpin) {
    TSteps Steps;
    View.OnEditKeyDown = [&](TGridTableView&, TGridColumn& Column, TCellEditor& Editor, int& Key, int Shift) {
        EXPECT_EQ(&Editor, View.GetEditor());
        Steps.push_back(std::to_string(Column.Tag) + ":" + std::to_string(Key) + ":" + std::to_string(Shift) + ":" +
                        Editor.GetValue().AsText());
        if (Key == kKeyDown) Key = 0;
    };
    TCellEditor* Editor = View.StartEdit(0, kQuantity);
    Editor->KeyDown('5', 1);
    Editor->KeyDown(kKeyUp);
    Editor->KeyDown(kKeyDown);
    EXPECT_THAT(Steps, ElementsAre("4:53:1:", "4:38:0:", "4:40:0:1"));
    EXPECT_EQ(Editor->GetValue(), Variant(1.0)) << "a swallowed key does not spin";
}

TEST_F(CellEditorTest, AKeyHandlerThatThrowsIsLoggedAndTheKeyStillWorks) {
    View.OnEditKeyDown = [](TGridTableView&, TGridColumn&, TCellEditor&, int&, int) {
        throw std::runtime_error("key");
    };
    TCellEditor* Editor = View.StartEdit(0, kQuantity);
    Editor->KeyDown(kKeyUp);
    EXPECT_EQ(Editor->GetValue(), Variant(1.0));
    EXPECT_THAT(TakeLog(), ElementsAre("E Res_LogHandlerFailed|grid.OnEditKeyDown|key"));
}

TEST_F(CellEditorTest, ChoosingAnItemTakesItsText) {
    TCellEditor* Editor = View.StartEdit(0, kSide);
    EXPECT_EQ(Editor->GetItemIndex(), -1);
    Editor->SelectItem(1);
    Editor->SelectItem(1);
    Editor->SelectItem(2);
    Editor->SelectItem(-1);
    EXPECT_EQ(Editor->GetItemIndex(), 1);
    EXPECT_THAT(Changes, ElementsAre("Sell"));
    View.PostEditor();
    EXPECT_EQ(Cell(0, kSide), Variant("Sell"));
}

TEST_F(CellEditorTest, TypedTextFindsItsItem) {
    struct TCase {
        const char* Typed;
        int Index;
        const char* Value;
        bool Refused;
    };
    const TCase Cases[] = {
        {"Sell", 1, "Sell", false}, {"buy", 0, "Buy", false}, {"BUY", 2, "BUY", false}, {"S", -1, "", true}};
    Combo->Items = {"Buy", "Sell", "BUY"};
    for (const auto& c : Cases) {
        SCOPED_TRACE(c.Typed);
        View.CancelEdit();
        TCellEditor* Editor = View.StartEdit(0, kSide);
        Editor->SetEditText(c.Typed);
        EXPECT_EQ(Editor->GetItemIndex(), c.Index);
        EXPECT_EQ(Editor->GetValue().AsText(), c.Value);
        EXPECT_EQ(Editor->IsRefused(), c.Refused);
    }
}

TEST_F(CellEditorTest, ItemsMayBeReplacedBeforeTheListOpens) {
    Data.SetValue(0, kSide, "Verkauf");
    Combo->OnPopup = [](TObject* Sender) { dynamic_cast<TCellEditor*>(Sender)->SetItems({"Kauf", "Verkauf"}); };
    TCellEditor* Editor = View.StartEdit(0, kSide);
    EXPECT_EQ(Editor->GetItemIndex(), -1);
    Editor->OpenList();
    EXPECT_THAT(Editor->GetItems(), ElementsAre("Kauf", "Verkauf"));
    EXPECT_EQ(Editor->GetItemIndex(), 1);
    EXPECT_THAT(Combo->Items, ElementsAre("Buy", "Sell"));
    EXPECT_THAT(Changes, IsEmpty());
    Combo->OnPopup = [](TObject*) { throw std::runtime_error("list"); };
    Editor->OpenList();
    EXPECT_THAT(TakeLog(), ElementsAre("E Res_LogHandlerFailed|grid.11.OnPopup|list"));
}

TEST_F(CellEditorTest, APopupIsAskedForAndShown) {
    TPopupControl Selector;
    int Asked = 0;
    TCellEditor* Editor = View.StartEdit(0, kSymbol);
    Editor->OpenList();  // no control, nobody to ask
    Popup->OnInitPopup = [&](TObject* Sender) {
        EXPECT_EQ(Sender, Editor);
        ++Asked;
        Popup->PopupControl = &Selector;
    };
    Editor->OpenList();
    EXPECT_EQ(Asked, 1);
    EXPECT_TRUE(Selector.IsShown());
}

TEST_F(CellEditorTest, AListOfANumericColumnGivesNumbers) {
    auto& Lots = View.GetColumn(kStrike)->SetProperties<TcxComboBoxProperties>();
    Lots.Items = {"10", "many", "2.5"};
    TCellEditor* Editor = View.StartEdit(0, kStrike);
    Editor->SelectItem(1);
    EXPECT_TRUE(Editor->GetValue().IsNull());
    Editor->SelectItem(2);
    View.PostEditor();
    EXPECT_EQ(Cell(0, kStrike), Variant(2.5));
}

TEST_F(CellEditorTest, AHandlerMayCloseOrReplaceTheEditorItRunsFor) {
    const std::pair<const char*, std::function<void()>> Cases[] = {
        {"posted", [this] { View.PostEditor(); }},
        {"cancelled", [this] { View.CancelEdit(); }},
        {"record deleted", [this] { Data.DeleteRecord(0); }},
        {"another one opened", [this] { View.StartEdit(1, kMemo); }},
    };
    for (const auto& [Why, Act] : Cases) {
        SCOPED_TRACE(Why);
        for (int Way = 0; Way < 3; ++Way) {
            Data.SetRecordCount(1);
            Data.SetRecordCount(3);
            Data.SetValue(0, kQuantity, Variant());
            Quantity->OnChange = [&](TObject* Sender) {
                auto* Editor = dynamic_cast<TCellEditor*>(Sender);
                Act();
                EXPECT_FALSE(Editor->IsOpen());
                Editor->SetValue(999.0);
                Editor->SetEditText("999");
                Editor->Spin(1);
                Editor->KeyDown(kKeyUp);
                EXPECT_EQ(Editor->GetValue(), Variant(1.0)) << "a closed editor takes nothing";
            };
            TCellEditor* Editor = View.StartEdit(0, kQuantity);
            if (Way == 0) Editor->SetEditText("1");
            if (Way == 1) Editor->Spin(1);
            if (Way == 2) Editor->SetValue(1.0);
            View.CancelEdit();
        }
    }
}

TEST_F(CellEditorTest, AChangeHandlerThatThrowsLeavesTheEditorUsable) {
    Quantity->OnChange = [](TObject*) { throw std::runtime_error("change"); };
    Type(0, kQuantity, "5");
    EXPECT_THAT(TakeLog(), ElementsAre("E Res_LogHandlerFailed|grid.4.OnChange|change"));
    View.PostEditor();
    EXPECT_EQ(Cell(0, kQuantity), Variant(5.0));
}

TEST_F(CellEditorTest, RenderersAreToldOfValueTextAndItems) {
    TCellEditor* Editor = View.StartEdit(0, kSide);
    int Told = 0;
    Links += Editor->OnChanged.Connect([&] { ++Told; });
    Editor->SetEditText("S");
    EXPECT_EQ(Told, 1);
    Editor->SelectItem(0);
    EXPECT_EQ(Told, 2);
    Editor->SetItems({"Buy"});
    EXPECT_EQ(Told, 3);
    Editor->SetValue("Buy");
    EXPECT_EQ(Told, 3) << "nothing changed";
}

TEST_F(CellEditorTest, TypingEndsTheCaretsPlaceAtTheEnd) {
    TCellEditor* Editor = View.StartEdit(0, kQuantity);
    Editor->SetCaretToEnd();
    EXPECT_TRUE(Editor->IsCaretAtEnd());
    Editor->SetEditText("1");
    EXPECT_FALSE(Editor->IsCaretAtEnd());
}

}  // namespace
}  // namespace fw
