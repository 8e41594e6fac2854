// SPDX-License-Identifier: Apache-2.0
// What a press of the calculation button costs: the calculation itself, and the rows that somebody then looks at.
#include <benchmark/benchmark.h>

#include "bench/Strategy.h"
#include "registration/VentiqConstDef.h"

namespace bench {

namespace {

// Both cells of a row, as a grid reads them.
void Calculate(benchmark::State& State) {
    TStrategy Strategy(static_cast<int>(State.range(0)));
    const auto Asked = static_cast<int32_t>(State.range(1));
    for (auto Step : State) {
        Strategy.Control.Calculate();
        for (int32_t Row = 0; Row < Asked; ++Row) {
            benchmark::DoNotOptimize(Strategy.Detail.GetValue(Row, ventiq::kColPrice));
            benchmark::DoNotOptimize(Strategy.Detail.GetValue(Row, ventiq::kColPL));
        }
    }
    if (Strategy.Detail.GetCount() != kTableRows) State.SkipWithError("the table has another number of rows");
}
BENCHMARK(Calculate)
    ->ArgNames({"legs", "rows_asked"})
    ->ArgsProduct({{1, 4, 40, 400}, {0, 50, kTableRows}})
    ->Unit(benchmark::kMicrosecond);

}  // namespace

}  // namespace bench
