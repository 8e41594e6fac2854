// SPDX-License-Identifier: Apache-2.0
// The engine against the rules written out: text-keyed maps filled row by row, sums leg by leg.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "tests/engine/EngineFixture.h"

namespace ventiq {

namespace {

double Real(double Low, double High) {
    constexpr int64_t kSteps = (int64_t{1} << 52) - 1;
    return Low +
           (High - Low) * (static_cast<double>(*rc::gen::inRange<int64_t>(0, kSteps)) / static_cast<double>(kSteps));
}

int Whole(int Low, int High) { return *rc::gen::inRange(Low, High + 1); }

template <class T>
T OneOf(std::initializer_list<T> Values) {
    return *rc::gen::elementOf(std::vector<T>(Values));
}

// A host, a control and random legs around a price.
struct TWorld {
    support::TFakeHost Host;
    TCustomVentiqDetailDataControl Detail;
    TCustomVentiqDataControl Control;

    explicit TWorld(double Around, double Width) {
        Control.SetDetailControl(&Detail);
        const int Legs = Whole(1, 6);
        for (int I = 0; I < Legs; ++I) AddLeg("L" + std::to_string(I), Around, Width);
    }

    void AddLeg(const Text& Symbol, double Around, double Width) {
        auto& Item = Host.Subscriptions.Item(Symbol).Ready();
        Item.Set(kFieldProductType, OneOf<const char*>({"2", "3", "3", "3", "7", ""}));
        Item.Set(kFieldCallPut, OneOf<const char*>({"C", "P", "1", "11", "X"}));
        Item.Set(kFieldStrike,
                 Whole(0, 1) ? Real(Around - Width, Around + Width) : std::round(Around + Whole(-3, 3) * Width / 3));
        if (Whole(0, 1)) Item.Set(kFieldMultiplier, OneOf({50.0, 10.0, 0.1, 100.0}));
        Control.AddRecord(Symbol, Whole(0, 9) ? Whole(0, 1) : 2, Real(0, 20), OneOf({1.0, 2.0, -3.0, 0.5, 1e6}));
    }

    double LiteralSum(double Price) const {
        double Sum = 0.0;
        for (const auto& Leg : Control.GetPayOffData()) Sum += Leg->CalculatePL(Price);
        return Sum;
    }

    void SetRange(double Down, double Up, double Interval) {
        Control.SetDownLimit(Down);
        Control.SetUpLimit(Up);
        Control.SetInterval(Interval);
    }
};

struct TRange {
    double Down, Up, Interval;
};

struct TLiteralTable {
    std::vector<Text> List;
    std::map<Text, double> Dictionary;

    TLiteralTable(const TWorld& World, const TRange& Range) {
        const double Quotient = (Range.Up - Range.Down) / Range.Interval;
        double Whole = 0.0;
        const double Fraction = std::modf(Quotient, &Whole);
        const auto Count = static_cast<int64_t>(Whole) + (Fraction > 1e-6 ? 2 : 1);
        for (int64_t I = 0; I < Count; ++I) {
            double Price = Range.Down + Range.Interval * static_cast<double>(I);
            if (Price - Range.Up > 1e-6) Price = Range.Up;
            List.push_back(PriceKey(Price));
            Dictionary[List.back()] = World.LiteralSum(Price);
        }
    }
};

void CheckTable(TWorld& World, const TRange& Range) {
    World.SetRange(Range.Down, Range.Up, Range.Interval);
    World.Control.Calculate();
    const TLiteralTable Literal(World, Range);
    auto& Table = World.Detail;
    RC_ASSERT(Table.GetCount() == static_cast<int32_t>(Literal.List.size()));
    for (int32_t I = 0; I < Table.GetCount(); ++I) {
        const Text& Key = Literal.List[static_cast<size_t>(I)];
        RC_ASSERT(Table.GetDataList().At(I) == Key);
        RC_ASSERT(Table.GetValue(I, kColPrice) == Variant(TextToFloatDef(Key, 0.0)));
        RC_ASSERT(Bits(Table.GetValue(I, kColPL).AsFloat()) == Bits(Literal.Dictionary.at(Key)));
        double Sum = 0.0;
        RC_ASSERT(Table.GetDataDictionary().TryGetValue(Key, Sum));
        RC_ASSERT(Bits(Sum) == Bits(Literal.Dictionary.at(Key)));
    }
    if (Table.GetCount() == 0) return;
    // Many rows at once, from anywhere on.
    const int First = Whole(0, Table.GetCount() - 1);
    std::vector<double> Sums(static_cast<size_t>(Whole(0, Table.GetCount() - First)));
    Table.GetRows().SumsFrom(First, Sums);
    for (size_t I = 0; I < Sums.size(); ++I)
        RC_ASSERT(Bits(Sums[I]) == Bits(Literal.Dictionary.at(Literal.List[static_cast<size_t>(First) + I])));
}

}  // namespace

RC_GTEST_PROP(VentiqTableProperty, OrdinaryRangesEqualTheMapFilledRowByRow, ()) {
    const double Around = OneOf({0.0, 100.0, 23456.7, -37.63, 1e9});
    TWorld World(Around, 50);
    const double Down = Whole(0, 1) ? std::round(Around + Whole(-50, 20)) : Real(Around - 50, Around + 20);
    const double Interval = Whole(0, 1) ? OneOf({0.1, 0.25, 1.0, 3.0, 0.33333333}) : Real(0.05, 9);
    CheckTable(World, {Down, Down + Interval * (Whole(0, 200) + (Whole(0, 1) ? Real(0, 1) : 0.0)), Interval});
}

RC_GTEST_PROP(VentiqTableProperty, TinyIntervalsShareTexts, ()) {
    const double Around = OneOf({0.0, 1.0, 100.0, -0.00000001, 12345678.9, 1e9});
    TWorld World(Around, 1e-6);
    const double Interval = std::pow(10.0, Real(-11, -6));
    const double Down = Whole(0, 1) ? Around : Around + Real(-1e-6, 1e-6);
    CheckTable(World, {Down, Down + Interval * Real(0, 200), Interval});
}

RC_GTEST_PROP(VentiqTableProperty, PricesTooLargeForTheirSteps, ()) {
    const double Around = OneOf({1e8, 1e12, 1e15, -4e15, 9e15});
    TWorld World(Around, 50);
    const double Interval = OneOf({0.05, 0.1, 0.3, 1.0});
    const double Down = Around + Whole(-20, 0);
    CheckTable(World, {Down, Down + Interval * Whole(0, 200), Interval});
}

RC_GTEST_PROP(VentiqTableProperty, StepsAsWideAsATextReaches, ()) {
    const double Around = OneOf({0.0, 1.0, 100.0, -3.0, 20000.0, 5e7});
    TWorld World(Around, 1e-6);
    const double Interval = Real(0.9e-8, 3e-8) * (Whole(0, 3) ? 1 : -1);
    const double Down = Around + Real(-1e-7, 1e-7);
    CheckTable(World, {Down, Down + Interval * Real(0, 150), Interval});
}

RC_GTEST_PROP(VentiqTableProperty, LimitsTheWrongWayRound, ()) {
    TWorld World(10, 20);
    const double Down = Real(-20, 20), Interval = Real(0.5, 10);
    CheckTable(World, {Down, Down - Interval * Real(0, 2), Interval});
}

RC_GTEST_PROP(VentiqTableProperty, NegativeIntervals, ()) {
    const double Scale = OneOf({1.0, 1e-6, 1e-8});
    const double Around = OneOf({0.0, 1.0, -100.0});
    TWorld World(Around, 20 * Scale);
    const double Down = Around + Real(-20, 20) * Scale, Interval = -Real(0.05, 2) * Scale;
    CheckTable(World, {Down, Down + Interval * Real(0, 100), Interval});
}

RC_GTEST_PROP(VentiqSumProperty, SumsEqualLegByLegToTheLastBit, ()) {
    TWorld World(100, 50);
    const auto Legs = World.Control.GetLegSums();
    // Enough for several rounds of the vector registers and a rest, one at a time and all at once.
    std::vector<double> Prices(static_cast<size_t>(Whole(0, 70))), Sums(Prices.size());
    for (double& Price : Prices) Price = Real(0, 200);
    Legs->At(Prices, Sums);
    for (size_t I = 0; I < Prices.size(); ++I) {
        RC_ASSERT(Bits(Sums[I]) == Bits(World.LiteralSum(Prices[I])));
        RC_ASSERT(Bits(Legs->At(Prices[I])) == Bits(Sums[I]));
    }
}

RC_GTEST_PROP(VentiqKeyPriceProperty, KeyPricesEqualTheRuleWrittenOut, ()) {
    TWorld World(100, 30);
    const double Down = std::round(Real(50, 100)), Up = Down + Whole(1, 60);
    World.SetRange(Down, Up, 1);
    World.Control.Calculate();

    std::map<double, double> Expected;  // by the text's number
    const auto Add = [&](double Price) {
        const double Key = TextToFloatDef(PriceKey(Price), 0.0);
        Expected[Key] = World.LiteralSum(Key);
    };
    Add(Down);
    Add(Up);
    for (const auto& Leg : World.Control.GetPayOffData()) {
        const auto& Item = World.Host.Subscriptions.Item(Leg->FSymbol);
        if (Item.GetFieldText(kFieldProductType) == "3") Add(Item.GetFieldValue(kFieldStrike));
    }
    double Max = 0.0, Min = 0.0;
    for (auto I = Expected.begin(); I != Expected.end(); ++I) {
        if (I != Expected.begin()) RC_PRE(I->first - std::prev(I)->first > 1e-7);  // closer ones keep no order
        Max = std::max(Max, I->second);
        Min = std::min(Min, I->second);
    }

    RC_ASSERT(World.Control.GetCount() == static_cast<int32_t>(Expected.size()));
    int32_t Index = 0;
    for (const auto& [Price, Sum] : Expected) {
        double SeenPrice = 0.0, SeenSum = 0.0;
        RC_ASSERT(World.Control.GetPrice(Index, SeenPrice));
        RC_ASSERT(World.Control.GetPL(Index, SeenSum));
        RC_ASSERT(Bits(SeenPrice) == Bits(Price));
        RC_ASSERT(Bits(SeenSum) == Bits(Sum));
        ++Index;
    }
    RC_ASSERT(World.Control.GetShowAlertLine() == (Max > 1e-7 && Min < -1e-7));
}

}  // namespace ventiq
