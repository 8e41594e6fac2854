// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/trading/OrderChecks.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "framework/base/Numbers.h"

namespace ws {

namespace {

using TVerdict = std::optional<TReason>;

constexpr double kSame = 1e-7;  // prices and quantities closer than this are equal

std::string PriceText(const TOrderCase& C, double Price) {
    return std::isfinite(Price) ? C.Formatter.FormatValue(Price, fw::kFormatPrice, C.Order.Symbol)
                                : fw::FloatToText(Price, 0);
}
std::string QtyText(const TOrderCase& C, double Qty) {
    return std::isfinite(Qty) ? C.Formatter.FormatValue(Qty, fw::kFormatQuantity) : fw::FloatToText(Qty, 0);
}
std::string SignedText(const TOrderCase& C, double Qty) { return (Qty > kSame ? "+" : "") + QtyText(C, Qty); }
std::string AmountText(const TOrderCase& C, double Amount) {
    return C.Contract.Currency + " " + C.Formatter.FormatValue(Amount, fw::kFormatAmount);
}

// --- flags

// A choice of one of the two flags: its value in orders, the option by which an exchange offers it, the right it needs.
struct TFlagChoice {
    int TOrderTicket::*Flag;
    int Value;
    const char* Option;
    const char* Right;
    const char* Key;
};
constexpr int kCloses = 2;
constexpr std::array kFlagChoices{
    TFlagChoice{&TOrderTicket::OpenClose, 1, "Open", "OEOpenC", "Res_OrderOpen"},
    TFlagChoice{&TOrderTicket::OpenClose, kCloses, "Close", "OEOpenC", "Res_OrderClose"},
    TFlagChoice{&TOrderTicket::Principal, 11, "Client", "OEPrin", "Res_Principal_C"},
    TFlagChoice{&TOrderTicket::Principal, 12, "House", "OEPrin", "Res_Principal_H"},
    TFlagChoice{&TOrderTicket::Principal, 13, "RT", "OEPrin", "Res_Principal_RT"},
};

const TFlagChoice* ChoiceOf(int TOrderTicket::*Flag, int Value) {
    const auto It = std::find_if(kFlagChoices.begin(), kFlagChoices.end(),
                                 [&](const TFlagChoice& Each) { return Each.Flag == Flag && Each.Value == Value; });
    return It == kFlagChoices.end() ? nullptr : It;
}

bool Offers(const TContractFacts& Contract, const char* Option) {
    return std::any_of(Contract.OrderOptions.begin(), Contract.OrderOptions.end(),
                       [&](const std::string& Each) { return fw::SameText(Each, Option); });
}

TVerdict FlagOffered(const TOrderCase& C) {
    for (const auto Flag : {&TOrderTicket::OpenClose, &TOrderTicket::Principal}) {
        const int Value = C.Order.*Flag;
        const TFlagChoice* Choice = ChoiceOf(Flag, Value);
        if (Value == 0 || (Choice && Offers(C.Contract, Choice->Option))) continue;
        return TReason{"Res_RefuseFlag", {Choice ? Choice->Key : std::to_string(Value), C.Contract.Exchange}};
    }
    return {};
}

TVerdict FlagRight(const TOrderCase& C) {
    for (const auto& Choice : kFlagChoices)
        if (C.Order.*Choice.Flag == Choice.Value && C.Trader.Rights.count(Choice.Right) == 0)
            return TReason{"Res_RefuseRight", {Choice.Key}};
    return {};
}

// --- what no trader can mean

TVerdict AccountKnown(const TOrderCase& C) {
    if (C.Trader.Accounts.count(C.Order.Account)) return {};
    return TReason{"Res_RefuseAccount", {C.Order.Account}};
}
TVerdict SymbolListed(const TOrderCase& C) {
    if (C.Contract.Listed) return {};
    return TReason{"Res_RefuseSymbol", {C.Order.Symbol}};
}
TVerdict AccountOnExchange(const TOrderCase& C) {
    if (C.Limits.MayTrade(C.Order.Account, C.Contract.Exchange)) return {};
    return TReason{"Res_RefuseExchange", {C.Order.Account, C.Contract.Exchange}};
}
TVerdict QtyAboveZero(const TOrderCase& C) {
    if (std::isfinite(C.Order.Qty) && C.Order.Qty > 0) return {};
    return TReason{"Res_RefuseQty", {QtyText(C, C.Order.Qty)}};
}
TVerdict PriceFinite(const TOrderCase& C) {
    if (std::isfinite(C.Order.Price)) return {};
    return TReason{"Res_RefusePrice", {PriceText(C, C.Order.Price)}};
}
TVerdict SideKnown(const TOrderCase& C) {
    if (C.Order.Side == 0 || C.Order.Side == 1) return {};
    return TReason{"Res_RefuseSide", {std::to_string(C.Order.Side)}};
}

// --- what cannot be sent

TVerdict Expired(const TOrderCase& C) {
    if (!C.Contract.Expired) return {};
    return TReason{"Res_BlockExpired", {C.Contract.ExpiryDate}};
}

TVerdict PriceStep(const TOrderCase& C) {
    const auto* Steps = C.Contract.Steps;
    if (!Steps || Steps->GetKind() != 1) return {};
    const double Price = C.Order.Price;
    const double Below = Steps->SnapPrice(Price, -1);
    const double Above = Steps->SnapPrice(Price, 1);
    // The next valid price above the one below is the price itself when it is valid; the lowest has none below.
    const auto IsPrice = [&](double Other) { return std::abs(Other - Price) <= 2 * kSame; };
    if (IsPrice(Below) || IsPrice(Steps->SnapPrice(Below, 1))) return {};
    return TReason{"Res_BlockStep", {PriceText(C, Price), PriceText(C, std::min(Below, Above)), PriceText(C, Above)}};
}

TVerdict Lot(const TOrderCase& C) {
    if (!(C.Contract.LotSize > 0)) return {};
    const double Lots = C.Order.Qty / C.Contract.LotSize;
    if (std::abs(Lots - std::round(Lots)) <= kSame) return {};
    return TReason{"Res_BlockLot", {QtyText(C, C.Order.Qty), QtyText(C, C.Contract.LotSize)}};
}

bool IsAbove(double Value, double Limit) { return Limit > 0 && Value > Limit + kSame; }

TVerdict OverQty(const TOrderCase& C, const char* Key, double Limit) {
    if (!IsAbove(C.Order.Qty, Limit)) return {};
    return TReason{Key, {QtyText(C, C.Order.Qty), QtyText(C, Limit)}};
}
TVerdict OverValue(const TOrderCase& C, const char* Key, double Limit) {
    const double Value = C.Contract.Multiplier ? std::abs(C.Order.Price) * C.Order.Qty * *C.Contract.Multiplier : 0.0;
    if (!IsAbove(Value, Limit)) return {};
    return TReason{Key, {AmountText(C, Value), AmountText(C, Limit)}};
}
TVerdict HardQty(const TOrderCase& C) { return OverQty(C, "Res_BlockQty", C.Limits.HardQty); }
TVerdict HardValue(const TOrderCase& C) { return OverValue(C, "Res_BlockValue", C.Limits.HardValue); }
TVerdict SoftQty(const TOrderCase& C) { return OverQty(C, "Res_WarnQty", C.Limits.SoftQty); }
TVerdict SoftValue(const TOrderCase& C) { return OverValue(C, "Res_WarnValue", C.Limits.SoftValue); }

// --- beside what is held

// A loaded position that was not meant as an order looks like this.
TVerdict EqualsHeld(const TOrderCase& C) {
    if (std::abs(C.Held) <= kSame || std::abs(C.Held - SignedQty(C.Order)) > kSame) return {};
    return TReason{"Res_UntickedHeld", {SignedText(C, C.Held)}};
}

bool IsOpposite(const TOrderCase& C) { return C.Before * SignedQty(C.Order) < 0; }

TVerdict ClosesTooMuch(const TOrderCase& C) {
    if (C.Order.OpenClose != kCloses) return {};
    const double Closable = IsOpposite(C) ? std::abs(C.Before) : 0.0;
    if (C.Order.Qty <= Closable + kSame) return {};
    return TReason{"Res_WarnClose", {QtyText(C, C.Order.Qty), QtyText(C, Closable)}};
}
TVerdict OppositeToHeld(const TOrderCase& C) {
    if (!IsOpposite(C) || std::abs(C.Held) <= kSame) return {};
    return TReason{"Res_WarnOpposite", {SignedText(C, C.Held)}};
}
TVerdict PositionAfter(const TOrderCase& C) {
    if (std::abs(C.Held) <= kSame) return {};
    return TReason{"Res_WarnAfter", {SignedText(C, C.Held), SignedText(C, C.Before + SignedQty(C.Order))}};
}

// --- beside the market

TVerdict PriceZero(const TOrderCase& C) {
    if (C.Order.Price != 0.0) return {};
    return TReason{"Res_WarnZero", {}};
}

TVerdict FarInPercent(const TOrderCase& C) {
    const double Last = C.Contract.LastPrice.value_or(0.0);
    if (Last == 0.0 || C.Order.Price == 0.0) return {};
    const double Percent = std::abs(C.Order.Price - Last) / std::abs(Last) * 100.0;
    if (!IsAbove(Percent, C.Limits.LastPercent)) return {};
    return TReason{"Res_WarnFar", {QtyText(C, std::round(Percent * 10) / 10), PriceText(C, Last)}};
}

// Counted in the step that holds at the last price.
TVerdict FarInSteps(const TOrderCase& C) {
    const auto* Table = C.Contract.Steps;
    if (!C.Contract.LastPrice || C.Order.Price == 0.0 || !Table || Table->GetKind() != 1) return {};
    double Upper = 0, Lower = 0;
    const double Last = *C.Contract.LastPrice;
    const double Steps = std::abs(C.Order.Price - Last) / Table->StepUp(Last, Upper, Lower);
    if (!IsAbove(Steps, C.Limits.LastSteps)) return {};
    return TReason{"Res_WarnFarSteps", {QtyText(C, std::round(Steps)), PriceText(C, Last)}};
}

TVerdict NoPrice(const TOrderCase& C) {
    if (C.Contract.LastPrice) return {};
    return TReason{"Res_WarnNoPrice", {}};
}
TVerdict StalePrice(const TOrderCase& C) {
    if (!C.Contract.LastPrice || !C.Contract.Stale) return {};
    return TReason{"Res_WarnStale", {C.Contract.PriceTime}};
}

// --- the table

struct TRule {
    ERule Rule;
    EStrength Strength;
    TVerdict (*Judge)(const TOrderCase& Case);
};
constexpr std::array kRules{
    TRule{ERule::AccountKnown, EStrength::Refuse, AccountKnown},
    TRule{ERule::SymbolListed, EStrength::Refuse, SymbolListed},
    TRule{ERule::AccountOnExchange, EStrength::Refuse, AccountOnExchange},
    TRule{ERule::QtyAboveZero, EStrength::Refuse, QtyAboveZero},
    TRule{ERule::PriceFinite, EStrength::Refuse, PriceFinite},
    TRule{ERule::SideKnown, EStrength::Refuse, SideKnown},
    TRule{ERule::FlagOffered, EStrength::Refuse, FlagOffered},
    TRule{ERule::FlagRight, EStrength::Refuse, FlagRight},
    TRule{ERule::Expired, EStrength::Block, Expired},
    TRule{ERule::PriceStep, EStrength::Block, PriceStep},
    TRule{ERule::Lot, EStrength::Block, Lot},
    TRule{ERule::HardQty, EStrength::Block, HardQty},
    TRule{ERule::HardValue, EStrength::Block, HardValue},
    TRule{ERule::EqualsHeld, EStrength::StartsUnticked, EqualsHeld},
    TRule{ERule::ClosesTooMuch, EStrength::Warn, ClosesTooMuch},
    TRule{ERule::OppositeToHeld, EStrength::Warn, OppositeToHeld},
    TRule{ERule::PriceZero, EStrength::Warn, PriceZero},
    TRule{ERule::FarInPercent, EStrength::Warn, FarInPercent},
    TRule{ERule::FarInSteps, EStrength::Warn, FarInSteps},
    TRule{ERule::SoftQty, EStrength::Warn, SoftQty},
    TRule{ERule::SoftValue, EStrength::Warn, SoftValue},
    TRule{ERule::NoPrice, EStrength::Warn, NoPrice},
    TRule{ERule::StalePrice, EStrength::Warn, StalePrice},
    TRule{ERule::PositionAfter, EStrength::Warn, PositionAfter},
};

}  // namespace

const char* FlagKey(int TOrderTicket::*Flag, int Value) {
    const TFlagChoice* Choice = ChoiceOf(Flag, Value);
    return Choice ? Choice->Key : nullptr;
}

std::optional<TFinding> FindRefusal(const TOrderCase& Case) {
    for (const auto& Rule : kRules) {
        if (Rule.Strength != EStrength::Refuse) break;  // they come first: the others may rely on them
        if (auto Reason = Rule.Judge(Case)) return TFinding{Rule.Rule, Rule.Strength, *std::move(Reason)};
    }
    return {};
}

std::vector<TFinding> JudgeOrder(const TOrderCase& Case) {
    if (auto Refusal = FindRefusal(Case)) return {*std::move(Refusal)};
    std::vector<TFinding> Result;
    for (const auto& Rule : kRules)
        if (auto Reason = Rule.Judge(Case)) Result.push_back({Rule.Rule, Rule.Strength, *std::move(Reason)});
    return Result;
}

}  // namespace ws
