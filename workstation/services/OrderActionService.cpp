// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/OrderActionService.h"

#include <algorithm>
#include <utility>

#include "framework/base/Clock.h"
#include "framework/base/Log.h"
#include "framework/services/MessageBoxCtrl.h"
#include "workstation/store/StoreError.h"

namespace ws {

namespace {

constexpr int kActionNew = 1;
constexpr int kNamedOrders = 8;  // in one message; of more only the number is said

int64_t NowMilliseconds() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(fw::TClock::Now().time_since_epoch()).count();
}

std::vector<std::string> Together(std::vector<std::string> Args, const TReason& Reason) {
    Args.push_back(Reason.Key);
    Args.insert(Args.end(), Reason.Args.begin(), Reason.Args.end());
    return Args;
}

}  // namespace

TOrderActionService::TOrderActionService(IOrderFacts& Facts, const TLanguageService& Language, TRoute Route)
    : FFacts(Facts), FLanguage(Language), FRoute(std::move(Route)) {}

void TOrderActionService::Tell(const char* Key, std::vector<std::string> Args) {
    fw::TLog::Warning(Key, Args);
    fw::TCustomMessageBoxCtrl::GetInstance().ShowMessageText(nullptr, FLanguage.Resource(Key, Args), 0, 0, 0);
}

std::optional<TReason> TOrderActionService::RefusalOf(const TOrderTicket& Order) {
    try {
        if (!FRound) FRound = TRound{FFacts.Trader(), FFacts.Limits()};
        const auto Contract = FFacts.Contract(Order.Symbol, FRound->Limits);
        auto Refusal = FindRefusal(
            {Order, Contract, FRound->Trader, FRound->Limits, 0.0, 0.0, fw::TCustomFormatter::GetInstance()});
        return Refusal ? std::optional(std::move(Refusal->Reason)) : std::nullopt;
    } catch (const std::exception& Error) {
        return TReason{"Res_RefuseFailed", {Error.what()}};
    }
}

bool TOrderActionService::CheckOrder(fw::TCustomClientOrder& Order, int Action, bool Flag) {
    FCheckedPlace = Order.GetLineId() == FLastChecked + 1 ? FCheckedPlace + 1 : 1;
    FLastChecked = Order.GetLineId();
    if (FCheckedPlace == 1) FRound.reset();
    const std::optional<TReason> Refusal =
        Action == kActionNew ? RefusalOf(TicketOf(Order)) : TReason{"Res_RefuseAction", {std::to_string(Action)}};
    if (!Refusal) return true;
    FLastChecked = -1;  // whatever is checked next is the first of another batch
    if (Flag) Tell("Res_OrderRefused", Together({std::to_string(FCheckedPlace), Order.GetSymbol()}, *Refusal));
    return false;
}

void TOrderActionService::Confirmed(const std::vector<TReviewRow>& Rows) {
    Send();  // nothing that was taken is lost
    FShown.clear();
    FStopped = false;
    FLastChecked = -1;
    FRound.reset();
    FBatchId = std::to_string(NowMilliseconds()) + "-" + std::to_string(++FBatches);
    FOpen = static_cast<int>(std::count_if(Rows.begin(), Rows.end(), [](const TReviewRow& Row) { return Row.Ticked; }));
    int Number = 0, Place = 0;
    for (const auto& Row : Rows) {
        TShownOrder Shown{Row.Order, ++Number, Row.Ticked};
        Shown.Ticket.BatchId = FBatchId;
        Shown.Ticket.BatchSize = FOpen;
        if (Row.Ticked) Shown.Ticket.Place = ++Place;
        if (Row.LineId != 0) FShown.emplace(Row.LineId, std::move(Shown));
    }
}

void TOrderActionService::TakeAction(fw::TObject*, fw::TCustomClientOrder& Order, int Action, bool) {
    const auto It = FShown.find(Order.GetLineId());
    if (It == FShown.end() || Action != kActionNew || It->second.Taken)
        return Tell("Res_OrderUnseen", {Order.GetSymbol()});
    TShownOrder& Shown = It->second;
    const std::string Row = std::to_string(Shown.Row);
    if (!Shown.Ticked) return fw::TLog::Info("Res_LogLeftOut", {Row, Order.GetSymbol()});
    if (FStopped) return;  // named in the message that stopped the batch
    Shown.Taken = true;
    if (!IsSameOrder(TicketOf(Order), Shown.Ticket)) {
        Tell("Res_OrderChanged", {Row, Order.GetSymbol()});
    } else if (const auto Refusal = RefusalOf(Shown.Ticket)) {
        Tell("Res_OrderRefused", Together({Row, Order.GetSymbol()}, *Refusal));
    } else {
        Shown.Waiting = true;
    }
    if (--FOpen == 0) return Send();
    if (!std::exchange(FPosted, true)) FRoute.Later([this] { Send(); });
}

void TOrderActionService::Send() {
    FPosted = false;
    std::vector<TOrderTicket> Orders;
    std::vector<int64_t> Lines;
    // They wait no more before they are placed: nothing that runs meanwhile can place them once more.
    for (auto& [Id, Each] : FShown) {
        if (!std::exchange(Each.Waiting, false)) continue;
        Orders.push_back(Each.Ticket);
        Lines.push_back(Id);
    }
    if (Orders.empty()) return;
    try {
        FRoute.Place(Orders);
    } catch (const EStoreError& Error) {
        return Stop({Error.Key(), Error.Args()});
    } catch (const std::exception& Error) {
        return Stop({"Res_RefuseFailed", {Error.what()}});
    }
    for (const int64_t Line : Lines)
        if (const auto It = FShown.find(Line); It != FShown.end()) It->second.Sent = true;
    if (!FLastSent || FLastSent->Orders.front().BatchId != FBatchId) FLastSent = TSentBatch{{}, NowMilliseconds()};
    FLastSent->Orders.insert(FLastSent->Orders.end(), Orders.begin(), Orders.end());
}

void TOrderActionService::Stop(const TReason& Reason) {
    FStopped = true;
    const auto Sent = Names([](const TShownOrder& Each) { return Each.Sent; });
    const auto Rest = Names([](const TShownOrder& Each) { return Each.Ticked && !Each.Sent; });
    Tell("Res_BatchStopped", Together({Sent, Rest}, Reason));
}

std::string TOrderActionService::Names(const std::function<bool(const TShownOrder& Order)>& Wanted) const {
    std::string Result;
    int Count = 0;
    for (const auto& [Id, Each] : FShown) {
        if (!Wanted(Each) || ++Count > kNamedOrders) continue;
        Result += (Result.empty() ? "" : ", ") + std::to_string(Each.Row) + " " + Each.Ticket.Symbol;
    }
    if (Count == 0) return FLanguage.Resource("Res_BatchNone", {});
    return Count <= kNamedOrders ? Result
                                 : FLanguage.Resource("Res_BatchMore", {Result, std::to_string(Count - kNamedOrders)});
}

}  // namespace ws
