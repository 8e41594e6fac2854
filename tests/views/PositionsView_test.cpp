// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/views/ViewsFixture.h"
#include "workstation/views/OrdersData.h"
#include "workstation/views/PositionsData.h"

namespace ws::test {

using testing::ElementsAre;
using testing::IsEmpty;

class PositionsViewTest : public TViewsFixture {
protected:
    fw::TGridTableView& Rows() { return Grid("PositionsGridView"); }
    std::vector<fw::Text> Texts(int Tag) { return Column(Rows(), Tag); }
    fw::Variant Value(int Row, int Tag) { return Rows().GetDataController().GetValue(Row, IndexOf(Rows(), Tag)); }
    void Trade(int Side, double Qty, double Price, const std::string& Symbol = "HSIZ6") {
        Fill(Place(Side, Qty, Price, Symbol), Qty, Price);
    }
    support::TFakeSubItem& Quote(const char* Symbol, double Last) {
        return Host.Subscriptions.Item(Symbol).Ready().Set(fw::kFieldLast, Last);
    }
};

// Bought 2 at 100 and 2 at 110, sold 1 at 120: 3 are held. Average cost 105; first in first out holds 1 at 100 and 2 at
// 110, on average 320 / 3.
TEST_F(PositionsViewTest, HoldingsAreValuedAtTheMarketsPrice) {
    Trade(0, 2, 100), Trade(0, 2, 110), Trade(1, 1, 120);
    Quote("HSIZ6", 115).Set(fw::kFieldMultiplier, 50).Set(fw::kFieldCurrency, "HKD");
    Opened<TPositionsView>();
    EXPECT_THAT(Texts(kColumnAccount), ElementsAre("A1"));
    EXPECT_EQ(Value(0, fw::kColumnQuantity), fw::Variant(3.0));
    EXPECT_EQ(Value(0, kColumnAverageOfMode), fw::Variant(105.0));
    EXPECT_NEAR(Value(0, kColumnAverageOfMode + 1).AsFloat(), 320.0 / 3, 1e-9);
    EXPECT_EQ(Value(0, kColumnLast), fw::Variant(115.0));
    EXPECT_EQ(Value(0, fw::kColumnProfitLoss), fw::Variant(1500.0)) << "10 points on 3 contracts of 50";
    EXPECT_THAT(Texts(kColumnCurrency), ElementsAre("HKD"));
}

TEST_F(PositionsViewTest, WhatTheMarketDoesNotStateIsNotInvented) {
    Trade(1, 2, 10, "A"), Trade(0, 1, 10, "B"), Trade(0, 1, 10, "C");
    Quote("A", 7);                                                             // no multiplier
    Host.Subscriptions.Item("B").Ready().Set(fw::kFieldReferencePrice, 12.0);  // never traded
    Opened<TPositionsView>();
    EXPECT_EQ(Value(0, fw::kColumnProfitLoss), fw::Variant(6.0)) << "short 2, 3 points lower";
    EXPECT_EQ(Value(1, kColumnLast), fw::Variant(12.0));
    EXPECT_EQ(Value(1, fw::kColumnProfitLoss), fw::Variant(2.0));
    EXPECT_TRUE(Value(2, fw::kColumnProfitLoss).IsNull());
    EXPECT_EQ(Texts(kColumnLast)[2], "");
}

TEST_F(PositionsViewTest, QuotesAndTradesAreShownWithTheNextTick) {
    Trade(0, 1, 100);
    Quote("HSIZ6", 101);
    Opened<TPositionsView>();
    int Reloads = 0;
    const auto Link = Rows().OnRecordsChanged.Connect([&Reloads] { ++Reloads; });
    for (int i = 0; i < 1000; ++i) Host.Subscriptions.Deliver("HSIZ6");
    Trade(0, 1, 100, "HSIX6");
    EXPECT_EQ(Reloads, 0);
    Host.Timer.Tick();
    EXPECT_EQ(Reloads, 1);
    EXPECT_THAT(Texts(fw::kColumnSymbol), ElementsAre("HSIX6", "HSIZ6"));
    EXPECT_THAT(Host.Subscriptions.Subscribed(), ElementsAre("HSIX6", "HSIZ6"));
    Trade(1, 1, 100);  // flat
    Host.Timer.Tick();
    EXPECT_THAT(Texts(fw::kColumnSymbol), ElementsAre("HSIX6"));
    EXPECT_THAT(Host.Subscriptions.Subscribed(), ElementsAre("HSIX6")) << "asked for only while it is shown";
}

TEST_F(PositionsViewTest, OnlyTheUsersAccountsAreShownAndAskedFor) {
    TOrderTicket Foreign = Ticket(0, 1, 100, "X");
    Foreign.Account = "A2";
    Fill(Orders->Place(Foreign), 1, 100);
    Opened<TPositionsView>();
    EXPECT_THAT(Texts(fw::kColumnSymbol), IsEmpty());
    EXPECT_THAT(Host.Subscriptions.Subscribed(), IsEmpty());
}

TEST_F(PositionsViewTest, TheModeInUseStandsFirstAndBoldAndMakesTheProfit) {
    Trade(0, 2, 100), Trade(0, 2, 110), Trade(1, 1, 120);
    Quote("HSIZ6", 115);
    Host.Config.Set("USER", "PVAvgPriceMode", "1");
    Opened<TPositionsView>();
    const auto Averages = [this] {
        std::vector<int> Result;
        for (int i = 3; i < 6; ++i) Result.push_back(Rows().GetColumn(i)->Tag - kColumnAverageOfMode);
        return Result;
    };
    const auto Bold = [this](int Column) { return Rows().GetCellStyle(0, Column)->Bold; };
    EXPECT_THAT(Averages(), ElementsAre(1, 0, 2));
    EXPECT_TRUE(Bold(3));
    EXPECT_FALSE(Bold(4));
    EXPECT_NEAR(Value(0, fw::kColumnProfitLoss).AsFloat(), 25.0, 1e-9);
    Host.Config.Set("USER", "PVAvgPriceMode", "0");
    Host.Config.FireConfigUpdate();
    EXPECT_THAT(Averages(), ElementsAre(0, 1, 2));
    EXPECT_EQ(Value(0, fw::kColumnProfitLoss), fw::Variant(30.0));
    Host.Config.Set("USER", "PVAvgPriceMode", "7");
    Host.Config.FireConfigUpdate();
    EXPECT_THAT(Averages(), ElementsAre(0, 1, 2)) << "no such mode: the first";
}

TEST_F(PositionsViewTest, SortedByProfitItFollowsTheMarket) {
    Trade(0, 1, 100, "A"), Trade(0, 1, 100, "B");
    Quote("A", 110), Quote("B", 120);
    Opened<TPositionsView>();
    Rows().SortBy(IndexOf(Rows(), fw::kColumnProfitLoss));
    EXPECT_THAT(Texts(fw::kColumnSymbol), ElementsAre("A", "B"));
    Rows().GetSelection().Select(0);
    Quote("A", 130);
    Host.Subscriptions.Deliver("A");
    Host.Timer.Tick();
    EXPECT_THAT(Texts(fw::kColumnSymbol), ElementsAre("B", "A"));
    EXPECT_EQ(Rows().GetSelection().GetCurrent(), 1);
}

TEST_F(PositionsViewTest, SpeaksTheThreeLanguages) {
    Opened<TPositionsView>();
    const char* Captions[] = {"Average cost", "平均成本", "平均成本"};
    const char* Empty[] = {"There are no positions.", "沒有持倉。", "没有持仓。"};
    for (int Each : {1, 2, 0}) {
        Language.SetLanguage(Each);
        EXPECT_TRUE(View->SetLanguage(Handle, Each));
        EXPECT_EQ(Rows().GetColumn(3)->GetCaption(), Captions[Each]);
        EXPECT_EQ(Rows().Options.NoDataText, Empty[Each]);
    }
}

TEST_F(PositionsViewTest, NothingIsLeftAfterClose) {
    Trade(0, 1, 100);
    Opened<TPositionsView>();
    EXPECT_THAT(Host.Subscriptions.Subscribed(), ElementsAre("HSIZ6"));
    View->CloseInstance(Handle);
    EXPECT_THAT(Host.Leftovers(), IsEmpty());
    Trade(0, 1, 100);
    Host.Subscriptions.Deliver();
    Host.Timer.Tick();
}

}  // namespace ws::test
