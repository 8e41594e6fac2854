// SPDX-License-Identifier: Apache-2.0
#include "engine/VentiqPayOffMath.h"

#include <cmath>
#include <limits>

#include "tests/engine/EngineFixture.h"

namespace ventiq {

namespace {

struct TLegCase {
    const char* Why;
    const char* ProductType;
    const char* CallPut;
    double StrikeOrEntry;  // strike of an option; premium is the entry of a future
    int Side;
    double Premium, Qty, Multiplier;  // multiplier 0: the item has none
    double Price, Expected;
};

class TLegTest : public TEngineTest {
protected:
    double PL(const TLegCase& C) {
        auto& Item =
            Host.Subscriptions.Item("LEG").Ready().Set(kFieldProductType, C.ProductType).Set(kFieldCallPut, C.CallPut);
        Item.Set(kFieldStrike, C.StrikeOrEntry).Forget(kFieldMultiplier);
        if (C.Multiplier != 0.0) Item.Set(kFieldMultiplier, C.Multiplier);
        TCustomPayOffData Leg;
        Leg.FSymbol = "LEG";
        Leg.FSide = C.Side;
        Leg.FPremium = C.Premium;
        Leg.FQty = C.Qty;
        return Leg.CalculatePL(C.Price);
    }
};

}  // namespace

TEST_F(TLegTest, ProfitAndLossOfOneLeg) {
    const TLegCase Cases[] = {
        {"bought call, in the money", "3", "C", 100, 0, 5, 2, 50, 120, 1500},
        {"bought call, at the strike", "3", "C", 100, 0, 5, 2, 50, 100, -500},
        {"bought call, out of the money", "3", "C", 100, 0, 5, 2, 50, 60, -500},
        {"bought call, within the tolerance", "3", "C", 100, 0, 5, 2, 50, 100.0000005, -500},
        {"the premium exactly", "3", "C", 100, 0, 8, 1, 50, 100.0000005, -400},
        {"bought call, half a point beyond the strike", "3", "C", 100, 0, 5, 1, 0, 100.5, -4.5},
        {"sold call, in the money", "3", "C", 100, 1, 5, 2, 50, 120, -1500},
        {"sold call, out of the money", "3", "C", 100, 1, 5, 2, 50, 80, 500},
        {"sold put, in the money, no multiplier", "3", "P", 100, 1, 3, 1, 0, 90, -7},
        {"sold put, at the strike", "3", "P", 100, 1, 3, 1, 0, 100, 3},
        {"sold put, out of the money", "3", "P", 100, 1, 3, 1, 0, 130, 3},
        {"sold put, within the tolerance", "3", "P", 100, 1, 3, 1, 0, 99.9999995, 3},
        {"bought put, in the money", "3", "P", 100, 0, 3, 1, 0, 90, 7},
        {"bought put, out of the money", "3", "P", 100, 0, 3, 1, 0, 110, -3},
        {"sold future", "2", "", 0, 1, 50, 1, 0, 45, 5},
        {"bought future", "2", "", 0, 0, 50, 1, 0, 45, -5},
        {"a future of another side counts as bought", "2", "", 0, 2, 107.5, 1, 50, 110, 125},
        {"an option of another side is worth nothing", "3", "C", 100, 2, 5, 1, 50, 120, 0},
        {"a side of -1 likewise", "3", "P", 100, -1, 5, 1, 50, 80, 0},
        {"an unknown call/put letter", "3", "X", 100, 0, 5, 1, 50, 120, 0},
        {"an unknown call/put number", "3", "99", 100, 0, 5, 1, 50, 120, 0},
        {"a negative quantity mirrors", "3", "C", 100, 0, 5, -2, 50, 120, -1500},
        {"a strategy in halves", "3", "C", 100, 0, 5, 0.5, 10, 120, 75},
        {"product type empty", "", "C", 100, 0, 5, 1, 50, 120, 0},
        {"product type with a blank", " 3", "C", 100, 0, 5, 1, 50, 120, 0},
        {"product type with decimals", "3.0", "C", 100, 0, 5, 1, 50, 120, 0},
        {"another product type", "1", "C", 100, 0, 5, 1, 50, 120, 0},
        {"a signed product type", "+3", "C", 100, 0, 5, 1, 50, 120, 750},
    };
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Why);
        EXPECT_DOUBLE_EQ(PL(C), C.Expected);
    }
}

TEST_F(TLegTest, FuturesTakeNoTolerance) {
    EXPECT_NE(PL({"", "2", "", 0, 1, 50, 1, 0, 50.0000005, 0}), 0.0);
    EXPECT_LT(PL({"", "2", "", 0, 1, 50, 1, 0, 50.0000005, 0}), 0.0);
}

TEST_F(TLegTest, AMultiplierOfZeroIsAMultiplier) {
    auto& Item = Host.Subscriptions.AddOption("LEG", 100, "C");
    Item.Set(kFieldMultiplier, 0.0);
    TCustomPayOffData Leg;
    Leg.FSymbol = "LEG";
    Leg.FPremium = 5;
    Leg.FQty = 1;
    EXPECT_EQ(Leg.CalculatePL(120), 0.0);
    Item.Forget(kFieldMultiplier);
    EXPECT_EQ(Leg.CalculatePL(120), 15.0);
}

TEST_F(TLegTest, TheResultIsBaseTimesQuantityFirstThenMultiplier) {
    // The other order differs in the last bit.
    const double Expected = ((110.7 - 100.0) * 3.0) * 0.7;
    ASSERT_NE(Bits(Expected), Bits((110.7 - 100.0) * (3.0 * 0.7)));
    EXPECT_EQ(Bits(PL({"", "2", "", 0, 0, 100.0, 3, 0.7, 110.7, 0})), Bits(Expected));
}

TEST_F(TLegTest, AnUnknownSymbolIsWorthNothing) {
    TCustomPayOffData Leg;
    Leg.FSymbol = "NOBODY";
    Leg.FPremium = 5;
    Leg.FQty = 1;
    EXPECT_EQ(Leg.CalculatePL(120), 0.0);
}

TEST_F(TLegTest, HostFieldsThatAreNoNumbersDoNotEndAnything) {
    EXPECT_TRUE(std::isnan(PL({"", "2", "", 0, 0, 100, 1, std::numeric_limits<double>::quiet_NaN(), 110, 0})));
    EXPECT_EQ(PL({"a strike that is no number is never in the money", "3", "C",
                  std::numeric_limits<double>::quiet_NaN(), 0, 5, 1, 0, 110, 0}),
              -5.0);
}

TEST_F(TLegTest, CallOrPut) {
    struct {
        const char* Code;
        int Expected;
    } const Cases[] = {{"1", 0},   {"6", 0},   {"10", 0},  {"12", 0},  {"20", 0},   {"22", 0}, {"24", 0},
                       {"62", 0},  {"64", 0},  {"2", 1},   {"7", 1},   {"11", 1},   {"13", 1}, {"21", 1},
                       {"23", 1},  {"25", 1},  {"63", 1},  {"65", 1},  {"3", -1},   {"0", -1}, {"99", -1},
                       {"-1", -1}, {"", -1},   {"c", 0},   {"C", 0},   {"Call", 0}, {"p", 1},  {"P", 1},
                       {"Put", 1}, {"Xc", -1}, {" C", -1}, {"1x", -1}, {"+1", 0},   {"01", 0}, {"1.0", -1}};
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Code);
        support::TFakeSubItem Item("X");
        EXPECT_EQ(GetCallPut(Item.Set(kFieldCallPut, C.Code)), C.Expected);
    }
    EXPECT_EQ(GetCallPut(support::TFakeSubItem("no field")), -1);
}

}  // namespace ventiq
