// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "framework/services/Formatter.h"
#include "workstation/trading/OrderFacts.h"
#include "workstation/trading/OrderTypes.h"

namespace ws {

// Every rule about an order stands in one table, in the order in which a trader should read what it finds. What no
// trader can mean is refused outright; all else is judged row by row in the confirmation.
enum class EStrength {
    Refuse,          // not accepted, no confirmation
    Block,           // shown, but cannot be sent
    StartsUnticked,  // sent only when the trader ticks it
    Warn,
};

enum class ERule {
    AccountKnown,
    SymbolListed,
    AccountOnExchange,
    QtyAboveZero,
    PriceFinite,
    SideKnown,
    FlagOffered,
    FlagRight,
    Expired,
    PriceStep,
    Lot,
    HardQty,
    HardValue,
    EqualsHeld,
    ClosesTooMuch,
    OppositeToHeld,
    PriceZero,
    FarInPercent,
    FarInSteps,
    SoftQty,
    SoftValue,
    NoPrice,
    StalePrice,
    PositionAfter,
    // Of the confirmation alone: the order behind a row is known; the batch is another than the one just sent.
    RowKnown,
    AnotherBatch,
};

struct TFinding {
    ERule Rule;
    EStrength Strength;
    TReason Reason;
    bool operator==(const TFinding&) const = default;
};

// One order and everything that bears on it. All borrowed for the call.
struct TOrderCase {
    const TOrderTicket& Order;
    const TContractFacts& Contract;
    const TTraderFacts& Trader;
    const TTradingLimits& Limits;
    double Held = 0.0;    // signed net quantity of the account in the symbol
    double Before = 0.0;  // the same with the orders of the batch that go before this one
    fw::TCustomFormatter& Formatter;
};

// Of the refusing rules the first that the order breaks.
std::optional<TFinding> FindRefusal(const TOrderCase& Case);

// Everything that the table says about the order, in its order. A refusal stands alone.
std::vector<TFinding> JudgeOrder(const TOrderCase& Case);

// Resource key of a flag's value ("Res_OrderOpen"); null for 0 and for values that no flag has.
const char* FlagKey(int TOrderTicket::*Flag, int Value);

// Quantity with the sign of the side: above 0 bought.
inline double SignedQty(const TOrderTicket& Order) { return Order.Side == 0 ? Order.Qty : -Order.Qty; }

}  // namespace ws
