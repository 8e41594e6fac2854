// SPDX-License-Identifier: Apache-2.0
// The strategy's P/L at 50 prices in four ways that give the same numbers to the last bit:
//   EachLegAsked   every leg at every price looks its market data up and reads their fields
//   ItemsHeld      the market data are looked up once, their fields read at every price
//   TermsRead      the fields are read once, the prices one by one
//   Together       the same, the prices side by side in the vector registers; this is what a calculation does
// Time per leg and price stands in the last column, so that lines of different sizes compare.
#include <benchmark/benchmark.h>

#include <bit>

#include "bench/Strategy.h"
#include "engine/VentiqMarketData.h"

namespace bench {

namespace {

using namespace ventiq;

constexpr int kPrices = 50;

std::vector<double> Prices() {
    std::vector<double> Result;
    for (int Row = 0; Row < kPrices; ++Row) Result.push_back(kDownLimit + 190.75 * Row);
    return Result;
}

double EachLegAsked(const TPayOffDataList& Legs, double Price) {
    double Sum = 0.0;
    for (const auto& Leg : Legs) Sum += Leg->CalculatePL(Price);
    return Sum;
}

// Measures Fill(prices, sums) and holds it against the literal result first.
template <class TFill>
void Measure(benchmark::State& State, const TStrategy& Strategy, TFill Fill) {
    const auto All = Prices();
    std::vector<double> Sums(All.size());
    Fill(All, Sums);
    for (size_t I = 0; I < All.size(); ++I) {
        const double Literal = EachLegAsked(Strategy.Control.GetPayOffData(), All[I]);
        if (std::bit_cast<uint64_t>(Sums[I]) != std::bit_cast<uint64_t>(Literal))
            return State.SkipWithError("the ways differ in their results");
    }
    for (auto Step : State) {
        Fill(All, Sums);
        benchmark::DoNotOptimize(Sums.data());
        benchmark::ClobberMemory();
    }
    State.counters["per_leg_and_price"] =
        benchmark::Counter(static_cast<double>(State.range(0) * kPrices),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

template <class TSum>
void MeasureEach(benchmark::State& State, const TStrategy& Strategy, TSum Sum) {
    Measure(State, Strategy, [&](const std::vector<double>& All, std::vector<double>& Sums) {
        for (size_t I = 0; I < All.size(); ++I) Sums[I] = Sum(All[I]);
    });
}

TLegTermsList TermsOf(const TStrategy& Strategy) {
    TLegTermsList Result;
    for (const auto& Leg : Strategy.Control.GetPayOffData())
        Result.push_back(LegTerms(*Leg, ReadContractTerms(*PriceDataItem(Leg->FSymbol))));
    return Result;
}

void LegsEachLegAsked(benchmark::State& State) {
    const TStrategy Strategy(static_cast<int>(State.range(0)));
    const auto& Legs = Strategy.Control.GetPayOffData();
    MeasureEach(State, Strategy, [&](double Price) { return EachLegAsked(Legs, Price); });
}

void LegsItemsHeld(benchmark::State& State) {
    const TStrategy Strategy(static_cast<int>(State.range(0)));
    const auto& Legs = Strategy.Control.GetPayOffData();
    std::vector<const TCustomSubItem*> Items;
    for (const auto& Leg : Legs) Items.push_back(&Strategy.Host.Subscriptions.Item(Leg->FSymbol));
    MeasureEach(State, Strategy, [&](double Price) {
        double Sum = 0.0;
        for (size_t I = 0; I < Legs.size(); ++I) Sum += LegPL(LegTerms(*Legs[I], ReadContractTerms(*Items[I])), Price);
        return Sum;
    });
}

void LegsTermsRead(benchmark::State& State) {
    const TStrategy Strategy(static_cast<int>(State.range(0)));
    const auto Terms = TermsOf(Strategy);
    MeasureEach(State, Strategy, [&](double Price) {
        double Sum = 0.0;
        for (const auto& Leg : Terms) Sum += LegPL(Leg, Price);
        return Sum;
    });
}

void LegsTogether(benchmark::State& State) {
    const TStrategy Strategy(static_cast<int>(State.range(0)));
    const TLegSums Legs(TermsOf(Strategy));
    Measure(State, Strategy, [&](const std::vector<double>& All, std::vector<double>& Sums) { Legs.At(All, Sums); });
}

void Sizes(benchmark::internal::Benchmark* Bench) {
    Bench->ArgName("legs")->Arg(1)->Arg(4)->Arg(40)->Arg(400)->Unit(benchmark::kMicrosecond);
}
BENCHMARK(LegsEachLegAsked)->Apply(Sizes);
BENCHMARK(LegsItemsHeld)->Apply(Sizes);
BENCHMARK(LegsTermsRead)->Apply(Sizes);
BENCHMARK(LegsTogether)->Apply(Sizes);

}  // namespace

}  // namespace bench
