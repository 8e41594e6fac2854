// SPDX-License-Identifier: GPL-3.0-or-later
// The symbols that docs/sample-market.md proposes to try, typed into the real view: each shows what the page says.
#include "tests/script/TraderFixture.h"

namespace ws {

using fw::Variant;
using ventiq::kColCallPut;
using ventiq::kColExpiry;
using ventiq::kColOpenClose;
using ventiq::kColPremium;
using ventiq::kColPrincipal;
using ventiq::kColQty;
using ventiq::kColSide;
using ventiq::kColStrike;
using ventiq::kColSymbol;

class TSampleSymbols : public TTraderFixture {
protected:
    void Enter(const char* Exchange, const char* Series, const char* Month, const char* Symbol,
               const std::string& User = "trader") {
        OpenView(User);
        ASSERT_TRUE(Choose(Exchange, Series, Month));
        Entries.clear();
        ASSERT_TRUE(Type(0, kColSymbol, Symbol));
    }
    // What the cell holds after From was typed and one key or more moved it.
    Variant Moved(int Column, const char* From, int Key, int Times = 1) {
        auto* Editor = Edit(0, Column, From);
        Legs().PostEditor();
        Editor = Edit(0, Column);
        for (int i = 0; Editor && i < Times; ++i) Editor->KeyDown(Key);
        Legs().PostEditor();
        return CellOf(0, Column);
    }
    std::vector<fw::Text> Choices(int Column) {
        auto* Editor = Edit(0, Column);
        const auto Items = Editor ? Editor->GetItems() : std::vector<fw::Text>{"no editor"};
        Legs().CancelEdit();
        return Items;
    }
};

TEST_F(TSampleSymbols, AFullLeg) {
    Enter("HKFE", "HSI", "2026-12", "hsi26400l6");
    Run(1);
    EXPECT_EQ(CellOf(0, kColSymbol), Variant("HSI26400L6"));
    EXPECT_EQ(CellOf(0, kColStrike), Variant(26400.0));
    EXPECT_EQ(CellOf(0, kColCallPut), Variant("Call"));
    EXPECT_EQ(CellOf(0, kColExpiry), Variant("2026/12/30"));
    EXPECT_EQ(CellOf(0, kColSide), Variant("Buy"));
    EXPECT_EQ(CellOf(0, kColQty), Variant(1));
    EXPECT_GT(CellOf(0, kColPremium).AsFloat(), 0.0);
}

TEST_F(TSampleSymbols, OneOfAnotherMarketGoesAndIsABlankTheNextTime) {
    for (const auto& [Symbol, Key] : {std::pair("HSIF7", "Res_LogSymbolForeign"),
                                      {"00016", "Res_LogSymbolForeign"},
                                      {"NOBODY", "Res_LogSymbolUnknown"}}) {
        SCOPED_TRACE(Symbol);
        Enter("HKFE", "HSI", "2026-12", Symbol);
        EXPECT_EQ(Rows(), 2);
        EXPECT_EQ(CellOf(0, kColSymbol), Variant(Symbol));
        Run(1);
        EXPECT_EQ(Rows(), 1);
        EXPECT_EQ(TakeLogged(Key), std::vector<fw::Text>{Symbol});
        ASSERT_TRUE(Type(0, kColSymbol, Symbol));
        EXPECT_EQ(CellOf(0, kColSymbol), Variant(" "));
    }
}

TEST_F(TSampleSymbols, OneThatOnlyTheMarketDataKnow) {
    Enter("HKFE", "HSI", "2026-12", "HSI31200L6");
    EXPECT_TRUE(CellOf(0, kColStrike).IsNull());
    Run(1);
    EXPECT_EQ(CellOf(0, kColStrike), Variant(31200.0));
    EXPECT_EQ(CellOf(0, kColCallPut), Variant("Call"));
    EXPECT_EQ(Moved(kColQty, "7", fw::kKeyUp), Variant(10.0)) << "lots of 5";
    EXPECT_EQ(Moved(kColPremium, "3.5", fw::kKeyUp), Variant(4.0)) << "whole points";
    EXPECT_EQ(Choices(kColOpenClose).size(), 3u);
}

TEST_F(TSampleSymbols, OneWhoseExpiryIsNoDate) {
    Enter("HKFE", "HSI", "2026-12", "HSICASH");
    Run(1);
    EXPECT_EQ(CellOf(0, kColSymbol), Variant("HSICASH"));
    EXPECT_TRUE(CellOf(0, kColSide).IsNull());
    EXPECT_EQ(TakeLogged("Res_LogHandlerFailed").size(), 1u);
    ASSERT_TRUE(Type(1, kColSymbol, "HSI26400L6"));
    Run(1);
    EXPECT_EQ(CellOf(1, kColStrike), Variant(26400.0)) << "the next row is not held up";
}

TEST_F(TSampleSymbols, OneThatIsSilentAndOneThatIsLate) {
    Enter("HKFE", "HHI", "2026-12", "HHI10500L6");
    ASSERT_TRUE(Type(1, kColSymbol, "HHI10400L6"));
    Run(2);
    for (const int Row : {0, 1}) {
        EXPECT_FALSE(CellOf(Row, kColStrike).IsNull());
        EXPECT_TRUE(CellOf(Row, kColPremium).IsNull());
    }
    Run(3);
    EXPECT_TRUE(CellOf(0, kColPremium).IsNull());
    EXPECT_FALSE(CellOf(1, kColPremium).IsNull());
}

TEST_F(TSampleSymbols, LotsAndPriceSteps) {
    const struct {
        const char *Exchange, *Series, *Month, *Symbol;
        int Column;
        const char* From;
        int Key, Times;
        double To;
    } Cases[] = {
        {"HKFE", "GDU", "2026-12", "GDUZ6", kColQty, "3", fw::kKeyUp, 1, 4},
        {"HKFE", "GDU", "2026-12", "GDUZ6", kColPremium, "131", fw::kKeyUp, 1, 131.01},
        {"HKFE", "DHS", "2026-12", "DHSZ6", kColPremium, "10.003", fw::kKeyUp, 1, 11.003},
        {"SEHK", "HKB", "2026-12", "5", kColPremium, "99.95", fw::kKeyUp, 1, 100},
        {"SEHK", "HKB", "2026-12", "5", kColPremium, "99.95", fw::kKeyUp, 2, 100.1},
        {"SEHK", "HKB", "2026-12", "5", kColPremium, "100", fw::kKeyDown, 1, 99.95},
        {"XDER", "EUR", "2026-12", "EURZ26", kColQty, "250", fw::kKeyUp, 1, 300},
        {"XDER", "OIL", "2027-01", "OILF27", kColQty, "250", fw::kKeyUp, 1, 251},
        {"XDER", "WHT", "2026-12", "WHT2612C600", kColPremium, "9.875", fw::kKeyUp, 2, 10.25},
        {"XDER", "WHT", "2026-12", "WHT2612C600", kColPremium, "39.75", fw::kKeyUp, 2, 40.5},
        {"XDER", "CPR", "2026-12", "CPR2612C4.20", kColPremium, "4.99", fw::kKeyUp, 2, 5.05},
        {"XDER", "CPR", "2026-12", "CPR2612C4.20", kColPremium, "49.95", fw::kKeyUp, 2, 50.1},
    };
    for (const auto& Case : Cases) {
        SCOPED_TRACE(testing::Message() << Case.Symbol << " from " << Case.From);
        Enter(Case.Exchange, Case.Series, Case.Month, Case.Symbol);
        Run(1);
        EXPECT_NEAR(Moved(Case.Column, Case.From, Case.Key, Case.Times).AsFloat(), Case.To, 1e-9);
    }
}

TEST_F(TSampleSymbols, ATypedQuantityIsNotCut) {
    Enter("XDER", "EUR", "2026-12", "EURZ26");
    Run(1);
    ASSERT_TRUE(Type(0, kColQty, "250"));
    EXPECT_EQ(CellOf(0, kColQty), Variant(250.0));
}

TEST_F(TSampleSymbols, OtherWaysToWriteOne) {
    const struct {
        const char *Exchange, *Series, *Month, *Typed, *Symbol;
    } Cases[] = {
        {"SEHK", "HKB", "2026-12", "5", "HKBZ6"},
        {"XRUN", "RNA", "2026-12", "117", "00117"},
        {"XDER", "EQX", "2026-12", "EQX   261218C00450000", "EQX261218C00450000"},
        {"XDER", "EQX", "2026-12", "eqx 261218 c 450", "EQX261218C00450000"},
    };
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Typed);
        Enter(Case.Exchange, Case.Series, Case.Month, Case.Typed);
        Run(1);
        EXPECT_EQ(CellOf(0, kColSymbol), Variant(Case.Symbol));
        EXPECT_FALSE(CellOf(0, kColPremium).IsNull());
    }
}

TEST_F(TSampleSymbols, OneThatIsQuotedWithoutAPrice) {
    Enter("XRUN", "RNA", "2027-01", "19");
    Run(1);
    EXPECT_EQ(CellOf(0, kColExpiry), Variant("2027/01/29"));
    EXPECT_TRUE(CellOf(0, kColPremium).IsNull());
}

TEST_F(TSampleSymbols, FlagsByExchangeAndByUser) {
    const std::vector<fw::Text> None;
    const struct {
        const char *Exchange, *Series, *Symbol, *User;
        std::vector<fw::Text> OpenClose, Principal;
    } Cases[] = {
        {"XRUN", "RNA", "117", "trader", {"None", "Close"}, None},
        {"XDER", "EUR", "EURZ26", "trader", {"None", "Open", "Close"}, {"None", "Client"}},
        {"HKFE", "HSI", "HSI26400L6", "norights", None, None},
    };
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Symbol);
        Enter(Case.Exchange, Case.Series, "2026-12", Case.Symbol, Case.User);
        Run(1);
        EXPECT_EQ(Choices(kColOpenClose), Case.OpenClose);
        EXPECT_EQ(Choices(kColPrincipal), Case.Principal);
    }
}

TEST_F(TSampleSymbols, CallByNumber) {
    Enter("XDER", "WHT", "2026-12", "WHT2612C600");
    Run(1);
    EXPECT_EQ(CellOf(0, kColCallPut), Variant("Call"));
    ASSERT_TRUE(Type(0, kColSymbol, "WHT2612P600"));
    EXPECT_EQ(CellOf(0, kColCallPut), Variant("Put"));
}

}  // namespace ws
