// SPDX-License-Identifier: GPL-3.0-or-later
// The store cannot be written, or the exchange tells what cannot be.
#include <SQLiteCpp/SQLiteCpp.h>
#include <sys/resource.h>

#include <csignal>
#include <limits>
#include <memory>

#include "tests/trading/TradingFixture.h"

namespace ws::test {
namespace {

using EState = EOrderState;

// Another program that holds the write lock.
class TForeignLock {
public:
    explicit TForeignLock(const std::filesystem::path& File) : FDb(File.string(), SQLite::OPEN_READWRITE) {
        FDb.exec("BEGIN IMMEDIATE");
    }
    ~TForeignLock() { FDb.exec("ROLLBACK"); }

private:
    SQLite::Database FDb;
};

// No file of this process may grow beyond what the store's log is now: what a full disk does to it.
class TFullDisk {
public:
    explicit TFullDisk(const std::filesystem::path& StoreFile) : FHandler(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &FBefore);
        rlimit Small = FBefore;
        std::error_code Error;
        const auto Log = std::filesystem::file_size(StoreFile.string() + "-wal", Error);
        Small.rlim_cur = Error ? 0 : Log;
        setrlimit(RLIMIT_FSIZE, &Small);
    }
    ~TFullDisk() {
        setrlimit(RLIMIT_FSIZE, &FBefore);
        std::signal(SIGXFSZ, FHandler);
    }

private:
    rlimit FBefore{};
    void (*FHandler)(int);
};

class TOrderFaults : public TTradingFixture {};

TEST_F(TOrderFaults, AnOrderThatCannotBeWrittenIsNotSent) {
    Orders->Place(Ticket(0, 1));
    Heard.clear();
    {
        const TForeignLock Lock(File());
        EXPECT_EQ(ErrorKeyOf([&] { Orders->Place(Ticket(0, 2)); }), kStoreLocked);
    }
    {
        const TFullDisk Full(File());
        EXPECT_NE(ErrorKeyOf([&] { Orders->Place(Ticket(0, 3)); }), "");
    }
    EXPECT_EQ(Gateway.Sent.size(), 1u);
    EXPECT_EQ(Orders->Orders().size(), 1u);
    EXPECT_TRUE(Heard.empty());
    const auto Next = Orders->Place(Ticket(0, 4));
    EXPECT_EQ(Gateway.Sent.size(), 2u);
    EXPECT_EQ(Orders->Find(Next)->Qty, 4);
    ExpectStoreAgrees();
    Start();
    EXPECT_EQ(Orders->Orders().size(), 2u);
}

TEST_F(TOrderFaults, WhatTheExchangeTellsMeanwhileIsKeptAndWrittenOnceInOrder) {
    const auto First = Orders->Place(Ticket(0, 5)), Second = Orders->Place(Ticket(1, 2));
    Heard.clear();
    for (const bool DiskFull : {false, true}) {
        SCOPED_TRACE(DiskFull);
        std::unique_ptr<TForeignLock> Lock;
        std::unique_ptr<TFullDisk> Full;
        if (DiskFull)
            Full = std::make_unique<TFullDisk>(File());
        else
            Lock = std::make_unique<TForeignLock>(File());
        const std::string Tail = DiskFull ? "b" : "a";
        Gateway.Events->OrderAccepted(First);
        Gateway.Events->OrderFilled(First, "E1" + Tail, 2, 100);
        Gateway.Events->OrderFilled(First, "E1" + Tail, 2, 100);  // told twice
        Gateway.Events->OrderFilled(Second, "E2" + Tail, 1, 99);
        Orders->Retry();
        EXPECT_TRUE(Heard.empty());  // not in the store: nobody hears of it
        EXPECT_EQ(HeldQty(), DiskFull ? 1 : 0);
        EXPECT_EQ(Count("Res_OrderEventsKept"), 1);
        EXPECT_EQ(Count("Res_OrderEventsWritten"), 0);
        Lock.reset();
        Full.reset();
        Orders->Retry();
        EXPECT_EQ(HeldQty(), DiskFull ? 2 : 1);
        EXPECT_EQ(Count("Res_OrderEventsWritten"), 1);
        ExpectStoreAgrees();
        Heard.clear();
        Logged.clear();
    }
    EXPECT_EQ(FilledOf(First), 4);
    EXPECT_EQ(StateOf(Second), EState::Filled);
    EXPECT_EQ(Store->LoadExecutions().size(), 4u);
}

// The system ends while it still keeps something: it tries once more.
TEST_F(TOrderFaults, WhatIsKeptIsWrittenAtTheEndAtTheLatest) {
    const auto Id = Orders->Place(Ticket(0, 5));
    {
        const TForeignLock Lock(File());
        Gateway.Events->OrderFilled(Id, "E1", 2, 100);
    }
    Start();
    EXPECT_EQ(FilledOf(Id), 2);
    EXPECT_EQ(HeldQty(), 2);
}

TEST_F(TOrderFaults, ARestartOnAStoreThatCannotBeWrittenIsRefused) {
    Orders->Place(Ticket(0, 5));
    Orders.reset();
    const TForeignLock Lock(File());
    EXPECT_EQ(ErrorKeyOf([&] { TOrderSystem(*Store, Gateway); }), kStoreLocked);
    EXPECT_EQ(Gateway.Events, nullptr);
}

TEST_F(TOrderFaults, OrdersAndFillsThatNobodyKnowsAreLoggedAndChangeNothing) {
    const auto Id = Orders->Place(Ticket(0, 5));
    Heard.clear();
    Gateway.Events->OrderAccepted("other");
    Gateway.Events->OrderRejected("other", {});
    Gateway.Events->OrderCancelled("other");
    Gateway.Events->OrderFilled("other", "E1", 2.5, 100.25);
    EXPECT_EQ(Count("Res_OrderEventUnknown"), 3);
    ASSERT_EQ(Count("Res_OrderFillUnknown"), 1);
    EXPECT_EQ(Logged.back().Args, (std::vector<fw::Text>{"other", "E1", "2.5", "100.25"}));
    EXPECT_EQ(Logged.back().Level, fw::ELogLevel::Error);
    EXPECT_TRUE(Heard.empty());
    EXPECT_TRUE(Store->LoadExecutions().empty());
    EXPECT_EQ(StateOf(Id), EState::New);
}

TEST_F(TOrderFaults, FillsThatCannotBeAreLeftOut) {
    const auto Id = Orders->Place(Ticket(0, 5));
    const double None = std::numeric_limits<double>::quiet_NaN(), Endless = std::numeric_limits<double>::infinity();
    const struct {
        const char* Execution;
        double Qty, Price;
    } Cases[] = {{"E1", 0, 100},  {"E2", -1, 100},    {"E3", None, 100}, {"E4", Endless, 100},
                 {"E5", 1, None}, {"E6", 1, Endless}, {"", 1, 100}};
    for (const auto& Case : Cases) Gateway.Events->OrderFilled(Id, Case.Execution, Case.Qty, Case.Price);
    EXPECT_EQ(Count("Res_OrderFillUnusable"), 7);
    EXPECT_EQ(FilledOf(Id), 0);
    Gateway.Events->OrderFilled(Id, "E1", 1, 100);  // what was left out has not used its id up
    EXPECT_EQ(FilledOf(Id), 1);
}

TEST_F(TOrderFaults, AnOrderWhoseSendingThrowsIsUnknown) {
    Gateway.OnSend = [](const TOrderRow&) { throw std::runtime_error("line down"); };
    const auto Id = Orders->Place(Ticket(0, 5));
    EXPECT_EQ(StateOf(Id), EState::Unknown);
    EXPECT_EQ(Orders->Find(Id)->Reason.Key, "Res_OrderSendFailed");
    EXPECT_EQ(Count("Res_LogHandlerFailed"), 1);
    EXPECT_EQ(Heard, (std::vector<std::string>{Id + " 0", Id + " 6"}));
    ExpectStoreAgrees();
}

TEST_F(TOrderFaults, OfABatchThatCannotBeWrittenNothingIsSent) {
    {
        const TForeignLock Lock(File());
        EXPECT_EQ(ErrorKeyOf([&] { Orders->PlaceAll({Ticket(0, 1), Ticket(0, 2)}); }), kStoreLocked);
    }
    auto None = Ticket(0, 2);
    None.Price = std::numeric_limits<double>::quiet_NaN();  // the second cannot be stored
    EXPECT_EQ(ErrorKeyOf([&] { Orders->PlaceAll({Ticket(0, 1), None}); }), kStoreFailed);
    EXPECT_TRUE(Gateway.Sent.empty());
    EXPECT_TRUE(Orders->Orders().empty());
    EXPECT_TRUE(Store->LoadOrders().empty());
    EXPECT_TRUE(Heard.empty());
}

// The write fails after the events have been worked out: memory takes them back, and nothing is logged twice.
TEST_F(TOrderFaults, ARoundThatCannotBeWrittenLeavesNoTrace) {
    Start(true);
    const auto Id = Orders->Place(Ticket(0, 5));
    Heard.clear();
    {
        const TFullDisk Full(File());
        Gateway.Events->OrderAccepted(Id);
        Gateway.Events->OrderFilled(Id, "E1", 2, 100);
        Gateway.Events->OrderFilled(Id, "E2", 5, 100);  // beyond the quantity
        Gateway.Events->OrderFilled("other", "E3", 1, 1);
        for (int Try = 0; Try < 3; ++Try) {
            RunPosted();
            Orders->Retry();
            EXPECT_EQ(StateOf(Id), EState::New);
            EXPECT_EQ(FilledOf(Id), 0);
            EXPECT_EQ(HeldQty(), 0);
            EXPECT_TRUE(Heard.empty());
            EXPECT_EQ(Logged.size(), 1u);  // that it is kept
        }
    }
    Orders->Retry();
    EXPECT_EQ(StateOf(Id), EState::Filled);
    EXPECT_EQ(HeldQty(), 7);
    EXPECT_EQ(Count("Res_OrderFilledBeyond"), 1);
    EXPECT_EQ(Count("Res_OrderFillUnknown"), 1);
    EXPECT_EQ(Store->LoadExecutions().size(), 2u);
    ExpectStoreAgrees();
}

}  // namespace
}  // namespace ws::test
