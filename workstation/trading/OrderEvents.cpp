// SPDX-License-Identifier: GPL-3.0-or-later
// What the gateway tells: worked out and written in rounds, heard once it is written.
#include <cmath>

#include "framework/base/Dispatch.h"
#include "framework/base/Numbers.h"
#include "workstation/trading/AveragePrices.h"
#include "workstation/trading/OrderSystem.h"

namespace ws {
namespace {

std::string NumberText(double Value) { return fw::FloatToShortestText(Value); }

}  // namespace

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
    // Day and time of the trade, however late it can be written.
    const auto* Row = Find(OrderId);
    std::string Day;
    if (Row) fw::Dispatch("market day", [&] { Day = DayOf(Row->Symbol); });
    Take([this, Told = TFill{OrderId, ExecutionId, Qty, Price, Day, NowMs()}] { Fill(Told); });
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
        Told.ExecutionId, Row->Id,  Row->Account, Row->Symbol, Row->Side == 0 ? Told.Qty : -Told.Qty,
        Told.Price,       Told.Day, Told.Time};
    if (!Write(std::move(Changed), &Execution)) {
        FRound->Behind = true;
        return;
    }
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
        } catch (const std::exception&) {  // the store's, or whatever else: nothing of the round stands
            return KeepWaiting();
        }
        FWaiting.erase(FWaiting.begin(), FWaiting.begin() + static_cast<std::ptrdiff_t>(Count));
        if (FStalled) fw::TLog::Info("Res_OrderEventsWritten", {FStore.FileName()});
        FStalled = false;
        const bool Behind = FRound->Behind;
        fw::Dispatch("order events", [this] { Tell(*FRound); });
        FRound.reset();
        if (Behind) fw::Dispatch("order events", [this] { Reload(); });
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

}  // namespace ws
