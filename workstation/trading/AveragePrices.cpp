// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/trading/AveragePrices.h"

#include <algorithm>
#include <cmath>
#include <deque>

namespace ws {
namespace {

bool IsNone(double Qty) { return std::abs(Qty) <= kNoQty; }
bool IsSameSide(double A, double B) { return (A > 0) == (B > 0); }

struct TAverage {
    double Qty = 0.0, Price = 0.0, Realized = 0.0;

    void Take(double ExecutedQty, double ExecutedPrice) {
        if (IsNone(ExecutedQty)) return;
        if (IsNone(Qty) || IsSameSide(Qty, ExecutedQty)) {
            Price = (Qty * Price + ExecutedQty * ExecutedPrice) / (Qty + ExecutedQty);
            Qty += ExecutedQty;
            return;
        }
        const double Closed = std::copysign(std::min(std::abs(Qty), std::abs(ExecutedQty)), Qty);
        Realized += Closed * (ExecutedPrice - Price);
        const double Rest = Qty + ExecutedQty;
        if (IsNone(Rest))
            Price = 0.0;
        else if (!IsSameSide(Rest, Qty))
            Price = ExecutedPrice;
        Qty = IsNone(Rest) ? 0.0 : Rest;
    }
};

class TLots {
public:
    void Take(double Qty, double Price) {
        while (!IsNone(Qty) && !FLots.empty() && !IsSameSide(FLots.front().Qty, Qty)) {
            const double Rest = FLots.front().Qty + Qty;
            if (!IsNone(Rest) && !IsSameSide(Rest, Qty)) {
                FLots.front().Qty = Rest;
                return;
            }
            Qty = Rest;
            FLots.pop_front();
        }
        if (!IsNone(Qty)) FLots.push_back({Qty, Price});
    }

    double Average() const {
        double Qty = 0.0, Value = 0.0;
        for (const auto& Lot : FLots) {
            Qty += Lot.Qty;
            Value += Lot.Qty * Lot.Price;
        }
        return IsNone(Qty) ? 0.0 : Value / Qty;
    }

private:
    struct TLot {
        double Qty, Price;
    };
    std::deque<TLot> FLots;  // oldest first, all on one side
};

}  // namespace

THolding HoldingOf(const std::vector<TExecutionRow>& Executions, const std::string& Today,
                   std::optional<double> PreviousSettlement) {
    THolding Holding;
    if (Executions.empty()) return Holding;
    Holding.Account = Executions.front().Account;
    Holding.Symbol = Executions.front().Symbol;
    TAverage Cost, Overnight, Settled;
    TLots Lots;
    for (const auto& Row : Executions) {
        Cost.Take(Row.Qty, Row.Price);
        Lots.Take(Row.Qty, Row.Price);
        if (Row.Day < Today) Overnight.Take(Row.Qty, Row.Price);
    }
    if (!IsNone(Overnight.Qty)) Settled = {Overnight.Qty, PreviousSettlement.value_or(Overnight.Price), 0.0};
    for (const auto& Row : Executions)
        if (!(Row.Day < Today)) Settled.Take(Row.Qty, Row.Price);
    Holding.Qty = Cost.Qty;
    Holding.AverageCost = Cost.Price;
    Holding.FirstInFirstOut = Lots.Average();
    Holding.OvernightSettled = Settled.Price;
    Holding.Realized = Cost.Realized;
    return Holding;
}

}  // namespace ws
