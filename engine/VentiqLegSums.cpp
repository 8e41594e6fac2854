// SPDX-License-Identifier: Apache-2.0
#include "engine/VentiqLegSums.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <optional>

#include "registration/VentiqConstDef.h"

namespace ventiq {

namespace {

using TLine = TLegSums::TLine;

// Thresholds: no gain is up to the first, every gain is up to the second.
constexpr double kAlways = std::numeric_limits<double>::quiet_NaN();
constexpr double kNever = std::numeric_limits<double>::infinity();

// A future has no strike and no tolerance. A leg of another kind or side is worth (0 - 0) * quantity * multiplier.
std::optional<TLine> LineOf(const TLegTerms& Leg) {
    if (!Leg.ProductType) return std::nullopt;
    const bool Sold = Leg.Side == kSideSell;
    TLine Line{.Threshold = kNever, .Qty = Sold ? -Leg.Qty : Leg.Qty, .Multiplier = Leg.Multiplier};
    if (*Leg.ProductType == kProductFuture) {
        Line.Threshold = kAlways;
        Line.Premium = Leg.Premium;
    } else if (IsOptionHeld(Leg)) {
        Line.Strike = Leg.Strike;
        Line.Direction = Leg.CallPut == kPut ? -1.0 : 1.0;
        Line.Threshold = kPayOffTolerance;
        Line.Premium = Leg.Premium;
    }
    return Line;
}

// Sixteen prices side by side; written as vectors of four, which become two of two where the processor has no more.
constexpr size_t kLanes = 4, kTile = 4 * kLanes;
using TLanes [[gnu::vector_size(kLanes * sizeof(double))]] = double;

// Without a name for each vector the sums would live in memory.
[[gnu::always_inline]] inline void SumTile(const TLine* Line, const TLine* End, const double* Prices, double* Sums) {
    TLanes P0, P1, P2, P3, S0{}, S1{}, S2{}, S3{};
    std::memcpy(&P0, Prices, sizeof P0);
    std::memcpy(&P1, Prices + kLanes, sizeof P1);
    std::memcpy(&P2, Prices + 2 * kLanes, sizeof P2);
    std::memcpy(&P3, Prices + 3 * kLanes, sizeof P3);
    for (; Line != End; ++Line) {
        const auto Add = [Leg = *Line](TLanes & Sum, const TLanes& Price) __attribute__((always_inline)) {
            const TLanes Gain = (Price - Leg.Strike) * Leg.Direction;
            const TLanes Counted = Gain <= Leg.Threshold ? TLanes{} : Gain;
            Sum += ((Counted - Leg.Premium) * Leg.Qty) * Leg.Multiplier;
        };
        Add(S0, P0);
        Add(S1, P1);
        Add(S2, P2);
        Add(S3, P3);
    }
    std::memcpy(Sums, &S0, sizeof S0);
    std::memcpy(Sums + kLanes, &S1, sizeof S1);
    std::memcpy(Sums + 2 * kLanes, &S2, sizeof S2);
    std::memcpy(Sums + 3 * kLanes, &S3, sizeof S3);
}

void SumTilePlain(const TLine* Line, const TLine* End, const double* Prices, double* Sums) {
    SumTile(Line, End, Prices, Sums);
}

#if defined(__x86_64__)
[[gnu::target("avx2")]] void SumTileWide(const TLine* Line, const TLine* End, const double* Prices, double* Sums) {
    SumTile(Line, End, Prices, Sums);
}

const auto SumOneTile = __builtin_cpu_supports("avx2") ? SumTileWide : SumTilePlain;
#else
constexpr auto SumOneTile = SumTilePlain;
#endif

}  // namespace

TLegSums::TLegSums(const TLegTermsList& Legs) {
    FLines.reserve(Legs.size());
    for (const auto& Leg : Legs)
        if (const auto Line = LineOf(Leg)) FLines.push_back(*Line);
}

double TLegSums::At(double Price) const {
    double Sum = 0.0;
    At({&Price, 1}, {&Sum, 1});
    return Sum;
}

void TLegSums::At(std::span<const double> Prices, std::span<double> Sums) const {
    const TLine *Begin = FLines.data(), *End = Begin + FLines.size();
    size_t Done = 0;
    for (; Done + kTile <= Prices.size(); Done += kTile) SumOneTile(Begin, End, &Prices[Done], &Sums[Done]);
    if (Done == Prices.size()) return;
    std::array<double, kTile> Rest{};
    std::copy(Prices.begin() + static_cast<std::ptrdiff_t>(Done), Prices.end(), Rest.begin());
    SumOneTile(Begin, End, Rest.data(), Rest.data());
    std::copy_n(Rest.begin(), Prices.size() - Done, Sums.begin() + static_cast<std::ptrdiff_t>(Done));
}

}  // namespace ventiq
