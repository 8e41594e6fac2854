// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <vector>

namespace bench {

// A leg as a loop wants it: ((gain above Threshold, else 0) - Premium) * Qty * Multiplier, gain the price's distance
// from the strike times Direction.
struct TPlainLeg {
    double Strike, Direction, Threshold, Premium, Qty, Multiplier;
};

// The yardstick of every P/L of an evenly stepped range: one loop over rows inside one over legs, as the compiler
// vectorises it. No texts, no clamped ends, no rows that share a result.
void PlainSums(const std::vector<TPlainLeg>& Legs, double Down, double Interval, size_t First, size_t Count,
               double* Sums);

}  // namespace bench
