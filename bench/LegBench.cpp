// SPDX-License-Identifier: Apache-2.0
// The strategy's P/L at 50 prices in three ways that give the same numbers to the last bit:
//   EachLegAsked   every leg at every price looks its market data up and reads their fields
//   ItemsHeld      the market data are looked up once, their fields read at every price
//   TermsRead      the fields are read once; this is what a calculation does
// Time per leg and price stands in the last column, so that lines of different sizes compare.
#include <benchmark/benchmark.h>

#include <bit>

#include "bench/Strategy.h"

namespace bench {

namespace {

using namespace ventiq;

constexpr int kPrices = 50;

double PriceOf(int Row) { return kDownLimit + 190.75 * Row; }

double EachLegAsked(const TPayOffDataList& Legs, double Price) {
    double Sum = 0.0;
    for (const auto& Leg : Legs) Sum += Leg->CalculatePL(Price);
    return Sum;
}

// Measures Sum(price) and holds it against the literal result first.
template <class TSum>
void Measure(benchmark::State& State, const TStrategy& Strategy, TSum Sum) {
    for (int Row = 0; Row < kPrices; ++Row) {
        const double Price = PriceOf(Row);
        const double Literal = EachLegAsked(Strategy.Control.GetPayOffData(), Price);
        if (std::bit_cast<uint64_t>(Sum(Price)) != std::bit_cast<uint64_t>(Literal))
            return State.SkipWithError("the ways differ in their results");
    }
    for (auto Step : State)
        for (int Row = 0; Row < kPrices; ++Row) benchmark::DoNotOptimize(Sum(PriceOf(Row)));
    State.counters["per_leg_and_price"] =
        benchmark::Counter(static_cast<double>(State.range(0) * kPrices),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void LegsEachLegAsked(benchmark::State& State) {
    const TStrategy Strategy(static_cast<int>(State.range(0)));
    const auto& Legs = Strategy.Control.GetPayOffData();
    Measure(State, Strategy, [&](double Price) { return EachLegAsked(Legs, Price); });
}

void LegsItemsHeld(benchmark::State& State) {
    const TStrategy Strategy(static_cast<int>(State.range(0)));
    const auto& Legs = Strategy.Control.GetPayOffData();
    std::vector<const TCustomSubItem*> Items;
    for (const auto& Leg : Legs) Items.push_back(&Strategy.Host.Subscriptions.Item(Leg->FSymbol));
    Measure(State, Strategy, [&](double Price) {
        double Sum = 0.0;
        for (size_t I = 0; I < Legs.size(); ++I) Sum += LegPL(ReadLegTerms(*Legs[I], *Items[I]), Price);
        return Sum;
    });
}

void LegsTermsRead(benchmark::State& State) {
    const TStrategy Strategy(static_cast<int>(State.range(0)));
    const auto Terms = Strategy.Control.GetLegTerms();
    Measure(State, Strategy, [&](double Price) { return SumPL(*Terms, Price); });
}

void Sizes(benchmark::internal::Benchmark* Bench) {
    Bench->ArgName("legs")->Arg(1)->Arg(4)->Arg(40)->Arg(400)->Unit(benchmark::kMicrosecond);
}
BENCHMARK(LegsEachLegAsked)->Apply(Sizes);
BENCHMARK(LegsItemsHeld)->Apply(Sizes);
BENCHMARK(LegsTermsRead)->Apply(Sizes);

}  // namespace

}  // namespace bench
