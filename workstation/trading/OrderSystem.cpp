// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/trading/OrderSystem.h"

#include <cmath>

#include "framework/base/Clock.h"
#include "framework/base/Dispatch.h"
#include "workstation/market/MarketDay.h"
#include "workstation/trading/AveragePrices.h"

namespace ws {

int64_t TOrderSystem::NowMs() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(fw::TClock::Now().time_since_epoch()).count();
}

TOrderSystem::TOrderSystem(TStore& Store, IOrderGateway& Gateway, TOrderHost Host)
    : FStore(Store), FGateway(Gateway), FHost(std::move(Host)) {
    Load();
    LeaveToTheExchange();
    FGateway.SetEvents(this);
}

TOrderSystem::~TOrderSystem() {
    FGateway.SetEvents(nullptr);
    fw::Dispatch("orders", [this] { Retry(); });
}

void TOrderSystem::Load() {
    auto Orders = FStore.LoadOrders();
    auto Executions = FStore.LoadExecutions();
    FOrders.assign(std::make_move_iterator(Orders.begin()), std::make_move_iterator(Orders.end()));
    FPlaces.clear();
    for (std::size_t i = 0; i < FOrders.size(); ++i) FPlaces[FOrders[i].Id] = i;
    FExecutionIds.clear();
    FBooks.clear();
    for (auto& Row : Executions) {
        if (!Row.Id.empty()) FExecutionIds.insert(Row.Id);
        auto& Book = FBooks[{Row.Account, Row.Symbol}];
        Book.Executions.push_back(std::move(Row));
    }
}

void TOrderSystem::Reload() {
    Load();
    for (const auto& Row : FOrders) OnOrderChanged(Row);
    OnHoldingsChanged();
}

// What the exchange told after the earlier run had ended nobody heard.
void TOrderSystem::LeaveToTheExchange() {
    std::vector<TOrderRow> Left;
    for (const auto& Row : FOrders)
        if (!IsFinal(Row.State) && Row.State != EOrderState::Unknown) Left.push_back(Row);
    if (Left.empty()) return;
    TStoreTransaction Transaction(FStore);
    for (auto& Row : Left) {
        Row.State = EOrderState::Unknown;
        Row.Reason = {"Res_OrderAskExchange", {}};
        Row.Changed = NowMs();
        Transaction.ChangeOrder(Row);
    }
    Transaction.Commit();
    for (auto& Row : Left) FOrders[FPlaces.at(Row.Id)] = std::move(Row);
}

std::string TOrderSystem::Place(const TOrderTicket& Ticket) { return PlaceAll({Ticket}).front(); }

std::vector<std::string> TOrderSystem::PlaceAll(const std::vector<TOrderTicket>& Tickets) {
    std::vector<TOrderRow> Rows;
    std::vector<std::string> Ids;
    {
        TStoreTransaction Transaction(FStore);
        for (const auto& Ticket : Tickets) {
            auto& Row = Rows.emplace_back();
            static_cast<TOrderTicket&>(Row) = Ticket;
            Row.Created = Row.Changed = NowMs();
            Row.Id = Transaction.AddOrder(Row);
            Ids.push_back(Row.Id);
        }
        Transaction.Commit();
    }
    for (const auto& Row : Rows) {
        FPlaces[Row.Id] = FOrders.size();
        FOrders.push_back(Row);
    }
    for (const auto& Row : Rows) {
        const bool Sent = fw::Dispatch("send order", [&] { FGateway.Send(Row); });
        fw::Dispatch("order events", [&] { OnOrderChanged(FOrders[FPlaces.at(Row.Id)]); });
        if (!Sent) Take([this, Id = Row.Id] { End(Id, EOrderState::Unknown, {"Res_OrderSendFailed", {}}); });
    }
    return Ids;
}

void TOrderSystem::Cancel(const std::string& OrderId) {
    const auto* Row = Find(OrderId);
    if (Row && !IsFinal(Row->State)) fw::Dispatch("cancel order", [&] { FGateway.Cancel(OrderId); });
}

void TOrderSystem::CancelAll() {
    std::vector<std::string> Ids;
    for (const auto& Row : FOrders)
        if (!IsFinal(Row.State)) Ids.push_back(Row.Id);
    for (const auto& Id : Ids) Cancel(Id);
}

const TOrderRow* TOrderSystem::Find(const std::string& OrderId) const {
    const auto It = FPlaces.find(OrderId);
    return It == FPlaces.end() ? nullptr : &FOrders[It->second];
}

std::string TOrderSystem::DayOf(const std::string& Symbol) const {
    return FHost.MarketDay ? FHost.MarketDay(Symbol) : MarketDayText(MarketDayAt(fw::TClock::Now(), 0));
}

const THolding& TOrderSystem::HoldingIn(const TBookKey& Key, const TBook& Book) const {
    const std::string Day = DayOf(Key.second);
    const auto Settlement = FHost.PreviousSettlement ? FHost.PreviousSettlement(Key.second) : std::nullopt;
    if (!Book.Holding || Book.Day != Day || Book.Settlement != Settlement) {
        Book.Holding = HoldingOf(Book.Executions, Day, Settlement);
        Book.Day = Day;
        Book.Settlement = Settlement;
    }
    return *Book.Holding;
}

std::vector<THolding> TOrderSystem::Holdings(const std::string& Account) const {
    std::vector<THolding> Rows;
    for (auto It = FBooks.lower_bound({Account, ""}); It != FBooks.end() && It->first.first == Account; ++It)
        if (const auto& Holding = HoldingIn(It->first, It->second); std::abs(Holding.Qty) > kNoQty)
            Rows.push_back(Holding);
    return Rows;
}

std::vector<THolding> TOrderSystem::AllHoldings() const {
    std::vector<THolding> Rows;
    for (const auto& [Key, Book] : FBooks)
        if (const auto& Holding = HoldingIn(Key, Book); std::abs(Holding.Qty) > kNoQty) Rows.push_back(Holding);
    return Rows;
}

}  // namespace ws
