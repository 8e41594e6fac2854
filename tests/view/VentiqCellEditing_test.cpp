// SPDX-License-Identifier: Apache-2.0
#include "tests/view/PartsFixture.h"

namespace ventiq {

class TCellEditing : public TPartsFixture {
protected:
    TCellEditing() {
        auto* Product = dynamic_cast<support::TFakeProduct*>(Host.Market.GetProductBySymbol("HSIC110"));
        Product->LotSize = "100";
        Product->SpreadCode = "T1";
        Host.Market.AddSpreadTable("T1", {{0, 0.5}, {10, 1}, {50, 2}});
        Host.Subscriptions.AddOption("HSIC110", 110, "C");
    }
    bool Allowed(int Row, int Id) { return Form.PositionGridView.StartEdit(Row, ColumnIndex(Id)) != nullptr; }
    double Increment(int Id) {
        return dynamic_cast<TcxSpinEditProperties&>(*Grid.GetGridColumn(Id)->GetProperties()).Increment;
    }
    std::vector<Text> Choices(int Id) {
        return dynamic_cast<TcxComboBoxProperties&>(*Grid.GetGridColumn(Id)->GetProperties()).Items;
    }
};

TEST_F(TCellEditing, NothingIsEditedBeforeTheMarketIsChosen) {
    EXPECT_FALSE(Allowed(0, kColSymbol));
    Context.FMyDataControl->SetExchange("HKFE");
    EXPECT_FALSE(Allowed(0, kColSymbol));
    Context.FMyDataControl->SetSeries("HSI");
    EXPECT_FALSE(Allowed(0, kColSymbol));
    Context.FMyDataControl->SetMonth("2026-12");
    EXPECT_TRUE(Allowed(0, kColSymbol));
}

TEST_F(TCellEditing, OnlySomeColumnsOfInputRowsAreEdited) {
    SelectMarket();
    Grid.SetRecordCount(3);
    Grid.FirstInputRow = 2;
    for (int Id : {kColSymbol, kColSide, kColPremium, kColQty, kColOpenClose, kColPrincipal}) {
        EXPECT_TRUE(Allowed(2, Id)) << Id;
        EXPECT_FALSE(Allowed(0, Id)) << "a loaded position, column " << Id;
        EXPECT_FALSE(Allowed(1, Id)) << "a loaded position, column " << Id;
    }
    for (int Id : {kColCallPut, kColExpiry, kColStrike}) EXPECT_FALSE(Allowed(2, Id)) << Id;
    Context.FMyDataControl.reset();
    EXPECT_FALSE(Allowed(2, kColSymbol));
}

TEST_F(TCellEditing, TheQuantitySpinsByTheLot) {
    SelectMarket();
    Allowed(0, kColQty);
    EXPECT_EQ(Increment(kColQty), 1.0) << "no symbol";
    Grid.SetCell(0, kColSymbol, "HSIC110");
    Form.PositionGridView.CancelEdit();
    Allowed(0, kColQty);
    EXPECT_EQ(Increment(kColQty), 100.0);

    Host.Subscriptions.Item("HSIC120").Set(kFieldLotSize, "25");
    Grid.SetCell(0, kColSymbol, "HSIC120");
    Form.PositionGridView.CancelEdit();
    Allowed(0, kColQty);
    EXPECT_EQ(Increment(kColQty), 1.0) << "a known product without a lot text has lot 1, whatever the market data say";

    Host.Subscriptions.Item("UNLISTED").Set(kFieldLotSize, "25");
    Grid.SetCell(0, kColSymbol, "UNLISTED");
    Form.PositionGridView.CancelEdit();
    Allowed(0, kColQty);
    EXPECT_EQ(Increment(kColQty), 25.0);
}

TEST_F(TCellEditing, ThePremiumSpinsByThePriceStep) {
    SelectMarket();
    Grid.SetCell(0, kColSymbol, "HSIC110");
    Grid.SetCell(0, kColPremium, 20.0);
    Allowed(0, kColPremium);
    EXPECT_EQ(Increment(kColPremium), 1.0);
    EXPECT_EQ(Editing.FPriceBandUpper.at(0), 50.0);
    EXPECT_EQ(Editing.FPriceBandLower.at(0), 10.0);
    EXPECT_EQ(Editing.FLastPrice.at(0), 20.0);
}

TEST_F(TCellEditing, StepAndLastPriceFollowTheDisplayFactor) {
    SelectMarket();
    Host.Subscriptions.Item("HSIC110").Set(kFieldDisplayFactor, 100.0);
    Grid.SetCell(0, kColSymbol, "HSIC110");
    Grid.SetCell(0, kColPremium, 500.0);
    Allowed(0, kColPremium);
    EXPECT_EQ(Increment(kColPremium), 50.0) << "0.5 real is 50 shown";
    EXPECT_EQ(Editing.FLastPrice.at(0), 5.0);
}

TEST_F(TCellEditing, ARowWithoutTableDoesNotInheritTheStepOfTheRowBefore) {
    SelectMarket();
    Host.Subscriptions.Item("HSIC110").Set(kFieldDisplayFactor, 100.0);
    Grid.SetCell(0, kColSymbol, "HSIC110");
    Grid.SetRecordCount(2);
    Allowed(0, kColPremium);
    ASSERT_EQ(Increment(kColPremium), 50.0);
    Grid.SetCell(1, kColSymbol, "HSIP110");
    Allowed(1, kColPremium);
    EXPECT_EQ(Increment(kColPremium), 1.0);
    EXPECT_EQ(Editing.FPriceBandUpper.count(1), 0u);
}

TEST_F(TCellEditing, TheTableCodeComesFromMarketDataWhereTheProductHasNone) {
    SelectMarket();
    Host.Subscriptions.Item("HSIP110").Set(kFieldSpreadCode, "T1");
    Grid.SetCell(0, kColSymbol, "HSIP110");
    Grid.SetCell(0, kColPremium, 60.0);
    Allowed(0, kColPremium);
    EXPECT_EQ(Increment(kColPremium), 2.0);
}

TEST_F(TCellEditing, ATableOfAnotherKindIsNotUsed) {
    SelectMarket();
    Host.Market.AddSpreadTable("T1", {{0, 0.5}}).Kind = 2;
    Grid.SetCell(0, kColSymbol, "HSIC110");
    Allowed(0, kColPremium);
    EXPECT_EQ(Increment(kColPremium), 1.0);
}

TEST_F(TCellEditing, TheLastPriceIsNotedWithoutASymbolToo) {
    SelectMarket();
    Grid.SetCell(0, kColPremium, 7.0);
    Allowed(0, kColPremium);
    EXPECT_EQ(Editing.FLastPrice.at(0), 7.0);
    EXPECT_EQ(Increment(kColPremium), 1.0);
}

TEST_F(TCellEditing, FlagListsHoldTheTextsOfTheOfferedChoices) {
    SelectMarket();
    Host.Orders.Options["HKFE"] = {"Close", "RT"};
    Allowed(0, kColOpenClose);
    EXPECT_TRUE(Choices(kColOpenClose).empty()) << "no symbol, no choice";
    Form.PositionGridView.CancelEdit();
    Grid.SetCell(0, kColSymbol, "HSIC110");
    Allowed(0, kColOpenClose);
    EXPECT_EQ(Choices(kColOpenClose), (std::vector<Text>{"None", "Close"}));
    Allowed(0, kColPrincipal);
    EXPECT_EQ(Choices(kColPrincipal), (std::vector<Text>{"No", "Trader"}));
}

TEST_F(TCellEditing, AChoiceGoesToTheCellAtOnce) {
    SelectMarket();
    auto* Side = Form.PositionGridView.StartEdit(0, ColumnIndex(kColSide));
    ASSERT_TRUE(Side && Side->IsCombo());
    Side->SelectItem(1);
    EXPECT_EQ(Grid.GetCell(0, kColSide), Variant("Sell"));

    Grid.SetCell(0, kColSymbol, "HSIC110");
    auto* OpenClose = Form.PositionGridView.StartEdit(0, ColumnIndex(kColOpenClose));
    ASSERT_TRUE(OpenClose);
    OpenClose->SelectItem(2);
    EXPECT_EQ(Grid.GetCell(0, kColOpenClose), Variant("Close"));
    auto* Principal = Form.PositionGridView.StartEdit(0, ColumnIndex(kColPrincipal));
    ASSERT_TRUE(Principal);
    Principal->SelectItem(1);
    EXPECT_EQ(Grid.GetCell(0, kColPrincipal), Variant("Client"));
}

TEST_F(TCellEditing, AnEditorMadeBeforeALanguageSwitchTakesTheNewTexts) {
    SelectMarket();
    auto* Side = Form.PositionGridView.StartEdit(0, ColumnIndex(kColSide));
    ASSERT_TRUE(Side);
    Form.epiSide.Items = {"Kauf", "Verkauf"};
    EXPECT_EQ(Side->GetItems(), (std::vector<Text>{"Buy", "Sell"}));
    Side->OpenList();
    EXPECT_EQ(Side->GetItems(), (std::vector<Text>{"Kauf", "Verkauf"}));
}

TEST_F(TCellEditing, PricesStayWithTheirRowNumbersWhenRowsGo) {
    SelectMarket();
    Grid.SetRecordCount(3);
    Grid.SetCell(1, kColSymbol, "HSIC110");
    Grid.SetCell(1, kColPremium, 20.0);
    Allowed(1, kColPremium);
    const std::map<int, double> Last{{1, 20.0}}, Upper{{1, 50.0}}, Lower{{1, 10.0}};
    Form.PositionGridView.CancelEdit();
    Grid.DeleteRow(0);
    EXPECT_EQ(Editing.FLastPrice, Last);
    EXPECT_EQ(Editing.FPriceBandUpper, Upper);
    EXPECT_EQ(Editing.FPriceBandLower, Lower);
    Grid.btnClearClick(nullptr);
    EXPECT_EQ(Editing.FLastPrice, Last);
    EXPECT_EQ(Editing.FPriceBandUpper, Upper);
    EXPECT_EQ(Editing.FPriceBandLower, Lower);
}

// Spinning and typing in the open editors, as keys and buttons do it.
class TSpinning : public TCellEditing {
protected:
    TSpinning() {
        SelectMarket();
        Grid.SetRecordCount(2);
        Grid.SetCell(0, kColSymbol, "HSIC110");
    }
    TCellEditor& Open(int Id, const Variant& Cell) {
        Form.PositionGridView.CancelEdit();
        Grid.SetCell(0, Id, Cell);
        auto* Editor = Form.PositionGridView.StartEdit(0, ColumnIndex(Id));
        EXPECT_NE(Editor, nullptr);
        return *Editor;
    }
    static void Type(TCellEditor& Editor, const Text& Typed) {
        for (size_t Length = 1; Length <= Typed.size(); ++Length) {
            Editor.KeyDown(Typed[Length - 1]);
            Editor.SetEditText(Typed.substr(0, Length));
        }
    }
    Variant Cell(int Id) { return Grid.GetCell(0, Id); }
};

TEST_F(TSpinning, ASpunQuantityIsCutToLotsAndWrittenAtOnce) {
    auto& Editor = Open(kColQty, 250);
    Editor.KeyDown(kKeyUp);
    EXPECT_EQ(Editor.GetValue(), Variant(300.0)) << "350 cut to three lots";
    EXPECT_EQ(Cell(kColQty), Variant(300.0));
    EXPECT_TRUE(Editor.IsCaretAtEnd());
    Editor.KeyDown(kKeyDown);
    EXPECT_EQ(Editor.GetValue(), Variant(200.0));
    EXPECT_EQ(Cell(kColQty), Variant(300.0)) << "whole lots are written when the editor is left";
}

TEST_F(TSpinning, ButtonsAndWheelCutAQuantityToo) {
    auto& Editor = Open(kColQty, 250);
    Editor.Spin(-1);
    EXPECT_EQ(Editor.GetValue(), Variant(100.0)) << "150 cut to one lot";
    EXPECT_EQ(Cell(kColQty), Variant(100.0));
}

TEST_F(TSpinning, ATypedQuantityIsNeverCut) {
    auto& Editor = Open(kColQty, 100);
    Type(Editor, "250");
    EXPECT_EQ(Editor.GetValue(), Variant(250.0));
    Form.PositionGridView.PostEditor();
    EXPECT_EQ(Cell(kColQty), Variant(250.0));
    EXPECT_EQ(Cell(kColSymbol), Variant("HSIC110"));
}

TEST_F(TSpinning, PastingWithoutAKeyCountsAsSpinning) {
    auto& Editor = Open(kColQty, 100);
    Editor.SetEditText("250");
    EXPECT_EQ(Editor.GetValue(), Variant(200.0));
}

TEST_F(TSpinning, AKeyThatChangesNothingMakesTheNextSpinCountAsTyped) {
    constexpr int kTab = 9;
    auto& Editor = Open(kColQty, 250);
    Editor.KeyDown(kTab);
    Editor.Spin(1);
    EXPECT_EQ(Editor.GetValue(), Variant(350.0)) << "not cut";
    Editor.Spin(1);
    EXPECT_EQ(Editor.GetValue(), Variant(400.0)) << "450 cut: the memory went with the change";
}

TEST_F(TSpinning, AnEmptyQuantityOrASymbolThatIsNullEndsWithoutAChange) {
    auto& Editor = Open(kColQty, 250);
    Editor.SetEditText("");
    EXPECT_TRUE(Editor.GetValue().IsNull());
    Grid.SetCell(0, kColSymbol, Variant());
    Editor.SetEditText("7.5");
    EXPECT_EQ(Editor.GetValue(), Variant(7.5));
}

TEST_F(TSpinning, ALotTextOfZeroIsALotOfOne) {
    dynamic_cast<support::TFakeProduct*>(Host.Market.GetProductBySymbol("HSIC110"))->LotSize = "0";
    auto& Editor = Open(kColQty, 2.5);
    Editor.Spin(1);
    EXPECT_EQ(Editor.GetValue(), Variant(3.0)) << "3.5 cut to whole ones";
}

TEST_F(TSpinning, ALotFromMarketDataCutsWhatNoProductDescribes) {
    Host.Subscriptions.Item("UNLISTED").Set(kFieldLotSize, "25");
    Grid.SetCell(0, kColSymbol, "UNLISTED");
    auto& Editor = Open(kColQty, 30);
    Editor.KeyDown(kKeyUp);
    EXPECT_EQ(Editor.GetValue(), Variant(50.0));
}

TEST_F(TSpinning, ASpunPremiumWalksAlongTheBands) {
    auto& Editor = Open(kColPremium, 48.0);
    const double Expected[] = {49, 50, 52, 54};
    for (const double Price : Expected) {
        Editor.KeyDown(kKeyUp);
        EXPECT_EQ(Editor.GetValue(), Variant(Price));
        EXPECT_EQ(Cell(kColPremium), Variant(Price)) << "written at once";
        EXPECT_EQ(Editing.FLastPrice.at(0), Price);
    }
    EXPECT_EQ(Increment(kColPremium), 2.0);
    EXPECT_EQ(Editing.FPriceBandLower.at(0), 50.0);
    const double Back[] = {52, 50, 49, 48};
    for (const double Price : Back) {
        Editor.KeyDown(kKeyDown);
        EXPECT_EQ(Editor.GetValue(), Variant(Price));
    }
    EXPECT_EQ(Increment(kColPremium), 1.0);
    EXPECT_EQ(Editing.FPriceBandUpper.at(0), 50.0);
}

TEST_F(TSpinning, AnOddPremiumIsSpunToTheNextValidOne) {
    auto& Editor = Open(kColPremium, 20.37);
    Editor.Spin(1);
    EXPECT_EQ(Editor.GetValue(), Variant(21.0));
}

TEST_F(TSpinning, ATypedPremiumIsTakenAsTypedAndItsBandWithIt) {
    auto& Editor = Open(kColPremium, 20.0);
    Type(Editor, "61.37");
    EXPECT_EQ(Editor.GetValue(), Variant(61.37));
    EXPECT_EQ(Increment(kColPremium), 2.0);
    EXPECT_EQ(Editing.FLastPrice.at(0), 61.37);
    Editor.KeyDown(kKeyDown);
    EXPECT_EQ(Editor.GetValue(), Variant(60.0));
    Form.PositionGridView.PostEditor();
    EXPECT_EQ(Cell(kColPremium), Variant(60.0));
}

TEST_F(TSpinning, StepsAreShownInTheUnitOfTheEditor) {
    Host.Subscriptions.Item("HSIC110").Set(kFieldDisplayFactor, 100.0);
    auto& Editor = Open(kColPremium, 900.0);
    Editor.KeyDown(kKeyUp);
    EXPECT_EQ(Editor.GetValue(), Variant(950.0)) << "9 to 9.5 in real prices";
    Editor.KeyDown(kKeyUp);
    Editor.KeyDown(kKeyUp);
    EXPECT_EQ(Editor.GetValue(), Variant(1100.0));
    EXPECT_EQ(Increment(kColPremium), 100.0);
    EXPECT_EQ(Editing.FLastPrice.at(0), 11.0);
}

TEST_F(TSpinning, APremiumOfARowWithoutTableStaysAsSpun) {
    Grid.SetCell(0, kColSymbol, "HSIP110");
    auto& Editor = Open(kColPremium, 20.37);
    Editor.KeyDown(kKeyUp);
    EXPECT_EQ(Editor.GetValue(), Variant(21.37));
    EXPECT_EQ(Cell(kColPremium), Variant(20.37)) << "written when the editor is left";
    EXPECT_DOUBLE_EQ(Editing.FLastPrice.at(0), 21.37);
    Grid.SetCell(0, kColSymbol, Variant());
    auto& Bare = Open(kColPremium, Variant());
    Bare.Spin(1);
    EXPECT_EQ(Bare.GetValue(), Variant(1.0));
    EXPECT_EQ(Editing.FLastPrice.at(0), 1.0);
}

TEST_F(TSpinning, KeysInOtherColumnsAreNotRemembered) {
    Open(kColSymbol, "HSIC110").KeyDown('H');
    auto& Editor = Open(kColQty, 250);
    Editor.Spin(1);
    EXPECT_EQ(Editor.GetValue(), Variant(300.0));
}

}  // namespace ventiq
