// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/kill/KillCheck.h"

#include <cmath>
#include <iostream>
#include <set>
#include <sstream>

#include "tests/kill/KillRoute.h"
#include "workstation/store/Store.h"
#include "workstation/trading/OrderSystem.h"

namespace ws::kill {
namespace {

using TSums = std::map<std::pair<std::string, std::string>, double>;

class TCheck {
public:
    void Expect(bool Holds, const std::string& What) {
        if (!Holds) FBreaches << "  " << What << "\n";
    }
    std::string Breaches() const { return FBreaches.str(); }

private:
    std::ostringstream FBreaches;
};

bool IsNear(double A, double B) { return std::abs(A - B) < 1e-6; }

void CheckOrders(TCheck& Check, const TRoute& Route, const std::vector<TOrderRow>& Stored, std::size_t Kills) {
    std::map<std::string, const TOrderRow*> ById;
    for (const auto& Row : Stored) {
        Check.Expect(ById.emplace(Row.Id, &Row).second, "order " + Row.Id + " stands twice in the store");
        Check.Expect(IsFinal(Row.State) || Row.State == EOrderState::Unknown,
                     "order " + Row.Id + " is taken for one that is under way");
    }
    std::set<std::string> Sent;
    for (const auto& Row : Route.Sent()) {
        Check.Expect(Sent.insert(Row.Id).second, "order " + Row.Id + " was sent twice");
        const auto It = ById.find(Row.Id);
        Check.Expect(It != ById.end(), "order " + Row.Id + " was sent and is not in the store");
        if (It == ById.end()) continue;
        const auto& Found = *It->second;
        Check.Expect(Found.Account == Row.Account && Found.Symbol == Row.Symbol && Found.Side == Row.Side &&
                         Found.Qty == Row.Qty,
                     "order " + Row.Id + " was sent otherwise than it is stored");
    }
    // A kill between the writing of a batch and the sending of its last order leaves orders that the exchange never
    // saw.
    Check.Expect(Stored.size() - Sent.size() <= Kills * kMostInBatch, "more orders are not sent than kills explain");
}

TSums CheckExecutions(TCheck& Check, const TRoute& Route, const TStore& Store, const std::vector<TOrderRow>& Orders) {
    std::map<std::string, TFilled> Told;
    for (const auto& Fill : Route.Fills()) Told[Fill.ExecutionId] = Fill;
    TSums Held;
    std::map<std::string, double> Executed;
    std::set<std::string> Seen;
    for (const auto& Row : Store.LoadExecutions()) {
        Check.Expect(Seen.insert(Row.Id).second, "execution " + Row.Id + " counts twice");
        const auto It = Told.find(Row.Id);
        Check.Expect(It != Told.end() && It->second.OrderId == Row.OrderId && It->second.Qty == std::abs(Row.Qty) &&
                         It->second.Price == Row.Price,
                     "execution " + Row.Id + " is not what the exchange told");
        Held[{Row.Account, Row.Symbol}] += Row.Qty;
        Executed[Row.OrderId] += std::abs(Row.Qty);
    }
    for (const auto& Row : Orders)
        Check.Expect(IsNear(Row.FilledQty, Executed[Row.Id]),
                     "order " + Row.Id + " is not filled as its executions say");
    return Held;
}

void CheckHoldings(TCheck& Check, const TOrderSystem& Orders, TSums Expected, const std::string& What) {
    for (const auto& Row : Orders.AllHoldings()) {
        auto& Qty = Expected[{Row.Account, Row.Symbol}];
        Check.Expect(IsNear(Row.Qty, Qty), Row.Account + " " + Row.Symbol + " " + What);
        Qty = 0;
    }
    for (const auto& [Key, Qty] : Expected) Check.Expect(IsNear(Qty, 0), Key.first + " " + Key.second + " " + What);
}

TSums SumOfFills(const TRoute& Route) {
    std::map<std::string, TSent> Sent;
    for (const auto& Row : Route.Sent()) Sent[Row.Id] = Row;
    TSums Sums;
    for (const auto& Fill : Route.Fills()) {
        const auto& Order = Sent[Fill.OrderId];
        Sums[{Order.Account, Order.Symbol}] += Order.Side == 0 ? Fill.Qty : -Fill.Qty;
    }
    return Sums;
}

}  // namespace

bool CheckAfterKill(const std::filesystem::path& Folder, std::size_t Kills) {
    TCheck Check;
    auto Opened = TStore::OpenFile(Folder / "store.db", "2026/11/21 09:00:00");
    Check.Expect(Opened.Notices.empty(), "the store was found damaged");
    TRoute Route(Folder);
    const std::size_t SentBefore = Route.Sent().size();
    TOrderSystem Orders(*Opened.Store, Route);
    const auto Stored = Opened.Store->LoadOrders();
    CheckOrders(Check, Route, Stored, Kills);
    const TSums Held = CheckExecutions(Check, Route, *Opened.Store, Stored);
    CheckHoldings(Check, Orders, Held, "is not held as its executions add up");
    const std::size_t Late = Route.Fills().size() - Opened.Store->LoadExecutions().size();
    Check.Expect(Late <= kMostInBatch, "more than the fills of the last round are missing");

    Route.TellFills(Route.Fills().size());  // all of them once more
    CheckHoldings(Check, Orders, SumOfFills(Route), "is not held as the exchange filled");
    Check.Expect(Opened.Store->LoadExecutions().size() == Route.Fills().size(), "the exchange filled otherwise");
    Check.Expect(Route.Sent().size() == SentBefore, "the restart sent an order");

    std::size_t Unknown = 0;
    for (const auto& Row : Stored) Unknown += Row.State == EOrderState::Unknown ? 1 : 0;
    if (Check.Breaches().empty())
        std::cout << Route.Sent().size() << " orders sent, each once in the store, " << Unknown << " of "
                  << Stored.size() << " unknown, " << Stored.size() - Route.Sent().size() << " stored and not sent, "
                  << Route.Fills().size() << " fills, each counted once\n";
    else
        std::cout << Check.Breaches();
    return Check.Breaches().empty();
}

}  // namespace ws::kill
