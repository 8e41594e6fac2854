// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqPayoffChart.h"

#include <cmath>
#include <limits>

#include "tests/view/DisplayFixture.h"

namespace ventiq {
namespace {

class PayoffChart : public TDisplayFixture {
protected:
    TChartAxis& Axis() { return Form.DataChart.LeftAxis(); }
    // One pixel a tenth of a price: pixel 0 is 90, pixel 200 is 110.
    void Plot90To110() {
        AddLeg("HSIC100", "Buy", 5.0, 1);
        Calculate(90, 110, 5);
        Form.DataChart.SetPlotArea(0, 0, 200, 100);
        Buttons.GetHintButton()->State = 1;
    }
};

TEST_F(PayoffChart, DrawsTheBrokenLineAndTheZeroLine) {
    Host.Subscriptions.Item("HSIC100").Set(kFieldMultiplier, 50.0);
    AddLeg("HSIC100", "Buy", 5.0, 2);
    Calculate(90, 110, 5);
    EXPECT_EQ(PointsOf(Chart.GetPLSeries()), (TPoints{{90, -500}, {100, -500}, {110, 500}}));
    EXPECT_EQ(PointsOf(Chart.GetAlertSeries()), (TPoints{{90, 0}, {110, 0}}));
    EXPECT_TRUE(Chart.GetAlertSeries()->IsActive());
    EXPECT_EQ(Axis().GetMinimum(), -600);
    EXPECT_EQ(Axis().GetMaximum(), 600);
    EXPECT_EQ(Axis().GetIncrement(), 125);
}

TEST_F(PayoffChart, WithoutBothSignsThereIsNoZeroLine) {
    AddLeg("HSIC100", "Buy", 0.0, 1);
    Calculate(90, 110, 5);
    EXPECT_EQ(Chart.GetAlertSeries()->GetCount(), 0);
    EXPECT_FALSE(Chart.GetAlertSeries()->IsActive());
}

TEST_F(PayoffChart, TheZeroLineSpansTheLimitsAlsoWhereAStrikeLiesOutside) {
    AddLeg("HSIC120", "Sell", 5.0, 1);
    AddLeg("HSIP100", "Sell", 1.0, 1);
    Calculate(90, 105, 5);
    EXPECT_EQ(Chart.GetPLSeries()->GetX(Chart.GetPLSeries()->GetCount() - 1), 120);
    EXPECT_EQ(PointsOf(Chart.GetAlertSeries()), (TPoints{{90, 0}, {105, 0}}));
}

TEST_F(PayoffChart, OneLevelGivesAnAxisOfThatValue) {
    AddLeg("HSIC120", "Sell", 5.0, 1);
    Calculate(90, 110, 5);
    EXPECT_EQ(Axis().GetMinimum(), 5);
    EXPECT_EQ(Axis().GetMaximum(), 5);
    EXPECT_EQ(Axis().GetIncrement(), 0);
}

TEST_F(PayoffChart, TheIncrementIsAnEighthOfTheSpanRoundedHalfToEven) {
    const std::pair<double, double> Cases[] = {{20, 2}, {28, 4}, {4, 0}, {12, 2}, {4.5, 1}, {800, 100}};
    AddLeg("HSIC100", "Buy", 0.0, 1);
    for (const auto& [Span, Increment] : Cases) {
        SCOPED_TRACE(Span);
        Calculate(100, 100 + Span, 1);
        EXPECT_EQ(Axis().GetIncrement(), Increment);
    }
}

TEST_F(PayoffChart, TheAxisMovesWithoutItsBoundsCrossing) {
    AddLeg("HSIZ6", "Buy", 1300.0, 1);
    Axis().SetMaximum(9000);
    Axis().SetMinimum(5000);
    Calculate(1000, 2000, 100);
    EXPECT_EQ(Axis().GetMinimum(), -400);
    EXPECT_EQ(Axis().GetMaximum(), 800);
    Axis().SetMinimum(-9000);
    Axis().SetMaximum(-5000);
    Form.btnCalc.Click();
    EXPECT_EQ(Axis().GetMinimum(), -400);
    EXPECT_EQ(Axis().GetMaximum(), 800);
    EXPECT_TRUE(Host.ErrorsLogged().empty());
}

TEST_F(PayoffChart, PointsThatAreNoNumberLeaveTheAxisUsable) {
    Host.Subscriptions.Item("HSIC100").Set(kFieldMultiplier, std::numeric_limits<double>::infinity());
    AddLeg("HSIC100", "Buy", 5.0, 1);
    Calculate(90, 110, 5);
    EXPECT_TRUE(std::isfinite(Axis().GetMinimum()));
    EXPECT_TRUE(std::isfinite(Axis().GetMaximum()));
    EXPECT_TRUE(Host.ErrorsLogged().empty());
}

TEST_F(PayoffChart, TheTitleNamesTheCurrencyOfTheFirstLegThatHasOne) {
    EXPECT_EQ(Form.DataChart.GetTitle(), "P/L");
    AddLeg("HSIC100", "Buy", 5.0, 1);
    Calculate(90, 110, 5);
    EXPECT_EQ(Form.DataChart.GetTitle(), "P/L(Dollar)");
    Host.Language.SetText("Res_PL", "Result");
    Chart.UpdateTitle();
    EXPECT_EQ(Form.DataChart.GetTitle(), "Result(Dollar)");
    Form.btnClear.Click();
    Form.btnCalc.Click();
    EXPECT_EQ(Form.DataChart.GetTitle(), "Result");
}

TEST_F(PayoffChart, WithoutPointsTheAxisKeepsItsScale) {
    AddLeg("HSIC100", "Buy", 5.0, 1);
    Calculate(90, 110, 5);
    Form.btnClear.Click();
    Form.btnCalc.Click();
    EXPECT_EQ(Axis().GetMinimum(), -6);
    EXPECT_EQ(Axis().GetMaximum(), 6);
    EXPECT_EQ(Chart.GetAlertSeries()->GetCount(), 0);
}

TEST_F(PayoffChart, IsSetUpOnceAsAPlainLineChart) {
    auto& Model = Form.DataChart;
    EXPECT_FALSE(Model.OuterBevel || Model.View3D || Model.BackWalls);
    EXPECT_TRUE(Model.Hints);
    EXPECT_FALSE(Model.LeftAxis().AutomaticMinimum || Model.LeftAxis().AutomaticMaximum);
    EXPECT_FALSE(Model.LeftAxis().PenVisible || Model.BottomAxis().PenVisible);
    EXPECT_EQ(Model.Legend.TextStyle, 8);
    EXPECT_EQ(Model.Legend.TitleAlignment, 1);
    EXPECT_EQ(Model.Legend.LegendStyle, 2);
    EXPECT_FALSE(Model.Legend.SymbolsVisible);
    ASSERT_EQ(Model.Series(), (std::vector<TLineSeries*>{Chart.GetPLSeries(), Chart.GetAlertSeries()}));
    EXPECT_TRUE(Chart.GetPLSeries()->PointerVisible);
    EXPECT_EQ(Chart.GetPLSeries()->PointerStyle, EPointerStyle::Rectangle);
    EXPECT_EQ(Chart.GetPLSeries()->PointerSize, 3);
    EXPECT_FALSE(Chart.GetPLSeries()->GetColor());
    EXPECT_FALSE(Chart.GetPLSeries()->ShowInLegend || Chart.GetAlertSeries()->ShowInLegend);
    EXPECT_EQ(Chart.GetAlertSeries()->GetColor(), kColorRed);
}

TEST_F(PayoffChart, TheHintTellsPriceAndResultUnderTheMouse) {
    Plot90To110();
    Form.DataChart.SetScreenMapper([](TPoint P) { return TPoint{P.X + 1000, P.Y + 500}; });
    Form.DataChart.MouseMove(150, 20);
    EXPECT_TRUE(Form.HintController.IsShown());
    EXPECT_EQ(Form.HintController.GetText(), "X:2:105\r\nY:3:0");
    EXPECT_EQ(Form.HintController.GetX(), 1150);
    EXPECT_EQ(Form.HintController.GetY(), 520);
    Form.DataChart.MouseLeave();
    EXPECT_FALSE(Form.HintController.IsShown());
}

TEST_F(PayoffChart, NoHintOutsideTheAppliedLimits) {
    Plot90To110();
    Form.edtDown.SetValue(95);
    Range.edtDownExit(nullptr);
    Form.DataChart.MouseMove(150, 20);
    ASSERT_TRUE(Form.HintController.IsShown());
    Form.DataChart.MouseMove(20, 20);  // 92: drawn, but below the limit that holds now
    EXPECT_FALSE(Form.HintController.IsShown());
    Form.edtUp.SetValue(100);
    Range.edtUpExit(nullptr);
    Form.DataChart.MouseMove(150, 20);
    EXPECT_FALSE(Form.HintController.IsShown());
}

TEST_F(PayoffChart, NoHintUnlessTheHintStateIsExactlyOne) {
    Plot90To110();
    for (const int State : {0, 2, 5, -1}) {
        SCOPED_TRACE(State);
        Buttons.GetHintButton()->State = State;
        Form.DataChart.MouseMove(150, 20);
        EXPECT_FALSE(Form.HintController.IsShown());
    }
}

TEST_F(PayoffChart, NoHintBeforeAnythingIsCalculated) {
    Form.DataChart.SetPlotArea(0, 0, 200, 100);
    Buttons.GetHintButton()->State = 1;
    Form.DataChart.MouseMove(150, 20);
    EXPECT_FALSE(Form.HintController.IsShown());
    Context.FMyDataControl.reset();
    Form.DataChart.MouseMove(150, 20);
    EXPECT_FALSE(Form.HintController.IsShown());
    EXPECT_TRUE(Host.ErrorsLogged().empty());
}

}  // namespace
}  // namespace ventiq
