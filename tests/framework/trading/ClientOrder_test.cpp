// SPDX-License-Identifier: Apache-2.0
#include "framework/trading/ClientOrder.h"

#include <gtest/gtest.h>

#include "framework/market/SubItem.h"
#include "framework/trading/OrderTakeActionRecord.h"

namespace fw {
namespace {

TEST(ClientOrder, StartsWithoutSide) {
    const TCustomClientOrder Order;
    EXPECT_EQ(Order.GetSide(), -1);
    EXPECT_EQ(Order.GetQty(), 0.0);
    EXPECT_EQ(Order.GetExtValue("Any"), "");
}

TEST(ClientOrder, AssignCopiesEverything) {
    TCustomClientOrder Source;
    Source.SetAccount("A1");
    Source.SetSymbol("HSI");
    Source.SetSide(1);
    Source.SetPrice(12.5);
    Source.SetQty(3);
    Source.SetOpenClose(2);
    Source.SetPrincipal(13);
    Source.SetExtValue("AllCheckFlag", "1");
    Source.SetLineId(42);

    TCustomClientOrder Copy;
    Copy.SetExtValue("Former", "x");
    Copy.Assign(Source);
    Source.SetExtValue("AllCheckFlag", "2");
    EXPECT_EQ(Copy.GetAccount(), "A1");
    EXPECT_EQ(Copy.GetSymbol(), "HSI");
    EXPECT_EQ(Copy.GetSide(), 1);
    EXPECT_EQ(Copy.GetPrice(), 12.5);
    EXPECT_EQ(Copy.GetQty(), 3.0);
    EXPECT_EQ(Copy.GetOpenClose(), 2);
    EXPECT_EQ(Copy.GetPrincipal(), 13);
    EXPECT_EQ(Copy.GetLineId(), 42);
    EXPECT_EQ(Copy.GetExtValue("AllCheckFlag"), "1");
    EXPECT_EQ(Copy.GetExtValue("Former"), "");
}

TEST(OrderTakeActionRecord, IsNotConfirmedUntilSomebodyDoes) {
    const TOrderTakeActionRecord Record;
    EXPECT_FALSE(Record.Result);
    EXPECT_EQ(Record.DataControl, nullptr);
}

TEST(Update, KnowsHowMuchChanged) { EXPECT_EQ(TCustomUpdate(3).GetCount(), 3); }

}  // namespace
}  // namespace fw
