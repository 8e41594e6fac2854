// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/TradingFacts.h"

#include <gtest/gtest.h>

#include "framework/base/Clock.h"

namespace ws {

namespace {

// Noon of 1 December 2026 in Hong Kong, HKFE with one contract; STILL stands on a day of its own.
class TradingFacts : public testing::Test {
protected:
    TradingFacts() {
        fw::TClock::Fix(std::chrono::sys_days(std::chrono::year(2026) / 12 / 1) + std::chrono::hours(4));
        TMarketSet Set;
        Set.Exchanges = {{"HKFE", "", "", "", true, "", 0, 480}, {"STILL", "", "", "", true, "2023/02/17", 1, -360}};
        Set.Series.resize(2);
        Set.Series[0].Exchange = "HKFE";
        Set.Series[0].Code = "HSI";
        Set.Series[1].Exchange = "STILL";
        Set.Series[1].Code = "SPX";
        Set.Series[1].Imported = true;
        TProductRow Row;
        Row.Symbol = "HSI26400L6";
        Row.Exchange = "HKFE";
        Row.Series = "HSI";
        Row.ProductType = 3;
        Row.ExpiryDate = "2026/12/01";
        Row.LotSize = "2";
        Row.SpreadCode = "INDEX";
        Row.Currency = "HKD";
        Row.Multiplier = 50;
        Set.Products.push_back(Row);
        Row.Symbol = "SPX";
        Row.Exchange = "STILL";
        Row.Series = "SPX";
        Row.ExpiryDate = "2023/02/17";
        Row.LotSize = "";
        Row.Multiplier.reset();
        Set.Products.push_back(Row);
        Set.SpreadBands = {{"INDEX", 1, 0, 1}};
        Set.OrderOptions = {{"HKFE", "Open", 0}, {"STILL", "Close", 0}, {"HKFE", "RT", 1}};
        Market.Load(Set);
        Profile.SetUser({"u", "", 2, true, "", {"OEPrin"}, {}, {"A1", "A2"}});
        Quote.Last = 100;
        Quote.Time = "2026/12/01 12:00:00";
    }
    ~TradingFacts() override { fw::TClock::Fix({}); }
    TContractFacts Of(const std::string& Symbol) { return Facts.Contract(Symbol, Facts.Limits()); }

    std::unique_ptr<TStore> Store = TStore::CreateInMemory();
    TConfigService Config{*Store, TSkinTable::Embedded()};
    TMarketService Market;
    TProfileService Profile;
    TQuoteRow Quote;
    bool HasQuote = true;
    TTradingFacts Facts{{Market,
                         Profile,
                         Config,
                         [this](const std::string&) { return HasQuote ? &Quote : nullptr; },
                         [](const std::string& Account) {
                             return THeldQuantities{{Account, 1}};
                         },
                         {}}};
};

}  // namespace

TEST_F(TradingFacts, AContractIsWhatTheMarketLists) {
    const auto Contract = Of("HSI26400L6");
    EXPECT_TRUE(Contract.Listed);
    EXPECT_EQ(Contract.Exchange, "HKFE");
    EXPECT_EQ(Contract.Currency, "HKD");
    EXPECT_EQ(Contract.ProductType, 3);
    EXPECT_EQ(Contract.LotSize, 2);
    EXPECT_EQ(Contract.Multiplier, 50);
    ASSERT_TRUE(Contract.Steps);
    EXPECT_EQ(Contract.Steps->SnapPrice(1, 1), 2);
    EXPECT_EQ(Contract.OrderOptions, (std::vector<std::string>{"Open", "RT"}));
    EXPECT_EQ(Contract.LastPrice, 100);
    EXPECT_FALSE(Of("NONE").Listed);
    EXPECT_EQ(Of("SPX").LotSize, 1);
    EXPECT_EQ(Of("SPX").Multiplier, std::nullopt);
}

TEST_F(TradingFacts, AContractTradesOnItsLastDayAtItsExchange) {
    EXPECT_FALSE(Of("HSI26400L6").Expired);
    fw::TClock::Fix(fw::TClock::Now() + std::chrono::hours(12));  // past midnight in Hong Kong
    EXPECT_TRUE(Of("HSI26400L6").Expired);
    EXPECT_FALSE(Of("SPX").Expired) << "the day stands still there";
}

TEST_F(TradingFacts, APriceIsStaleAfterTheLimit) {
    const struct {
        const char* Symbol;
        const char* Time;
        bool Stale;
    } Cases[] = {{"HSI26400L6", "2026/12/01 11:55:00", false},
                 {"HSI26400L6", "2026/12/01 11:54:59", true},
                 {"HSI26400L6", "2026/11/30 12:00:00", true},
                 {"SPX", "2023/02/17 09:30:00", false},
                 {"SPX", "2023/02/16 15:00:00", true}};
    for (const auto& Case : Cases) {
        SCOPED_TRACE(std::string(Case.Symbol) + " " + Case.Time);
        Quote.Time = Case.Time;
        EXPECT_EQ(Of(Case.Symbol).Stale, Case.Stale);
        EXPECT_EQ(Of(Case.Symbol).PriceTime, Case.Time);
    }
    Store->WriteSetting(kTradingSection, "StaleSeconds", "0");
    EXPECT_FALSE(Of("SPX").Stale) << "0 is off";
    HasQuote = false;
    EXPECT_EQ(Of("SPX").LastPrice, std::nullopt);
}

TEST_F(TradingFacts, TheUserAndTheLimitsAreThoseOfTheMoment) {
    EXPECT_EQ(Facts.Trader().Accounts, (std::set<std::string>{"A1", "A2"}));
    EXPECT_EQ(Facts.Trader().Rights, std::set<std::string>{"OEPrin"});
    EXPECT_TRUE(Facts.Limits().MayTrade("A1", "STILL"));
    Store->WriteSetting(kTradingSection, "Exchanges.A1", "HKFE");
    Store->WriteSetting(kTradingSection, "SoftQty", "7");
    EXPECT_FALSE(Facts.Limits().MayTrade("A1", "STILL"));
    EXPECT_EQ(Facts.Limits().SoftQty, 7);
    EXPECT_EQ(Facts.Held("A1").at("A1"), 1);
}

}  // namespace ws
