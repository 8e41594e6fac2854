// SPDX-License-Identifier: Apache-2.0
#include "bench/PlainLoop.h"

#include <algorithm>

namespace bench {

namespace {

constexpr size_t kPiece = 512;  // prices and sums of a piece stay in the processor's nearest cache

[[gnu::always_inline]] inline void Loop(const TPlainLeg* Leg, const TPlainLeg* End, double Down, double Interval,
                                        size_t First, size_t Count, double* __restrict Sums) {
    double Prices[kPiece];
    for (size_t I = 0; I < Count; ++I) {
        Prices[I] = Down + Interval * static_cast<double>(static_cast<int>(First) + static_cast<int>(I));
        Sums[I] = 0.0;
    }
    for (; Leg != End; ++Leg) {
        const TPlainLeg L = *Leg;
        for (size_t I = 0; I < Count; ++I) {
            const double Gain = (Prices[I] - L.Strike) * L.Direction;
            Sums[I] += (((Gain > L.Threshold ? Gain : 0.0) - L.Premium) * L.Qty) * L.Multiplier;
        }
    }
}

void Narrow(const TPlainLeg* Leg, const TPlainLeg* End, double Down, double Interval, size_t First, size_t Count,
            double* Sums) {
    Loop(Leg, End, Down, Interval, First, Count, Sums);
}

#if defined(__x86_64__)
[[gnu::target("avx2")]] void Wide(const TPlainLeg* Leg, const TPlainLeg* End, double Down, double Interval,
                                  size_t First, size_t Count, double* Sums) {
    Loop(Leg, End, Down, Interval, First, Count, Sums);
}

const auto Best = __builtin_cpu_supports("avx2") ? Wide : Narrow;
#else
constexpr auto Best = Narrow;
#endif

}  // namespace

void PlainSums(const std::vector<TPlainLeg>& Legs, double Down, double Interval, size_t First, size_t Count,
               double* Sums) {
    for (size_t Done = 0; Done < Count; Done += kPiece)
        Best(Legs.data(), Legs.data() + Legs.size(), Down, Interval, First + Done, std::min(kPiece, Count - Done),
             Sums + Done);
}

}  // namespace bench
