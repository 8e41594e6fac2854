// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqPriceStepping.h"

#include <gtest/gtest.h>

#include "tests/support/FakeMarket.h"

namespace ventiq {
namespace {

TEST(CutToLots, CutsTowardsZeroAndLeavesWholeLotsAlone) {
    struct TCase {
        double Quantity, Lot;
        std::optional<double> Cut;
    };
    const TCase Cases[] = {
        {350, 100, 300},
        {399.999, 100, 300},
        {300, 100, std::nullopt},
        {-350, 100, -300},
        {0, 100, std::nullopt},
        {50, 100, 0},
        {2.5, 1, 2},
        {7, 0, std::nullopt},
        {7.5, 0, 7},
        {7.5, 5e-8, 7},
        {300.000001, 100, std::nullopt},
    };
    for (const auto& Case : Cases) {
        SCOPED_TRACE(std::to_string(Case.Quantity) + " lot " + std::to_string(Case.Lot));
        EXPECT_EQ(CutToLots(Case.Quantity, Case.Lot), Case.Cut);
    }
}

TEST(CutToLots, ARatioThatIsOffByARoundingErrorIsCutAllTheSame) {
    ASSERT_TRUE(CutToLots(0.3, 0.1));
    EXPECT_DOUBLE_EQ(*CutToLots(0.3, 0.1), 0.2);
}

// Steps of 0.5 below 10, of 1 from there, of 2 from 50 on.
class PriceStepping : public testing::Test {
protected:
    support::TFakeSpreadTable Table;
    PriceStepping() { Table.Bands = {{0, 0.5}, {10, 1}, {50, 2}}; }

    TPriceMove InMiddleBand(double Last, double Price, bool Spun) { return {Price, Spun, 50.0, 10.0, Last, &Table}; }
};

TEST_F(PriceStepping, ASpunPremiumGoesToTheNextValidPriceBesideTheLastOne) {
    EXPECT_EQ(MovePrice(InMiddleBand(20, 21, true)).Price, 21);
    EXPECT_EQ(MovePrice(InMiddleBand(20.3, 21.3, true)).Price, 21) << "from an odd price up";
    EXPECT_EQ(MovePrice(InMiddleBand(20.3, 19.3, true)).Price, 20) << "from an odd price down";
    EXPECT_EQ(MovePrice(InMiddleBand(20, 27, true)).Price, 21) << "one step, however far the wheel turned";
    const TPriceMoved Moved = MovePrice(InMiddleBand(20, 21, true));
    EXPECT_TRUE(Moved.Corrected);
    EXPECT_FALSE(Moved.NewBand);
}

TEST_F(PriceStepping, TheEdgeItselfStillBelongsToTheWalkBelowIt) {
    const TPriceMoved Moved = MovePrice(InMiddleBand(49, 50, true));
    EXPECT_EQ(Moved.Price, 50);
    EXPECT_FALSE(Moved.NewBand);
    EXPECT_FALSE(MovePrice(InMiddleBand(49, 50 + 5e-8, true)).NewBand) << "within the tolerance";
}

TEST_F(PriceStepping, BeyondAnEdgeTheStepIsThatOfTheNewBand) {
    const TPriceMoved Up = MovePrice(InMiddleBand(50, 51, true));
    EXPECT_EQ(Up.Price, 52) << "the first valid price above the edge";
    ASSERT_TRUE(Up.NewBand);
    EXPECT_EQ(Up.NewBand->Step, 2);
    EXPECT_EQ(Up.NewBand->Lower, 50);
    EXPECT_GT(Up.NewBand->Upper, 1e9);

    const TPriceMoved Down = MovePrice(InMiddleBand(10, 9, true));
    EXPECT_EQ(Down.Price, 9.5);
    ASSERT_TRUE(Down.NewBand);
    EXPECT_EQ(Down.NewBand->Step, 0.5);
    EXPECT_EQ(Down.NewBand->Upper, 10);
    EXPECT_EQ(Down.NewBand->Lower, 0);
}

TEST_F(PriceStepping, ATypedPremiumIsNeverMovedButTakesItsBandAlong) {
    const TPriceMoved Far = MovePrice(InMiddleBand(20, 61.3, false));
    EXPECT_EQ(Far.Price, 61.3);
    EXPECT_FALSE(Far.Corrected);
    ASSERT_TRUE(Far.NewBand);
    EXPECT_EQ(Far.NewBand->Step, 2);
    const TPriceMoved Near = MovePrice(InMiddleBand(20, 21.3, false));
    EXPECT_EQ(Near.Price, 21.3);
    EXPECT_FALSE(Near.Corrected);
    EXPECT_FALSE(Near.NewBand);
}

TEST_F(PriceStepping, WithoutABandTheLastPriceIsBothEdges) {
    const TPriceMoved Typed = MovePrice({30, false, {}, {}, 20, &Table});
    EXPECT_EQ(Typed.Price, 30);
    EXPECT_FALSE(Typed.NewBand) << "nothing happens to a typed price of a row without a band";
    const TPriceMoved Spun = MovePrice({20.9, true, {}, {}, 20.3, &Table});
    EXPECT_EQ(Spun.Price, 21);
    ASSERT_TRUE(Spun.NewBand);
    EXPECT_EQ(Spun.NewBand->Step, 1);
}

TEST_F(PriceStepping, AnEdgeMayBeKnownWithoutTheOther) {
    const TPriceMoved Moved = MovePrice({19, true, 50.0, {}, 20, &Table});
    EXPECT_EQ(Moved.Price, 19) << "below the last price, which stands in for the lower edge";
    EXPECT_TRUE(Moved.NewBand);
}

TEST_F(PriceStepping, WithoutATableAPremiumStaysAsSpun) {
    const TPriceMoved Moved = MovePrice({21.37, true, 50.0, 10.0, 20.37, nullptr});
    EXPECT_EQ(Moved.Price, 21.37);
    EXPECT_FALSE(Moved.Corrected);
    EXPECT_FALSE(Moved.NewBand);
}

TEST_F(PriceStepping, AnUnmovedOrUnknownLastPriceMovesNothing) {
    EXPECT_EQ(MovePrice(InMiddleBand(20.3, 20.3, true)).Price, 20.3);
    const TPriceMoved NoLast = MovePrice({20.3, true, 50.0, 10.0, {}, &Table});
    EXPECT_EQ(NoLast.Price, 20.3);
    EXPECT_TRUE(NoLast.Corrected);
}

}  // namespace
}  // namespace ventiq
