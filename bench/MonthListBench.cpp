// SPDX-License-Identifier: Apache-2.0
// The month list of a series, beside a bare walk over the same products: the difference is the engine's.
#include <benchmark/benchmark.h>

#include "bench/Strategy.h"
#include "registration/VentiqConstDef.h"

namespace bench {

namespace {

using namespace ventiq;

constexpr const char* kExchange = "XDER";
constexpr const char* kSeries = "S";

Text TwoDigits(int Value) { return (Value < 10 ? "0" : "") + std::to_string(Value); }

// Options whose expiries take turns, so that every product meets a long list.
void AddProducts(support::TFakeMarketAdapter& Market, int Products, int Months) {
    for (int I = 0; I < Products; ++I) {
        const int Month = I % Months;
        const Text Expiry = std::to_string(2024 + Month / 12) + "/" + TwoDigits(1 + Month % 12) + "/20";
        Market.AddProduct(kExchange, kSeries, "P" + std::to_string(I), kProductOption, Expiry, "100", "C");
    }
}

void MonthList(benchmark::State& State) {
    TStrategy Strategy(0);
    const auto Months = static_cast<int>(State.range(1));
    AddProducts(Strategy.Host.Market, static_cast<int>(State.range(0)), Months);
    Strategy.Control.SetExchange(kExchange);
    Strategy.Control.SetSeries(kSeries);
    TStringList List;
    for (auto Step : State) {
        List.Clear();
        Strategy.Control.GetMonthList(&List);
    }
    if (List.GetCount() != Months) State.SkipWithError("the list has another number of months");
}

void MonthListBareWalk(benchmark::State& State) {
    TStrategy Strategy(0);
    auto& Market = Strategy.Host.Market;
    AddProducts(Market, static_cast<int>(State.range(0)), static_cast<int>(State.range(1)));
    for (auto Step : State) {
        const int Count = Market.GetProductCount(kExchange, kSeries);
        for (int I = 0; I < Count; ++I)
            benchmark::DoNotOptimize(Market.GetProduct(kExchange, kSeries, I)->GetExpiryDate());
    }
}

void Sizes(benchmark::internal::Benchmark* Bench) {
    Bench->ArgNames({"products", "months"})->ArgsProduct({{500, 5000}, {12, 60}})->Unit(benchmark::kMicrosecond);
}
BENCHMARK(MonthList)->Apply(Sizes);
BENCHMARK(MonthListBareWalk)->Apply(Sizes);

}  // namespace

}  // namespace bench
