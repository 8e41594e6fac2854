// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/ChainImport.h"

#include <gtest/gtest.h>

#include <rapidcheck/gtest.h>

#include "tests/market/ChainSupport.h"
#include "workstation/market/MarketDay.h"
#include "workstation/market/OccSymbol.h"
#include "workstation/market/QuotePrice.h"

namespace {

using namespace chaintest;
using TSymbols = std::set<std::string>;
using TCodes = std::vector<std::string>;

const ws::TTextTable& Names() { return ws::TTextTable::Embedded(); }

ws::TChainChanges Plan(const std::string& File, const ws::TMarketSet& Market = {}, const TSymbols& Kept = {}) {
    return ws::PlanChainImport(ws::ReadChainFile(DataFile(File)), Market, Kept, Names());
}

// A chain of one contract an expiry, by symbol.
ws::TChainFile ChainOf(const std::vector<std::string>& Symbols) {
    ws::TChainFile Chain;
    Chain.FileName = "made.csv";
    Chain.UnderlyingName = "Made";
    Chain.UnderlyingLast = 100;
    Chain.Date = {"2024/01/02", "2024/01/02 16:00:00", "EST", -300};
    for (const std::string& Symbol : Symbols) {
        const auto Occ = ws::ParseOccSymbol(Symbol);
        ws::TChainContract Contract;
        Contract.Symbol = Symbol;
        Contract.Root = Occ->Root;
        Contract.Expiry = ws::MarketDayText(Occ->Expiry);
        Contract.CallPut = Occ->CallPut;
        Contract.StrikeText = Occ->StrikeText();
        Contract.Strike = Occ->Strike();
        Contract.Bid = 1;
        Contract.Ask = 1.1;
        Chain.Contracts.push_back(Contract);
    }
    return Chain;
}

TEST(ChainImport, RowsOfTheMarket) {
    const ws::TMarketSet Market = Applied({}, Plan("chain_small.csv"));
    ASSERT_EQ(Market.Exchanges.size(), 1u);
    const ws::TExchangeRow& Exchange = Market.Exchanges[0];
    EXPECT_EQ(Exchange.Code, "CBOE");
    EXPECT_NE(Exchange.NameEn, "CBOE") << "an unknown key gives the key itself";
    EXPECT_NE(Exchange.NameHant, Exchange.NameEn);
    EXPECT_NE(Exchange.NameHans, Exchange.NameHant);
    EXPECT_EQ(Exchange.MarketDay, "2024/03/06");
    EXPECT_EQ(Exchange.UtcOffsetMinutes, -300);
    EXPECT_TRUE(Exchange.Supported);
    ASSERT_EQ(Market.Currencies.size(), 1u);
    EXPECT_EQ(Market.Currencies[0].Code, "USD");

    const ws::TProductRow* Product = FindProduct(Market, "TLXW240308P01012500");
    ASSERT_NE(Product, nullptr);
    EXPECT_EQ(Product->Exchange, "CBOE");
    EXPECT_EQ(Product->ProductType, 3);
    EXPECT_EQ(Product->ExpiryDate, "2024/03/08");
    EXPECT_EQ(Product->StrikePrice, "1012.5");
    EXPECT_EQ(Product->CallPutCode, "P");
    EXPECT_EQ(Product->Currency, "USD");
    EXPECT_EQ(Product->Multiplier, 100.0);
    EXPECT_FALSE(Product->DisplayFactor);

    const ws::TQuoteRow* Quote = FindQuote(Market, "TLXW240308P01012500");
    ASSERT_NE(Quote, nullptr);
    EXPECT_EQ(Quote->Time, "2024/03/06 17:15:00");
    EXPECT_EQ(ws::ReferencePrice(*Quote, true), 5.6) << "the middle of 5.5 and 5.7";
    EXPECT_EQ(ws::ReferencePrice(*FindQuote(Market, "TLXW240315C01200000"), true), 0.025);
    EXPECT_EQ(ws::ReferencePrice(*FindQuote(Market, "TLXW240315P01010000"), true), std::nullopt);
    for (const ws::TSeriesRow& Series : Market.Series) {
        EXPECT_TRUE(Series.Imported);
        EXPECT_EQ(Series.UnderlyingLast, 1012.5);
        EXPECT_EQ(Series.NameEn, "Testland 100 Index");
        EXPECT_EQ(Series.Currency, "USD");
    }
}

TEST(ChainImport, OneSeriesARootOrOneAnExpiryDay) {
    const ws::TChainChanges Changes = Plan("chain_small.csv");
    const ws::TMarketSet Market = Applied({}, Changes);
    EXPECT_EQ(Changes.NewSeries, (TCodes{"TLX", "TLXW.08", "TLXW.15"}));
    EXPECT_EQ(Changes.Roots, (TCodes{"TLXW", "TLX"}));
    EXPECT_EQ(Changes.AddedProducts, 16u);
    EXPECT_EQ(SeriesOf(Market, "TLX240315C00990000"), "TLX");
    EXPECT_EQ(SeriesOf(Market, "TLX240419C01010000"), "TLX");
    EXPECT_EQ(SeriesOf(Market, "TLXW240308C01000000"), "TLXW.08");
    EXPECT_EQ(SeriesOf(Market, "TLXW240315C01010000"), "TLXW.15");
    EXPECT_EQ(Breach(Market), "");
}

TEST(ChainImport, ARootOfSixMonthsAloneIsASeriesAnExpiry) {
    const ws::TChainChanges Changes = Plan("chain_six_months.csv");
    const ws::TMarketSet Market = Applied({}, Changes);
    EXPECT_EQ(Changes.NewSeries,
              (TCodes{"LONE.220617", "LONE.220715", "LONE.220819", "LONE.220916", "LONE.221021", "LONE.221118"}));
    EXPECT_EQ(SeriesOf(Market, "LONE221118P00047500"), "LONE.221118");
    EXPECT_EQ(Breach(Market), "");
    EXPECT_EQ(Market.Exchanges[0].UtcOffsetMinutes, -240) << "EDT";
}

TEST(ChainImport, WhereTheExchangeHasSeriesEnoughSixMonthsAreOneSeries) {
    std::vector<std::string> Days;
    for (const char* Day : {"02", "03", "04", "05", "08", "09"})
        Days.push_back(std::string("ABC2401") + Day + "C00100000");
    const ws::TMarketSet Before = Applied({}, ws::PlanChainImport(ChainOf(Days), {}, {}, Names()));
    EXPECT_EQ(MonthsOf(Before).size(), 6u);
    const ws::TMarketSet Market = Applied(Before, Plan("chain_six_months.csv", Before));
    EXPECT_EQ(SeriesOf(Market, "LONE221118P00047500"), "LONE");
    EXPECT_EQ(MonthsOf(Market).at("LONE").size(), 6u);
    EXPECT_EQ(Breach(Market), "");
}

TEST(ChainImport, AgainReplacesQuotesAddsContractsAndKeepsSeries) {
    const ws::TMarketSet Before = Applied({}, Plan("chain_small.csv"));
    const ws::TChainChanges Changes = Plan("chain_small_next.csv", Before);
    const ws::TMarketSet Market = Applied(Before, Changes);
    EXPECT_EQ(Changes.Roots, TCodes{"TLXW"});
    EXPECT_EQ(Changes.NewSeries, TCodes{"TLXW.22"});
    EXPECT_EQ(Changes.AddedProducts, 4u);
    EXPECT_EQ(Changes.RemovedProducts.size(), 8u) << "the first week's six and two of the second's";
    EXPECT_EQ(FindProduct(Market, "TLXW240308C01000000"), nullptr);
    EXPECT_EQ(SeriesOf(Market, "TLXW240315C01030000"), "TLXW.15");
    EXPECT_EQ(FindQuote(Market, "TLXW240315C01010000")->Bid, 16.1);
    EXPECT_EQ(FindQuote(Market, "TLXW240315C01010000")->Time, "2024/03/11 17:15:00");
    EXPECT_EQ(FindQuote(Market, "TLX240315C00990000")->Time, "2024/03/06 17:15:00") << "another root";
    EXPECT_EQ(Market.Exchanges[0].MarketDay, "2024/03/11");
    EXPECT_EQ(Market.Series.size(), 4u) << "a series whose contracts are gone stays listed";
    EXPECT_EQ(Breach(Market), "");
}

TEST(ChainImport, TheSameFileTwiceChangesNothing) {
    const ws::TMarketSet Before = Applied({}, Plan("chain_small.csv"));
    const ws::TChainChanges Changes = Plan("chain_small.csv", Before);
    EXPECT_TRUE(Changes.NewSeries.empty());
    EXPECT_TRUE(Changes.RemovedProducts.empty());
    EXPECT_EQ(Changes.AddedProducts, 0u);
    const ws::TMarketSet Market = Applied(Before, Changes);
    EXPECT_EQ(MonthsOf(Market), MonthsOf(Before));
    EXPECT_EQ(Market.Products.size(), Before.Products.size());
}

TEST(ChainImport, HeldContractsStayWithTheirQuotes) {
    const ws::TMarketSet Before = Applied({}, Plan("chain_small.csv"));
    const TSymbols Held{"TLXW240308C01010000", "TLXW240315C01010000", "NOT.LISTED"};
    const ws::TChainChanges Changes = Plan("chain_small_next.csv", Before, Held);
    const ws::TMarketSet Market = Applied(Before, Changes);
    EXPECT_EQ(Changes.KeptProducts, 1u);
    EXPECT_EQ(Changes.RemovedProducts.size(), 7u);
    ASSERT_NE(FindProduct(Market, "TLXW240308C01010000"), nullptr);
    EXPECT_EQ(FindQuote(Market, "TLXW240308C01010000")->Time, "2024/03/06 17:15:00") << "its own time";
    EXPECT_EQ(Breach(Market), "");
}

TEST(ChainImport, AKnownRootThatComesToHaveWeeksKeepsItsSeries) {
    const ws::TMarketSet Before = Applied({}, ws::PlanChainImport(ChainOf({"ABC240119C00100000"}), {}, {}, Names()));
    EXPECT_EQ(SeriesOf(Before, "ABC240119C00100000"), "ABC");
    const ws::TMarketSet Market = Applied(
        Before, ws::PlanChainImport(ChainOf({"ABC240119C00100000", "ABC240126C00100000"}), Before, {}, Names()));
    EXPECT_EQ(SeriesOf(Market, "ABC240119C00100000"), "ABC");
    EXPECT_EQ(SeriesOf(Market, "ABC240126C00100000"), "ABC.26");
    EXPECT_EQ(Breach(Market), "");
}

TEST(ChainImport, AHeldExpiryOccupiesItsMonth) {
    const ws::TMarketSet Before = Applied({}, ws::PlanChainImport(ChainOf({"ABC240119C00100000"}), {}, {}, Names()));
    const ws::TChainFile Next = ChainOf({"ABC240126C00100000"});
    const ws::TMarketSet Held = Applied(Before, ws::PlanChainImport(Next, Before, {"ABC240119C00100000"}, Names()));
    EXPECT_EQ(SeriesOf(Held, "ABC240126C00100000"), "ABC.26");
    const ws::TMarketSet Free = Applied(Before, ws::PlanChainImport(Next, Before, {}, Names()));
    EXPECT_EQ(SeriesOf(Free, "ABC240126C00100000"), "ABC");
    EXPECT_EQ(Breach(Held) + Breach(Free), "");
}

TEST(ChainImport, OtherRootsWithTheSameBeginningAreOtherRoots) {
    const ws::TMarketSet Before =
        Applied({}, ws::PlanChainImport(ChainOf({"ABC240119C00100000", "ABCD240119C00100000"}), {}, {}, Names()));
    const ws::TMarketSet Market =
        Applied(Before, ws::PlanChainImport(ChainOf({"ABC240119C00110000"}), Before, {}, Names()));
    EXPECT_EQ(FindProduct(Market, "ABC240119C00100000"), nullptr);
    EXPECT_NE(FindProduct(Market, "ABCD240119C00100000"), nullptr);
}

TEST(ChainImport, OtherExchangesAreNotTouched) {
    ws::TMarketSet Market;
    ws::TExchangeRow Other;
    Other.Code = "HKFE";
    Other.SortIndex = 4;
    Market.Exchanges.push_back(Other);
    ws::TProductRow Foreign;
    Foreign.Symbol = "TLXW240301C01000000";
    Foreign.Exchange = "HKFE";
    Foreign.Series = "TLXW";
    Market.Products.push_back(Foreign);
    const ws::TChainChanges Changes = Plan("chain_small.csv", Market);
    EXPECT_TRUE(Changes.RemovedProducts.empty());
    EXPECT_EQ(Changes.Exchange.SortIndex, 5);
    EXPECT_EQ(Changes.NewSeries.size(), 3u);
}

TEST(ChainImport, StepsFollowFromThePrices) {
    const ws::TMarketSet Index = Applied({}, Plan("chain_small.csv"));
    const ws::TMarketSet Share = Applied({}, Plan("chain_six_months.csv"));
    const ws::TSpreadBandRow* Nickel = nullptr;
    for (const auto& Band : Index.SpreadBands)
        if (Band.Code == FindProduct(Index, "TLXW240308C01000000")->SpreadCode && Band.Lower == 3) Nickel = &Band;
    ASSERT_NE(Nickel, nullptr);
    EXPECT_EQ(Nickel->Step, 0.1);
    EXPECT_NE(FindProduct(Share, "LONE220617C00050000")->SpreadCode,
              FindProduct(Index, "TLXW240308C01000000")->SpreadCode);
    EXPECT_NE(FindProduct(Share, "LONE220617C00050000")->SpreadCode, "");
    ws::TChainFile Fine = ChainOf({"ABC240119C00100000"});
    Fine.Contracts[0].Bid = 0.0125;
    EXPECT_EQ(ws::PlanChainImport(Fine, {}, {}, Names()).Products[0].SpreadCode, "");
}

TEST(ChainImport, WithoutContractsItIsRefused) {
    try {
        ws::PlanChainImport(ChainOf({}), {}, {}, Names());
        ADD_FAILURE() << "accepted";
    } catch (const ws::EMarketRefusal& Refusal) {
        EXPECT_EQ(Refusal.Reason().Key, ws::kImportNoContracts);
        EXPECT_EQ(Refusal.Reason().Args, TCodes{"made.csv"});
    }
}

// Any files one after the other, some contracts held: a month names one expiry, the bound holds, and no contract that
// stays ever changes its series.
RC_GTEST_PROP(ChainImport, HoldsItsRulesOverAnyHistory, ()) {
    ws::TMarketSet Market;
    const int Files = *rc::gen::inRange(1, 6);
    for (int File = 0; File < Files; ++File) {
        TSymbols Symbols;
        const int Count = *rc::gen::inRange(1, 25);
        for (int I = 0; I < Count; ++I) {
            ws::TOccSymbol Occ;
            Occ.Root = *rc::gen::element<std::string>("A", "AB", "ABW");
            Occ.Expiry =
                std::chrono::sys_days{std::chrono::year{2024} / 1 / 1} + std::chrono::days{*rc::gen::inRange(0, 250)};
            Occ.StrikeThousandths = *rc::gen::element(50000L, 60000L);
            Symbols.insert(Occ.Text());
        }
        TSymbols Held;
        for (const auto& Product : Market.Products)
            if (*rc::gen::inRange(0, 4) == 0) Held.insert(Product.Symbol);
        const ws::TMarketSet Before = Market;
        Market = Applied(Before, ws::PlanChainImport(ChainOf({Symbols.begin(), Symbols.end()}), Before, Held, Names()));
        RC_ASSERT(Breach(Market) == "");
        for (const auto& Product : Before.Products) {
            const ws::TProductRow* Now = FindProduct(Market, Product.Symbol);
            if (Now == nullptr)
                RC_ASSERT(!Held.contains(Product.Symbol));
            else
                RC_ASSERT(Now->Series == Product.Series);
        }
        for (const auto& Series : Before.Series)
            RC_ASSERT(std::any_of(Market.Series.begin(), Market.Series.end(), [&](const auto& Row) {
                return Row.Code == Series.Code && Row.SortIndex == Series.SortIndex;
            }));
    }
}

}  // namespace
