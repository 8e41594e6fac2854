// SPDX-License-Identifier: GPL-3.0-or-later
// A chain as the exchange gave it, where one is at hand: VENTIQ_CHAINS names its folder.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "tests/market/ChainSupport.h"
#include "workstation/market/ChainStore.h"
#include "workstation/market/QuotePrice.h"
#include "workstation/market/QuoteWalk.h"

namespace {

using namespace chaintest;

class RealChain : public testing::Test {
protected:
    static constexpr char kFile[] = "spx_quotedata_2023-02-03.csv";

    void SetUp() override {
        const char* Folder = std::getenv("VENTIQ_CHAINS");
        if (!Folder || !*Folder) GTEST_SKIP() << "VENTIQ_CHAINS is not set: no real chain to read";
        FFile = std::filesystem::path(Folder) / kFile;
        if (!std::filesystem::exists(FFile)) GTEST_SKIP() << "no " << kFile << " in VENTIQ_CHAINS";
        FChain = ws::ReadChainFile(FFile);
    }

    std::filesystem::path FFile;
    ws::TChainFile FChain;
};

TEST_F(RealChain, IsReadToTheLastLine) {
    EXPECT_EQ(FChain.UnderlyingName, "Standard & Poors 500 Index");
    EXPECT_EQ(FChain.UnderlyingLast, 4136.48);
    EXPECT_EQ(FChain.Date.Time, "2023/02/03 23:24:00");
    EXPECT_TRUE(FChain.BadLines.empty());
    EXPECT_EQ(FChain.TableLines, 3404u);
    EXPECT_EQ(FChain.Contracts.size(), 6808u);
    EXPECT_EQ(FChain.Contracts.front().Symbol, "SPXW230203C01000000");
    EXPECT_EQ(FChain.Contracts.front().Ask, 3146.3);
    EXPECT_EQ(FChain.Contracts.back().Symbol, "SPXW230228P05400000");
}

TEST_F(RealChain, GivesEighteenSeriesAndEveryMonthNamesOneExpiry) {
    const auto Store = ws::TStore::CreateInMemory();
    const ws::TChainChanges Changes = ws::ApplyChainImport(*Store, FChain, {}, ws::TTextTable::Embedded());
    EXPECT_EQ(Changes.NewSeries.size(), 18u);
    const ws::TMarketSet Market = Store->LoadMarket();
    EXPECT_EQ(Market.Products.size(), 6808u);
    EXPECT_EQ(Breach(Market), "");
    EXPECT_EQ(SeriesOf(Market, "SPX230217C04100000"), "SPX");
    EXPECT_EQ(SeriesOf(Market, "SPXW230203C01000000"), "SPXW.03");
    EXPECT_EQ(SeriesOf(Market, "SPXW230217C04100000"), "SPXW.17");
    std::size_t Friday = 0;
    for (const auto& Product : Market.Products) Friday += Product.Series == "SPXW.17";
    EXPECT_EQ(Friday, 2u * 365);
    EXPECT_EQ(Market.Exchanges.at(0).MarketDay, "2023/02/03");

    const ws::TChainChanges Again = ws::ApplyChainImport(*Store, FChain, {}, ws::TTextTable::Embedded());
    EXPECT_TRUE(Again.NewSeries.empty());
    EXPECT_EQ(Again.AddedProducts, 0u);
    EXPECT_TRUE(Again.RemovedProducts.empty());
}

// Call less put is forward less strike, discounted: over one expiry a straight line in the strike of slope near -1,
// whose zero lies near the underlying.
TEST_F(RealChain, PricesObeyPutCallParity) {
    std::map<std::string, std::map<double, std::pair<std::optional<double>, std::optional<double>>>> ByExpiry;
    const ws::TChainChanges Changes = ws::PlanChainImport(FChain, {}, {}, ws::TTextTable::Embedded());
    for (std::size_t I = 0; I < FChain.Contracts.size(); ++I) {
        const ws::TChainContract& Contract = FChain.Contracts[I];
        if (Contract.Root != "SPXW" || std::abs(Contract.Strike - 4136.48) > 100) continue;
        auto& [Call, Put] = ByExpiry[Contract.Expiry][Contract.Strike];
        (Contract.CallPut == 'C' ? Call : Put) = ws::ReferencePrice(Changes.Quotes[I], true);
    }
    ASSERT_EQ(ByExpiry.size(), 17u);
    for (const auto& [Expiry, Strikes] : ByExpiry) {
        if (Expiry == "2023/02/03") continue;  // settled hours before the file's time
        SCOPED_TRACE(Expiry);
        for (const auto& [Strike, Pair] : Strikes) {
            ASSERT_TRUE(Pair.first && Pair.second);
            EXPECT_NEAR(*Pair.first - *Pair.second, 4136.48 - Strike, 25.0) << Strike;
        }
    }
}

TEST_F(RealChain, QuotesStandStill) {
    const auto Store = ws::TStore::CreateInMemory();
    ws::ApplyChainImport(*Store, FChain, {}, ws::TTextTable::Embedded());
    ws::TQuoteWalk Walk(Store->LoadMarket(), 7, std::chrono::sys_days{std::chrono::year{2026} / 1 / 5});
    Walk.Watch("SPX230217C04100000");
    const ws::TQuoteRow Before = *Walk.QuoteOf("SPX230217C04100000");
    for (int I = 0; I < 100; ++I) EXPECT_TRUE(Walk.Step(60).empty());
    EXPECT_EQ(Walk.QuoteOf("SPX230217C04100000")->Bid, Before.Bid);
    EXPECT_EQ(Walk.QuoteOf("SPX230217C04100000")->Time, "2023/02/03 23:24:00");
    EXPECT_EQ(Walk.MarketDay("CBOE"), "2023/02/03");
}

}  // namespace
