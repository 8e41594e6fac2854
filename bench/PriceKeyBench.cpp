// SPDX-License-Identifier: Apache-2.0
// The text under which a price is keyed, beside the C library's own formatting. The latter follows the locale and
// rounds ties to even; it is here as a yardstick only.
#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <vector>

#include "framework/base/Numbers.h"

namespace bench {

namespace {

constexpr int kCount = 1000;

// 0: whole, 1: cents, 2: thirds, which fill all eight decimals. No ties.
std::vector<double> Prices(int64_t Kind) {
    std::vector<double> Result;
    for (int I = 0; I < kCount; ++I) {
        const double Whole = 17000.0 + I;
        Result.push_back(Kind == 0 ? Whole : Kind == 1 ? Whole + I % 100 / 100.0 : Whole / 3.0);
    }
    return Result;
}

using TBuffer = std::array<char, 64>;

size_t Print(TBuffer& Buffer, double Price) {
    return static_cast<size_t>(std::snprintf(Buffer.data(), Buffer.size(), "%.8f", Price));
}

fw::Text PrintTrimmed(double Price) {
    TBuffer Buffer;
    size_t Size = Print(Buffer, Price);
    while (Buffer[Size - 1] == '0') --Size;
    if (Buffer[Size - 1] == '.') --Size;
    return fw::Text(Buffer.data(), Size);
}

template <class TWrite>
void Measure(benchmark::State& State, TWrite Write) {
    const auto All = Prices(State.range(0));
    for (auto Step : State)
        for (const double Price : All) benchmark::DoNotOptimize(Write(Price));
    State.counters["per_price"] =
        benchmark::Counter(kCount, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void PriceTextKey(benchmark::State& State) {
    for (const double Price : Prices(State.range(0)))
        if (fw::PriceKey(Price) != PrintTrimmed(Price)) return State.SkipWithError("the texts differ");
    Measure(State, [](double Price) { return fw::PriceKey(Price); });
}

void PriceTextPrintTrimmed(benchmark::State& State) {
    Measure(State, [](double Price) { return PrintTrimmed(Price); });
}

void PriceTextPrint(benchmark::State& State) {
    TBuffer Buffer;
    Measure(State, [&](double Price) {
        const size_t Size = Print(Buffer, Price);
        benchmark::ClobberMemory();
        return Size;
    });
}

void Kinds(benchmark::internal::Benchmark* Bench) {
    Bench->ArgName("whole_cents_thirds")->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);
}
BENCHMARK(PriceTextKey)->Apply(Kinds);
BENCHMARK(PriceTextPrintTrimmed)->Apply(Kinds);
BENCHMARK(PriceTextPrint)->Apply(Kinds);

}  // namespace

}  // namespace bench
