// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/NumberInput.h"

#include <limits>

#include "tests/framework/controls/LogFixture.h"

namespace fw {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();

TEST(ReadNumber, TakesFiniteNumbersWithinTheBounds) {
    struct TCase {
        const char* Typed;
        std::optional<Variant> Read;
    };
    const TCase Cases[] = {
        {"", Variant()}, {"   ", Variant()}, {"0", 0.0},  {"-10", -10.0},  {"1,234.5", 1234.5},
        {" 7 ", 7.0},    {"1e2", 100.0},     {"nan", {}}, {"inf", {}},     {"-infinity", {}},
        {"1e999", {}},   {"-1e999", {}},     {"ten", {}}, {"1 2", {}},     {"0x10", {}},
        {"1.2.3", {}},   {"12,34", 12.34},   {"-11", {}}, {"2000.01", {}}, {"2000", 2000.0},
    };
    for (const auto& c : Cases) {
        SCOPED_TRACE(c.Typed);
        const auto Read =
            ReadNumber(c.Typed, {-10.0, 2000.0}, [](double Value) { return FormatNumber(Value, 8, true); }).Value;
        EXPECT_EQ(Read, c.Read);
    }
}

TEST(StepNumber, MovesByIncrementsWithinTheBounds) {
    struct TCase {
        const char* Why;
        double From;
        int Steps;
        double Increment;
        std::optional<double> Min, Max;
        double Result;
    };
    const TCase Cases[] = {
        {"up", 10, 2, 0.5, {}, {}, 11},
        {"down", 10, -3, 5, {}, {}, -5},
        {"increment 0 spins by 1", 10, 1, 0, {}, {}, 11},
        {"an increment of noise spins by 1", 10, 1, 9e-8, {}, {}, 11},
        {"the smallest increment", 10, 1, 1e-7, {}, {}, 10.0000001},
        {"an increment that is no number spins by 1", 10, 1, NAN, {}, {}, 11},
        {"an infinite increment spins by 1", 10, -1, kInf, {}, {}, 9},
        {"stops at the maximum", 9, 5, 1, {}, 10, 10},
        {"stops at the minimum", 1, -5, 1, 0, {}, 0},
        {"comes back from beyond", 50, 1, 1, 0, 10, 10},
        {"no binary noise", 0.2, 1, 0.1, {}, {}, 0.3},
        {"no noise over many steps", 0, 7, 0.1, {}, {}, 0.7},
        {"eight decimals stay", 0.00000001, 1, 0.0000001, {}, {}, 0.00000011},
        {"no overflow", 1.7e308, 1, 1.7e308, {}, {}, 1.7e308},
    };
    for (const auto& c : Cases) {
        SCOPED_TRACE(c.Why);
        EXPECT_EQ(StepNumber(c.From, c.Steps, c.Increment, {c.Min, c.Max}), c.Result);
    }
}

TEST(ToNumber, TakesWhatIsAFiniteNumber) {
    EXPECT_EQ(ToNumber(Variant()), std::optional(Variant()));
    EXPECT_EQ(ToNumber(Variant(3)), std::optional(Variant(3.0)));
    EXPECT_EQ(ToNumber(Variant("2.5")), std::optional(Variant(2.5)));
    EXPECT_EQ(ToNumber(Variant("word")), std::nullopt);
    EXPECT_EQ(ToNumber(Variant(NAN)), std::nullopt);
    EXPECT_EQ(ToNumber(Variant(kInf)), std::nullopt);
}

}  // namespace
}  // namespace fw
