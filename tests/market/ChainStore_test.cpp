// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/ChainStore.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>

#include "tests/market/ChainSupport.h"
#include "workstation/store/StoreTransaction.h"

namespace {

using namespace chaintest;

const ws::TTextTable& Names() { return ws::TTextTable::Embedded(); }

TEST(ChainStore, WritesWhatIsPlanned) {
    const auto Store = ws::TStore::CreateInMemory();
    const ws::TChainFile Chain = ws::ReadChainFile(DataFile("chain_small.csv"));
    const ws::TChainChanges Changes = ws::ApplyChainImport(*Store, Chain, {}, Names());
    const ws::TMarketSet Stored = Store->LoadMarket();
    const ws::TMarketSet Planned = Applied({}, Changes);
    EXPECT_EQ(MonthsOf(Stored), MonthsOf(Planned));
    ASSERT_EQ(Stored.Products.size(), Planned.Products.size());
    for (std::size_t I = 0; I < Planned.Products.size(); ++I)
        EXPECT_EQ(Stored.Products[I].Symbol, Planned.Products[I].Symbol) << "in file order";
    const ws::TQuoteRow* Quote = FindQuote(Stored, "TLXW240308P01000000");
    ASSERT_NE(Quote, nullptr);
    EXPECT_EQ(Quote->Bid, 1.75);
    EXPECT_EQ(Quote->Ask, 1.85);
    EXPECT_EQ(Quote->Time, "2024/03/06 17:15:00");
    EXPECT_EQ(Stored.SpreadBands.size(), 3u);
    EXPECT_EQ(Breach(Stored), "");
}

TEST(ChainStore, PositionsAndOrdersKeepTheirContracts) {
    const auto Store = ws::TStore::CreateInMemory();
    ws::ApplyChainImport(*Store, ws::ReadChainFile(DataFile("chain_small.csv")), {}, Names());
    {
        ws::TStoreTransaction Transaction(*Store);
        Transaction.Put(ws::TAccountRow{"A100", "Somebody"});
        Transaction.Put(ws::TPositionRow{"A100", "TLXW240308C01010000", 2, 7});
        Transaction.Commit();
    }
    const ws::TChainChanges Changes = ws::ApplyChainImport(*Store, ws::ReadChainFile(DataFile("chain_small_next.csv")),
                                                           {"TLXW240308P01000000"}, Names());
    EXPECT_EQ(Changes.KeptProducts, 2u);
    const ws::TMarketSet Market = Store->LoadMarket();
    EXPECT_NE(FindProduct(Market, "TLXW240308C01010000"), nullptr) << "held";
    EXPECT_NE(FindProduct(Market, "TLXW240308P01000000"), nullptr) << "ordered on";
    EXPECT_EQ(FindProduct(Market, "TLXW240308C01000000"), nullptr);
    EXPECT_EQ(FindQuote(Market, "TLXW240308C01000000"), nullptr);
}

TEST(ChainStore, CancelledOnTheWayNothingIsChanged) {
    const auto Store = ws::TStore::CreateInMemory();
    ws::TChainFile Chain = ws::ReadChainFile(DataFile("chain_small.csv"));
    try {
        ws::ApplyChainImport(*Store, Chain, {}, Names(), [](std::size_t, std::size_t) { return false; });
        ADD_FAILURE() << "not cancelled";
    } catch (const ws::EMarketRefusal& Refusal) {
        EXPECT_EQ(Refusal.Reason().Key, ws::kImportCancelled);
    }
    EXPECT_TRUE(Store->LoadMarket().Exchanges.empty());
    EXPECT_TRUE(Store->LoadMarket().Products.empty());
    EXPECT_NO_THROW(ws::ApplyChainImport(*Store, Chain, {}, Names())) << "the store is free again";
}

TEST(ChainStore, ARefusedChainLeavesTheStoreFree) {
    const auto Store = ws::TStore::CreateInMemory();
    EXPECT_THROW(ws::ApplyChainImport(*Store, ws::TChainFile{}, {}, Names()), ws::EMarketRefusal);
    EXPECT_NO_THROW(ws::TStoreTransaction Transaction(*Store));
}

// A chain of 20,000 lines, from text to committed rows, with its progress.
TEST(ChainStore, TwentyThousandLines) {
    std::string Text =
        "Big,Last: 500\nDate: March 6, 2024 at 5:15 PM EST\nCalls,Last Sale,Bid,Ask,Strike,Puts,Last Sale,Bid,Ask\n";
    char Line[160];
    for (int Day = 0; Day < 20; ++Day)
        for (int Strike = 1; Strike <= 1000; ++Strike) {
            std::snprintf(Line, sizeof Line, "BIG2405%02dC%08d,1,0.95,1.05,%d.00,BIG2405%02dP%08d,1,0.95,1.05\n",
                          Day + 1, Strike * 1000, Strike, Day + 1, Strike * 1000);
            Text += Line;
        }
    const auto Store = ws::TStore::CreateInMemory();
    std::vector<std::size_t> Reports;
    std::istringstream Stream(Text);
    const ws::TChainFile Chain = ws::ReadChain(Stream, "big.csv");
    const ws::TChainChanges Changes =
        ws::ApplyChainImport(*Store, Chain, {}, Names(), [&](std::size_t Done, std::size_t Total) {
            EXPECT_EQ(Total, 80000u);
            Reports.push_back(Done);
            return true;
        });
    EXPECT_EQ(Changes.Products.size(), 40000u);
    EXPECT_EQ(Changes.NewSeries.size(), 20u);
    EXPECT_EQ(Reports.size(), 80u);
    EXPECT_EQ(Reports.back(), 80000u);
}

}  // namespace
