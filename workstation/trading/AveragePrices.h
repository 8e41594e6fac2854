// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What executions add up to. Pure: no store, no clock.

#include <optional>
#include <string>
#include <vector>

#include "workstation/trading/OrderTypes.h"

namespace ws {

inline constexpr double kNoQty = 1e-7;  // as many or fewer, long or short, are none

// The holding that executions of one account and symbol, in time order, add up to; openings come first. An execution
// that leads through zero closes what was held and opens the rest at its own price.
//   AverageCost: what is added moves the average by its weight, what is closed leaves it.
//   FirstInFirstOut: what is closed is the oldest; the average of what remains.
//   OvernightSettled: what executions before Today left held stands at PreviousSettlement (at its average cost where
//     there is none), and Today's executions move that average as they do the cost.
// Today is the exchange's market day, "yyyy/MM/dd"; an execution without a day is older than any. A flat holding has
// the average prices 0. None at all: an empty holding.
THolding HoldingOf(const std::vector<TExecutionRow>& Executions, const std::string& Today,
                   std::optional<double> PreviousSettlement);

}  // namespace ws
