// SPDX-License-Identifier: Apache-2.0
#include "tests/view/PartsFixture.h"

namespace ventiq {

class TMarketDataOf : public TCustomMarketData {
public:
    explicit TMarketDataOf(Text Symbol) : FSymbol(std::move(Symbol)) {}
    Text GetSymbol() const override { return FSymbol; }

private:
    Text FSymbol;
};

class TSymbolEntry : public TPartsFixture {
protected:
    TSymbolEntry() { SelectMarket(); }
    // A ready option with the fields that fill a row.
    support::TFakeSubItem& Ready(const Text& Symbol, double Strike, const Text& CallPut, double Price) {
        return Host.Subscriptions.AddOption(Symbol, Strike, CallPut)
            .Set(kFieldReferencePrice, Price)
            .Set(kFieldExpiry, "2026/12/30");
    }
};

TEST_F(TSymbolEntry, TheTypedTextIsConverted) {
    const struct {
        const char* Typed;
        const char* Given;
    } Cases[] = {{"5", "00005"}, {"abc", "ABC"}, {" 700 ", "00700"}};
    for (const auto& C : Cases) {
        Text Given;
        Host.Editors.Convert = [&](const Text& T) { return (Given = T) + "!"; };
        EXPECT_EQ(Type(0, C.Typed), Variant(Text(C.Given) + "!"));
        EXPECT_EQ(Given, C.Given);
    }
}

TEST_F(TSymbolEntry, AValidSymbolFillsItsRow) {
    Ready("HSIC110", 110, "C", 5.5);
    Type(0, "hsic110");
    EXPECT_EQ(Grid.GetCell(0, kColSymbol), Variant("HSIC110"));
    EXPECT_EQ(Grid.GetCell(0, kColSide), Variant("Buy"));
    EXPECT_EQ(Grid.GetCell(0, kColCallPut), Variant("Call"));
    EXPECT_EQ(Grid.GetCell(0, kColExpiry), Variant("2026/12/30"));
    EXPECT_EQ(Grid.GetCell(0, kColStrike), Variant(110.0));
    EXPECT_EQ(Grid.GetCell(0, kColPremium), Variant(5.5));
    EXPECT_EQ(Grid.GetCell(0, kColQty), Variant(1)) << "one contract, not one lot";
    EXPECT_TRUE(Grid.GetCell(0, kColOpenClose).IsNull());
    EXPECT_TRUE(Grid.GetCell(0, kColPrincipal).IsNull());
    EXPECT_EQ(Host.Subscriptions.SubscribeCount, 0);
}

TEST_F(TSymbolEntry, WhatTheTraderSetSurvivesANewSymbolWhatTheInstrumentSetsDoesNot) {
    Ready("HSIC110", 110, "C", 5.5);
    Ready("HSIP120", 120, "P", 7.5);
    Type(0, "HSIC110");
    Grid.SetCell(0, kColSide, "Sell");
    Grid.SetCell(0, kColQty, 3.0);
    Grid.SetCell(0, kColPremium, 9.0);
    Type(0, "HSIP120");
    EXPECT_EQ(Grid.GetCell(0, kColSide), Variant("Sell"));
    EXPECT_EQ(Grid.GetCell(0, kColQty), Variant(3.0));
    EXPECT_EQ(Grid.GetCell(0, kColPremium), Variant(9.0));
    EXPECT_EQ(Grid.GetCell(0, kColStrike), Variant(120.0));
    EXPECT_EQ(Grid.GetCell(0, kColCallPut), Variant("Put"));
}

TEST_F(TSymbolEntry, AFutureKeepsTheOldStrikeAndHasNoCallPut) {
    Ready("HSIC110", 110, "C", 5.5);
    Host.Subscriptions.AddFuture("HSIZ6").Set(kFieldExpiry, "2026/12/30");
    Type(0, "HSIC110");
    Type(0, "HSIZ6");
    EXPECT_EQ(Grid.GetCell(0, kColStrike), Variant(110.0));
    EXPECT_EQ(Grid.GetCell(0, kColCallPut), Variant(""));
}

TEST_F(TSymbolEntry, TheProductsOwnCodeDecidesCallOrPut) {
    const struct {
        const char* Why;
        const char* Code;
        const char* ItemCode;
        const char* Expected;
    } Cases[] = {
        {"first character 1, although 11 is a put in market data", "11", "P", "Call"},
        {"6", "6", "P", "Call"},
        {"C", "CALL", "P", "Call"},
        {"2", "2", "C", "Put"},
        {"7", "7x", "C", "Put"},
        {"P", "P", "C", "Put"},
        {"lower case is none of them, so market data decide", "c", "P", "Put"},
        {"another code: market data decide", "9", "12", "Call"},
        {"no code: market data decide", "", "11", "Put"},
        {"nobody knows", "X", "X", ""},
    };
    auto* Product = dynamic_cast<support::TFakeProduct*>(Host.Market.GetProductBySymbol("HSIC110"));
    ASSERT_TRUE(Product);
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Why);
        Product->CallPutCode = C.Code;
        Ready("HSIC110", 110, C.ItemCode, 5.5);
        Type(0, "HSIC110");
        EXPECT_EQ(Grid.GetCell(0, kColCallPut), Variant(C.Expected));
    }
}

TEST_F(TSymbolEntry, AnUnlistedSymbolIsFilledFromMarketData) {
    Ready("HSIX", 105, "P", 2.0).Set(kFieldExchange, "HKFE").Set(kFieldSeries, "HSI");
    Type(0, "HSIX");
    EXPECT_EQ(Grid.GetCell(0, kColStrike), Variant(105.0));
    EXPECT_EQ(Grid.GetCell(0, kColCallPut), Variant("Put"));
}

TEST_F(TSymbolEntry, ThePremiumIsProposedInDisplayUnits) {
    Ready("HSIC110", 110, "C", 1.2345).Set(kFieldDisplayFactor, 100.0);
    Type(0, "HSIC110");
    EXPECT_DOUBLE_EQ(Grid.GetCell(0, kColPremium).AsFloat(), 123.45) << "not rounded";
    Ready("HSIP110", 110, "P", 0).Forget(kFieldReferencePrice);
    Type(1, "HSIP110");
    EXPECT_TRUE(Grid.GetCell(1, kColPremium).IsNull());
}

TEST_F(TSymbolEntry, FlagsThatTheNewSymbolDoesNotOfferAreEmptied) {
    Ready("HSIC110", 110, "C", 5.5);
    Grid.SetCell(0, kColOpenClose, "Open");
    Grid.SetCell(0, kColPrincipal, "House");
    Host.Orders.Options["HKFE"] = {"Open"};
    Type(0, "HSIC110");
    EXPECT_EQ(Grid.GetCell(0, kColOpenClose), Variant("Open"));
    EXPECT_EQ(Grid.GetCell(0, kColPrincipal), Variant(""));
}

TEST_F(TSymbolEntry, AKnownSymbolOfAnotherMarketBecomesOneBlankAndItsRowStays) {
    Ready("HSIC110", 110, "C", 5.5);
    Type(0, "HSIC110");
    Host.Subscriptions.AddOption("DEFC10", 10, "C");
    EXPECT_EQ(Type(0, "DEFC10"), Variant(" "));
    EXPECT_EQ(Grid.GetRecordCount(), 2);
    EXPECT_EQ(Grid.GetCell(0, kColStrike), Variant(110.0)) << "the other cells are left as they were";
    EXPECT_EQ(Host.TakeLog(),
              std::vector<Text>{"Res_LogSymbolForeign(DEFC10, XDER, DEF, 2026/12/18, HKFE, HSI, 2026-12)"});
}

TEST_F(TSymbolEntry, ASymbolThatTheMarketDoesNotKnowIsNamed) {
    Host.Subscriptions.Item("NOBODY").State = kItemNoData;
    EXPECT_EQ(Type(0, "nobody"), Variant(" "));
    EXPECT_EQ(Host.TakeLog(), std::vector<Text>{"Res_LogSymbolUnknown(nobody)"});
}

TEST_F(TSymbolEntry, ASymbolWithoutDataYetStaysAndIsSubscribed) {
    EXPECT_EQ(Type(0, "mystery"), Variant("MYSTERY")) << "as converted, so that it is found again";
    EXPECT_EQ(Host.Subscriptions.Subscribed(), std::vector<Text>{"MYSTERY"});
    EXPECT_EQ(Grid.GetRecordCount(), 2);
    EXPECT_TRUE(Grid.GetCell(0, kColSide).IsNull()) << "not filled before it is known";
    EXPECT_TRUE(Host.Logged().empty());
}

TEST_F(TSymbolEntry, OnlyTheLastRowGrowsTheGrid) {
    for (const char* Symbol : {"HSIC100", "HSIC110", "HSIC120"}) Ready(Symbol, 100, "C", 1);
    Type(0, "HSIC100");
    EXPECT_EQ(Grid.GetRecordCount(), 2);
    Type(0, "HSIC110");
    EXPECT_EQ(Grid.GetRecordCount(), 2);
    Type(1, "HSIC120");
    EXPECT_EQ(Grid.GetRecordCount(), 3);
}

TEST_F(TSymbolEntry, AnEmptiedSymbolMarksItsRow) {
    const struct {
        const char* Why;
        int Rows;
        int Row;
        int Expected;
    } Cases[] = {
        {"the only row", 1, 0, -1},
        {"a middle row of three", 3, 1, 1},
        {"the last row", 3, 2, -1},
        {"the first of two", 2, 0, 0},
    };
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Why);
        Grid.FPendingDeleteRecordIndex = -1;
        Grid.SetRecordCount(C.Rows);
        Type(C.Row, "  ");
        EXPECT_EQ(Grid.FPendingDeleteRecordIndex, C.Expected);
    }
}

// Seen: the host drops more blanks than the view, and a symbol of no characters was accepted, subscribed to and given a
// row below it. What the host leaves nothing of counts as emptied now.
TEST_F(TSymbolEntry, ATextOfWhichTheHostLeavesNothingIsAnEmptySymbol) {
    Host.Editors.Convert = [](const Text&) { return Text(); };
    Grid.SetRecordCount(3);
    EXPECT_EQ(Type(1, "\xE3\x80\x80"), Variant(""));
    EXPECT_EQ(Grid.FPendingDeleteRecordIndex, 1);
    Type(2, "\xE3\x80\x80");
    EXPECT_EQ(Grid.GetRecordCount(), 3);
    EXPECT_EQ(Host.Subscriptions.SubscribeCount, 0);
}

TEST_F(TSymbolEntry, ASymbolInTheMarkedRowTakesTheMarkBack) {
    Ready("HSIC100", 100, "C", 1);
    Ready("HSIC110", 110, "C", 1);
    Type(0, "HSIC100");
    Type(0, Variant());
    ASSERT_EQ(Grid.FPendingDeleteRecordIndex, 0);
    Type(0, "HSIC110");
    EXPECT_EQ(Grid.FPendingDeleteRecordIndex, -1);
}

TEST_F(TSymbolEntry, ArrivingDataFillTheFirstRowOfTheSymbolOnly) {
    Type(0, "HSIC110");
    Grid.SetCell(1, kColSymbol, "HSIC110");
    Grid.SetRecordCount(3);
    Grid.SetCell(0, kColStrike, Variant());
    Ready("HSIC110", 110, "C", 5.5);
    Host.Subscriptions.Deliver();
    EXPECT_EQ(Grid.GetCell(0, kColPremium), Variant(5.5));
    EXPECT_EQ(Grid.GetCell(0, kColStrike), Variant(110.0));
    EXPECT_TRUE(Grid.GetCell(1, kColPremium).IsNull());
    EXPECT_TRUE(Host.Subscriptions.Subscribed().empty());
}

TEST_F(TSymbolEntry, ArrivingDataOfAnotherMarketDeleteTheRow) {
    Type(0, "FOREIGN");
    ASSERT_EQ(Grid.GetRecordCount(), 2);
    Host.Subscriptions.Item("FOREIGN").Ready().Set(kFieldExchange, "XDER");
    Host.Subscriptions.Deliver();
    EXPECT_EQ(Grid.GetRecordCount(), 1);
    EXPECT_EQ(Host.TakeLog().size(), 1u) << "the trader is told";
}

TEST_F(TSymbolEntry, InTheLastRowOnlyTheSymbolGoes) {
    Grid.SetCell(0, kColSymbol, "FOREIGN");
    Host.Subscriptions.Item("FOREIGN").Ready().Set(kFieldExchange, "XDER");
    Entry.ReCheckSymbol("FOREIGN");
    EXPECT_EQ(Grid.GetRecordCount(), 1);
    EXPECT_EQ(Grid.GetCell(0, kColSymbol), Variant(""));
}

TEST_F(TSymbolEntry, ASymbolWhoseOwnDataHaveNotComeGoesOnWaiting) {
    Type(0, "PENDING");
    Type(1, "HSIC110");
    Ready("HSIC110", 110, "C", 5.5);
    Host.Subscriptions.Deliver("HSIC110");
    EXPECT_EQ(Grid.GetCell(0, kColSymbol), Variant("PENDING"));
    EXPECT_EQ(Grid.GetRecordCount(), 3);
}

TEST_F(TSymbolEntry, AChosenSymbolFillsTheFocusedRowAndHidesThePopup) {
    Ready("HSIC110", 110, "C", 5.5);
    TPopupControl Popup;
    dynamic_cast<TcxPopupEditProperties&>(*Grid.GetGridColumn(kColSymbol)->GetProperties()).PopupControl = &Popup;
    Popup.Show();
    Form.PositionGridView.SetFocusedCell(0, 0);
    TMarketDataOf Chosen("HSIC110");
    Entry.HandleSelectSymbol(nullptr, &Chosen);
    EXPECT_EQ(Grid.GetCell(0, kColSymbol), Variant("HSIC110"));
    EXPECT_EQ(Grid.GetCell(0, kColPremium), Variant(5.5));
    EXPECT_FALSE(Popup.IsShown());

    Popup.Show();
    TObject Other;
    Entry.HandleSelectSymbol(nullptr, &Other);
    EXPECT_FALSE(Popup.IsShown()) << "hidden whatever was handed over";
    EXPECT_EQ(Grid.GetCell(0, kColSymbol), Variant("HSIC110"));

    Host.Market.AddProduct("HKFE", "HSI", "HSIBAD", kProductOption, "soon", "10", "C");
    TMarketDataOf Bad("HSIBAD");
    Popup.Show();
    EXPECT_THROW(Entry.HandleSelectSymbol(nullptr, &Bad), EConvertError);
    EXPECT_FALSE(Popup.IsShown());
}

TEST_F(TSymbolEntry, AChosenForeignSymbolLeavesTheCell) {
    Ready("HSIC110", 110, "C", 5.5);
    Type(0, "HSIC110");
    Host.Subscriptions.AddOption("DEFC10", 10, "C");
    Form.PositionGridView.SetFocusedCell(0, 0);
    TMarketDataOf Chosen("DEFC10");
    Entry.HandleSelectSymbol(nullptr, &Chosen);
    EXPECT_EQ(Grid.GetCell(0, kColSymbol), Variant("HSIC110"));
}

TEST_F(TSymbolEntry, ArrivingDataFillTheRowOfTheirSymbolWhereverTheFocusIs) {
    Type(0, "HSIC110");
    Type(1, "HSIC120");
    ASSERT_EQ(Grid.GetRecordCount(), 3);
    Form.PositionGridView.SetFocusedCell(2, 0);
    Ready("HSIC110", 110, "C", 5.5);
    Host.Subscriptions.Deliver("HSIC110");
    EXPECT_EQ(Grid.GetCell(0, kColPremium), Variant(5.5));
    EXPECT_TRUE(Grid.GetCell(2, kColSide).IsNull());
    EXPECT_EQ(Grid.GetRecordCount(), 3);
}

TEST_F(TSymbolEntry, ALoadedRowThatGoesLeavesAnInputRow) {
    Grid.SetRecordCount(4);
    Grid.SetCell(0, kColSymbol, "HSIC100");
    Grid.SetCell(1, kColSymbol, "FOREIGN");
    Grid.SetCell(2, kColSymbol, "HSIC120");
    Grid.FirstInputRow = 3;
    Host.Subscriptions.Item("FOREIGN").Ready().Set(kFieldExchange, "XDER");
    Entry.ReCheckSymbol("FOREIGN");
    EXPECT_EQ(Grid.GetRecordCount(), 3);
    EXPECT_EQ(Grid.GetSymbol(1), "HSIC120");
    EXPECT_EQ(Grid.FirstInputRow, 2);
}

TEST_F(TSymbolEntry, ArrivingDataLeaveTheSymbolInItsCell) {
    Type(0, "HSIC110");
    Host.Editors.Convert = [](const Text& T) { return T + "!"; };
    Ready("HSIC110", 110, "C", 5.5);
    Host.Subscriptions.Deliver("HSIC110");
    EXPECT_EQ(Grid.GetCell(0, kColSymbol), Variant("HSIC110"));
}

TEST_F(TSymbolEntry, AListedSymbolWithoutAnyDataIsFilledAndNotAskedForAgain) {
    Host.Subscriptions.Item("HSIC110").State = kItemNoData;
    EXPECT_EQ(Type(0, "HSIC110"), Variant("HSIC110"));
    EXPECT_EQ(Grid.GetCell(0, kColStrike), Variant(110.0));
    EXPECT_EQ(Grid.GetCell(0, kColCallPut), Variant("Call"));
    EXPECT_TRUE(Grid.GetCell(0, kColPremium).IsNull());
    EXPECT_EQ(Host.Subscriptions.SubscribeCount, 0);
}

}  // namespace ventiq
