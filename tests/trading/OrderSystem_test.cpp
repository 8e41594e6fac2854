// SPDX-License-Identifier: GPL-3.0-or-later
// The life of an order, told in order and out of order.
#include "tests/trading/TradingFixture.h"

namespace ws::test {
namespace {

using EState = EOrderState;

class TOrderSystemTest : public TTradingFixture {};

TEST_F(TOrderSystemTest, AnOrderIsInTheStoreWhenItIsSent) {
    std::vector<TOrderRow> StoredAtSend;
    Gateway.OnSend = [&](const TOrderRow&) { StoredAtSend = TStore::OpenFile(File(), kNow).Store->LoadOrders(); };
    auto Wanted = Ticket(1, 3, 352.5);
    Wanted.BatchId = "B";
    Wanted.Place = 2;
    Wanted.BatchSize = 4;
    const auto Id = Orders->Place(Wanted);
    ASSERT_EQ(StoredAtSend.size(), 1u);
    EXPECT_EQ(StoredAtSend[0].Id, Id);
    EXPECT_EQ(StoredAtSend[0].State, EState::New);
    ASSERT_EQ(Gateway.Sent.size(), 1u);
    EXPECT_EQ(Gateway.Sent[0].Id, Id);
    EXPECT_EQ(Gateway.Sent[0].Qty, 3);
    EXPECT_EQ(Orders->Find(Id)->BatchId, "B");
    EXPECT_EQ(Heard, std::vector<std::string>{Id + " 0"});
    EXPECT_EQ(Orders->Find("nobody's"), nullptr);
}

TEST_F(TOrderSystemTest, AcceptedFilledInPartsAndFilled) {
    const auto Id = Orders->Place(Ticket(0, 5, 101));
    Gateway.Events->OrderAccepted(Id);
    EXPECT_EQ(StateOf(Id), EState::Accepted);
    Gateway.Events->OrderFilled(Id, "E1", 2, 100);
    EXPECT_EQ(StateOf(Id), EState::PartlyFilled);
    Gateway.Events->OrderFilled(Id, "E2", 3, 101);
    EXPECT_EQ(StateOf(Id), EState::Filled);
    EXPECT_EQ(FilledOf(Id), 5);
    EXPECT_DOUBLE_EQ(Orders->Find(Id)->AvgFillPrice, 100.6);  // (2*100 + 3*101) / 5
    const auto Holdings = Orders->Holdings("A1");
    ASSERT_EQ(Holdings.size(), 1u);
    EXPECT_EQ(Holdings[0].Qty, 5);
    EXPECT_DOUBLE_EQ(Holdings[0].AverageCost, 100.6);
    EXPECT_EQ(Heard, (std::vector<std::string>{Id + " 0", Id + " 1", Id + " 2", "holdings", Id + " 3", "holdings"}));
    EXPECT_TRUE(Logged.empty());
    ExpectStoreAgrees();
}

TEST_F(TOrderSystemTest, ASaleIsHeldShort) {
    const auto Id = Orders->Place(Ticket(1, 2));
    Gateway.Events->OrderFilled(Id, "E1", 2, 99);
    EXPECT_EQ(HeldQty(), -2);
    EXPECT_EQ(Store->LoadExecutions().at(0).Qty, -2);
    EXPECT_EQ(Store->LoadExecutions().at(0).Day, Today);
}

// Every order of told events leads to one state; 0..6 are New .. Unknown.
TEST_F(TOrderSystemTest, EventsOutOfOrderLeadWhereTheyShould) {
    const struct {
        const char* Why;
        const char* Told;  // a accepted, f fill of 2, F fill of 5, r rejected, c cancelled
        EState State;
        double Filled;
        std::vector<std::string> Logs;
    } Cases[] = {
        {"accepted twice", "aa", EState::Accepted, 0, {}},
        {"accepted behind a part", "fa", EState::PartlyFilled, 2, {}},
        {"accepted behind the fill", "Fa", EState::Filled, 5, {}},
        {"accepted behind the refusal", "ra", EState::Rejected, 0, {}},
        {"accepted behind the cancel", "ca", EState::Cancelled, 0, {}},
        {"filled without acceptance", "ff", EState::PartlyFilled, 4, {}},
        {"cancelled after a part", "afc", EState::Cancelled, 2, {}},
        {"refused after a part", "afr", EState::Rejected, 2, {}},
        {"a fill crosses the cancel", "acf", EState::Cancelled, 2, {"Res_OrderFillAfterEnd"}},
        {"all filled after the cancel", "acF", EState::Cancelled, 5, {"Res_OrderFillAfterEnd"}},
        {"filled after a refusal", "rf", EState::Rejected, 2, {"Res_OrderFillAfterEnd"}},
        {"cancelled twice", "acc", EState::Cancelled, 0, {}},
        {"refused twice", "rr", EState::Rejected, 0, {}},
        {"cancelled after all was filled", "Fc", EState::Filled, 5, {"Res_OrderEndedTwice"}},
        {"refused after the cancel", "cr", EState::Cancelled, 0, {"Res_OrderEndedTwice"}},
        {"more than was ordered", "FF", EState::Filled, 10, {"Res_OrderFilledBeyond"}},
        {"the last part is too large", "fF", EState::Filled, 7, {"Res_OrderFilledBeyond"}},
    };
    int Executions = 0;
    double Held = 0;
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        Logged.clear();
        const auto Id = Orders->Place(Ticket(0, 5));
        for (const char* Event = Case.Told; *Event; ++Event) {
            const auto Execution = "E" + std::to_string(++Executions);
            switch (*Event) {
                case 'a': Gateway.Events->OrderAccepted(Id); break;
                case 'f': Gateway.Events->OrderFilled(Id, Execution, 2, 100); break;
                case 'F': Gateway.Events->OrderFilled(Id, Execution, 5, 100); break;
                case 'r': Gateway.Events->OrderRejected(Id, {"Res_PaperRefused", {}}); break;
                case 'c': Gateway.Events->OrderCancelled(Id); break;
            }
        }
        EXPECT_EQ(StateOf(Id), Case.State);
        EXPECT_EQ(FilledOf(Id), Case.Filled);
        EXPECT_EQ(HeldQty(), Held += Case.Filled);  // whatever the state: what was traded is held
        std::vector<std::string> Keys;
        for (const auto& Entry : Logged) Keys.push_back(Entry.Key);
        EXPECT_EQ(Keys, Case.Logs);
    }
    ExpectStoreAgrees();
}

TEST_F(TOrderSystemTest, ARefusalKeepsItsReason) {
    const auto Id = Orders->Place(Ticket(0, 5));
    const TReason Reason{"Res_PaperNotListed", {"HSIZ6"}};
    Gateway.Events->OrderRejected(Id, Reason);
    EXPECT_EQ(Orders->Find(Id)->Reason, Reason);
    Start();
    EXPECT_EQ(StateOf(Id), EState::Rejected);
    EXPECT_EQ(Orders->Find(Id)->Reason, Reason);
}

TEST_F(TOrderSystemTest, AfterARestartWhatWasUnderWayIsUnknownAndNothingIsSentAgain) {
    const auto New = Orders->Place(Ticket(0, 5)), Accepted = Orders->Place(Ticket(0, 5)),
               Partly = Orders->Place(Ticket(0, 5)), Filled = Orders->Place(Ticket(0, 5)),
               Cancelled = Orders->Place(Ticket(0, 5));
    Gateway.Events->OrderAccepted(Accepted);
    Gateway.Events->OrderFilled(Partly, "E1", 2, 100);
    Gateway.Events->OrderFilled(Filled, "E2", 5, 100);
    Gateway.Events->OrderCancelled(Cancelled);
    for (int Restart = 0; Restart < 2; ++Restart) {
        Start();
        for (const auto& Id : {New, Accepted, Partly}) {
            EXPECT_EQ(StateOf(Id), EState::Unknown);
            EXPECT_EQ(Orders->Find(Id)->Reason.Key, "Res_OrderAskExchange");
        }
        EXPECT_EQ(FilledOf(Partly), 2);
        EXPECT_EQ(StateOf(Filled), EState::Filled);
        EXPECT_EQ(StateOf(Cancelled), EState::Cancelled);
        EXPECT_EQ(Gateway.Sent.size(), 5u);
        EXPECT_EQ(HeldQty(), 7);
        ExpectStoreAgrees();
    }
    // The exchange answers after all.
    Gateway.Events->OrderAccepted(New);
    EXPECT_EQ(StateOf(New), EState::Accepted);
    EXPECT_EQ(Orders->Find(New)->Reason, TReason{});
    Gateway.Events->OrderAccepted(Partly);
    EXPECT_EQ(StateOf(Partly), EState::PartlyFilled);
    Gateway.Events->OrderFilled(Accepted, "E3", 5, 100);
    EXPECT_EQ(StateOf(Accepted), EState::Filled);
    Gateway.Events->OrderFilled(Partly, "E1", 2, 100);  // told by the earlier run already
    EXPECT_EQ(FilledOf(Partly), 2);
    EXPECT_EQ(HeldQty(), 12);
}

TEST_F(TOrderSystemTest, CancelAsksForWhatCanStillBeCancelled) {
    const auto New = Orders->Place(Ticket(0, 5)), Partly = Orders->Place(Ticket(0, 5)),
               Filled = Orders->Place(Ticket(0, 5)), Refused = Orders->Place(Ticket(0, 5));
    Gateway.Events->OrderFilled(Partly, "E1", 2, 100);
    Gateway.Events->OrderFilled(Filled, "E2", 5, 100);
    Gateway.Events->OrderRejected(Refused, {});
    for (const auto& Id : {Filled, Refused, std::string("nobody's")}) Orders->Cancel(Id);
    EXPECT_TRUE(Gateway.Cancelled.empty());
    Orders->Cancel(New);
    EXPECT_EQ(Gateway.Cancelled, std::vector<std::string>{New});
    EXPECT_EQ(StateOf(New), EState::New);  // until the exchange says so
    Gateway.Cancelled.clear();
    Orders->CancelAll();
    EXPECT_EQ(Gateway.Cancelled, (std::vector<std::string>{New, Partly}));
}

TEST_F(TOrderSystemTest, HoldingsAreByAccountAndSymbolWithoutFlatOnes) {
    const auto Trade = [&](const std::string& Account, const std::string& Symbol, int Side, double Qty) {
        auto Wanted = Ticket(Side, Qty, 100, Symbol);
        Wanted.Account = Account;
        const auto Id = Orders->Place(Wanted);
        Gateway.Events->OrderFilled(Id, Id + "/1", Qty, 100);
    };
    Trade("B", "X", 0, 1);
    Trade("A", "Z", 1, 2);
    Trade("A", "Y", 0, 3);
    Trade("A", "FLAT", 0, 4);
    Trade("A", "FLAT", 1, 4);
    Trade("AB", "X", 0, 5);
    std::string Text;
    for (const auto& Row : Orders->AllHoldings())
        Text += Row.Account + Row.Symbol + std::to_string(static_cast<int>(Row.Qty)) + " ";
    EXPECT_EQ(Text, "AY3 AZ-2 ABX5 BX1 ");
    EXPECT_EQ(Orders->Holdings("A").size(), 2u);
    EXPECT_EQ(Orders->Holdings("AB").size(), 1u);
    EXPECT_TRUE(Orders->Holdings("").empty());
    EXPECT_TRUE(Orders->Holdings("NONE").empty());
}

// Day 1: 2 bought at 100. Day 2, settled at 90: 2 bought at 110 make (2*90 + 2*110) / 4. Day 3, settled at 120: all
// four.
TEST_F(TOrderSystemTest, TheSettledAverageFollowsTheMarketDay) {
    const auto Buy = [&](const std::string& Execution, double Price) {
        Gateway.Events->OrderFilled(Orders->Place(Ticket(0, 2)), Execution, 2, Price);
    };
    const auto Settled = [&] { return Orders->Holdings("A1").at(0).OvernightSettled; };
    Buy("E1", 100);
    EXPECT_DOUBLE_EQ(Settled(), 100);
    Today = "2026/11/22";
    EXPECT_DOUBLE_EQ(Settled(), 100);  // no settlement known: the cost
    Settlements["HSIZ6"] = 90;
    EXPECT_DOUBLE_EQ(Settled(), 90);
    Buy("E2", 110);
    EXPECT_DOUBLE_EQ(Settled(), 100);
    Today = "2026/11/23";
    Settlements["HSIZ6"] = 120;
    EXPECT_DOUBLE_EQ(Settled(), 120);
    EXPECT_DOUBLE_EQ(Orders->Holdings("A1").at(0).AverageCost, 105);
}

TEST_F(TOrderSystemTest, ReloadTakesWhatSomebodyElseWrote) {
    const auto Id = Orders->Place(Ticket(0, 2));
    Gateway.Events->OrderFilled(Id, "E1", 1, 100);
    {
        TStoreTransaction Write(*Store);
        Write.Put(TPositionRow{"A1", "HSIZ6", 10, 90});
        Write.RenameContracts({{"HSIZ6", "HSIF7"}});
        Write.Commit();
    }
    Heard.clear();
    Orders->Reload();
    EXPECT_EQ(HeldQty("HSIF7"), 11);
    EXPECT_EQ(HeldQty("HSIZ6"), 0);
    EXPECT_EQ(Orders->Find(Id)->Symbol, "HSIF7");
    EXPECT_EQ(StateOf(Id), EState::PartlyFilled);  // it is still under way
    EXPECT_EQ(Heard, (std::vector<std::string>{Id + " 2", "holdings"}));
    Gateway.Events->OrderFilled(Id, "E2", 1, 100);
    EXPECT_EQ(HeldQty("HSIF7"), 12);
}

// A gateway that answers from inside Send, and a listener that places the next order: nothing is lost or doubled.
TEST_F(TOrderSystemTest, AnswersFromInsideAnEventWaitForItsEnd) {
    Gateway.OnSend = [&](const TOrderRow& Row) {
        Gateway.Events->OrderAccepted(Row.Id);
        Gateway.Events->OrderFilled(Row.Id, Row.Id + "/1", Row.Qty, 100);
    };
    int Placed = 1;
    Links += Orders->OnOrderChanged.Connect([&](const TOrderRow& Row) {
        if (Row.State == EState::Filled && Placed < 4) ++Placed, Orders->Place(Ticket(0, 1));
    });
    Orders->Place(Ticket(0, 1));
    EXPECT_EQ(Orders->Orders().size(), 4u);
    for (const auto& Row : Orders->Orders()) EXPECT_EQ(Row.State, EState::Filled);
    EXPECT_EQ(HeldQty(), 4);
    ExpectStoreAgrees();
}

// A thousand legs are one transaction, not a thousand: all of them stand in the file when the first is sent.
TEST_F(TOrderSystemTest, ABatchIsWrittenAsOneBeforeItsFirstOrderIsSent) {
    std::vector<TOrderTicket> Batch;
    for (int i = 0; i < 1000; ++i) Batch.push_back(Ticket(i % 2, 1 + i));
    std::size_t StoredAtFirst = 0;
    Gateway.OnSend = [&](const TOrderRow&) {
        if (Gateway.Sent.size() == 1) StoredAtFirst = TStore::OpenFile(File(), kNow).Store->LoadOrders().size();
    };
    const auto Ids = Orders->PlaceAll(Batch);
    EXPECT_EQ(StoredAtFirst, 1000u);
    EXPECT_EQ(std::set<std::string>(Ids.begin(), Ids.end()).size(), 1000u);
    ASSERT_EQ(Gateway.Sent.size(), 1000u);
    for (std::size_t i = 0; i < 1000; ++i) {
        EXPECT_EQ(Gateway.Sent[i].Id, Ids[i]);
        EXPECT_EQ(Gateway.Sent[i].Qty, static_cast<double>(1 + i));
    }
    EXPECT_EQ(Heard.size(), 1000u);
    EXPECT_TRUE(Orders->PlaceAll({}).empty());
    ExpectStoreAgrees();
}

TEST_F(TOrderSystemTest, WhatIsToldInOneRoundIsWrittenTogetherAndHeardOnce) {
    Start(true);
    const auto A = Orders->Place(Ticket(0, 5)), B = Orders->Place(Ticket(1, 2));
    Heard.clear();
    Gateway.Events->OrderAccepted(B);
    Gateway.Events->OrderAccepted(A);
    Gateway.Events->OrderFilled(A, "E1", 2, 100);
    Gateway.Events->OrderFilled(A, "E1", 2, 100);
    Gateway.Events->OrderFilled(A, "E2", 3, 101);
    Gateway.Events->OrderFilled("other", "E3", 1, 1);
    EXPECT_EQ(Posted.size(), 1u);
    EXPECT_TRUE(Heard.empty());
    EXPECT_EQ(StateOf(A), EState::New);
    RunPosted();
    EXPECT_EQ(Heard, (std::vector<std::string>{A + " 3", B + " 1", "holdings"}));
    EXPECT_EQ(FilledOf(A), 5);
    EXPECT_DOUBLE_EQ(Orders->Find(A)->AvgFillPrice, 100.6);
    EXPECT_EQ(Count("Res_OrderFillUnknown"), 1);
    ExpectStoreAgrees();
    Gateway.Events->OrderCancelled(B);
    EXPECT_EQ(Posted.size(), 1u);  // the next round is asked for
    RunPosted();
    EXPECT_EQ(StateOf(B), EState::Cancelled);
}

}  // namespace
TEST_F(TOrderSystemTest, AFillCountsOnTheDayOnWhichItWasTold) {
    Start(true);
    const auto Id = Orders->Place(Ticket(0, 5));
    Gateway.Events->OrderFilled(Id, "E1", 2, 100);
    Today = "2026/11/24";
    RunPosted();
    const auto Executions = Store->LoadExecutions();
    ASSERT_EQ(Executions.size(), 1u);
    EXPECT_EQ(Executions[0].Day, "2026/11/21");
}

}  // namespace ws::test
