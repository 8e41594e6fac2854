// SPDX-License-Identifier: GPL-3.0-or-later
// Orders through the whole workstation: the paper exchange on the simulated market, and what the views are told.
#include <algorithm>

#include "tests/services/ServiceFixture.h"
#include "workstation/store/StoreTransaction.h"

namespace ws {
namespace {

class TTradingTest : public TServiceFixture {
protected:
    std::string Buy(const std::string& Symbol, double Qty, double Price, int Side = 0) {
        TOrderTicket Ticket;
        Ticket.Account = "A100";
        Ticket.Symbol = Symbol;
        Ticket.Side = Side;
        Ticket.Price = Price;
        Ticket.Qty = Qty;
        return Station->Orders().Place(Ticket);
    }
    fw::TCustomPositionData* Position(const std::string& Symbol, const std::string& Account = "A100") {
        fw::TPositionDictionary Positions;
        fw::TCustomPositionAdapter::GetInstance().GetPositionList(Account, Positions);
        const auto It = Positions.find(Symbol);
        return It == Positions.end() ? nullptr : It->second;
    }
};

TEST_F(TTradingTest, AFilledOrderChangesThePositionThatViewsLoad) {
    Open();
    auto* Held = Position("HSIZ6");
    ASSERT_TRUE(Held);
    EXPECT_EQ(Held->GetQty(), 2);
    EXPECT_EQ(Held->GetSideKind(), 0);
    const auto Id = Buy("HSIZ6", 3, 99999);
    EXPECT_EQ(Station->Orders().Find(Id)->State, EOrderState::New);
    Run(10);
    const auto* Order = Station->Orders().Find(Id);
    ASSERT_EQ(Order->State, EOrderState::Filled);
    EXPECT_EQ(Position("HSIZ6"), Held);  // a record lives as long as the service
    EXPECT_EQ(Held->GetQty(), 5);
    // Opened: 2 at 26310.
    EXPECT_DOUBLE_EQ(Held->GetAvgPrice(), (2 * 26310 + 3 * Order->AvgFillPrice) / 5);
    EXPECT_DOUBLE_EQ(Held->GetAvgPriceMode1(), Held->GetAvgPrice());
    const auto Settled = (5 * Held->GetAvgPriceMode2() - 3 * Order->AvgFillPrice) / 2;
    EXPECT_GT(Settled, 20000);
    EXPECT_NE(Settled, 26310);  // the two of yesterday stand where the simulation started
}

TEST_F(TTradingTest, AClosedPositionIsListedNoMore) {
    Open();
    const auto Id = Buy("HSIZ6", 2, 1, 1);
    Run(10);
    ASSERT_EQ(Station->Orders().Find(Id)->State, EOrderState::Filled);
    EXPECT_EQ(Position("HSIZ6"), nullptr);
}

TEST_F(TTradingTest, AnOrderUnderWayAtTheEndIsUnknownAtTheNextStart) {
    Open();
    const auto Id = Buy("HSIZ6", 2, 1);
    Run(10);
    ASSERT_EQ(Station->Orders().Find(Id)->State, EOrderState::Accepted);
    Open();
    EXPECT_EQ(Station->Orders().Find(Id)->State, EOrderState::Unknown);
    const auto& Notices = Station->Notices();
    EXPECT_TRUE(std::any_of(Notices.begin(), Notices.end(), [](const auto& N) {
        return N.Key == "Res_OrdersUnknown" && N.Args == std::vector<std::string>{"1"};
    }));
    Run(10);
    EXPECT_EQ(Station->Orders().Find(Id)->State, EOrderState::Unknown);
    Station->Orders().Cancel(Id);
    Run(1);
    EXPECT_EQ(Station->Orders().Find(Id)->State, EOrderState::Rejected);
    EXPECT_EQ(Station->Orders().Find(Id)->Reason.Key, "Res_PaperUnknown");
}

// Another program holds the store: orders are refused, and what the exchange tells meanwhile is written by a later
// tick.
TEST_F(TTradingTest, AStoreThatIsLockedForAWhileLosesNothing) {
    Open();
    const auto Id = Buy("HSIZ6", 1, 99999);
    {
        const auto Other = TStore::OpenFile(Folder / "store.db", "2026/12/01 10:00:00").Store;
        const TStoreTransaction Lock(*Other);
        EXPECT_THROW(Buy("HSIZ6", 2, 99999), EStoreError);
        Run(2);
        EXPECT_EQ(Station->Orders().Find(Id)->State, EOrderState::New);
        EXPECT_EQ(std::count(Logged.begin(), Logged.end(), "Res_OrderEventsKept"), 1);
    }
    Run(5);
    EXPECT_EQ(Station->Orders().Find(Id)->State, EOrderState::Filled);
    EXPECT_EQ(Position("HSIZ6")->GetQty(), 3);
    EXPECT_EQ(Station->Orders().Orders().size(), 1u);
}

TEST_F(TTradingTest, ResettingTheSampleKeepsOrdersAndShowsTheOpeningPositions) {
    Open();
    const auto Id = Buy("HSIZ6", 3, 99999);
    Run(10);
    Station->ResetSample();
    EXPECT_EQ(Station->Orders().Find(Id)->FilledQty, 3);
    EXPECT_EQ(Position("HSIZ6")->GetQty(), 5);
}

TEST_F(TTradingTest, AnExpiredContractIsRefused) {
    Open();
    const auto Id = Buy("HSI26400L6W11", 1, 9999);  // expires on 2026/12/11
    Run(10);
    EXPECT_EQ(Station->Orders().Find(Id)->State, EOrderState::Filled);
    TMarketSet Market = Station->Store().LoadMarket();
    for (auto& Exchange : Market.Exchanges)
        if (Exchange.Code == "HKFE") Exchange.MarketDay = "2026/12/12";
    Station->Store().ReplaceMarket(Market);
    Open();
    const auto Late = Buy("HSI26400L6W11", 1, 9999);
    Run(10);
    EXPECT_EQ(Station->Orders().Find(Late)->State, EOrderState::Rejected);
    EXPECT_EQ(Station->Orders().Find(Late)->Reason.Key, "Res_PaperExpired");
    EXPECT_EQ(Station->Store().LoadExecutions().back().Day, "2026/12/01");
}

}  // namespace
}  // namespace ws
