// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the trading tests share: a gateway that only writes down what it is asked, and an order system over a store
// file of its own.

#include <algorithm>

#include "framework/base/Clock.h"
#include "framework/base/Log.h"
#include "tests/store/StoreFixture.h"
#include "workstation/store/StoreTransaction.h"
#include "workstation/trading/OrderSystem.h"

namespace ws::test {

class TSilentGateway : public IOrderGateway {
public:
    void SetEvents(IOrderEvents* NewEvents) override { Events = NewEvents; }
    void Send(const TOrderRow& Order) override {
        Sent.push_back(Order);
        if (OnSend) OnSend(Order);
    }
    void Cancel(const std::string& OrderId) override { Cancelled.push_back(OrderId); }

    IOrderEvents* Events = nullptr;
    std::vector<TOrderRow> Sent;
    std::vector<std::string> Cancelled;
    std::function<void(const TOrderRow&)> OnSend;
};

inline TOrderTicket Ticket(int Side, double Qty, double Price = 100, const std::string& Symbol = "HSIZ6") {
    TOrderTicket Result;
    Result.Account = "A1";
    Result.Symbol = Symbol;
    Result.Side = Side;
    Result.Qty = Qty;
    Result.Price = Price;
    return Result;
}

class TTradingFixture : public testing::Test {
protected:
    TTempFolder Folder;
    std::unique_ptr<TStore> Store;
    TSilentGateway Gateway;
    std::string Today = "2026/11/21";
    std::map<std::string, double> Settlements;
    std::unique_ptr<TOrderSystem> Orders;
    std::vector<fw::TLogEntry> Logged;
    std::vector<std::string> Heard;  // what listeners were told: "id state", "holdings"
    std::vector<std::function<void()>> Posted;
    fw::TConnections Links;

    TTradingFixture() {
        Start();
        Links += fw::TLog::Entries().Connect([this](const fw::TLogEntry& Entry) { Logged.push_back(Entry); });
    }

    std::filesystem::path File() const { return Folder / "store.db"; }

    // A new run over the same file. InRounds: what is told waits for RunPosted.
    void Start(bool InRounds = false) {
        Orders.reset();
        Store.reset();
        Store = TStore::OpenFile(File(), kNow).Store;
        TOrderHost Host;
        Host.MarketDay = [this](const std::string&) { return Today; };
        Host.PreviousSettlement = [this](const std::string& Symbol) {
            const auto It = Settlements.find(Symbol);
            return It == Settlements.end() ? std::nullopt : std::optional(It->second);
        };
        if (InRounds) Host.Post = [this](std::function<void()> Task) { Posted.push_back(std::move(Task)); };
        Orders = std::make_unique<TOrderSystem>(*Store, Gateway, std::move(Host));
        Links += Orders->OnOrderChanged.Connect([this](const TOrderRow& Row) {
            Heard.push_back(Row.Id + " " + std::to_string(static_cast<int>(Row.State)));
        });
        Links += Orders->OnHoldingsChanged.Connect([this] { Heard.push_back("holdings"); });
    }

    void RunPosted() {
        for (auto& Task : std::exchange(Posted, {})) Task();
    }

    EOrderState StateOf(const std::string& Id) const { return Orders->Find(Id)->State; }
    double FilledOf(const std::string& Id) const { return Orders->Find(Id)->FilledQty; }
    double HeldQty(const std::string& Symbol = "HSIZ6") const {
        for (const auto& Row : Orders->Holdings("A1"))
            if (Row.Symbol == Symbol) return Row.Qty;
        return 0.0;
    }
    int Count(const std::string& Key) const {
        return static_cast<int>(
            std::count_if(Logged.begin(), Logged.end(), [&](const auto& Entry) { return Entry.Key == Key; }));
    }

    // What stands in memory stands in the file, and every order has as much filled as its executions say.
    void ExpectStoreAgrees() const {
        const auto Stored = Store->LoadOrders();
        ASSERT_EQ(Stored.size(), Orders->Orders().size());
        std::map<std::string, double> Executed, Held;
        for (const auto& Row : Store->LoadExecutions()) {
            Executed[Row.OrderId] += std::abs(Row.Qty);
            Held[Row.Symbol] += Row.Qty;
        }
        for (std::size_t i = 0; i < Stored.size(); ++i) {
            EXPECT_EQ(Stored[i].Id, Orders->Orders()[i].Id);
            EXPECT_EQ(Stored[i].State, Orders->Orders()[i].State);
            EXPECT_EQ(Stored[i].FilledQty, Orders->Orders()[i].FilledQty);
            EXPECT_NEAR(Stored[i].FilledQty, Executed[Stored[i].Id], 1e-9);
        }
        for (const auto& [Symbol, Qty] : Held) EXPECT_NEAR(Qty, HeldQty(Symbol), 1e-9) << Symbol;
    }
};

}  // namespace ws::test
