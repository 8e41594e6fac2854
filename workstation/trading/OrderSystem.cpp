// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/trading/OrderSystem.h"

#include <cmath>
#include <functional>

#include "framework/base/Clock.h"
#include "framework/base/Dispatch.h"
#include "framework/base/Numbers.h"
#include "workstation/market/MarketDay.h"
#include "workstation/trading/AveragePrices.h"

namespace ws {
namespace {

int64_t NowMs() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(fw::TClock::Now().time_since_epoch()).count();
}

std::string NumberText(double Value) { return fw::FloatToShortestText(Value); }

}  // namespace

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
        OnOrderChanged(FOrders[FPlaces.at(Row.Id)]);
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

const TOrderRow* TOrderSystem::Known(const std::string& OrderId) {
    const auto* Row = Find(OrderId);
    if (!Row) Log(fw::ELogLevel::Warning, "Res_OrderEventUnknown", {OrderId});
    return Row;
}

void TOrderSystem::OrderAccepted(const std::string& OrderId) {
    Take([=, this] { Accept(OrderId); });
}

void TOrderSystem::OrderRejected(const std::string& OrderId, const TReason& Reason) {
    Take([=, this] { End(OrderId, EOrderState::Rejected, Reason); });
}

void TOrderSystem::OrderCancelled(const std::string& OrderId) {
    Take([=, this] { End(OrderId, EOrderState::Cancelled, {}); });
}

void TOrderSystem::OrderFilled(const std::string& OrderId, const std::string& ExecutionId, double Qty, double Price) {
    Take([this, Told = TFill{OrderId, ExecutionId, Qty, Price}] { Fill(Told); });
}

// The acceptance may come behind what followed it.
void TOrderSystem::Accept(const std::string& OrderId) {
    const auto* Row = Known(OrderId);
    if (!Row || (Row->State != EOrderState::New && Row->State != EOrderState::Unknown)) return;
    TOrderRow Changed = *Row;
    Changed.State = Changed.FilledQty > 0 ? EOrderState::PartlyFilled : EOrderState::Accepted;
    Changed.Reason = {};
    Write(std::move(Changed));
}

// The first end stands.
void TOrderSystem::End(const std::string& OrderId, EOrderState State, const TReason& Reason) {
    const auto* Row = Known(OrderId);
    if (!Row || Row->State == State) return;
    if (IsFinal(Row->State)) return Log(fw::ELogLevel::Warning, "Res_OrderEndedTwice", {OrderId, Row->Symbol});
    TOrderRow Changed = *Row;
    Changed.State = State;
    Changed.Reason = Reason;
    Write(std::move(Changed));
}

// A fill counts whatever was known of the order before: the exchange is right.
void TOrderSystem::Fill(const TFill& Told) {
    const std::string Qty = NumberText(Told.Qty), Price = NumberText(Told.Price);
    const auto* Row = Find(Told.OrderId);
    if (!Row) return Log(fw::ELogLevel::Error, "Res_OrderFillUnknown", {Told.OrderId, Told.ExecutionId, Qty, Price});
    if (FExecutionIds.contains(Told.ExecutionId)) return;
    if (Told.ExecutionId.empty() || !std::isfinite(Told.Qty) || !(Told.Qty > kNoQty) || !std::isfinite(Told.Price))
        return Log(fw::ELogLevel::Error, "Res_OrderFillUnusable",
                   {Told.OrderId, Row->Symbol, Told.ExecutionId, Qty, Price});
    TOrderRow Changed = *Row;
    Changed.FilledQty = Row->FilledQty + Told.Qty;
    Changed.AvgFillPrice = (Row->FilledQty * Row->AvgFillPrice + Told.Qty * Told.Price) / Changed.FilledQty;
    const bool Ended = IsFinal(Row->State), Beyond = Changed.FilledQty > Row->Qty + kNoQty;
    if (!Ended) {
        Changed.State = Changed.FilledQty >= Row->Qty - kNoQty ? EOrderState::Filled : EOrderState::PartlyFilled;
        Changed.Reason = {};
    }
    const TExecutionRow Execution{
        Told.ExecutionId,   Row->Id, Row->Account, Row->Symbol, Row->Side == 0 ? Told.Qty : -Told.Qty, Told.Price,
        DayOf(Row->Symbol), NowMs()};
    if (!Write(std::move(Changed), &Execution)) return;
    if (Beyond)
        Log(fw::ELogLevel::Error, "Res_OrderFilledBeyond",
            {Row->Id, Row->Symbol, NumberText(Row->FilledQty), NumberText(Row->Qty), Price});
    else if (Ended)
        Log(fw::ELogLevel::Warning, "Res_OrderFillAfterEnd", {Row->Id, Row->Symbol, Qty, Price});
}

// False: another workstation on the same store has counted the execution.
bool TOrderSystem::Write(TOrderRow Changed, const TExecutionRow* Execution) {
    Changed.Changed = NowMs();
    if (Execution && !FRound->Transaction.AddExecution(*Execution)) return false;
    FRound->Transaction.ChangeOrder(Changed);
    const std::size_t Place = FPlaces.at(Changed.Id);
    FRound->Changed.insert(Place);
    TOrderRow& Row = FOrders[Place];
    FRound->Undo.push_back([&Row, Before = Row] { Row = Before; });
    Row = std::move(Changed);
    if (!Execution) return true;
    FRound->Holdings = true;
    TBook& Book = FBooks[{Execution->Account, Execution->Symbol}];
    FRound->Undo.push_back([this, &Book, Id = Execution->Id] {
        FExecutionIds.erase(Id);
        Book.Executions.pop_back();
        Book.Holding.reset();
    });
    FExecutionIds.insert(Execution->Id);
    Book.Executions.push_back(*Execution);
    Book.Holding.reset();
    return true;
}

// Heard once the round is written: a round that is tried again says nothing twice.
void TOrderSystem::Log(fw::ELogLevel Level, std::string Key, std::vector<std::string> Args) {
    FRound->Log.push_back({Level, std::move(Key), std::move(Args)});
}

void TOrderSystem::Take(TEvent Event) {
    FWaiting.push_back(std::move(Event));
    if (FStalled || FPosted) return;
    if (!FHost.Post) return Retry();
    FPosted = true;
    FHost.Post([this] {
        FPosted = false;
        Retry();
    });
}

void TOrderSystem::Retry() {
    while (!FRound && !FWaiting.empty()) {
        const std::size_t Count = FWaiting.size();
        try {
            FRound.emplace(FStore);
            for (std::size_t i = 0; i < Count; ++i) FWaiting[i]();
            FRound->Transaction.Commit();
        } catch (const EStoreError&) {
            return KeepWaiting();
        }
        FWaiting.erase(FWaiting.begin(), FWaiting.begin() + static_cast<std::ptrdiff_t>(Count));
        if (FStalled) fw::TLog::Info("Res_OrderEventsWritten", {FStore.FileName()});
        FStalled = false;
        fw::Dispatch("order events", [this] { Tell(*FRound); });
        FRound.reset();
    }
}

void TOrderSystem::KeepWaiting() {
    if (FRound)
        for (auto It = FRound->Undo.rbegin(); It != FRound->Undo.rend(); ++It) (*It)();
    FRound.reset();
    if (!FStalled) fw::TLog::Error("Res_OrderEventsKept", {FStore.FileName()});
    FStalled = true;
}

void TOrderSystem::Tell(const TRound& Round) const {
    for (const auto& Entry : Round.Log) fw::TLog::Write(Entry.Level, Entry.Key, Entry.Args);
    for (const std::size_t Place : Round.Changed) OnOrderChanged(FOrders[Place]);
    if (Round.Holdings) OnHoldingsChanged();
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
