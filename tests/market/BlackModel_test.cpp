// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/BlackModel.h"

#include <gtest/gtest.h>

#include <rapidcheck/gtest.h>

#include <cmath>

namespace {

TEST(BlackModel, NormalDistribution) {
    EXPECT_DOUBLE_EQ(ws::NormalCdf(0.0), 0.5);
    EXPECT_NEAR(ws::NormalCdf(1.959963984540054), 0.975, 1e-12);
    EXPECT_NEAR(ws::NormalCdf(-1.2815515655446004), 0.1, 1e-12);
}

struct TBlackCase {
    const char* Why;
    ws::TBlackInput Input;
    double Call, Put;
};

// Call at the money, no discount: F (2 N(s sqrt(T) / 2) - 1).
TEST(BlackModel, KnownValues) {
    const double AtMoney = 100 * std::erf(0.2 / 2 / std::sqrt(2.0));
    const TBlackCase Cases[] = {
        {"at the money", {100, 100, 1, 0.2, 1}, AtMoney, AtMoney},
        {"one year at 0.2 is 7.9656", {100, 100, 1, 0.2, 1}, 7.965567, 7.965567},
        {"discounted", {100, 100, 1, 0.2, 0.9}, 0.9 * AtMoney, 0.9 * AtMoney},
        {"no time", {100, 90, 0, 0.2, 1}, 10, 0},
        {"no volatility", {100, 110, 1, 0, 1}, 0, 10},
        {"time is over", {100, 90, -1, 0.2, 1}, 10, 0},
        {"strike 0", {100, 0, 1, 0.2, 1}, 100, 0},
    };
    for (const TBlackCase& C : Cases) {
        SCOPED_TRACE(C.Why);
        EXPECT_NEAR(ws::BlackPrice(C.Input, true), C.Call, 1e-6);
        EXPECT_NEAR(ws::BlackPrice(C.Input, false), C.Put, 1e-6);
    }
}

RC_GTEST_PROP(BlackModel, CallAndPutDifferByTheForward, ()) {
    const double F = *rc::gen::inRange(1, 40000), K = *rc::gen::inRange(1, 40000);
    const ws::TBlackInput Input{F, K, *rc::gen::inRange(0, 800) / 365.0, *rc::gen::inRange(0, 150) / 100.0, 0.97};
    const double Call = ws::BlackPrice(Input, true), Put = ws::BlackPrice(Input, false);
    RC_ASSERT(std::abs(Call - Put - 0.97 * (F - K)) < 1e-7);
    RC_ASSERT(Call >= 0.97 * std::max(F - K, 0.0) - 1e-7);
    RC_ASSERT(Call <= 0.97 * F + 1e-7);
    RC_ASSERT(Put >= 0.97 * std::max(K - F, 0.0) - 1e-7);
    RC_ASSERT(Put <= 0.97 * K + 1e-7);
}

RC_GTEST_PROP(BlackModel, SmileStaysWithinItsBounds, ()) {
    const double F = *rc::gen::inRange(1, 40000), K = *rc::gen::inRange(1, 400000);
    const double Volatility = ws::SmileVolatility(0.2, F, K, *rc::gen::inRange(0, 800) / 365.0);
    RC_ASSERT(Volatility >= 0.1 - 1e-12);
    RC_ASSERT(Volatility <= 0.6 + 1e-12);
}

TEST(BlackModel, SmileHasItsBaseAtTheMoneyAndCostsMoreBelow) {
    EXPECT_DOUBLE_EQ(ws::SmileVolatility(0.2, 100, 100, 0.1), 0.2);
    EXPECT_GT(ws::SmileVolatility(0.2, 100, 90, 0.1), ws::SmileVolatility(0.2, 100, 110, 0.1));
    EXPECT_GT(ws::SmileVolatility(0.2, 100, 90, 0.1), ws::SmileVolatility(0.2, 100, 90, 1.0)) << "one smile an expiry";
    EXPECT_DOUBLE_EQ(ws::SmileVolatility(0.2, 100, 0, 0.1), 0.2);
}

}  // namespace
