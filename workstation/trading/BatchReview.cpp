// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/trading/BatchReview.h"

#include <algorithm>
#include <tuple>

#include "framework/base/Clock.h"
#include "framework/base/Numbers.h"
#include "framework/data/ColumnIds.h"

namespace ws {

namespace {

constexpr int kColumnOrder = 5;  // the order service's text: the line id
constexpr int kColumnAccount = 10;
constexpr int kOption = 3;

int64_t NowMilliseconds() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(fw::TClock::Now().time_since_epoch()).count();
}

// What the row shows is what the order says.
bool Matches(fw::TCustomDataControl& Table, int Row, const TOrderTicket& Order) {
    return Table.GetValue(Row, fw::kColumnSymbol).AsText() == Order.Symbol &&
           Table.GetValue(Row, kColumnAccount).AsText() == Order.Account &&
           Table.GetValue(Row, fw::kColumnPrice) == fw::Variant(Order.Price) &&
           Table.GetValue(Row, fw::kColumnQuantity) == fw::Variant(Order.Qty);
}

}  // namespace

TOrderTicket TicketOf(const fw::TCustomClientOrder& Order) {
    TOrderTicket Result;
    Result.Account = Order.GetAccount();
    Result.Symbol = Order.GetSymbol();
    Result.Side = Order.GetSide();
    Result.Price = Order.GetPrice();
    Result.Qty = Order.GetQty();
    Result.OpenClose = Order.GetOpenClose();
    Result.Principal = Order.GetPrincipal();
    return Result;
}

bool IsSameOrder(const TOrderTicket& A, const TOrderTicket& B) {
    const auto Fields = [](const TOrderTicket& T) {
        return std::tie(T.Account, T.Symbol, T.Side, T.Price, T.Qty, T.OpenClose, T.Principal);
    };
    return Fields(A) == Fields(B);
}

bool TReviewRow::Warns() const {
    return Blocked || std::any_of(Findings.begin(), Findings.end(),
                                  [](const TFinding& Each) { return Each.Strength == EStrength::Warn; });
}

TBatchReview::TBatchReview(fw::TCustomDataControl& Table, const TFindOrder& FindOrder, IOrderFacts& Facts,
                           std::optional<TSentBatch> LastSent)
    : FFacts(Facts), FLastSent(std::move(LastSent)) {
    ReadRows(Table, FindOrder);
    Judge();
    for (auto& Row : FRows) {
        const bool StartsUnticked = std::any_of(Row.Findings.begin(), Row.Findings.end(), [](const TFinding& Each) {
            return Each.Strength == EStrength::StartsUnticked;
        });
        Row.Ticked = !Row.Blocked && !StartsUnticked;
    }
    JudgeRows();
}

// A row of a line id that stood before is nobody's: an order goes out once.
void TBatchReview::ReadRows(fw::TCustomDataControl& Table, const TFindOrder& FindOrder) {
    const int Count = Table.GetCount();
    FRows.resize(static_cast<size_t>(std::max(Count, 0)));
    for (int i = 0; i < Count; ++i) {
        auto& Row = FRows[static_cast<size_t>(i)];
        const int64_t LineId = fw::Variant(Table.GetValue(i, kColumnOrder).AsText()).AsInteger();
        const auto* Order = LineId > 0 ? FindOrder(LineId) : nullptr;
        if (!Order || !Matches(Table, i, TicketOf(*Order)) || !FRowOf.emplace(LineId, i).second) continue;
        Row.LineId = LineId;
        Row.Order = TicketOf(*Order);
    }
}

std::set<std::string> TBatchReview::Symbols() const {
    std::set<std::string> Result;
    for (const auto& Row : FRows)
        if (Row.LineId != 0) Result.insert(Row.Order.Symbol);
    return Result;
}

void TBatchReview::Judge() {
    FLimits = FFacts.Limits();
    FTrader = FFacts.Trader();
    FContracts.clear();
    FHeld.clear();
    for (const auto& Symbol : Symbols()) FContracts[Symbol] = FFacts.Contract(Symbol, FLimits);
    for (const auto& Row : FRows)
        if (Row.LineId != 0 && FHeld.count(Row.Order.Account) == 0)
            FHeld[Row.Order.Account] = FFacts.Held(Row.Order.Account);
    JudgeRows();
}

// From the first row down: what is ticked above counts as done.
void TBatchReview::JudgeRows() {
    auto& Formatter = fw::TCustomFormatter::GetInstance();
    std::map<std::pair<std::string, std::string>, double> Earlier;  // by account and symbol
    for (auto& Row : FRows) {
        if (Row.LineId == 0) {
            Row.Blocked = true;
            Row.Findings = {{ERule::RowKnown, EStrength::Block, {"Res_BlockUnknownRow", {}}}};
            continue;
        }
        const auto& Held = FHeld[Row.Order.Account];
        const auto It = Held.find(Row.Order.Symbol);
        const double Now = It == Held.end() ? 0.0 : It->second;
        double& Before = Earlier.try_emplace({Row.Order.Account, Row.Order.Symbol}, Now).first->second;
        Row.Findings = JudgeOrder({Row.Order, FContracts[Row.Order.Symbol], FTrader, FLimits, Now, Before, Formatter});
        Row.Blocked = std::any_of(Row.Findings.begin(), Row.Findings.end(), [](const TFinding& Each) {
            return Each.Strength == EStrength::Refuse || Each.Strength == EStrength::Block;
        });
        if (Row.Ticked && Row.Blocked) Row.UntickedByMarket = true;
        if (Row.Blocked) Row.Ticked = false;
        if (Row.Ticked) Before += SignedQty(Row.Order);
    }
}

void TBatchReview::SetTicked(const std::vector<int>& Rows, bool Ticked) {
    for (const int Index : Rows) {
        if (Index < 0 || Index >= static_cast<int>(FRows.size())) continue;
        auto& Row = FRows[static_cast<size_t>(Index)];
        Row.Ticked = Ticked && !Row.Blocked;
        Row.UntickedByMarket = false;
    }
    JudgeRows();
}

TBatchTotals TBatchReview::Totals() const {
    TBatchTotals Result;
    Result.Rows = static_cast<int>(FRows.size());
    for (const auto& Row : FRows) {
        if (!Row.Ticked) continue;
        ++Result.Ticked;
        (Row.Order.Side == 0 ? Result.BuyQty : Result.SellQty) += Row.Order.Qty;
        const auto& Contract = FContracts.at(Row.Order.Symbol);
        if (Contract.ProductType != kOption) continue;
        if (Contract.Multiplier)
            Result.NetPremium[Contract.Currency] -= SignedQty(Row.Order) * Row.Order.Price * *Contract.Multiplier;
        else
            ++Result.WithoutPremium;
    }
    return Result;
}

std::optional<TReason> TBatchReview::BatchWarning() const {
    if (!FLastSent || FLastSent->Orders.empty()) return {};
    const int64_t Age = (NowMilliseconds() - FLastSent->Time) / 1000;
    if (Age < 0 || static_cast<double>(Age) > FLimits.SameBatchSeconds) return {};
    auto Sent = FLastSent->Orders.begin();
    for (const auto& Row : FRows) {
        if (!Row.Ticked) continue;
        if (Sent == FLastSent->Orders.end() || !IsSameOrder(Row.Order, *Sent)) return {};
        ++Sent;
    }
    if (Sent != FLastSent->Orders.end()) return {};
    return TReason{"Res_WarnSameBatch", {std::to_string(Age)}};
}

std::set<std::pair<int, ERule>> TBatchReview::Said() const {
    std::set<std::pair<int, ERule>> Result;
    for (size_t i = 0; i < FRows.size(); ++i)
        for (const auto& Finding : FRows[i].Findings)
            if (FRows[i].Ticked) Result.emplace(static_cast<int>(i), Finding.Rule);
    if (BatchWarning()) Result.emplace(-1, ERule::AnotherBatch);
    return Result;
}

bool TBatchReview::CanSend() const {
    return std::any_of(FRows.begin(), FRows.end(), [](const TReviewRow& Row) { return Row.Ticked; });
}

bool TBatchReview::HasWarning() const {
    return BatchWarning() || std::any_of(FRows.begin(), FRows.end(), [](const TReviewRow& Row) {
               return Row.Blocked || (Row.Ticked && Row.Warns());
           });
}

std::optional<TReason> TBatchReview::RemarkOf(int64_t LineId) const {
    const auto It = FRowOf.find(LineId);
    if (It == FRowOf.end() || FRows[It->second].Findings.empty()) return {};
    return FRows[It->second].Findings.front().Reason;
}

}  // namespace ws
