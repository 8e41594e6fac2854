// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/SpreadTable.h"

#include <gtest/gtest.h>

#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>

namespace {

using ws::TSpreadBandRow;
using ws::TSpreadTable;

const std::vector<TSpreadBandRow> kStocks{
    {"S", 1, 0.01, 0.001}, {"S", 1, 0.25, 0.005}, {"S", 1, 0.5, 0.01}, {"S", 1, 10, 0.02}, {"S", 1, 20, 0.05}};

struct TSnapCase {
    double Price, Up, Down;
};

TEST(SpreadTable, SnapsStrictlyBeyond) {
    const TSpreadTable Table(kStocks);
    const TSnapCase Cases[] = {
        {0.249, 0.25, 0.248},   // the step below an edge
        {0.25, 0.255, 0.249},   // on an edge: the band above, the band below
        {0.2495, 0.25, 0.249},  // between two valid prices
        {9.99, 10, 9.98},
        {10, 10.02, 9.99},
        {10.01, 10.02, 10},
        {20, 20.05, 19.98},
        {20.05, 20.1, 20},
        {20.05000005, 20.1, 20},  // 5e-8 beside a price is the price
        {19.99999995, 20.05, 19.98},
        {1000000, 1000000.05, 999999.95},
        {0.01, 0.011, 0.01},  // nothing below the lowest edge
        {0.003, 0.01, 0.01},
        {-5, 0.01, 0.01},
    };
    for (const TSnapCase& C : Cases) {
        SCOPED_TRACE(C.Price);
        EXPECT_DOUBLE_EQ(Table.SnapPrice(C.Price, 1), C.Up);
        EXPECT_DOUBLE_EQ(Table.SnapPrice(C.Price, -1), C.Down);
    }
}

TEST(SpreadTable, WalkingUpFromAValidPriceMovesEveryTime) {
    const TSpreadTable Table(kStocks);
    double Price = 0.24;
    for (double Expected : {0.241, 0.242, 0.243, 0.244, 0.245, 0.246, 0.247, 0.248, 0.249, 0.25, 0.255, 0.26}) {
        Price = Table.SnapPrice(Price, 1);
        EXPECT_EQ(Price, Expected) << "equal prices have equal bits";
    }
}

struct TStepCase {
    double Price, StepUp, UpperUp, LowerUp, StepDown, UpperDown, LowerDown;
};

TEST(SpreadTable, StepsAndEdges) {
    const TSpreadTable Table(kStocks);
    const TStepCase Cases[] = {
        {0.3, 0.005, 0.5, 0.25, 0.005, 0.5, 0.25},
        {0.25, 0.005, 0.5, 0.25, 0.001, 0.25, 0.01},  // [lower, upper) upwards, (lower, upper] downwards
        {0.5, 0.01, 10, 0.5, 0.005, 0.5, 0.25},
        {15, 0.02, 20, 10, 0.02, 20, 10},
        {500, 0.05, 1e15, 20, 0.05, 1e15, 20},
        {0.01, 0.001, 0.25, 0.01, 0.001, 0.25, 0.01},
        {0.0, 0.001, 0.25, 0.01, 0.001, 0.25, 0.01},  // below the lowest band
        {-3, 0.001, 0.25, 0.01, 0.001, 0.25, 0.01},
    };
    for (const TStepCase& C : Cases) {
        SCOPED_TRACE(C.Price);
        double Upper = 0, Lower = 0;
        EXPECT_EQ(Table.StepUp(C.Price, Upper, Lower), C.StepUp);
        EXPECT_EQ(Upper, C.UpperUp);
        EXPECT_EQ(Lower, C.LowerUp);
        EXPECT_EQ(Table.StepDown(C.Price, Upper, Lower), C.StepDown);
        EXPECT_EQ(Upper, C.UpperDown);
        EXPECT_EQ(Lower, C.LowerDown);
    }
}

TEST(SpreadTable, ABandThatItsStepDoesNotFill) {
    const TSpreadTable Table(std::vector<TSpreadBandRow>{{"T", 1, 0, 0.3}, {"T", 1, 0.9, 0.4}});
    EXPECT_DOUBLE_EQ(Table.SnapPrice(0.6, 1), 0.9) << "3 x 0.3 is the next band's edge, not a price beside it";
    EXPECT_DOUBLE_EQ(Table.SnapPrice(0.9, -1), 0.6);
    EXPECT_DOUBLE_EQ(Table.SnapPrice(0.9, 1), 1.3);
    const TSpreadTable Gap(std::vector<TSpreadBandRow>{{"T", 1, 0, 0.4}, {"T", 1, 1, 1}});
    EXPECT_DOUBLE_EQ(Gap.SnapPrice(0.8, 1), 1.0);
    EXPECT_DOUBLE_EQ(Gap.SnapPrice(1.0, -1), 0.8);
}

TEST(SpreadTable, FloorAndCeilKeepAValidPrice) {
    const TSpreadTable Table(kStocks);
    EXPECT_DOUBLE_EQ(Table.Floor(20.05), 20.05);
    EXPECT_DOUBLE_EQ(Table.Ceil(20.05), 20.05);
    EXPECT_DOUBLE_EQ(Table.Floor(20.07), 20.05);
    EXPECT_DOUBLE_EQ(Table.Ceil(20.07), 20.10);
}

TEST(SpreadTable, OfDecimals) {
    EXPECT_DOUBLE_EQ(TSpreadTable::OfDecimals(2).SnapPrice(1.234, 1), 1.24);
    EXPECT_DOUBLE_EQ(TSpreadTable::OfDecimals(0).SnapPrice(20000, 1), 20001);
}

TEST(SpreadTable, TablesOfAnotherKindAreNotWalked) {
    const TSpreadTable Table(std::vector<TSpreadBandRow>{{"K", 2, 5, 0}, {"K", 2, 1, -1}});
    double Upper = 0, Lower = 0;
    EXPECT_EQ(Table.Kind(), 2);
    EXPECT_EQ(Table.SnapPrice(3.3, 1), 3.3);
    EXPECT_EQ(Table.StepUp(3.3, Upper, Lower), 1.0);
    EXPECT_EQ(Upper, 3.3);
    EXPECT_EQ(Lower, 3.3);
}

struct TRefusedCase {
    const char* Why;
    std::vector<TSpreadBandRow> Bands;
    const char* Key;
};

TEST(SpreadTable, RefusesWithAReason) {
    const double Inf = std::numeric_limits<double>::infinity(), Nan = std::numeric_limits<double>::quiet_NaN();
    const TRefusedCase Cases[] = {
        {"no bands", {}, "Res_SpreadTableEmpty"},
        {"descending", {{"A", 1, 10, 1}, {"A", 1, 5, 1}}, "Res_SpreadTableOrder"},
        {"overlapping: the same edge twice", {{"A", 1, 0, 1}, {"A", 1, 0, 2}}, "Res_SpreadTableOrder"},
        {"step 0", {{"A", 1, 0, 0}}, "Res_SpreadTableStep"},
        {"step below 0", {{"A", 1, 0, 1}, {"A", 1, 5, -1}}, "Res_SpreadTableStep"},
        {"step that is no number", {{"A", 1, 0, Nan}}, "Res_SpreadTableStep"},
        {"step without end", {{"A", 1, 0, Inf}}, "Res_SpreadTableStep"},
        {"edge that is no number", {{"A", 1, Nan, 1}}, "Res_SpreadTableEdge"},
        {"edge without end", {{"A", 1, 0, 1}, {"A", 1, Inf, 1}}, "Res_SpreadTableEdge"},
        {"two kinds", {{"A", 1, 0, 1}, {"A", 2, 5, 1}}, "Res_SpreadTableKinds"},
    };
    for (const TRefusedCase& C : Cases) {
        SCOPED_TRACE(C.Why);
        try {
            TSpreadTable Table(C.Bands);
            ADD_FAILURE() << "accepted";
        } catch (const ws::EMarketRefusal& Refusal) {
            EXPECT_EQ(Refusal.Reason().Key, C.Key);
            EXPECT_EQ(Refusal.Reason().Args.size(), C.Bands.empty() ? 0u : 3u);
        }
    }
}

TEST(SpreadTables, ARefusedTableIsLeftOut) {
    const ws::TSpreadTables Tables({{"A", 1, 0, 1}, {"B", 1, 0, -1}, {"A", 1, 10, 5}});
    ASSERT_NE(Tables.Find("A"), nullptr);
    EXPECT_EQ(Tables.Find("A")->SnapPrice(10, 1), 15);
    EXPECT_EQ(Tables.Find("B"), nullptr);
    EXPECT_EQ(Tables.Find("C"), nullptr);
    ASSERT_EQ(Tables.Refused.size(), 1u);
    EXPECT_EQ(Tables.Refused[0].Args, (std::vector<std::string>{"B", "0", "-1"}));
}

// Bands whose edges and steps are thousandths, as exchanges write them; Valid gives all their prices in thousandths.
struct TThousandths {
    std::vector<TSpreadBandRow> Bands;
    std::vector<long> Valid;
};

TThousandths ArbitraryTable() {
    TThousandths Result;
    long Lower = *rc::gen::inRange<long>(0, 500);
    const int Count = *rc::gen::inRange(1, 5);
    for (int I = 0; I < Count; ++I) {
        const long Step = *rc::gen::inRange<long>(1, 700), Width = *rc::gen::inRange<long>(1, 3000);
        Result.Bands.push_back({"T", 1, Lower / 1000.0, Step / 1000.0});
        const long End = I + 1 == Count ? Lower + 20000 : Lower + Width;
        for (long P = Lower; P < End; P += Step) Result.Valid.push_back(P);
        Lower = End;
    }
    return Result;
}

RC_GTEST_PROP(SpreadTable, SnapsToTheNextPriceOfALiteralList, ()) {
    const TThousandths Literal = ArbitraryTable();
    const TSpreadTable Table(Literal.Bands);
    const long Price = *rc::gen::inRange<long>(-500, Literal.Valid.back());
    const auto Up = std::upper_bound(Literal.Valid.begin(), Literal.Valid.end(), Price);
    const auto Down = std::lower_bound(Literal.Valid.begin(), Literal.Valid.end(), Price);
    RC_PRE(Up != Literal.Valid.end());
    RC_ASSERT(Table.SnapPrice(Price / 1000.0, 1) == *Up / 1000.0);
    const long Below = Down == Literal.Valid.begin() ? Literal.Valid.front() : *std::prev(Down);
    RC_ASSERT(Table.SnapPrice(Price / 1000.0, -1) == Below / 1000.0);
}

RC_GTEST_PROP(SpreadTable, StepsAreThoseOfTheBandThatHoldsThePrice, ()) {
    const TThousandths Literal = ArbitraryTable();
    const TSpreadTable Table(Literal.Bands);
    const double Price = *rc::gen::inRange<long>(-500, Literal.Valid.back()) / 1000.0;
    double Upper = 0, Lower = 0;
    const double Up = Table.StepUp(Price, Upper, Lower);
    RC_ASSERT(Lower < Upper);
    RC_ASSERT(Price < Upper);
    RC_ASSERT(Price >= Lower || Lower == Literal.Bands.front().Lower);
    RC_ASSERT(std::any_of(Literal.Bands.begin(), Literal.Bands.end(),
                          [&](const TSpreadBandRow& B) { return B.Lower == Lower && B.Step == Up; }));
    const double Down = Table.StepDown(Price, Upper, Lower);
    RC_ASSERT(Price <= Upper);
    RC_ASSERT(Price > Lower || Lower == Literal.Bands.front().Lower);
    RC_ASSERT(std::any_of(Literal.Bands.begin(), Literal.Bands.end(),
                          [&](const TSpreadBandRow& B) { return B.Lower == Lower && B.Step == Down; }));
}

RC_GTEST_PROP(SpreadTable, UpAndDownAgain, ()) {
    const TThousandths Literal = ArbitraryTable();
    const TSpreadTable Table(Literal.Bands);
    const long Index = *rc::gen::inRange<long>(0, static_cast<long>(Literal.Valid.size()) - 1);
    const double Price = Literal.Valid[static_cast<std::size_t>(Index)] / 1000.0;
    RC_ASSERT(Table.SnapPrice(Table.SnapPrice(Price, 1), -1) == Price);
}

TEST(SpreadTable, ImmensePricesEnd) {
    const TSpreadTable Table(kStocks);
    for (double Price : {1e12, 9.99e14, 1e15, 1e18, 1e300}) {
        EXPECT_TRUE(std::isfinite(Table.SnapPrice(Price, 1)));
        EXPECT_TRUE(std::isfinite(Table.SnapPrice(Price, -1)));
    }
    EXPECT_TRUE(std::isnan(Table.SnapPrice(std::nan(""), 1)));
}

}  // namespace
