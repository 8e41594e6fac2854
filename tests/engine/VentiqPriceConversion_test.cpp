// SPDX-License-Identifier: Apache-2.0
#include "engine/VentiqPriceConversion.h"

#include "tests/engine/EngineFixture.h"

namespace ventiq {

TEST_F(TEngineTest, PricesAreConvertedByTheDisplayFactor) {
    struct {
        const char* Why;
        const char* Symbol;
        double Factor, Value, Display, Real;
    } const Cases[] = {
        {"factor 100", "A", 100, 1.2345, 123.45, 0.012345},
        {"as typed back", "A", 100, 123.45, 12345, 1.2345},
        {"factor 0 shows 0 and takes what is typed", "A", 0, 5, 0, 5},
        {"next to 0 likewise", "A", 5e-8, 200, 1e-5, 200},
        {"the guard is on the absolute value", "A", -100, 200, -20000, -2},
    };
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Why);
        Host.Subscriptions.Item("A").Set(kFieldDisplayFactor, C.Factor);
        EXPECT_DOUBLE_EQ(GetDisplayPriceValue(C.Value, C.Symbol), C.Display);
        EXPECT_DOUBLE_EQ(GetRealPriceValue(C.Value, C.Symbol), C.Real);
    }
}

TEST_F(TEngineTest, APriceWithoutFactorStays) {
    EXPECT_EQ(GetDisplayPriceValue(7.5, "NOBODY"), 7.5);
    EXPECT_EQ(GetRealPriceValue(7.5, "NOBODY"), 7.5);
}

TEST_F(TEngineTest, AnEmptySymbolTouchesNoMarketData) {
    Host.Subscriptions.Item("").Set(kFieldDisplayFactor, 100);
    const int Before = Host.Subscriptions.LookUpCount;
    EXPECT_EQ(GetDisplayPriceValue(7.5, ""), 7.5);
    EXPECT_EQ(GetRealPriceValue(7.5, ""), 7.5);
    EXPECT_EQ(Host.Subscriptions.LookUpCount, Before);
}

}  // namespace ventiq
