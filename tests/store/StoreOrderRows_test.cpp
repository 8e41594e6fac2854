// SPDX-License-Identifier: GPL-3.0-or-later
// Orders and executions: they come back whole, are added once and never removed.
#include "tests/store/StoreFixture.h"
#include "workstation/store/StoreTransaction.h"

namespace ws::test {
namespace {

TOrderRow AnOrder() {
    TOrderRow Row;
    Row.Account = "A1";
    Row.Symbol = "HSI27000L6";
    Row.Side = 1;
    Row.Price = 0.1 + 0.2;
    Row.Qty = 3;
    Row.OpenClose = 2;
    Row.Principal = 1;
    Row.BatchId = "batch";
    Row.Place = 2;
    Row.BatchSize = 4;
    Row.Created = Row.Changed = 1'795'000'000'123;
    return Row;
}

std::string Add(TStore& Store, const TOrderRow& Row) {
    TStoreTransaction Write(Store);
    const auto Id = Write.AddOrder(Row);
    Write.Commit();
    return Id;
}

TEST(StoreOrderRows, AnOrderComesBackWhole) {
    const auto Store = TStore::CreateInMemory();
    const auto Id = Add(*Store, AnOrder());
    auto Row = Store->LoadOrders().at(0);
    EXPECT_EQ(Row.Id, Id);
    EXPECT_EQ(Row.Account, "A1");
    EXPECT_EQ(Row.Symbol, "HSI27000L6");
    EXPECT_EQ(Row.Side, 1);
    EXPECT_EQ(Row.Price, 0.1 + 0.2);
    EXPECT_EQ(Row.Qty, 3);
    EXPECT_EQ(Row.OpenClose, 2);
    EXPECT_EQ(Row.Principal, 1);
    EXPECT_EQ(Row.BatchId, "batch");
    EXPECT_EQ(Row.Place, 2);
    EXPECT_EQ(Row.BatchSize, 4);
    EXPECT_EQ(Row.State, EOrderState::New);
    EXPECT_EQ(Row.Reason, TReason{});
    EXPECT_EQ(Row.Created, 1'795'000'000'123);
}

TEST(StoreOrderRows, EveryStateAndReasonComesBack) {
    const auto Store = TStore::CreateInMemory();
    TOrderRow Row = AnOrder();
    Row.Id = Add(*Store, Row);
    for (const auto State : {EOrderState::New, EOrderState::Accepted, EOrderState::PartlyFilled, EOrderState::Filled,
                             EOrderState::Cancelled, EOrderState::Rejected, EOrderState::Unknown}) {
        SCOPED_TRACE(static_cast<int>(State));
        Row.State = State;
        Row.FilledQty = 1.5;
        Row.AvgFillPrice = 0.7;
        Row.Reason = {"Res_Key", {"", "two, \"quoted\"\n", ""}};
        Row.Changed = 7;
        TStoreTransaction Write(*Store);
        Write.ChangeOrder(Row);
        Write.Commit();
        const auto Read = Store->LoadOrders().at(0);
        EXPECT_EQ(Read.State, State);
        EXPECT_EQ(Read.Reason, Row.Reason);
        EXPECT_EQ(Read.FilledQty, 1.5);
        EXPECT_EQ(Read.AvgFillPrice, 0.7);
        EXPECT_EQ(Read.Changed, 7);
    }
}

TEST(StoreOrderRows, IdsAreNeverGivenTwice) {
    const TTempFolder Folder;
    std::set<std::string> Ids;
    {
        const auto A = TStore::OpenFile(Folder / "store.db", kNow), B = TStore::OpenFile(Folder / "store.db", kNow);
        for (int i = 0; i < 5; ++i) Ids.insert({Add(*A.Store, AnOrder()), Add(*B.Store, AnOrder())});
    }
    const auto Again = TStore::OpenFile(Folder / "store.db", kNow);
    Ids.insert(Add(*Again.Store, AnOrder()));
    Ids.insert(Add(*TStore::OpenFile(Folder / "other.db", kNow).Store, AnOrder()));
    EXPECT_EQ(Ids.size(), 12u);
}

TEST(StoreOrderRows, AnExecutionIsAddedOnce) {
    const auto Store = TStore::CreateInMemory();
    const auto Id = Add(*Store, AnOrder());
    const TExecutionRow Row{"E1", Id, "A1", "HSI27000L6", -3, 12.5, "2026/11/21", 99};
    {
        TStoreTransaction Write(*Store);
        EXPECT_TRUE(Write.AddExecution(Row));
        EXPECT_FALSE(Write.AddExecution(Row));
        Write.Commit();
    }
    TStoreTransaction Write(*Store);
    EXPECT_FALSE(Write.AddExecution(Row));
    const auto Read = Store->LoadExecutions();
    ASSERT_EQ(Read.size(), 1u);
    EXPECT_EQ(Read[0].Id, "E1");
    EXPECT_EQ(Read[0].OrderId, Id);
    EXPECT_EQ(Read[0].Qty, -3);
    EXPECT_EQ(Read[0].Price, 12.5);
    EXPECT_EQ(Read[0].Day, "2026/11/21");
    EXPECT_EQ(Read[0].Time, 99);
}

TEST(StoreOrderRows, OpeningsComeFirstHoweverLateTheyArePut) {
    const auto Store = TStore::CreateInMemory();
    TStoreTransaction Write(*Store);
    Write.AddExecution({"E1", "O1", "A1", "X", 1, 1, "2026/11/21", 1});
    Write.Put(TPositionRow{"A1", "X", 5, 9});
    const auto Read = Store->LoadExecutions();
    ASSERT_EQ(Read.size(), 2u);
    EXPECT_EQ(Read[0].Qty, 5);
    EXPECT_EQ(Read[1].Id, "E1");
}

TEST(StoreOrderRows, HeldIsWhatDoesNotAddUpToNothingAndWhatIsUnderWay) {
    const auto Store = TStore::CreateInMemory();
    TStoreTransaction Write(*Store);
    Write.AddExecution({"1", "O1", "A1", "FLAT", 0.1, 1, "", 1});
    Write.AddExecution({"2", "O1", "A1", "FLAT", 0.2, 1, "", 2});
    Write.AddExecution({"3", "O1", "A1", "FLAT", -0.3, 1, "", 3});  // 5.5e-17 are left
    Write.AddExecution({"4", "O1", "A1", "TWO", 1, 1, "", 4});      // flat only over both accounts
    Write.AddExecution({"5", "O1", "A2", "TWO", -1, 1, "", 5});
    TOrderRow Order = AnOrder();
    for (const auto& [Symbol, State] : {std::pair{"ENDED", EOrderState::Cancelled},
                                        {"WORKS", EOrderState::Accepted},
                                        {"ASK", EOrderState::Unknown}}) {
        Order.Symbol = Symbol;
        Order.State = State;
        Write.AddOrder(Order);
    }
    EXPECT_EQ(Store->HeldSymbols(), (std::set<std::string>{"TWO", "WORKS", "ASK"}));
}

TEST(StoreOrderRows, NumbersThatAreNoneAreRefused) {
    const auto Store = TStore::CreateInMemory();
    TOrderRow Row = AnOrder();
    Row.Price = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(ErrorKeyOf([&] { Add(*Store, Row); }), kStoreFailed);
    EXPECT_TRUE(Store->LoadOrders().empty());
}

TEST(StoreOrderRows, ReplacingTheTradingDataLeavesTrades) {
    const auto Store = TStore::CreateInMemory();
    {
        TStoreTransaction Write(*Store);
        Write.AddExecution({"E1", "O1", "A1", "X", 1, 1, "", 1});
        Write.Put(TPositionRow{"A1", "X", 5, 9});
        Write.Commit();
    }
    Store->ReplaceTrading({{}, {}, {{"A1", "Y", 2, 3}}});
    const auto Read = Store->LoadExecutions();
    ASSERT_EQ(Read.size(), 2u);
    EXPECT_EQ(Read[0].Symbol, "Y");
    EXPECT_EQ(Read[1].Id, "E1");
}

}  // namespace
}  // namespace ws::test
