// SPDX-License-Identifier: Apache-2.0
// The workloads in the engine and by the letter, in one process, so that their ratio means something:
//   W1/page/engine   calculate and read a page of 50 rows with texts (of W4 all key prices)
//   W2/texts/engine  calculate and read every row with its text
//   W2/sums/engine   calculate and read every P/L; W2/sums/plain: a plain vectorised loop over the same arithmetic
// Every way is held against the literal one first, row by row and to the last bit.
#include <benchmark/benchmark.h>

#include <numeric>

#include "bench/LiteralPayoff.h"
#include "bench/PlainLoop.h"
#include "engine/VentiqMarketData.h"

namespace bench {

namespace {

bool Differ(benchmark::State& State, TPayoff& Payoff) {
    const int64_t Differences = CountDifferences(Payoff);
    if (Differences > 0) State.SkipWithError((std::to_string(Differences) + " rows differ").c_str());
    return Differences > 0;
}

void CountRows(benchmark::State& State, int64_t Rows) {
    State.counters["per_row"] = benchmark::Counter(
        static_cast<double>(Rows), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void Engine(benchmark::State& State, const TWorkload& Workload, double (*Round)(TPayoff&)) {
    TPayoff Payoff(Workload);
    if (Differ(State, Payoff)) return;
    for (auto Step : State) benchmark::DoNotOptimize(Round(Payoff));
    CountRows(State, Payoff.GetRowCount());
}

void Literal(benchmark::State& State, const TWorkload& Workload, double (*Round)(TPayoff&, TLiteralPayoff&)) {
    TPayoff Payoff(Workload);
    TLiteralPayoff ByTheLetter(Payoff);
    for (auto Step : State) benchmark::DoNotOptimize(Round(Payoff, ByTheLetter));
    CountRows(State, static_cast<int64_t>(ByTheLetter.GetCount()));
}

// Reads in the pieces that CalculateAndReadSums reads in.
void Plain(benchmark::State& State, const TWorkload& Workload) {
    TPayoff Payoff(Workload);
    Payoff.Control.Calculate();
    std::vector<TPlainLeg> Legs;
    for (const auto& Leg : Payoff.Control.GetPayOffData()) {
        const auto Terms = ventiq::LegTerms(*Leg, ventiq::ReadContractTerms(*ventiq::PriceDataItem(Leg->FSymbol)));
        Legs.push_back({Terms.Strike, Terms.CallPut == ventiq::kPut ? -1.0 : 1.0, ventiq::kPayOffTolerance,
                        Terms.Premium, Terms.Side == ventiq::kSideSell ? -Terms.Qty : Terms.Qty, Terms.Multiplier});
    }
    const auto Rows = static_cast<size_t>(Payoff.GetRowCount());
    std::array<double, 4096> Sums;
    const auto Round = [&] {
        double Sum = 0.0;
        for (size_t First = 0; First < Rows; First += Sums.size()) {
            const size_t Count = std::min(Sums.size(), Rows - First);
            PlainSums(Legs, kDown, Workload.Interval, First, Count, Sums.data());
            Sum = std::accumulate(Sums.begin(), Sums.begin() + static_cast<std::ptrdiff_t>(Count), Sum);
        }
        return Sum;
    };
    if (Round() != CalculateAndReadSums(Payoff)) return State.SkipWithError("the plain loop's sum differs");
    for (auto Step : State) benchmark::DoNotOptimize(Round());
    CountRows(State, Payoff.GetRowCount());
}

void Add(const TWorkload& Workload, std::string_view Read, double (*InEngine)(TPayoff&),
         double (*ByTheLetter)(TPayoff&, TLiteralPayoff&)) {
    const std::string Name = std::string(Workload.Name) + "/" + std::string(Read);
    benchmark::RegisterBenchmark((Name + "/engine").c_str(), Engine, Workload, InEngine);
    if (ByTheLetter && Workload.FitsInMemory)
        benchmark::RegisterBenchmark((Name + "/literal").c_str(), Literal, Workload, ByTheLetter);
}

const bool Registered = [] {
    for (const auto& Each : Workloads()) Add(Each, "page", CalculateAndReadPage, CalculateAndReadPage);
    for (const char* Name : {"W2", "W3"})
        Add(*FindWorkload(Name), "texts", CalculateAndReadTexts, CalculateAndReadTexts);
    Add(*FindWorkload("W2"), "sums", CalculateAndReadSums, nullptr);
    benchmark::RegisterBenchmark("W2/sums/plain", Plain, *FindWorkload("W2"));
    return true;
}();

}  // namespace

}  // namespace bench
