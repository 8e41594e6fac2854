// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqPriceStepping.h"

#include <cmath>

namespace ventiq {

namespace {

constexpr int kUp = 1;
constexpr int kDown = -1;

// The valid price beside the last one, on the side of the change.
double SnapWithinBand(const TPriceMove& Move) {
    if (!Move.LastPrice) return Move.Price;
    if (Move.Price - *Move.LastPrice > kStepTolerance) return Move.Bands->SnapPrice(*Move.LastPrice, kUp);
    if (*Move.LastPrice - Move.Price > kStepTolerance) return Move.Bands->SnapPrice(*Move.LastPrice, kDown);
    return Move.Price;
}

}  // namespace

std::optional<double> CutToLots(double Quantity, double Lot) {
    const double Unit = std::fabs(Lot) < kStepTolerance ? 1.0 : Lot;
    const double Lots = Quantity / Unit;
    // Deliberate: cut, not rounded, even where the ratio is off by a rounding error only.
    if (!(std::fabs(Lots - std::trunc(Lots)) > kStepTolerance)) return std::nullopt;
    return std::trunc(Lots) * Unit;
}

TPriceMoved MovePrice(const TPriceMove& Move) {
    TPriceMoved Result;
    Result.Price = Move.Price;
    if (!Move.BandUpper && !Move.Spun) return Result;

    const double Upper = Move.BandUpper.value_or(Move.LastPrice.value_or(Move.Price));
    const double Lower = Move.BandLower.value_or(Move.LastPrice.value_or(Move.Price));
    const bool Up = Move.Price - Upper > kStepTolerance;
    const bool Down = !Up && Lower - Move.Price > kStepTolerance;
    if ((!Up && !Down && !Move.Spun) || !Move.Bands) return Result;

    TPriceBand Band;
    if (Up) {
        if (Move.Spun) Result.Price = Move.Bands->SnapPrice(Upper, kUp);
        Band.Step = Move.Bands->StepUp(Result.Price, Band.Upper, Band.Lower);
        Result.NewBand = Band;
    } else if (Down) {
        if (Move.Spun) Result.Price = Move.Bands->SnapPrice(Lower, kDown);
        Band.Step = Move.Bands->StepDown(Result.Price, Band.Upper, Band.Lower);
        Result.NewBand = Band;
    } else {
        Result.Price = SnapWithinBand(Move);
    }
    Result.Corrected = Move.Spun;
    return Result;
}

}  // namespace ventiq
