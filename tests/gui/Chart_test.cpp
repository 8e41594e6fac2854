// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/gui/GuiTest.h"
#include "workstation/renderers/ChartRenderer.h"

namespace gui {

class ChartTest : public GuiTest {
protected:
    ChartTest() {
        for (const auto& [X, Y] : {std::pair{90.0, -250.0}, std::pair{100.0, -250.0}, std::pair{110.0, 250.0}})
            Frame.Line.AddXY(X, Y);
        Frame.Zero.AddXY(90, 0);
        Frame.Zero.AddXY(110, 0);
        Frame.Chart.LeftAxis().AutomaticMinimum = Frame.Chart.LeftAxis().AutomaticMaximum = false;
        Frame.Chart.LeftAxis().SetMaximum(300);
        Frame.Chart.LeftAxis().SetMinimum(-300);
        Frame.Chart.LeftAxis().SetIncrement(62);
        Widget().Redraw();
    }
    ws::TChartRenderer& Widget() const { return *Find<ws::TChartRenderer>(); }
};

TEST_F(ChartTest, TheModelLearnsWhereTheAxesLie) {
    const QRect Area = Widget().GetPlotArea();
    ASSERT_GT(Area.width(), 50);
    EXPECT_EQ(Frame.Chart.PixelOfX(90), Area.left());
    EXPECT_NEAR(Frame.Chart.PixelOfX(110), Area.right(), 2);
    Window->resize(700, 600);
    QTest::qWait(5);
    EXPECT_NE(Widget().GetPlotArea(), Area);
    EXPECT_EQ(Frame.Chart.PixelOfX(90), Widget().GetPlotArea().left());
}

TEST_F(ChartTest, TheMouseReachesTheModelAndTheHintStandsAtTheScreenPoint) {
    auto* Plot = Widget().findChild<QWidget*>();
    ASSERT_NE(Plot, nullptr);
    const QRect Area = Widget().GetPlotArea();
    const QPoint Middle = Area.center();
    QTest::mouseMove(Plot, Middle - Plot->pos());
    QMouseEvent Move(QEvent::MouseMove, Middle - Plot->pos(), Plot->mapToGlobal(Middle - Plot->pos()), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(Plot, &Move);
    EXPECT_TRUE(Frame.Chart.HasCursor());
    EXPECT_NEAR(Frame.Chart.CursorAxisX(), 100.0, 0.3);
    EXPECT_TRUE(Frame.Hint.IsShown());
    EXPECT_EQ(QPoint(Frame.Hint.GetX(), Frame.Hint.GetY()), Widget().mapToGlobal(Middle));
    QEvent Leave(QEvent::Leave);
    QApplication::sendEvent(Plot, &Leave);
    EXPECT_FALSE(Frame.Hint.IsShown());
    EXPECT_FALSE(Frame.Chart.HasCursor());
}

TEST_F(ChartTest, LinesFollowTheModelAndInactiveOnesGo) {
    EXPECT_EQ(Widget().GetLineCount(), 2);
    Frame.Zero.SetActive(false);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Widget().GetLineCount() == 1; }));
    Frame.Line.Clear();
    EXPECT_TRUE(QTest::qWaitFor([this] { return Widget().GetLineCount() == 0; }));
}

TEST_F(ChartTest, TheIncrementIsTheModelsUnlessItAsksForTooManyMarks) {
    EXPECT_EQ(Widget().GetTickStep(), 62.0);
    Frame.Chart.LeftAxis().SetIncrement(0.001);
    Widget().Redraw();
    EXPECT_GT(Widget().GetTickStep(), 1.0);
    Frame.Chart.LeftAxis().SetIncrement(0);
    Widget().Redraw();
    EXPECT_GT(Widget().GetTickStep(), 1.0);
}

TEST_F(ChartTest, AFlatOrEmptyOrBrokenLineIsDrawnWithoutHarm) {
    const double kNan = std::numeric_limits<double>::quiet_NaN(), kInfinity = std::numeric_limits<double>::infinity();
    Frame.Line.Clear();
    Frame.Zero.Clear();
    Widget().Redraw();
    Frame.Line.AddXY(100, 5);
    Frame.Chart.LeftAxis().SetMaximum(5);
    Frame.Chart.LeftAxis().SetMinimum(5);
    Widget().Redraw();
    EXPECT_EQ(Widget().GetLineCount(), 1);
    Frame.Line.AddXY(110, kNan);
    Frame.Line.AddXY(kInfinity, 5);
    Widget().Redraw();
    EXPECT_EQ(Widget().GetLineCount(), 1);
    EXPECT_FALSE(Widget().grab().isNull());
}

TEST_F(ChartTest, TheLineIsDrawnInTheSkinsColourAndTheZeroLineInItsOwn) {
    const auto Holds = [this](const QColor& Color) {
        const QImage Seen = Widget().grab().toImage();
        for (int Y = 0; Y < Seen.height(); ++Y)
            for (int X = 0; X < Seen.width(); ++X)
                if (Seen.pixelColor(X, Y) == Color) return true;
        return false;
    };
    EXPECT_TRUE(Holds(Context.Color("coChartLine")));
    EXPECT_TRUE(Holds(QColor(255, 0, 0)));  // 255 is red: the low byte
    EXPECT_FALSE(Holds(QColor(0, 0, 255)));
    Context.SetSkin("Dark");
    Widget().Redraw();
    EXPECT_TRUE(Holds(Context.Color("coChartBackground")));
}

}  // namespace gui
