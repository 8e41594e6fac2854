// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/ChartSummary.h"

#include <gtest/gtest.h>

#include <limits>

namespace ws {
namespace {

using TPoints = std::vector<std::pair<double, double>>;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

std::optional<TChartSummary> Summary(const TPoints& Points) {
    fw::TLineSeries Line;
    for (const auto& [X, Y] : Points) Line.AddXY(X, Y);
    return SummaryOf(Line);
}

TEST(ChartSummary, NamesRangeExtremesAndEachBreakEvenOnce) {
    const struct {
        const char* Why;
        TPoints Points;
        double Lowest, Highest;
        std::vector<TZeroPlace> Zeros;
    } Cases[] = {{"a long call", {{90, -5}, {100, -5}, {110, 5}}, -5, 5, {{105, 105}}},
                 {"an iron condor", {{0, -4}, {10, -4}, {20, 4}, {30, 4}, {40, -4}}, -4, 4, {{15, 15}, {35, 35}}},
                 {"zero at a point", {{0, -4}, {10, 0}, {20, 4}}, -4, 4, {{10, 10}}},
                 {"a touch from above", {{0, 4}, {10, 0}, {20, 4}}, 0, 4, {{10, 10}}},
                 {"along zero", {{0, -4}, {10, 0}, {15, 0}, {20, 0}, {30, 4}}, -4, 4, {{10, 20}}},
                 {"zero at both ends", {{0, 0}, {10, 4}, {20, 0}}, 0, 4, {{0, 0}, {20, 20}}},
                 {"always zero", {{0, 0}, {10, 0}}, 0, 0, {{0, 10}}},
                 {"only losses", {{0, -4}, {10, -2}}, -4, -2, {}},
                 {"one point", {{10, 3}}, 3, 3, {}},
                 {"a step at one price", {{0, -4}, {10, -4}, {10, 4}, {20, 4}}, -4, 4, {{10, 10}}},
                 {"numbers that are none", {{0, -4}, {5, kNan}, {10, 4}}, -4, 4, {{5, 5}}},
                 {"beyond a number's size", {{0, -1e308}, {10, 1e308}}, -1e308, 1e308, {{0, 0}}}};
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        const auto Found = Summary(Case.Points);
        ASSERT_TRUE(Found);
        EXPECT_EQ(Found->From, Case.Points.front().first);
        EXPECT_EQ(Found->To, Case.Points.back().first);
        EXPECT_EQ(Found->Lowest, Case.Lowest);
        EXPECT_EQ(Found->Highest, Case.Highest);
        EXPECT_EQ(Found->Zeros, Case.Zeros);
    }
    EXPECT_FALSE(Summary({}));
    EXPECT_FALSE(Summary({{kNan, 1}}));
}

TEST(ChartSummary, TheMarkedLineIsTheOneThatCounts) {
    fw::TChart Chart;
    EXPECT_EQ(MainLine(Chart), nullptr);
    fw::TLineSeries Help, Result;
    Chart.AddSeries(Help);
    EXPECT_EQ(MainLine(Chart), &Help);
    Result.PointerVisible = true;
    Chart.AddSeries(Result);
    EXPECT_EQ(MainLine(Chart), &Result);
    Result.SetActive(false);
    EXPECT_EQ(MainLine(Chart), &Help);
}

}  // namespace
}  // namespace ws
