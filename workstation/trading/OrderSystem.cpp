// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/trading/OrderSystem.h"

#include <cmath>

#include "framework/base/Clock.h"
#include "framework/base/Dispatch.h"
#include "framework/base/Log.h"
#include "framework/base/Numbers.h"
#include "workstation/market/MarketDay.h"
#include "workstation/store/StoreTransaction.h"
#include "workstation/trading/AveragePrices.h"

namespace ws {
namespace {

int64_t NowMs() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(fw::TClock::Now().time_since_epoch()).count();
}

std::string NumberText(double Value) { return fw::FloatToShortestText(Value); }

}  // namespace

TOrderSystem::TOrderSystem(TStore& Store, IOrderGateway& Gateway, TOrderMarket Market)
    : FStore(Store), FGateway(Gateway), FMarket(std::move(Market)) {
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

std::string TOrderSystem::Place(const TOrderTicket& Ticket) {
    TOrderRow Row;
    static_cast<TOrderTicket&>(Row) = Ticket;
    Row.Created = Row.Changed = NowMs();
    {
        TStoreTransaction Transaction(FStore);
        Row.Id = Transaction.AddOrder(Row);
        Transaction.Commit();
    }
    const std::string Id = Row.Id;
    FPlaces[Id] = FOrders.size();
    FOrders.push_back(Row);
    const bool Sent = fw::Dispatch("send order", [&] { FGateway.Send(Row); });
    OnOrderChanged(FOrders[FPlaces.at(Id)]);
    if (!Sent) Take([this, Id] { return End(Id, EOrderState::Unknown, {"Res_OrderSendFailed", {}}); });
    return Id;
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

TOrderRow* TOrderSystem::Known(const std::string& OrderId) {
    const auto It = FPlaces.find(OrderId);
    if (It != FPlaces.end()) return &FOrders[It->second];
    fw::TLog::Warning("Res_OrderEventUnknown", {OrderId});
    return nullptr;
}

void TOrderSystem::OrderAccepted(const std::string& OrderId) {
    Take([this, OrderId]() -> TChange {
        const auto* Row = Known(OrderId);
        // The acceptance may come behind what followed it.
        if (!Row || (Row->State != EOrderState::New && Row->State != EOrderState::Unknown)) return {};
        TOrderRow Changed = *Row;
        Changed.State = Changed.FilledQty > 0 ? EOrderState::PartlyFilled : EOrderState::Accepted;
        Changed.Reason = {};
        return Write(std::move(Changed));
    });
}

void TOrderSystem::OrderRejected(const std::string& OrderId, const TReason& Reason) {
    Take([=, this] { return End(OrderId, EOrderState::Rejected, Reason); });
}

void TOrderSystem::OrderCancelled(const std::string& OrderId) {
    Take([=, this] { return End(OrderId, EOrderState::Cancelled, {}); });
}

void TOrderSystem::OrderFilled(const std::string& OrderId, const std::string& ExecutionId, double Qty, double Price) {
    Take([this, Told = TFill{OrderId, ExecutionId, Qty, Price}] { return Fill(Told); });
}

// The first end stands.
TOrderSystem::TChange TOrderSystem::End(const std::string& OrderId, EOrderState State, const TReason& Reason) {
    const auto* Row = Known(OrderId);
    if (!Row || Row->State == State) return {};
    if (IsFinal(Row->State)) {
        fw::TLog::Warning("Res_OrderEndedTwice", {OrderId, Row->Symbol});
        return {};
    }
    TOrderRow Changed = *Row;
    Changed.State = State;
    Changed.Reason = Reason;
    return Write(std::move(Changed));
}

// A fill counts whatever was known of the order before: the exchange is right.
TOrderSystem::TChange TOrderSystem::Fill(const TFill& Told) {
    const std::string Qty = NumberText(Told.Qty), Price = NumberText(Told.Price);
    const auto It = FPlaces.find(Told.OrderId);
    if (It == FPlaces.end()) {
        fw::TLog::Error("Res_OrderFillUnknown", {Told.OrderId, Told.ExecutionId, Qty, Price});
        return {};
    }
    const TOrderRow& Row = FOrders[It->second];
    if (FExecutionIds.contains(Told.ExecutionId)) return {};
    if (Told.ExecutionId.empty() || !std::isfinite(Told.Qty) || !(Told.Qty > kNoQty) || !std::isfinite(Told.Price)) {
        fw::TLog::Error("Res_OrderFillUnusable", {Told.OrderId, Row.Symbol, Told.ExecutionId, Qty, Price});
        return {};
    }
    TOrderRow Changed = Row;
    Changed.FilledQty = Row.FilledQty + Told.Qty;
    Changed.AvgFillPrice = (Row.FilledQty * Row.AvgFillPrice + Told.Qty * Told.Price) / Changed.FilledQty;
    const bool Ended = IsFinal(Row.State), Beyond = Changed.FilledQty > Row.Qty + kNoQty;
    if (!Ended) {
        Changed.State = Changed.FilledQty >= Row.Qty - kNoQty ? EOrderState::Filled : EOrderState::PartlyFilled;
        Changed.Reason = {};
    }
    const TExecutionRow Execution{
        Told.ExecutionId,  Row.Id, Row.Account, Row.Symbol, Row.Side == 0 ? Told.Qty : -Told.Qty, Told.Price,
        DayOf(Row.Symbol), NowMs()};
    const TChange Change = Write(std::move(Changed), &Execution);
    if (!Change.Order) return Change;
    if (Beyond)
        fw::TLog::Error("Res_OrderFilledBeyond",
                        {Row.Id, Row.Symbol, NumberText(Row.FilledQty), NumberText(Row.Qty), Price});
    else if (Ended)
        fw::TLog::Warning("Res_OrderFillAfterEnd", {Row.Id, Row.Symbol, Qty, Price});
    return Change;
}

TOrderSystem::TChange TOrderSystem::Write(TOrderRow Changed, const TExecutionRow* Execution) {
    Changed.Changed = NowMs();
    TStoreTransaction Transaction(FStore);
    if (Execution && !Transaction.AddExecution(*Execution)) return {};
    Transaction.ChangeOrder(Changed);
    Transaction.Commit();
    TOrderRow& Row = FOrders[FPlaces.at(Changed.Id)];
    Row = std::move(Changed);
    if (Execution) {
        FExecutionIds.insert(Execution->Id);
        TBook& Book = FBooks[{Execution->Account, Execution->Symbol}];
        Book.Executions.push_back(*Execution);
        Book.Holding.reset();
    }
    return {&Row, Execution != nullptr};
}

void TOrderSystem::Take(TEvent Event) {
    FWaiting.push_back(std::move(Event));
    if (!FStalled) Retry();
}

void TOrderSystem::Retry() {
    if (FTaking) return;
    FTaking = true;
    try {
        while (!FWaiting.empty()) {
            const TChange Change = FWaiting.front()();
            FWaiting.pop_front();
            if (Change.Order) OnOrderChanged(*Change.Order);
            if (Change.Holding) OnHoldingsChanged();
        }
        if (FStalled) fw::TLog::Info("Res_OrderEventsWritten", {FStore.FileName()});
        FStalled = false;
    } catch (const EStoreError&) {
        if (!FStalled) fw::TLog::Error("Res_OrderEventsKept", {FStore.FileName()});
        FStalled = true;
    } catch (...) {
        FTaking = false;
        throw;
    }
    FTaking = false;
}

std::string TOrderSystem::DayOf(const std::string& Symbol) const {
    return FMarket.MarketDay ? FMarket.MarketDay(Symbol) : MarketDayText(MarketDayAt(fw::TClock::Now(), 0));
}

const THolding& TOrderSystem::HoldingIn(const TBookKey& Key, const TBook& Book) const {
    const std::string Day = DayOf(Key.second);
    const auto Settlement = FMarket.PreviousSettlement ? FMarket.PreviousSettlement(Key.second) : std::nullopt;
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
