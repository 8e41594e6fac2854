// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "engine/VentiqPayOffMath.h"

namespace ventiq {

// The P/L of a strategy at many prices. Every price (any number, infinite ones too) gets the legs' results added in
// list order, to the last bit what LegPL gives leg by leg; prices are worked off side by side in the processor's vector
// registers.
class TLegSums {
public:
    TLegSums() = default;
    explicit TLegSums(const TLegTermsList& Legs);

    double At(double Price) const;
    // One sum for each price; both of one size, which may be any. They may be the same memory.
    void At(std::span<const double> Prices, std::span<double> Sums) const;

    // What every kind of leg comes down to: ((Gain or 0) - Premium) * Qty * Multiplier, where Gain is
    // (Price - Strike) * Direction, and 0 takes its place up to Threshold (never where that is no number).
    struct TLine {
        double Strike = 0.0;
        double Direction = 1.0;  // -1 for a put
        double Threshold = 0.0;
        double Premium = 0.0;
        double Qty = 0.0;  // of the other sign for a sale
        double Multiplier = 1.0;
    };

private:
    std::vector<TLine> FLines;  // without legs that nobody can read: those add nothing
};

}  // namespace ventiq
