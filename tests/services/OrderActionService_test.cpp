// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/OrderActionService.h"

#include <gtest/gtest.h>

#include "framework/base/Clock.h"
#include "framework/base/Log.h"
#include "framework/services/MessageBoxCtrl.h"
#include "tests/trading/FakeFacts.h"
#include "workstation/store/StoreError.h"

namespace ws {

using test::IndexOption;

namespace {

class TMessages : public fw::TCustomMessageBoxCtrl {
public:
    explicit TMessages(std::vector<fw::Text>& Shown) : FShown(Shown) {}
    void ShowMessageText(fw::TObject*, const fw::Text& Message, int, int, int) override { FShown.push_back(Message); }
    void ShowMessageCode(fw::TObject*, const fw::Text& Code, void*, void*, void*) override { FShown.push_back(Code); }

private:
    std::vector<fw::Text>& FShown;
};

class TThrowingFacts : public test::TFakeFacts {
public:
    bool Throws = false;
    TContractFacts Contract(const std::string& Symbol, const TTradingLimits& Limits) override {
        if (Throws) throw std::runtime_error("no market");
        return TFakeFacts::Contract(Symbol, Limits);
    }
};

class OrderActionService : public testing::Test {
protected:
    OrderActionService() {
        fw::TClock::Fix(fw::TClock::TTimePoint(std::chrono::seconds(1'000'000)));
        for (const char* Symbol : {"C1", "C2", "C3", "C4"}) Facts.Contracts[Symbol] = IndexOption();
        LogLink = fw::TLog::Entries().Connect([this](const fw::TLogEntry& Entry) {
            Logged.push_back(Entry.Key + (Entry.Args.empty() ? "" : " " + Entry.Args.front()));
        });
    }
    ~OrderActionService() override { fw::TClock::Fix({}); }

    // Orders C1, C2, ... of 2 at 100, with line ids from First on.
    std::vector<std::unique_ptr<fw::TCustomClientOrder>> Batch(int Count, int64_t First = 1) {
        std::vector<std::unique_ptr<fw::TCustomClientOrder>> Result;
        for (int i = 0; i < Count; ++i) {
            Result.push_back(std::make_unique<fw::TCustomClientOrder>());
            auto& Order = *Result.back();
            Order.SetLineId(First + i);
            Order.SetAccount("A100");
            Order.SetSymbol("C" + std::to_string(i % 4 + 1));
            Order.SetSide(0);
            Order.SetQty(2);
            Order.SetPrice(100);
        }
        return Result;
    }
    // The rows of a confirmation that shows Orders; Ticks has an x for each row that is ticked.
    template <class TOrders>
    static std::vector<TReviewRow> Rows(const TOrders& Orders, const std::string& Ticks) {
        std::vector<TReviewRow> Result;
        for (size_t i = 0; i < Orders.size(); ++i)
            Result.push_back({Orders[i]->GetLineId(), TicketOf(*Orders[i]), Ticks[i] == 'x', false, false, {}});
        return Result;
    }
    template <class TOrders>
    void Take(const TOrders& Orders) {
        for (const auto& Order : Orders) Service.TakeAction(nullptr, *Order, 1, true);
    }
    std::vector<std::string> Placed() const {
        std::vector<std::string> Result;
        for (const auto& Each : Tickets)
            Result.push_back(Each.Symbol + " " + std::to_string(Each.Place) + "/" + std::to_string(Each.BatchSize));
        return Result;
    }

    using TTexts = std::vector<fw::Text>;
    TTexts Shown, Logged;
    fw::TConnection LogLink;
    fw::TScopedService<fw::TCustomMessageBoxCtrl> MessageBox{std::make_unique<TMessages>(Shown)};
    fw::TScopedService<fw::TCustomFormatter> Formatter{std::make_unique<test::TPlainFormatter>()};
    TLanguageService Language{TTextTable::Embedded()};
    TThrowingFacts Facts;
    std::vector<TOrderTicket> Tickets;
    std::function<void()> BeforePlace;
    std::vector<std::function<void()>> Posted;
    TOrderActionService Service{Facts,
                                Language,
                                {[this](const std::vector<TOrderTicket>& Orders) {
                                     if (BeforePlace) BeforePlace();
                                     Tickets.insert(Tickets.end(), Orders.begin(), Orders.end());
                                 },
                                 [this](std::function<void()> Task) { Posted.push_back(std::move(Task)); }}};
};

TEST_F(OrderActionService, AnOrderThatCannotBeCheckedAnyMoreIsNamedAndTheOthersGo) {
    const auto Orders = Batch(2);
    Service.Confirmed(Rows(Orders, "xx"));
    Facts.Throws = true;
    Service.TakeAction(nullptr, *Orders[0], 1, true);
    Facts.Throws = false;
    Service.TakeAction(nullptr, *Orders[1], 1, true);
    EXPECT_EQ(Placed(), std::vector<std::string>{"C2 2/2"});
    ASSERT_EQ(Shown.size(), 1u);
    EXPECT_EQ(Shown[0], "Order 1 (C1) is not accepted: an error came up: no market");
}

}  // namespace

TEST_F(OrderActionService, ARefusalNamesPlaceSymbolRuleAndValue) {
    const auto Orders = Batch(3);
    Orders[1]->SetQty(-4);
    EXPECT_TRUE(Service.CheckOrder(*Orders[0], 1, true));
    EXPECT_FALSE(Service.CheckOrder(*Orders[1], 1, true));
    EXPECT_EQ(Shown, TTexts{"Order 2 (C2) is not accepted: the quantity is -4; it must be above 0."});
    // The next batch counts from 1 again, whatever became of this one.
    const auto Next = Batch(2, 4);
    Next[0]->SetSide(5);
    EXPECT_FALSE(Service.CheckOrder(*Next[0], 1, true));
    EXPECT_EQ(Shown.back(), "Order 1 (C1) is not accepted: the side 5 is neither buy nor sell.");
    Language.SetLanguage(kLanguageTraditional);
    EXPECT_FALSE(Service.CheckOrder(*Next[0], 1, true));
    EXPECT_EQ(Shown.back(), "第 1 個買賣盤（C1）不獲接納：買賣方向 5 既非買入亦非沽出。");
}

TEST_F(OrderActionService, PlacesCountAnewAfterAConfirmation) {
    const auto Orders = Batch(2);
    for (const auto& Order : Orders) EXPECT_TRUE(Service.CheckOrder(*Order, 1, true));
    Service.Confirmed({});
    const auto Next = Batch(1, 3);
    Next[0]->SetSymbol("NONE");
    EXPECT_FALSE(Service.CheckOrder(*Next[0], 1, true));
    EXPECT_EQ(Shown, TTexts{"Order 1 (NONE) is not accepted: no exchange lists NONE."});
}

TEST_F(OrderActionService, ASilentCheckShowsNothing) {
    const auto Orders = Batch(1);
    Orders[0]->SetAccount("B1");
    EXPECT_FALSE(Service.CheckOrder(*Orders[0], 1, false));
    EXPECT_FALSE(Service.CheckOrder(*Batch(1)[0], 9, false)) << "an action that nobody knows";
    EXPECT_TRUE(Shown.empty());
}

TEST_F(OrderActionService, ACheckThatFailsRefusesWithOneMessage) {
    Facts.Throws = true;
    EXPECT_FALSE(Service.CheckOrder(*Batch(1)[0], 1, true));
    EXPECT_EQ(Shown, TTexts{"Order 1 (C1) is not accepted: an error came up: no market"});
}

TEST_F(OrderActionService, WhatIsConfirmedGoesOutInItsPlaces) {
    const auto Orders = Batch(4);
    Service.Confirmed(Rows(Orders, "x-xx"));
    Take(Orders);
    EXPECT_EQ(Placed(), (std::vector<std::string>{"C1 1/3", "C3 2/3", "C4 3/3"}));
    EXPECT_FALSE(Tickets[0].BatchId.empty());
    EXPECT_EQ(Tickets[0].BatchId, Tickets[2].BatchId);
    EXPECT_EQ(Logged, TTexts{"Res_LogLeftOut 2"});
    EXPECT_TRUE(Shown.empty());
    ASSERT_TRUE(Service.LastSent());
    EXPECT_EQ(Service.LastSent()->Orders.size(), 3u);
    EXPECT_EQ(Service.LastSent()->Time, 1'000'000'000);
}

TEST_F(OrderActionService, NothingUnseenAndNothingTwice) {
    const auto Orders = Batch(2);
    Take(Orders);
    EXPECT_TRUE(Tickets.empty()) << "never shown";
    EXPECT_EQ(Shown.front(), "The order for C1 was not sent: nobody has confirmed it.");
    Service.Confirmed(Rows(Orders, "xx"));
    Take(Orders);
    Take(Orders);
    EXPECT_EQ(Tickets.size(), 2u) << "each once";
    Service.Confirmed(Rows(Orders, "xx"));
    Service.Confirmed({});
    Take(Orders);
    EXPECT_EQ(Tickets.size(), 2u) << "a later answer replaces the earlier one";
    Service.Confirmed(Rows(Orders, "xx"));
    Service.TakeAction(nullptr, *Orders[0], 2, true);
    EXPECT_EQ(Tickets.size(), 2u) << "another action";
}

TEST_F(OrderActionService, AnOrderThatIsNotWhatWasShownStays) {
    const auto Orders = Batch(2);
    Service.Confirmed(Rows(Orders, "xx"));
    Orders[0]->SetAccount("H001");
    Take(Orders);
    EXPECT_EQ(Placed(), (std::vector<std::string>{"C2 2/2"}));
    EXPECT_EQ(Shown, TTexts{"Order 1 (C1) was not sent: it is not what was confirmed."});
}

TEST_F(OrderActionService, TheRefusingChecksAreAppliedOnceMore) {
    const auto Orders = Batch(3);
    Service.Confirmed(Rows(Orders, "xxx"));
    Facts.Contracts.erase("C2");
    Take(Orders);
    EXPECT_EQ(Placed(), (std::vector<std::string>{"C1 1/3", "C3 3/3"}));
    EXPECT_EQ(Shown, TTexts{"Order 2 (C2) is not accepted: no exchange lists C2."});
}

TEST_F(OrderActionService, EachRoundOfChecksReadsUserAndLimitsAnew) {
    const auto Orders = Batch(2);
    EXPECT_TRUE(Service.CheckOrder(*Orders[0], 1, true));
    Service.Confirmed(Rows(Orders, "xx"));
    Facts.User.Accounts = {"H001"};
    Take(Orders);
    EXPECT_TRUE(Tickets.empty());
    Facts.User.Accounts = {"A100"};
    EXPECT_TRUE(Service.CheckOrder(*Batch(1, 9)[0], 1, true));
}

TEST_F(OrderActionService, ABatchGoesOutWithItsLastOrder) {
    const auto Orders = Batch(3);
    Service.Confirmed(Rows(Orders, "xx-"));
    Service.TakeAction(nullptr, *Orders[0], 1, true);
    EXPECT_TRUE(Tickets.empty());
    Service.TakeAction(nullptr, *Orders[1], 1, true);
    EXPECT_EQ(Placed(), (std::vector<std::string>{"C1 1/2", "C2 2/2"}));
    for (const auto& Task : Posted) Task();
    EXPECT_EQ(Tickets.size(), 2u) << "each once";
}

TEST_F(OrderActionService, ABatchWhoseLastOrderNeverComesGoesOutFromTheLoop) {
    const auto Orders = Batch(3);
    Service.Confirmed(Rows(Orders, "xxx"));
    Service.TakeAction(nullptr, *Orders[0], 1, true);
    Service.TakeAction(nullptr, *Orders[1], 1, true);
    ASSERT_EQ(Posted.size(), 1u);
    Posted[0]();
    EXPECT_EQ(Placed(), (std::vector<std::string>{"C1 1/3", "C2 2/3"}));
    Service.TakeAction(nullptr, *Orders[2], 1, true);
    EXPECT_EQ(Placed().back(), "C3 3/3");
    EXPECT_EQ(Service.LastSent()->Orders.size(), 3u);
    // The next answer may come before the loop.
    const auto Next = Batch(2, 10);
    Service.Confirmed(Rows(Next, "xx"));
    Service.TakeAction(nullptr, *Next[0], 1, true);
    Service.Confirmed({});
    EXPECT_EQ(Tickets.size(), 4u);
}

TEST_F(OrderActionService, AStoreThatCannotBeWrittenStopsTheBatchWithOneMessage) {
    const auto Orders = Batch(4);
    Service.Confirmed(Rows(Orders, "x-xx"));
    Service.TakeAction(nullptr, *Orders[0], 1, true);
    Posted[0]();  // one goes out on its own
    int Calls = 0;
    BeforePlace = [&] {
        ++Calls;
        throw EStoreError(kStoreDiskFull, {"store.db"});
    };
    for (int i = 1; i < 4; ++i) Service.TakeAction(nullptr, *Orders[static_cast<size_t>(i)], 1, true);
    for (const auto& Task : Posted) Task();
    EXPECT_EQ(Calls, 1);
    EXPECT_EQ(Placed(), std::vector<std::string>{"C1 1/3"});
    ASSERT_EQ(Shown.size(), 1u);
    const fw::Text Reason = Language.Resource(kStoreDiskFull, {"store.db"});
    EXPECT_EQ(Shown[0], "Not every order could be recorded. Sent: 1 C1. Not sent: 3 C3, 4 C4. " + Reason);
    // The next batch is free again.
    BeforePlace = {};
    const auto Next = Batch(1, 20);
    Service.Confirmed(Rows(Next, "x"));
    Take(Next);
    EXPECT_EQ(Tickets.size(), 2u);
    EXPECT_NE(Tickets[0].BatchId, Tickets[1].BatchId);
}

TEST_F(OrderActionService, ALongListOfUnsentOrdersIsCut) {
    const auto Orders = Batch(30);
    Service.Confirmed(Rows(Orders, std::string(30, 'x')));
    BeforePlace = [] { throw EStoreError(kStoreReadOnly, {"store.db"}); };
    Take(Orders);
    ASSERT_EQ(Shown.size(), 1u);
    EXPECT_NE(Shown[0].find("Sent: none. Not sent: 1 C1, 2 C2, 3 C3, 4 C4, 5 C1, 6 C2, 7 C3, 8 C4 and 22 more."),
              fw::Text::npos)
        << Shown[0];
    EXPECT_FALSE(Service.LastSent());
}

}  // namespace ws
