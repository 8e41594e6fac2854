// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/Chart.h"

#include <cmath>
#include <limits>
#include <memory>

#include "framework/base/Errors.h"
#include "tests/framework/controls/LogFixture.h"

namespace fw {
namespace {

using testing::ElementsAre;

constexpr double kInf = std::numeric_limits<double>::infinity();

class ChartTest : public TLogFixture {
protected:
    ChartTest() {
        Chart.AddSeries(Line);
        Chart.SetPlotArea(50, 10, 200, 100);
    }
    // A bought call: 90..110, strike 100.
    void AddCall() {
        Line.AddXY(90, -5);
        Line.AddXY(100, -5);
        Line.AddXY(110, 5);
    }
    TLineSeries Line;
    TChart Chart;
};

TEST_F(ChartTest, ExtremesSkipPointsThatAreNotFinite) {
    EXPECT_EQ(Line.MaxY(), 0.0);
    EXPECT_EQ(Line.MinY(), 0.0);
    Line.AddXY(1, NAN);
    Line.AddXY(2, kInf);
    Line.AddXY(kInf, 1000);
    EXPECT_EQ(Line.MaxY(), 0.0);
    Line.AddXY(3, -7);
    EXPECT_EQ(Line.MaxY(), -7.0);
    EXPECT_EQ(Line.MinY(), -7.0);
    Line.AddXY(4, -9);
    EXPECT_EQ(Line.MaxY(), -7.0);
    EXPECT_EQ(Line.MinY(), -9.0);
    EXPECT_EQ(Line.GetCount(), 5);
    EXPECT_EQ(Line.GetX(3), 3.0);
    EXPECT_EQ(Line.GetY(4), -9.0);
}

TEST_F(ChartTest, BoundsThatWouldCrossAreRefusedAndChangeNothing) {
    TChartAxis& Axis = Chart.LeftAxis();
    Axis.SetMaximum(9000);
    Axis.SetMinimum(5000);
    EXPECT_THROW(Axis.SetMaximum(800), EAxisRange);
    EXPECT_THROW(Axis.SetMinimum(9000.5), EAxisRange);
    EXPECT_THROW(Axis.SetMaximum(NAN), EAxisRange);
    EXPECT_THROW(Axis.SetMaximum(kInf), EAxisRange);
    EXPECT_THROW(Axis.SetMinimum(-kInf), EAxisRange);
    EXPECT_EQ(Axis.GetMinimum(), 5000.0);
    EXPECT_EQ(Axis.GetMaximum(), 9000.0);
    Axis.SetMinimum(-400);
    Axis.SetMaximum(800);
    Axis.SetMinimum(800);  // both may be equal
    EXPECT_EQ(Axis.GetMinimum(), 800.0);
}

TEST_F(ChartTest, AnIncrementThatIsNoStepLeavesTheSpacingToTheRenderer) {
    Chart.LeftAxis().SetIncrement(4);
    EXPECT_EQ(Chart.LeftAxis().GetIncrement(), 4.0);
    for (double Bad : {0.0, -1.0, static_cast<double>(NAN), kInf}) {
        Chart.LeftAxis().SetIncrement(4);
        Chart.LeftAxis().SetIncrement(Bad);
        EXPECT_EQ(Chart.LeftAxis().GetIncrement(), 0.0) << Bad;
    }
}

TEST_F(ChartTest, TheBottomRange) {
    struct TCase {
        const char* Why;
        std::vector<double> X;
        std::optional<double> Min, Max;
        double Low, High;
    };
    const TCase Cases[] = {
        {"no points", {}, {}, {}, 0, 1},
        {"one X", {100}, {}, {}, 99.5, 100.5},
        {"a span, in any order", {110, 90, 100}, {}, {}, 90, 110},
        {"points that are not finite do not count", {90, kInf, 110, NAN}, {}, {}, 90, 110},
        {"set bounds", {90, 110}, 80.0, 95.0, 80, 95},
        {"one set bound", {90, 110}, 80.0, {}, 80, 110},
        {"a set maximum below the points", {90, 110}, {}, 50.0, 49, 50},
        {"a set minimum above the points", {90, 110}, 200.0, {}, 200, 201},
        {"both set and equal", {90, 110}, 100.0, 100.0, 100, 101},
    };
    for (const auto& c : Cases) {
        SCOPED_TRACE(c.Why);
        TChart Shown;
        TLineSeries Points;
        Shown.AddSeries(Points);
        for (double X : c.X) Points.AddXY(X, 1);
        Shown.BottomAxis().AutomaticMinimum = !c.Min;
        Shown.BottomAxis().AutomaticMaximum = !c.Max;
        Shown.BottomAxis().SetMaximum(c.Max.value_or(1e6));
        if (c.Min) Shown.BottomAxis().SetMinimum(*c.Min);
        double Low = 0, High = 0;
        Shown.BottomRange(Low, High);
        EXPECT_EQ(Low, c.Low);
        EXPECT_EQ(High, c.High);
    }
}

TEST_F(ChartTest, AnInactiveSeriesDoesNotWidenTheRange) {
    AddCall();
    TLineSeries Alert;
    Chart.AddSeries(Alert);
    Alert.AddXY(0, 0);
    double Low = 0, High = 0;
    Chart.BottomRange(Low, High);
    EXPECT_EQ(Low, 0.0);
    Alert.SetActive(false);
    Chart.BottomRange(Low, High);
    EXPECT_EQ(Low, 90.0);
}

TEST_F(ChartTest, TheLinesValueUnderTheMouse) {
    AddCall();
    struct TCase {
        const char* Why;
        int Pixel;
        bool On;
        double X, Y;
    };
    const TCase Cases[] = {
        {"left end", 50, true, 90, -5},
        {"flat part", 100, true, 95, -5},
        {"the strike", 150, true, 100, -5},
        {"rising part", 200, true, 105, 0},
        {"right end", 250, true, 110, 5},
        {"left of the plot", 40, false, -1, -1},
        {"right of the plot", 251, false, -1, -1},
    };
    for (const auto& c : Cases) {
        SCOPED_TRACE(c.Why);
        double X = -1, Y = -1;
        Chart.MouseMove(c.Pixel, 20);
        EXPECT_EQ(Line.GetCursorValues(X, Y), c.On);
        EXPECT_DOUBLE_EQ(X, c.X);
        EXPECT_DOUBLE_EQ(Y, c.Y);
    }
}

TEST_F(ChartTest, WithoutMousePlotChartOrLineThereAreNoValues) {
    double X = 7, Y = 8;
    Chart.MouseMove(100, 20);
    EXPECT_FALSE(Line.GetCursorValues(X, Y)) << "no line";
    AddCall();
    EXPECT_TRUE(Line.GetCursorValues(X, Y));
    X = 7, Y = 8;
    Chart.MouseLeave();
    EXPECT_FALSE(Line.GetCursorValues(X, Y)) << "no mouse";
    Chart.MouseMove(100, 20);
    Chart.SetPlotArea(50, 10, 0, 0);
    EXPECT_FALSE(Line.GetCursorValues(X, Y)) << "no plot";
    EXPECT_EQ(Chart.CursorAxisX(), 90.0);
    Chart.SetPlotArea(50, 10, 200, 100);
    Chart.RemoveSeries(Line);
    EXPECT_FALSE(Line.GetCursorValues(X, Y)) << "no chart";
    EXPECT_EQ(X, 7.0);
    EXPECT_EQ(Y, 8.0);
}

TEST_F(ChartTest, OfSeveralPointsOnOneXTheLastCountsAndGapsHaveNoValue) {
    Line.AddXY(90, 1);
    Line.AddXY(100, 2);
    Line.AddXY(100, 3);
    Line.AddXY(105, NAN);
    Line.AddXY(110, 4);
    double X = 0, Y = 0;
    Chart.MouseMove(150, 20);
    ASSERT_TRUE(Line.GetCursorValues(X, Y));
    EXPECT_EQ(Y, 3.0);
    Chart.MouseMove(175, 20);
    EXPECT_FALSE(Line.GetCursorValues(X, Y));
}

TEST_F(ChartTest, PixelsAndValuesAgree) {
    AddCall();
    EXPECT_EQ(Chart.PixelOfX(90), 50);
    EXPECT_EQ(Chart.PixelOfX(100), 150);
    EXPECT_EQ(Chart.PixelOfX(110), 250);
    EXPECT_EQ(Chart.PixelOfX(0), 50) << "brought into the plot";
    EXPECT_EQ(Chart.PixelOfX(1e300), 250);
    EXPECT_EQ(Chart.PixelOfX(NAN), 50);
    for (int Pixel = 50; Pixel <= 250; ++Pixel) {
        Chart.MouseMove(Pixel, 0);
        EXPECT_EQ(Chart.PixelOfX(Chart.CursorAxisX()), Pixel);
    }
}

TEST_F(ChartTest, TheMouseReachesTheFormAndFailuresTheLog) {
    TFocusScope Scope;
    Scope.Attach("chart", Chart);
    TSteps Steps;
    Chart.OnMouseMove = [&](TObject* Sender, int Shift, int X, int Y) {
        EXPECT_EQ(Sender, &Chart);
        Steps.push_back(std::to_string(Shift) + ":" + std::to_string(X) + "," + std::to_string(Y));
        if (X > 100) throw std::runtime_error("far");
    };
    Chart.OnMouseLeave = [&](TObject*) { Steps.push_back("leave"); };
    Chart.MouseMove(60, 20, 1);
    Chart.MouseMove(101, 20);
    Chart.MouseLeave();
    EXPECT_THAT(Steps, ElementsAre("1:60,20", "0:101,20", "leave"));
    EXPECT_FALSE(Chart.HasCursor());
    EXPECT_THAT(TakeLog(), ElementsAre("E Res_LogHandlerFailed|chart.OnMouseMove|far"));
}

TEST_F(ChartTest, SeriesAndChartMayDieInEitherOrder) {
    auto Dying = std::make_unique<TLineSeries>();
    Chart.AddSeries(*Dying);
    Chart.AddSeries(*Dying);
    EXPECT_THAT(Chart.Series(), ElementsAre(&Line, Dying.get()));
    Dying.reset();
    EXPECT_THAT(Chart.Series(), ElementsAre(&Line));
    TLineSeries Survivor;
    {
        TChart Brief;
        Brief.AddSeries(Survivor);
        Chart.AddSeries(Survivor);
        EXPECT_TRUE(Brief.Series().empty()) << "a series is in one chart";
        Brief.AddSeries(Survivor);
    }
    Survivor.AddXY(1, 1);
    EXPECT_THAT(Chart.Series(), ElementsAre(&Line));
}

TEST_F(ChartTest, RenderersAreToldOfEveryChange) {
    int Told = 0;
    const auto Link = Chart.OnDataChanged.Connect([&] { ++Told; });
    const std::pair<const char*, std::function<void()>> Cases[] = {
        {"a point", [this] { Line.AddXY(1, 1); }},
        {"emptied", [this] { Line.Clear(); }},
        {"hidden", [this] { Line.SetActive(false); }},
        {"coloured", [this] { Line.SetColor(MakeColor(1, 2, 3)); }},
        {"title", [this] { Chart.SetTitle("P/L"); }},
        {"maximum", [this] { Chart.LeftAxis().SetMaximum(10); }},
        {"minimum", [this] { Chart.LeftAxis().SetMinimum(-10); }},
        {"increment", [this] { Chart.LeftAxis().SetIncrement(2); }},
    };
    for (const auto& [Why, Change] : Cases) {
        SCOPED_TRACE(Why);
        Told = 0;
        Change();
        EXPECT_EQ(Told, 1);
        if (Why == std::string_view("a point")) continue;
        Change();
        EXPECT_EQ(Told, 1) << "the same again";
    }
}

}  // namespace
}  // namespace fw
