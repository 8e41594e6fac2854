// SPDX-License-Identifier: Apache-2.0
#include "registration/VentiqConstDef.h"

#include <gtest/gtest.h>

#include "engine/VentiqDataControl.h"

namespace ventiq {

TEST(VentiqUnits, TheOutermostInitialisationRunsTheBodyOnce) {
    TUnitCounter Counter;
    EXPECT_TRUE(Counter.Enter());
    EXPECT_FALSE(Counter.Enter());
    Counter.Leave();
    EXPECT_FALSE(Counter.Enter());
    Counter.Leave();
    Counter.Leave();
    EXPECT_TRUE(Counter.Enter());
}

TEST(VentiqUnits, TheDataControlUnitIsSetUpByTheFirstInitialisationOnly) {
    DerivativeExchangeCache["XDER"] = "XDER";
    ExchangeListReady = true;
    ExchangeUpdateState = 2;
    InitializeVentiqDataControl();
    EXPECT_TRUE(DerivativeExchangeCache.empty());
    EXPECT_FALSE(ExchangeListReady);
    EXPECT_EQ(ExchangeUpdateState, 0);

    ExchangeUpdateState = 2;
    DerivativeExchangeCache["XDER"] = "XDER";
    InitializeVentiqDataControl();
    EXPECT_EQ(ExchangeUpdateState, 2);
    EXPECT_EQ(DerivativeExchangeCache.size(), 1u);

    FinalizeVentiqDataControl();
    FinalizeVentiqDataControl();
    EXPECT_EQ(DerivativeExchangeCache.size(), 1u) << "finalising frees nothing";
}

}  // namespace ventiq
