// SPDX-License-Identifier: Apache-2.0
#include "engine/VentiqDetailDataControl.h"

#include <cmath>
#include <limits>

#include "tests/engine/EngineFixture.h"

namespace ventiq {

using TTexts = std::vector<Text>;

namespace {

class TTableTest : public TEngineTest {
protected:
    TTableTest() {
        Host.Subscriptions.AddFuture("FUT");
        Control->AddRecord("FUT", 0, 100, 1);
    }
    void Calculate(double Down, double Up, double Interval) {
        SetRange(Down, Up, Interval);
        Control->Calculate();
    }
};

}  // namespace

TEST_F(TTableTest, RowsOfARange) {
    struct {
        const char* Why;
        double Down, Up, Interval;
        TTexts Expected;
    } const Cases[] = {
        {"an exact multiple", 90, 110, 5, {"90", "95", "100", "105", "110"}},
        {"a last row clamped to the up limit", 90, 100, 3, {"90", "93", "96", "99", "100"}},
        {"a quotient just below a whole number", 0.1, 0.3, 0.1, {"0.1", "0.2", "0.3"}},
        {"one price", 100, 100, 5, {"100"}},
        {"through zero", -10, 10, 5, {"-10", "-5", "0", "5", "10"}},
        {"negative prices", -0.3, -0.1, 0.1, {"-0.3", "-0.2", "-0.1"}},
        {"a fraction within 1e-6 adds no row, the up limit is missing",
         0,
         1,
         0.33333333,
         {"0", "0.33333333", "0.66666666", "0.99999999"}},
        {"down above up by less than an interval: one row at the up limit", 10, 9, 2, {"9"}},
        {"down above up by just half an interval, half a tolerance", 10, 9.9999995, 2, {"10"}},
        {"down above up by an interval", 10, 8, 2, {}},
        {"an interval beyond the range", 90, 110, 50, {"90", "110"}},
        {"descending by a negative interval: everything above the up limit is the up limit",
         10,
         0,
         -5,
         {"0", "0", "0"}},
    };
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Why);
        Calculate(C.Down, C.Up, C.Interval);
        EXPECT_EQ(Rows(), C.Expected);
        EXPECT_EQ(Detail.GetCount(), static_cast<int32_t>(C.Expected.size()));
    }
}

TEST_F(TTableTest, PointsAreCountedNotAdded) {
    Calculate(0.1, 0.3, 0.1);
    EXPECT_EQ(RowPL(2), (0.1 + 0.1 * 2.0) - 100.0)
        << "the third point, within the tolerance of the limit, is not clamped";
    Calculate(0, 1000, 0.1);
    EXPECT_EQ(Detail.GetDataList().At(9999), "999.9");
}

TEST_F(TTableTest, RowsThatShareATextShareTheLastSum) {
    Control->ClearPayOffData();
    Control->AddRecord("FUT", 0, 0, 1e9);
    Calculate(0, 0.00000002, 0.000000005);
    ASSERT_EQ(Detail.GetCount(), 5);
    EXPECT_EQ(Rows(), (TTexts{"0", "0.00000001", "0.00000001", "0.00000002", "0.00000002"}))
        << "halves round away from zero";
    for (const auto& [Row, Last] : {std::pair{0, 0}, {1, 2}, {2, 2}, {3, 4}, {4, 4}})
        EXPECT_EQ(Bits(RowPL(Row)), Bits(Control->GetPayOffData()[0]->CalculatePL(0.000000005 * Last))) << Row;
}

TEST_F(TTableTest, ALongRunOfOneText) {
    Control->ClearPayOffData();
    Control->AddRecord("FUT", 0, 0, 1e12);
    Calculate(1, 1 + 1e-6, 1e-14);
    const int32_t Count = Detail.GetCount();
    EXPECT_GT(Count, 90000000);
    EXPECT_EQ(Detail.GetDataList().At(0), "1");
    EXPECT_EQ(Detail.GetDataList().At(400000), "1");
    EXPECT_EQ(Bits(RowPL(0)), Bits(RowPL(400000)));
    EXPECT_NE(Bits(RowPL(0)), Bits(Control->GetPayOffData()[0]->CalculatePL(1.0)));
    double Sum = 0.0;
    ASSERT_TRUE(Detail.GetDataDictionary().TryGetValue("1", Sum));
    EXPECT_EQ(Bits(Sum), Bits(RowPL(0)));
}

TEST_F(TTableTest, ALastRowMayShareItsTextWithTheRowBeforeIt) {
    // The up limit lies 4e-9 beyond the last full step: a clamped row with the text of the step's own.
    Control->ClearPayOffData();
    Control->AddRecord("FUT", 0, 0, 1e9);
    Calculate(0, 0.010000004, 0.001);
    ASSERT_EQ(Detail.GetCount(), 12);
    EXPECT_EQ(Detail.GetDataList().At(10), "0.01");
    EXPECT_EQ(Detail.GetDataList().At(11), "0.01");
    EXPECT_EQ(Bits(RowPL(10)), Bits(0.010000004 * 1e9));
    EXPECT_EQ(Bits(RowPL(11)), Bits(0.010000004 * 1e9));
    double Sum = 0.0;
    ASSERT_TRUE(Detail.GetDataDictionary().TryGetValue("0.01", Sum));
    EXPECT_EQ(Bits(Sum), Bits(0.010000004 * 1e9));
}

TEST_F(TTableTest, ADescendingRangeMayMeetTheUpLimitTwice) {
    // A clamped row, one within 1e-6 above the limit that stays, one just beside the limit: first and third share a
    // text.
    Control->ClearPayOffData();
    Control->AddRecord("FUT", 0, 0, 1e9);
    Calculate(0.000001603, 0, -0.0000008);
    ASSERT_EQ(Rows(), (TTexts{"0", "0.0000008", "0", "-0.0000008"}));
    const double Third = Control->GetPayOffData()[0]->CalculatePL(0.000001603 + -0.0000008 * 2.0);
    ASSERT_NE(Third, 0.0);
    double Sum = -1.0;
    ASSERT_TRUE(Detail.GetDataDictionary().TryGetValue("0", Sum));
    EXPECT_EQ(Bits(Sum), Bits(Third));
    EXPECT_EQ(Bits(RowPL(0)), Bits(Third));
}

TEST_F(TTableTest, NoCapOnRows) {
    Calculate(0, 99999, 1);
    ASSERT_EQ(Detail.GetCount(), 100000);
    EXPECT_EQ(Detail.GetDataList().At(0), "0");
    EXPECT_EQ(Detail.GetDataList().At(99999), "99999");

    Calculate(0, 2147483646, 1);
    ASSERT_EQ(Detail.GetCount(), 2147483647);
    EXPECT_EQ(Detail.GetDataList().At(2147483646), "2147483646");
    EXPECT_EQ(RowPL(2147483646), 2147483546.0);
    EXPECT_TRUE(Host.TakeLog().empty());
}

TEST_F(TTableTest, MoreRowsThanATableCountsGiveAnEmptyTableAndOneMessage) {
    constexpr double kInf = std::numeric_limits<double>::infinity();
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    struct {
        const char* Why;
        double Down, Up, Interval;
        const char* Message;
    } const Cases[] = {
        {"one too many", 0, 2147483647, 1, "Res_LogRowCount(2,147,483,648)"},
        {"one too many, the last one clamped", 0, 2147483646.5, 1, "Res_LogRowCount(2,147,483,648)"},
        {"far too many", 0, 1e6, 1e-6, "Res_LogRowCount(1,000,000,000,001)"},
        {"no interval", 0, 10, 0, "Res_LogRowCount(\u221E)"},
        {"no interval, no span", 10, 10, 0, "Res_LogRowCount(\u221E)"},
        {"endless", 0, kInf, 1, "Res_LogRowCount(\u221E)"},
        {"no number", kNaN, 10, 1, "Res_LogRowCount(\u221E)"},
        {"a span beyond doubles", -1.7e308, 1.7e308, 1, "Res_LogRowCount(\u221E)"},
    };
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Why);
        Calculate(90, 110, 5);
        int Changes = 0;
        const auto Link = Detail.OnChanged.Connect([&] { ++Changes; });
        Calculate(C.Down, C.Up, C.Interval);
        EXPECT_EQ(Detail.GetCount(), 0);
        EXPECT_EQ(Changes, 1);
        EXPECT_EQ(Host.TakeLog(), (TTexts{C.Message}));
    }
}

TEST_F(TTableTest, WithoutMasterOrLegsTheTableIsEmptyAndSaysSo) {
    TCustomVentiqDetailDataControl Alone;
    int Changes = 0;
    const auto Link = Alone.OnChanged.Connect([&] { ++Changes; });
    Alone.SetUpLimit(10);
    Alone.SetInterval(1);
    Alone.Calculate();
    EXPECT_EQ(Alone.GetCount(), 0);
    EXPECT_EQ(Changes, 1);

    Calculate(90, 110, 5);
    Control->ClearPayOffData();
    const auto Second = Detail.OnChanged.Connect([&] { ++Changes; });
    Control->Calculate();
    EXPECT_EQ(Detail.GetCount(), 0);
    EXPECT_EQ(Changes, 2);
    EXPECT_TRUE(Host.TakeLog().empty());
}

TEST_F(TTableTest, TheTableStaysUntilTheNextCalculation) {
    Calculate(90, 110, 5);
    SetRange(0, 1, 1);
    Control->AddRecord("FUT", 0, 0, 1000);
    Host.Subscriptions.Item("FUT").Set(kFieldProductType, "3");
    Detail.Reset();
    EXPECT_EQ(Rows(), (TTexts{"90", "95", "100", "105", "110"}));
    EXPECT_EQ(RowPL(4), 10.0);
    Host.Subscriptions.Item("FUT").Set(kFieldProductType, "2");
    Detail.Calculate();
    EXPECT_EQ(Rows(), (TTexts{"0", "1"})) << "calculated on its own, it reads the legs itself";
    EXPECT_EQ(RowPL(1), 901.0);
}

TEST_F(TTableTest, CellsByAttribute) {
    Calculate(99.5, 100.5, 0.25);
    EXPECT_EQ(Detail.GetValue(1, kColPrice), Variant(99.75));
    EXPECT_EQ(Detail.GetValue(1, kColPL), Variant(-0.25));
    EXPECT_EQ(Detail.GetValue(1, kColSymbol), Variant(Text()));
    for (const int32_t Row : {-1, 5}) {
        EXPECT_EQ(Detail.GetValue(Row, kColPrice), Variant(Text()));
        EXPECT_EQ(Detail.GetValue(Row, kColPL), Variant(Text()));
        EXPECT_EQ(Detail.GetDisplayValue(Row, kColPrice), "");
    }
    EXPECT_EQ(Detail.GetDisplayValue(1, kColPrice), "1:99.75");
    EXPECT_EQ(Detail.GetDisplayValue(1, kColPL), "3:-0.25");
    EXPECT_EQ(Detail.GetDisplayValue(1, kColSymbol), "");
    const std::vector<support::TFakeFormatter::TCall> Expected = {{99.75, 1, "", true}, {-0.25, 3, "", true}};
    EXPECT_EQ(Host.Formatter.Calls, Expected) << "no symbol is handed over";

    Detail.SetEmptyCellText("-");
    EXPECT_EQ(Detail.GetDisplayValue(1, kColSymbol), "-");
    EXPECT_EQ(Detail.GetDisplayValue(5, kColPL), "-");

    int Mark = 0;
    void* Value = &Mark;
    EXPECT_FALSE(Detail.GetRowValue(0, Value));
    EXPECT_FALSE(Detail.GetColValue(0, Value));
    EXPECT_EQ(Value, &Mark);
}

TEST_F(TTableTest, AShownPriceIsTheTextsNotTheRowsOwn) {
    Calculate(0.123456789, 1, 1);
    EXPECT_EQ(Detail.GetValue(0, kColPrice), Variant(0.12345679));
    EXPECT_EQ(Bits(RowPL(0)), Bits(0.123456789 - 100.0));
}

TEST_F(TTableTest, ListAndDictionaryAnswerForTheRows) {
    Calculate(90, 110, 5);
    double Sum = 42.0;
    EXPECT_TRUE(Detail.GetDataDictionary().Contains("95"));
    EXPECT_TRUE(Detail.GetDataDictionary().TryGetValue("110", Sum));
    EXPECT_EQ(Sum, 10.0);
    Sum = 42.0;
    for (const auto* Unknown : {"96", "115", "85", "95.0", "095", "abc", ""})
        EXPECT_FALSE(Detail.GetDataDictionary().TryGetValue(Unknown, Sum)) << Unknown;
    EXPECT_EQ(Sum, 42.0);
    EXPECT_THROW(Detail.GetDataList().At(5), EListError);
    EXPECT_THROW(Detail.GetDataList().At(-1), EListError);
    Calculate(90, 100, 3);
    EXPECT_TRUE(Detail.GetDataDictionary().TryGetValue("100", Sum)) << "the clamped row";
    EXPECT_FALSE(Detail.GetDataDictionary().Contains("102"));
}

}  // namespace ventiq
