// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the order system knows. Prices in real price units; times in milliseconds since 1970, UTC.

#include <cstdint>
#include <string>
#include <vector>

namespace ws {

enum class EOrderState { New, Accepted, PartlyFilled, Filled, Cancelled, Rejected, Unknown };

// Nothing more can happen to an order in these states. Unknown is none of them: the exchange has to be asked.
constexpr bool IsFinal(EOrderState State) {
    return State == EOrderState::Filled || State == EOrderState::Cancelled || State == EOrderState::Rejected;
}

// A sentence as resource key and arguments; an empty key says nothing.
struct TReason {
    std::string Key;
    std::vector<std::string> Args;
    bool operator==(const TReason&) const = default;
};

// What the trader wants done.
struct TOrderTicket {
    std::string Account, Symbol;
    int Side = 0;  // 0 buy, 1 sell
    double Price = 0.0;
    double Qty = 0.0;  // above 0
    int OpenClose = 0, Principal = 0;
    std::string BatchId;  // orders that were confirmed together
    int Place = 0;        // in the batch, from 1
    int BatchSize = 0;
};

struct TOrderRow : TOrderTicket {
    std::string Id;  // client order id, given once and never again
    EOrderState State = EOrderState::New;
    double FilledQty = 0.0;
    double AvgFillPrice = 0.0;  // 0 while nothing is filled
    TReason Reason;             // of the last refusal, or why the state is unknown
    int64_t Created = 0, Changed = 0;
};

// A trade, or an opening position (then without an order).
struct TExecutionRow {
    std::string Id;  // the exchange's, unique
    std::string OrderId;
    std::string Account, Symbol;
    double Qty = 0.0;  // signed: below 0 sold
    double Price = 0.0;
    std::string Day;  // the exchange's market day, "yyyy/MM/dd"
    int64_t Time = 0;
};

// What an account holds of a symbol, as its executions say.
struct THolding {
    std::string Account, Symbol;
    double Qty = 0.0;               // signed net quantity
    double AverageCost = 0.0;       // mode 0
    double FirstInFirstOut = 0.0;   // mode 1
    double OvernightSettled = 0.0;  // mode 2: what was held overnight stands at the previous settlement
    double Realized = 0.0;          // by average cost, in price units times quantity
};

}  // namespace ws
