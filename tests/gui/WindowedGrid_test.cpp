// SPDX-License-Identifier: GPL-3.0-or-later
#include <QScreen>
#include <QScrollBar>

#include "tests/gui/GuiTest.h"
#include "tests/gui/WindowedGridTest.h"

namespace gui {

class WindowedGridTest : public GuiTest {
protected:
    ws::TWindowedGridRenderer& Detail() const { return *Find<ws::TWindowedGridRenderer>(); }
    void Fill(int32_t Count) {
        Frame.Table().Count = Count;
        Frame.Table().NotifyDataChanged();
    }
    QImage Shot() const { return Detail().viewport()->grab().toImage(); }
};

TEST_F(WindowedGridTest, TwoThousandMillionRowsScrollToTheLastRow) {
    constexpr int kRows = 2'000'000'000;
    Fill(kRows);
    EXPECT_EQ(Detail().GetRowCount(), kRows);
    Detail().setFocus();
    QTest::keyClick(&Detail(), Qt::Key_End);
    EXPECT_EQ(Detail().GetCurrentRow(), kRows - 1);
    const int Height = Detail().viewport()->height();
    int Last = -1;
    for (int Y = 0; Y < Height; ++Y) Last = std::max(Last, Detail().RowAt(Y));
    EXPECT_EQ(Last, kRows - 1);
    EXPECT_EQ(Detail().GetTopRow(), kRows - Detail().GetFullRows());
    QTest::qWait(20);  // what was waiting to be painted
    Frame.Table().Asked = 0;
    Shot();
    EXPECT_GT(Frame.Table().Asked, 0);
    // Two columns of the visible rows and no others; each text is asked for by the view and by the form's handler.
    EXPECT_LE(Frame.Table().Asked, 2 * 2 * (Detail().GetFullRows() + 1));
    QTest::keyClick(&Detail(), Qt::Key_Home);
    EXPECT_EQ(Detail().GetTopRow(), 0);
}

TEST_F(WindowedGridTest, TheGreatestCountHasALastRowToo) {
    Fill(2147483647);
    Detail().setFocus();
    QTest::keyClick(&Detail(), Qt::Key_End);
    EXPECT_EQ(Detail().GetCurrentRow(), 2147483646);
    QTest::keyClick(&Detail(), Qt::Key_PageDown);
    QTest::keyClick(&Detail(), Qt::Key_Down);
    EXPECT_EQ(Detail().GetCurrentRow(), 2147483646);
    QTest::keyClick(&Detail(), Qt::Key_Up);
    EXPECT_EQ(Detail().GetCurrentRow(), 2147483645);
    Shot();
}

TEST_F(WindowedGridTest, TheWheelMovesByRowsAndStopsAtTheEnds) {
    Fill(1000);
    const auto Turn = [this](int Notches) {
        QWheelEvent Wheel(QPointF(5, 50), Detail().mapToGlobal(QPointF(5, 50)), {}, QPoint(0, 120 * Notches),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(Detail().viewport(), &Wheel);
    };
    Turn(-2);
    EXPECT_EQ(Detail().GetTopRow(), 6);
    Turn(5);
    EXPECT_EQ(Detail().GetTopRow(), 0);
    Turn(-10000);
    EXPECT_EQ(Detail().GetTopRow(), 1000 - Detail().GetFullRows());
}

TEST_F(WindowedGridTest, FewerRowsBringTheViewBack) {
    Fill(1000);
    QTest::keyClick(&Detail(), Qt::Key_End);
    Fill(3);
    EXPECT_EQ(Detail().GetTopRow(), 0);
    EXPECT_EQ(Detail().GetCurrentRow(), -1);
    EXPECT_EQ(Detail().verticalScrollBar()->maximum(), 0);
    Fill(0);
    EXPECT_EQ(Detail().RowAt(60), -1);
    Shot();
}

TEST_F(WindowedGridTest, AClickTakesTheRowUnderTheMouse) {
    Fill(100);
    QTest::mouseClick(Detail().viewport(), Qt::LeftButton, {}, QPoint(20, Detail().viewport()->height() / 2));
    EXPECT_EQ(Detail().GetCurrentRow(), Detail().RowAt(Detail().viewport()->height() / 2));
    EXPECT_GE(Detail().GetCurrentRow(), 1);
}

TEST_F(WindowedGridTest, GainsAndLossesDifferInColourAndInShape) {
    Fill(3);  // P/L -1, 0, 1
    const QColor Profit = Context.Color("coProfit"), Loss = Context.Color("coLoss");
    const QImage Seen = Shot();
    struct TSign {
        int Count = 0;
        int Top = 1 << 20, Bottom = -1, TopWidth = 0, BottomWidth = 0;
    };
    // The marks are filled triangles of the pure colour: the gain's is wide below, the loss's wide above.
    const auto Measure = [&](const QColor& Color) {
        TSign Sign;
        for (int Y = 0; Y < Seen.height(); ++Y) {
            int Run = 0, Longest = 0;
            for (int X = Seen.width() / 2; X < Seen.width() / 2 + 16; ++X) {  // where the second column begins
                Run = Seen.pixelColor(X, Y) == Color ? Run + 1 : 0;
                Longest = std::max(Longest, Run);
            }
            if (Longest < 3) continue;
            ++Sign.Count;
            if (Sign.Top > Y) Sign.Top = Y, Sign.TopWidth = Longest;
            Sign.Bottom = Y, Sign.BottomWidth = Longest;
        }
        return Sign;
    };
    const TSign Up = Measure(Profit), Down = Measure(Loss);
    ASSERT_GT(Up.Count, 1);
    ASSERT_GT(Down.Count, 1);
    EXPECT_GT(Up.BottomWidth, Up.TopWidth);
    EXPECT_GT(Down.TopWidth, Down.BottomWidth);
    EXPECT_GT(Up.Top, Down.Bottom);  // row order
}

// Rows are moved on the screen, not painted again: what is seen has to be what a whole painting shows.
TEST_F(WindowedGridTest, WhatIsSeenAfterStepsIsWhatAWholePaintingShows) {
    TOpenTable Table(kMostRows);
    const auto Screen = [&] {
        const QWidget& Shown = *Table.Widget;
        return Shown.screen()->grabWindow(Shown.winId(), 0, 0, 2 * Shown.width(), 2 * Shown.height()).toImage();
    };
    const auto IsSame = [&] {
        const QImage Seen = Screen();
        Table.Widget->viewport()->update();
        TOpenTable::Paint();
        return !Seen.isNull() && Seen == Screen();
    };
    EXPECT_TRUE(IsSame()) << "opened";
    const struct {
        Qt::Key Key;
        int Times;
        Qt::KeyboardModifiers Modifiers = {};
    } Keys[] = {{Qt::Key_Down, 3},     {Qt::Key_Down, 50}, {Qt::Key_Down, 2, Qt::ShiftModifier}, {Qt::Key_Up, 45},
                {Qt::Key_PageDown, 2}, {Qt::Key_End, 1},   {Qt::Key_Up, 40, Qt::ShiftModifier},  {Qt::Key_Home, 1}};
    for (const auto& Each : Keys) {
        SCOPED_TRACE(&Each - Keys);
        for (int i = 0; i < Each.Times; ++i) Table.Press(Each.Key, Each.Modifiers);
        EXPECT_TRUE(IsSame()) << "each step painted";
        for (int i = 0; i < 5; ++i) QTest::keyClick(Table.Widget.get(), Each.Key, Each.Modifiers);
        Table.Bar().setValue(Table.Bar().value() + 2);
        TOpenTable::Paint();
        EXPECT_TRUE(IsSame()) << "several steps painted at once";
    }
    Table.Press(Qt::Key_Home);  // the current row is seen
    Table.Widget->clearFocus();
    TOpenTable::Paint();
    EXPECT_TRUE(IsSame()) << "without the focus";
    Table.Widget->setFocus();
    TOpenTable::Paint();
    EXPECT_TRUE(IsSame()) << "with the focus again";
    Table.Press(Qt::Key_End);
    Table.Widget->resize(220, 333);
    TOpenTable::Paint();
    EXPECT_TRUE(IsSame()) << "smaller";
    Table.Fill(7);
    EXPECT_TRUE(IsSame()) << "fewer rows";
}

// The line of an empty table was drawn in the colour of borders, which can hardly be read on the light skin.
TEST_F(WindowedGridTest, AnEmptyTableSaysSoInTheColourOfTexts) {
    Frame.Detail.Options.NoDataText = QString(20, QChar(0x2588)).toStdString();
    Fill(0);
    const QImage Seen = Shot();
    const QColor Middle = Seen.pixelColor(Seen.width() / 2, (Seen.height() + Detail().HeaderRect(0).height()) / 2);
    EXPECT_LT(Middle.lightness(), 100) << "edges of letters are softened";
    EXPECT_GT(Context.Color("coBorder").lightness(), 150);
}

}  // namespace gui
