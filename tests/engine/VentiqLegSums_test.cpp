// SPDX-License-Identifier: Apache-2.0
#include "engine/VentiqLegSums.h"

#include <cmath>
#include <limits>

#include "tests/engine/EngineFixture.h"

namespace ventiq {

namespace {

// Every kind of leg that the market data can make, with prices around its strike.
TLegTermsList AllKinds() {
    TLegTermsList Result;
    for (const auto& Type :
         {std::optional<int32_t>(), std::optional(kProductFuture), std::optional(kProductOption), std::optional(7)})
        for (const int32_t CallPut : {kCall, kPut, kCallPutUnknown})
            for (const int32_t Side : {kSideBuy, kSideSell, 2, -1})
                for (const double Qty : {1.0, -3.0, 0.1, 0.0})
                    Result.push_back({{Type, 100.0, CallPut, 0.3}, Side, 5.7, Qty});
    return Result;
}

constexpr double kPrices[] = {0.0,
                              -0.0,
                              100.0,
                              100.0000005,
                              99.9999995,
                              100.000001,
                              99.999999,
                              100.0000011,
                              99.9999989,
                              5.7,
                              -5.7,
                              1e-300,
                              1e15,
                              -1e15,
                              std::numeric_limits<double>::infinity(),
                              -std::numeric_limits<double>::infinity()};

double LegByLeg(const TLegTermsList& Legs, double Price) {
    double Sum = 0.0;
    for (const auto& Leg : Legs) Sum += LegPL(Leg, Price);
    return Sum;
}

}  // namespace

TEST(LegSums, EveryKindOfLegAloneIsWorthWhatItsRuleSays) {
    for (const auto& Leg : AllKinds())
        for (const double Price : kPrices) EXPECT_EQ(Bits(TLegSums({Leg}).At(Price)), Bits(0.0 + LegPL(Leg, Price)));
}

TEST(LegSums, LegsAreAddedInTheirOrder) {
    const auto Legs = AllKinds();
    for (const double Price : kPrices) EXPECT_EQ(Bits(TLegSums(Legs).At(Price)), Bits(LegByLeg(Legs, Price)));

    // Each order of these three has a sum of its own.
    const auto Future = [](double Entry) { return TLegTerms{{kProductFuture, 0, -1, 1.0}, kSideSell, Entry, 1.0}; };
    EXPECT_EQ(TLegSums({Future(1e16), Future(-1e16), Future(1)}).At(0), 1.0);
    EXPECT_EQ(TLegSums({Future(1e16), Future(1), Future(-1e16)}).At(0), 0.0);
}

TEST(LegSums, AnyNumberOfPrices) {
    const auto Legs = AllKinds();
    const TLegSums Sums(Legs);
    for (size_t Count = 0; Count < 70; ++Count) {
        SCOPED_TRACE(Count);
        std::vector<double> Prices, Seen(Count + 1, 42.0);
        for (size_t I = 0; I < Count; ++I) Prices.push_back(90.0 + 0.37 * static_cast<double>(I));
        Sums.At(Prices, std::span(Seen).first(Count));
        EXPECT_EQ(Seen.back(), 42.0) << "nothing behind the sums is written";
        for (size_t I = 0; I < Count; ++I) EXPECT_EQ(Bits(Seen[I]), Bits(LegByLeg(Legs, Prices[I])));
        Sums.At(Prices, Prices);
        Seen.pop_back();
        EXPECT_EQ(Prices, Seen) << "sums may take the place of their prices";
    }
}

TEST(LegSums, WithoutLegsEveryPriceIsWorthNothing) {
    EXPECT_EQ(Bits(TLegSums().At(100)), Bits(0.0));
    EXPECT_EQ(Bits(TLegSums(TLegTermsList{}).At(-1)), Bits(0.0));
    EXPECT_EQ(Bits(TLegSums({TLegTerms{}}).At(1)), Bits(0.0)) << "a leg that nobody can read";
}

TEST(LegSums, ResultsBeyondDoublesStayWhatTheyAre) {
    const TLegTerms Huge{{kProductFuture, 0, -1, 1e300}, kSideBuy, 0.0, 1e300};
    EXPECT_EQ(TLegSums({Huge}).At(1), std::numeric_limits<double>::infinity());
    const TLegTerms Other{{kProductFuture, 0, -1, std::numeric_limits<double>::infinity()}, 2, 1.0, 1.0};
    const TLegTermsList Worthless{{{7, 0, -1, std::numeric_limits<double>::infinity()}, kSideBuy, 1.0, 1.0}};
    EXPECT_TRUE(std::isnan(TLegSums({Other}).At(1)));
    EXPECT_TRUE(std::isnan(LegByLeg(Worthless, 1)));
    EXPECT_TRUE(std::isnan(TLegSums(Worthless).At(1)));
}

}  // namespace ventiq
