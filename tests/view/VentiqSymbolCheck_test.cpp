// SPDX-License-Identifier: Apache-2.0
#include "tests/view/PartsFixture.h"

namespace ventiq {

using TSymbolCheck = TPartsFixture;

TEST_F(TSymbolCheck, ASymbolIsValidInItsOwnMarketOnly) {
    const struct {
        const char* Why;
        const char* Exchange;
        const char* Series;
        const char* Month;
        bool Expected;
    } Cases[] = {
        {"its own market", "HKFE", "HSI", "2026-12", true},
        {"another month", "HKFE", "HSI", "2027-01", false},
        {"another series", "HKFE", "HHI", "2026-12", false},
        {"another exchange", "XDER", "HSI", "2026-12", false},
    };
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Why);
        SelectMarket(C.Exchange, C.Series, C.Month);
        EXPECT_EQ(Check.IsValidSymbol("HSIC100"), C.Expected);
    }
}

TEST_F(TSymbolCheck, WithoutAProductTheMarketDataTell) {
    SelectMarket();
    auto& Item = Host.Subscriptions.Item("HSI-NEW").Set(kFieldExchange, " HKFE ").Set(kFieldExpiry, "2026/12/30");
    EXPECT_TRUE(Check.IsValidSymbol("HSI-NEW")) << "series from the first three characters";
    Item.Set(kFieldSeries, "HHI");
    EXPECT_FALSE(Check.IsValidSymbol("HSI-NEW"));
    EXPECT_FALSE(Check.IsValidSymbol("NOBODY")) << "nothing known: the exchange does not match";
}

TEST_F(TSymbolCheck, AWeeklyTagOutsideTheWeeklyExchangeNeverMatches) {
    Host.Market.AddProduct("XDER", "DEF", "DEFW", kProductOption, "2026/12/18", "10", "C")
        .With("WeeklyOptionExp", "W1");
    SelectMarket("XDER", "DEF", "2026-12");
    EXPECT_FALSE(Check.IsValidSymbol("DEFW"));
    EXPECT_TRUE(Check.IsValidSymbol("DEFC10"));
}

TEST_F(TSymbolCheck, AnExpiryThatIsNoDateRaisesOnlyWhereExchangeAndSeriesMatch) {
    Host.Market.AddProduct("HKFE", "HHI", "HHIBAD", kProductOption, "30.12.2026", "10", "C");
    SelectMarket();
    EXPECT_FALSE(Check.IsValidSymbol("HHIBAD"));
    SelectMarket("XDER", "DEF", "2026-12");
    Context.FMyDataControl->SetExchange("HKFE");
    Context.FMyDataControl->SetSeries("HHI");
    EXPECT_THROW(Check.IsValidSymbol("HHIBAD"), EConvertError);
}

TEST_F(TSymbolCheck, WithoutADataControlNothingIsValid) {
    Context.FMyDataControl.reset();
    EXPECT_FALSE(Check.IsValidSymbol("HSIC100"));
}

TEST_F(TSymbolCheck, TheSameSymbolTwiceIsAllowed) { EXPECT_TRUE(Check.CheckDuplicateSymbol("HSIC100")); }

TEST_F(TSymbolCheck, AnExchangeSpeltInAnotherCaseIsListedButNeverMatches) {
    auto& Product = Host.Market.AddProduct("HKFE", "HSI", "HSIW2", kProductOption, "2026/12/09", "100", "C");
    Product.With(kWeeklyAttribute, "W2").Exchange = "hkfe";
    SelectMarket("HKFE", "HSI", "2026-12-W2");
    TStringList Months;
    Context.FMyDataControl->GetMonthList(&Months);
    EXPECT_TRUE(Months.Contains("2026-12-W2"));
    EXPECT_FALSE(Check.IsValidSymbol("HSIW2"));
    Product.Exchange = "HKFE";
    EXPECT_TRUE(Check.IsValidSymbol("HSIW2"));
}

// Seen: an unlisted symbol with a name beyond ASCII never matched its series. Cause: three bytes were taken for three
// characters. Now whole characters count.
TEST_F(TSymbolCheck, TheSeriesOfAnUnlistedSymbolIsThreeCharactersLong) {
    SelectMarket("HKFE", "\u65E5\u7D4C\u5E73", "2026-12");
    Host.Subscriptions.Item("\u65E5\u7D4C\u5E73\u5747X").Set(kFieldExchange, "HKFE").Set(kFieldExpiry, "2026/12/30");
    EXPECT_TRUE(Check.IsValidSymbol("\u65E5\u7D4C\u5E73\u5747X"));
}

}  // namespace ventiq
