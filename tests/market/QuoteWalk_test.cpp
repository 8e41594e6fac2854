// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/QuoteWalk.h"

#include <gtest/gtest.h>

#include <rapidcheck/gtest.h>

#include <cmath>

namespace {

using namespace std::chrono;
using TSymbols = std::vector<std::string>;

constexpr sys_days kToday = year{2026} / December / 1;
const system_clock::time_point kStart = sys_days{kToday} + hours{2};  // 10:00 at an exchange eight hours east

ws::TProductRow Product(const std::string& Symbol, const std::string& Series, int Type, const std::string& Expiry,
                        const std::string& Strike = "", const std::string& CallPut = "") {
    ws::TProductRow Row;
    Row.Symbol = Symbol;
    Row.Exchange = "HKFE";
    Row.Series = Series;
    Row.ProductType = Type;
    Row.ExpiryDate = Expiry;
    Row.StrikePrice = Strike;
    Row.CallPutCode = CallPut;
    Row.SpreadCode = Type == 3 ? "OPT" : "FUT";
    return Row;
}

ws::TSeriesRow Series(const std::string& Code, double Last, double Volatility) {
    ws::TSeriesRow Row;
    Row.Exchange = "HKFE";
    Row.Code = Code;
    Row.UnderlyingLast = Last;
    Row.Volatility = Volatility;
    return Row;
}

ws::TQuoteRow Quote(const std::string& Symbol) {
    ws::TQuoteRow Row;
    Row.Symbol = Symbol;
    return Row;
}

// An index with its small contract, a share that moves on its own, an imported series, and odd contracts.
ws::TMarketSet Market() {
    ws::TMarketSet M;
    ws::TExchangeRow Exchange;
    Exchange.Code = "HKFE";
    Exchange.UtcOffsetMinutes = 480;
    M.Exchanges = {Exchange};
    M.Series = {Series("BIG", 26000, 0.2), Series("SMALL", 26000, 0.2), Series("SHARE", 80, 0.3),
                Series("FILE", 500, 0.2)};
    M.Series[3].Imported = true;
    M.SpreadBands = {{"FUT", 1, 0, 1}, {"OPT", 1, 1, 1}, {"OPT", 1, 1000, 5}, {"BAD", 1, 0, -1}, {"KIND", 2, 0, 1}};
    for (const char* Expiry : {"2026/12/01", "2026/12/30", "2027/03/30"}) {
        const std::string Tail =
            std::string(Expiry).substr(2, 2) + std::string(Expiry).substr(5, 2) + std::string(Expiry).substr(8);
        M.Products.push_back(Product("BIGF" + Tail, "BIG", 2, Expiry));
        for (int Strike = 20000; Strike <= 32000; Strike += 1000) {
            M.Products.push_back(
                Product("BIG" + std::to_string(Strike) + "C" + Tail, "BIG", 3, Expiry, std::to_string(Strike), "C"));
            M.Products.push_back(
                Product("BIG" + std::to_string(Strike) + "P" + Tail, "BIG", 3, Expiry, std::to_string(Strike), "7"));
        }
    }
    M.Products.push_back(Product("SMALLF", "SMALL", 2, "2026/12/30"));
    M.Products.push_back(Product("SHAREC80", "SHARE", 3, "2026/12/30", "80", "C"));
    M.Products.push_back(Product("SHARE", "SHARE", 1, ""));
    M.Products.push_back(Product("FILEC500", "FILE", 3, "2026/12/30", "500", "C"));
    M.Products.push_back(Product("SILENT", "BIG", 2, "2026/12/30"));
    M.Products.push_back(Product("LATE", "BIG", 2, "2026/12/30"));
    M.Products.push_back(Product("EXPIRED", "BIG", 2, "2026/11/30"));
    M.Products.push_back(Product("NODATE", "BIG", 3, "30-12-2026", "26000", "C"));
    M.Products.push_back(Product("NOSTRIKE", "BIG", 3, "2026/12/30", "many", "C"));
    M.Products.push_back(Product("NOSIDE", "BIG", 3, "2026/12/30", "26000", "99"));
    for (auto& Row : M.Products)
        if (Row.Symbol == "SHAREC80")
            Row.SpreadCode = "BAD";
        else if (Row.Symbol == "SHARE")
            Row.SpreadCode = "KIND";
    M.Quotes = {Quote("SILENT"), Quote("LATE"), Quote("EXPIRED"), Quote("FILEC500")};
    M.Quotes[0].Silent = true;
    M.Quotes[0].Last = 5;
    M.Quotes[1].DelaySeconds = 3;
    M.Quotes[2].Last = 25900;
    M.Quotes[2].Time = "2026/11/30 16:00:00";
    M.Quotes[3].Bid = 11.5;
    M.Quotes[3].Time = "2023/02/03 23:24:00";
    return M;
}

bool OnGrid(double Price, double Step) { return std::abs(Price / Step - std::round(Price / Step)) < 1e-6; }

TEST(QuoteWalk, StandsAtTheUnderlyingBeforeTheFirstStep) {
    ws::TQuoteWalk Walk(Market(), 1, kStart);
    const ws::TQuoteRow* Future = Walk.QuoteOf("BIGF261230");
    ASSERT_NE(Future, nullptr);
    EXPECT_EQ(Future->Last, 26000);
    EXPECT_EQ(Future->Bid, 25999);
    EXPECT_EQ(Future->Ask, 26001);
    EXPECT_EQ(Future->Time, "2026/12/01 10:00:00") << "the exchange's wall clock";
    EXPECT_EQ(Walk.UnderlyingOf("HKFE", "BIG"), 26000);
    EXPECT_EQ(Walk.UnderlyingOf("HKFE", "FILE"), 500);
    EXPECT_EQ(Walk.UnderlyingOf("HKFE", "NONE"), std::nullopt);
    EXPECT_EQ(Walk.QuoteOf("UNKNOWN"), nullptr);
}

// At the money, 29.5 days: 26000 (2 N(0.2 sqrt(29.5/365) / 2) - 1).
TEST(QuoteWalk, OptionsAreWorthTheBlackFormula) {
    ws::TQuoteWalk Walk(Market(), 1, kStart);
    const double Value = 26000 * std::erf(0.2 * std::sqrt(29.5 / 365) / 2 / std::sqrt(2.0));
    const ws::TQuoteRow* Call = Walk.QuoteOf("BIG26000C261230");
    EXPECT_NEAR(*Call->Last, Value, 1.0);
    EXPECT_LE(*Call->Bid, Value);
    EXPECT_GE(*Call->Ask, Value);
    EXPECT_NEAR(*Call->Ask - *Call->Bid, 0.01 * Value, 2.0);
}

TEST(QuoteWalk, SameSeedSamePrices) {
    ws::TQuoteWalk A(Market(), 42, kStart), B(Market(), 42, kStart), Other(Market(), 43, kStart);
    B.Watch("BIGF261230");  // who watches changes no price
    for (int I = 0; I < 50; ++I) {
        A.Step(1);
        B.Step(1);
        Other.Step(1);
    }
    EXPECT_EQ(A.UnderlyingOf("HKFE", "BIG"), B.UnderlyingOf("HKFE", "BIG"));
    EXPECT_EQ(A.QuoteOf("BIG27000P270330")->Last, B.QuoteOf("BIG27000P270330")->Last);
    EXPECT_NE(A.UnderlyingOf("HKFE", "BIG"), Other.UnderlyingOf("HKFE", "BIG"));
    EXPECT_NE(A.UnderlyingOf("HKFE", "BIG"), 26000);
}

TEST(QuoteWalk, OneUnderlyingOneWalk) {
    ws::TQuoteWalk Walk(Market(), 42, kStart);
    for (int I = 0; I < 20; ++I) Walk.Step(30);
    EXPECT_EQ(Walk.UnderlyingOf("HKFE", "BIG"), Walk.UnderlyingOf("HKFE", "SMALL"));
    EXPECT_EQ(Walk.QuoteOf("BIGF261230")->Last, Walk.QuoteOf("SMALLF")->Last);
    EXPECT_NE(*Walk.UnderlyingOf("HKFE", "BIG") / 26000, *Walk.UnderlyingOf("HKFE", "SHARE") / 80);
}

TEST(QuoteWalk, VolatilityIsThatOfTheSeries) {
    ws::TMarketSet M = Market();
    ws::TQuoteWalk Walk(M, 9, kStart);
    const double Day = 6.5 * 3600, Step = Day / 20;
    double Sum = 0, Before = std::log(26000.0);
    constexpr int kSteps = 20000;
    for (int I = 0; I < kSteps; ++I) {
        Walk.Step(Step);
        const double Now = std::log(*Walk.UnderlyingOf("HKFE", "BIG"));
        Sum += (Now - Before) * (Now - Before);
        Before = Now;
    }
    EXPECT_NEAR(std::sqrt(Sum / kSteps * 20 * 252), 0.2, 0.005);
}

TEST(QuoteWalk, OnlyWatchedSymbolsAreReported) {
    ws::TQuoteWalk Walk(Market(), 5, kStart);
    EXPECT_TRUE(Walk.Step(3600).empty());
    Walk.Watch("BIGF261230");
    Walk.Watch("BIGF261230");
    Walk.Watch("BIG26000C261230");
    Walk.Watch("NOT LISTED");
    EXPECT_EQ(Walk.Step(3600), (TSymbols{"BIG26000C261230", "BIGF261230"}));
    EXPECT_TRUE(Walk.Step(0).empty()) << "time stands";
    Walk.Unwatch("BIG26000C261230");
    Walk.Unwatch("BIGF261230");
    EXPECT_EQ(Walk.Step(3600), TSymbols{"BIGF261230"}) << "watched twice";
    Walk.Unwatch("BIGF261230");
    Walk.Unwatch("BIGF261230");
    EXPECT_TRUE(Walk.Step(3600).empty());
}

TEST(QuoteWalk, AReportedSymbolHasAnotherQuoteAndItsTime) {
    ws::TQuoteWalk Walk(Market(), 5, kStart);
    Walk.Watch("BIG29000C261230");
    int Reports = 0;
    for (int I = 0; I < 400; ++I) {
        const ws::TQuoteRow Before = *Walk.QuoteOf("BIG29000C261230");
        const bool Reported = !Walk.Step(1).empty();
        const ws::TQuoteRow Now = *Walk.QuoteOf("BIG29000C261230");
        EXPECT_EQ(Reported, Before.Bid != Now.Bid || Before.Ask != Now.Ask || Before.Last != Now.Last);
        EXPECT_EQ(Reported, Before.Time != Now.Time);
        Reports += Reported;
    }
    EXPECT_GT(Reports, 0);
    EXPECT_LT(Reports, 400) << "far from the money the grid hides small moves";
}

TEST(QuoteWalk, ImportedExpiredAndUnreadableContractsStandStill) {
    ws::TQuoteWalk Walk(Market(), 5, kStart);
    for (const char* Symbol : {"FILEC500", "EXPIRED", "NODATE", "NOSTRIKE", "NOSIDE"}) Walk.Watch(Symbol);
    EXPECT_TRUE(Walk.Step(3600).empty());
    EXPECT_EQ(Walk.QuoteOf("FILEC500")->Bid, 11.5);
    EXPECT_EQ(Walk.QuoteOf("FILEC500")->Time, "2023/02/03 23:24:00");
    EXPECT_EQ(Walk.QuoteOf("EXPIRED")->Last, 25900);
    EXPECT_EQ(Walk.QuoteOf("EXPIRED")->Time, "2026/11/30 16:00:00");
    for (const char* Symbol : {"NODATE", "NOSTRIKE", "NOSIDE"}) EXPECT_EQ(Walk.QuoteOf(Symbol)->Time, "") << Symbol;
}

TEST(QuoteWalk, AContractIsQuotedThroughItsLastDay) {
    ws::TQuoteWalk Walk(Market(), 5, kStart);
    Walk.Watch("BIGF261201");
    EXPECT_EQ(Walk.Step(3600), TSymbols{"BIGF261201"});
    const std::string Last = Walk.QuoteOf("BIGF261201")->Time;
    EXPECT_TRUE(Walk.Step(14 * 3600).empty()) << "past midnight at the exchange";
    EXPECT_EQ(Walk.MarketDay("HKFE"), "2026/12/02");
    EXPECT_EQ(Walk.QuoteOf("BIGF261201")->Time, Last);
}

TEST(QuoteWalk, TheExchangesOwnMarketDayDecides) {
    ws::TMarketSet M = Market();
    M.Exchanges[0].MarketDay = "2026/11/30";
    ws::TQuoteWalk Walk(M, 5, kStart);
    EXPECT_EQ(Walk.MarketDay("HKFE"), "2026/11/30");
    Walk.Watch("EXPIRED");
    EXPECT_EQ(Walk.Step(3600), TSymbols{"EXPIRED"}) << "on that day it has not expired yet";
}

TEST(QuoteWalk, SilentNeverLateLater) {
    ws::TQuoteWalk Walk(Market(), 5, kStart);
    Walk.Step(100);
    EXPECT_EQ(Walk.QuoteOf("LATE")->Time, "") << "nobody asked yet";
    Walk.Watch("SILENT");
    Walk.Watch("LATE");
    EXPECT_TRUE(Walk.Step(2).empty());
    EXPECT_EQ(Walk.QuoteOf("LATE")->Time, "");
    EXPECT_FALSE(Walk.QuoteOf("LATE")->Last);
    EXPECT_EQ(Walk.Step(1), TSymbols{"LATE"});
    EXPECT_NE(Walk.QuoteOf("LATE")->Time, "");
    EXPECT_TRUE(Walk.QuoteOf("LATE")->Last);
    for (int I = 0; I < 100; ++I) Walk.Step(100);
    EXPECT_EQ(Walk.QuoteOf("SILENT")->Time, "");
    EXPECT_FALSE(Walk.QuoteOf("SILENT")->Last);
    EXPECT_TRUE(Walk.QuoteOf("SILENT")->Silent);
}

TEST(QuoteWalk, LateDataAreReportedAlsoWhenSomebodyAskedFirst) {
    ws::TQuoteWalk Walk(Market(), 5, kStart);
    Walk.Watch("LATE");
    EXPECT_EQ(Walk.QuoteOf("LATE")->Time, "");
    EXPECT_EQ(Walk.Step(5), TSymbols{"LATE"});
    EXPECT_TRUE(Walk.Step(0).empty()) << "once";
}

TEST(QuoteWalk, WithoutAUsableTableStepsAreTheSeriesDecimals) {
    ws::TQuoteWalk Walk(Market(), 5, kStart);
    Walk.Step(3600);
    for (const char* Symbol : {"SHAREC80", "SHARE"}) {
        const ws::TQuoteRow* Row = Walk.QuoteOf(Symbol);
        EXPECT_TRUE(OnGrid(*Row->Last, 0.01)) << Symbol;
        EXPECT_FALSE(OnGrid(*Row->Last, 1)) << Symbol;
    }
}

TEST(QuoteWalk, AnotherMarketLetsKnownUnderlyingsGoOn) {
    ws::TQuoteWalk Walk(Market(), 5, kStart);
    Walk.Watch("BIGF261230");
    Walk.Watch("LATE");
    for (int I = 0; I < 10; ++I) Walk.Step(60);
    const double Price = *Walk.UnderlyingOf("HKFE", "BIG");
    const std::optional<double> Last = Walk.QuoteOf("BIGF261230")->Last;
    ws::TMarketSet M = Market();
    std::erase_if(M.Products, [](const auto& Row) { return Row.Symbol == "SMALLF"; });
    M.Series.push_back(Series("NEW", 10, 0.1));
    Walk.Replace(M);
    EXPECT_EQ(Walk.UnderlyingOf("HKFE", "BIG"), Price);
    EXPECT_EQ(Walk.UnderlyingOf("HKFE", "NEW"), 10);
    EXPECT_EQ(Walk.QuoteOf("BIGF261230")->Last, Last);
    EXPECT_NE(Walk.QuoteOf("LATE")->Time, "") << "what has come stays";
    EXPECT_EQ(Walk.QuoteOf("SMALLF"), nullptr);
    EXPECT_EQ(Walk.Step(3600), (TSymbols{"BIGF261230", "LATE"}));
}

struct TSides {
    double Bid, Ask;
};
TSides SidesOf(const ws::TQuoteRow& Row) { return {Row.Bid.value_or(0.0), *Row.Ask}; }

// Grid, order of the prices and put-call parity, wherever the walk has come to.
RC_GTEST_PROP(QuoteWalk, QuotesAreFitForTrading, ()) {
    static const ws::TMarketSet kMarket = Market();
    ws::TQuoteWalk Walk(kMarket, *rc::gen::arbitrary<std::uint64_t>(), kStart);
    const int Steps = *rc::gen::inRange(0, 30);
    for (int I = 0; I < Steps; ++I) Walk.Step(*rc::gen::inRange(1, 20000));
    const double Forward = *Walk.UnderlyingOf("HKFE", "BIG");
    for (const ws::TProductRow& Row : kMarket.Products) {
        if (!Row.Symbol.starts_with("BIG")) continue;
        const ws::TQuoteRow Quote = *Walk.QuoteOf(Row.Symbol);
        if (Row.ExpiryDate < Walk.MarketDay("HKFE")) continue;
        RC_ASSERT(Quote.Ask && Quote.Last);
        RC_ASSERT(*Quote.Ask > 0);
        RC_ASSERT(!Quote.Bid || *Quote.Bid > 0);
        RC_ASSERT(SidesOf(Quote).Bid < *Quote.Ask);
        RC_ASSERT(SidesOf(Quote).Bid <= *Quote.Last && *Quote.Last <= *Quote.Ask);
        const double Coarse = Row.ProductType == 3 ? 5.0 : 1.0;
        for (const double Price : {Quote.Bid.value_or(1.0), *Quote.Ask, *Quote.Last})
            RC_ASSERT(OnGrid(Price, Price < 1000 ? 1.0 : Coarse));
        if (Row.ProductType == 2) {
            RC_ASSERT(*Quote.Bid <= Forward && Forward <= *Quote.Ask);
        } else if (Row.CallPutCode == "C") {
            std::string PutSymbol = Row.Symbol;
            PutSymbol.replace(PutSymbol.find('C'), 1, "P");
            const TSides Call = SidesOf(Quote), Put = SidesOf(*Walk.QuoteOf(PutSymbol));
            const double Parity = Forward - std::stod(Row.StrikePrice);
            RC_ASSERT(Call.Bid - Put.Ask <= Parity + 1e-6);
            RC_ASSERT(Parity <= Call.Ask - Put.Bid + 1e-6);
        }
    }
}

// Sixty thousand contracts that nobody watches: a step reprices and reports the watched one alone.
TEST(QuoteWalk, AStepLooksAtWatchedContractsOnly) {
    ws::TMarketSet M = Market();
    for (int I = 0; I < 60000; ++I)
        M.Products.push_back(
            Product("MANY" + std::to_string(I), "BIG", 3, "2026/12/30", std::to_string(10000 + I), "C"));
    ws::TQuoteWalk Walk(M, 5, kStart);
    Walk.Watch("BIGF261230");
    int Reports = 0;
    for (int I = 0; I < 1000; ++I)
        for (const auto& Symbol : Walk.Step(1)) {
            EXPECT_EQ(Symbol, "BIGF261230");
            ++Reports;
        }
    EXPECT_GT(Reports, 100);
}

}  // namespace
