// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>

#include "framework/market/Product.h"

namespace ventiq {

using namespace fw;

// How far apart two quantities or prices are before they count as different (lot ratio, real price).
inline constexpr double kStepTolerance = 1e-7;

// A spun quantity as a whole number of lots, cut towards zero; no value when it is one already. A lot of (nearly) 0
// counts as 1.
std::optional<double> CutToLots(double Quantity, double Lot);

// The edges of a price-step band and the step that applies in it.
struct TPriceBand {
    double Upper = 0.0, Lower = 0.0, Step = 1.0;
};

// A premium that has just changed in its editor, and what is known of its row. All prices are real ones.
struct TPriceMove {
    double Price = 0.0;
    bool Spun = false;                           // by arrow key, button or wheel; else typed
    std::optional<double> BandUpper, BandLower;  // of the band in which the premium last stood
    std::optional<double> LastPrice;             // the premium before the change
    const TCustomSpreadTable* Bands = nullptr;   // the symbol's table of price bands; null: it has none
};

struct TPriceMoved {
    double Price = 0.0;                 // where the premium stands now
    bool Corrected = false;             // the editor has to show Price
    std::optional<TPriceBand> NewBand;  // the premium has left its band
};

// A spun premium walks along the valid prices of the table and changes its step at a band's edge. A typed one is never
// moved, but it takes its band along.
TPriceMoved MovePrice(const TPriceMove& Move);

}  // namespace ventiq
