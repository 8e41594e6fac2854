// SPDX-License-Identifier: GPL-3.0-or-later
// What the long table asks its data control for, and that all of its rows are within reach.
#include <QStyleOptionSlider>

#include "tests/gui/AccessibleTest.h"
#include "tests/gui/WindowedGridTest.h"

#include "framework/controls/GridText.h"

namespace gui {

class WindowedGridCounts : public testing::Test {
protected:
    support::TFakeHost Host;
};

TEST_F(WindowedGridCounts, OpeningAsksForTheSeenCellsOnceWhateverTheNumberOfRows) {
    for (const int32_t Count : {10, 1'000, 1'000'001, kMostRows}) {
        SCOPED_TRACE(Count);
        TOpenTable Table(Count);
        EXPECT_EQ(Table.Widget->GetRowCount(), Count);
        const int Seen = Table.SeenRows();
        const int Full = Table.Widget->GetFullRows();
        EXPECT_TRUE(Seen == std::min<int>(Count, Full) || Seen == Full + 1) << "one may be cut off";
        EXPECT_EQ(Table.Data().Texts, kTableColumns * Seen);
        EXPECT_EQ(Table.Data().Values, Seen) << "the sign of each profit and loss";
        EXPECT_EQ(*Table.Data().Rows.rbegin(), Seen - 1);
        Table.Data().Forget();
        Table.Fill(Count);
        EXPECT_EQ(Table.Data().Texts, kTableColumns * Seen) << "other data";
    }
}

TEST_F(WindowedGridCounts, AStepAsksForTheRowsThatComeIntoSight) {
    for (const int32_t Count : {1'000, kMostRows}) {
        SCOPED_TRACE(Count);
        TOpenTable Table(Count);
        if (!Table.HasRowsOfWholeDots()) GTEST_SKIP() << "at this scale the toolkit moves nothing, all is painted";
        const int Page = Table.Widget->GetFullRows(), Seen = Table.SeenRows();
        const struct {
            const char* Name;
            int64_t To;
            int Most;
        } Steps[] = {
            {"down", 1, 2},  // the row that was cut off, and the next one
            {"up", 0, 1},
            {"three down", 3, 4},
            {"page down", 3 + Page, Seen},
            {"page up", 3, Seen},
            {"to the end", int64_t{Count} - Page, Seen},
            {"up from the end", int64_t{Count} - Page - 1, 2},
            {"to the middle", Count / 2, Seen},
            {"to the beginning", 0, Seen},
        };
        for (const auto& Step : Steps) {
            SCOPED_TRACE(Step.Name);
            Table.Data().Forget();
            Table.Scroll(static_cast<int>(Step.To));
            EXPECT_EQ(Table.Widget->GetTopRow(), Step.To);
            EXPECT_GT(Table.Data().Texts, 0);
            EXPECT_LE(Table.Data().Texts, kTableColumns * Step.Most);
            EXPECT_LE(Table.Data().Values, Step.Most);
        }
    }
}

TEST_F(WindowedGridCounts, KeysReachBothEndsAndSelectRangesNotRows) {
    TOpenTable Table(kMostRows);
    const int Page = Table.Widget->GetFullRows(), Last = kMostRows - 1;
    const struct {
        Qt::Key Key;
        Qt::KeyboardModifiers Modifiers;
        int Current, First, Last;
    } Keys[] = {
        {Qt::Key_End, Qt::NoModifier, Last, Last, Last},
        {Qt::Key_Down, Qt::NoModifier, Last, Last, Last},
        {Qt::Key_PageDown, Qt::NoModifier, Last, Last, Last},
        {Qt::Key_PageUp, Qt::NoModifier, Last - Page, Last - Page, Last - Page},
        {Qt::Key_PageDown, Qt::ShiftModifier, Last, Last - Page, Last},
        {Qt::Key_Home, Qt::ControlModifier, 0, 0, 0},
        {Qt::Key_Up, Qt::NoModifier, 0, 0, 0},
        {Qt::Key_PageUp, Qt::NoModifier, 0, 0, 0},
        {Qt::Key_PageDown, Qt::NoModifier, Page, Page, Page},
        {Qt::Key_End, Qt::ControlModifier | Qt::ShiftModifier, Last, Page, Last},
        {Qt::Key_Home, Qt::ControlModifier | Qt::ShiftModifier, 0, 0, Page},
        {Qt::Key_End, Qt::ControlModifier, Last, Last, Last},
        {Qt::Key_Up, Qt::NoModifier, Last - 1, Last - 1, Last - 1},
        {Qt::Key_A, Qt::ControlModifier, Last, 0, Last},
        {Qt::Key_Down, Qt::ShiftModifier, Last, 0, Last},
        {Qt::Key_Up, Qt::NoModifier, Last - 1, Last - 1, Last - 1},
    };
    for (const auto& Each : Keys) {
        SCOPED_TRACE(&Each - Keys);
        Table.Data().Forget();
        Table.Press(Each.Key, Each.Modifiers);
        EXPECT_EQ(Table.Widget->GetCurrentRow(), Each.Current);
        EXPECT_EQ(Table.Selection().GetFirst(), Each.First);
        EXPECT_EQ(Table.Selection().GetLast(), Each.Last);
        EXPECT_LE(Table.Data().Texts, kTableColumns * (Page + 1));
        EXPECT_LE(Table.Data().Values, Page + 1);
    }
    EXPECT_EQ(Table.Widget->GetTopRow(), kMostRows - Page);
}

TEST_F(WindowedGridCounts, TheCursorPaintsTheRowsThatItLeavesAndTakes) {
    TOpenTable Table(kMostRows);
    Table.Press(Qt::Key_Down);
    Table.Data().Forget();
    Table.Press(Qt::Key_Down);
    EXPECT_EQ(Table.Data().Rows, (std::set<int32_t>{0, 1}));
    EXPECT_EQ(Table.Data().Texts, 2 * kTableColumns);
}

TEST_F(WindowedGridCounts, TheMouseReachesTheLastRow) {
    TOpenTable Table(kMostRows);
    QStyleOptionSlider Option;
    Option.initFrom(&Table.Bar());
    Option.orientation = Qt::Vertical;
    Option.maximum = Table.Bar().maximum();
    Option.pageStep = Table.Bar().pageStep();
    const QPoint Thumb = Table.Bar()
                             .style()
                             ->subControlRect(QStyle::CC_ScrollBar, &Option, QStyle::SC_ScrollBarSlider, &Table.Bar())
                             .center();
    Table.Data().Forget();
    QTest::mousePress(&Table.Bar(), Qt::LeftButton, {}, Thumb);
    QTest::mouseMove(&Table.Bar(), QPoint(Thumb.x(), Table.Bar().height() - 1));
    QTest::mouseRelease(&Table.Bar(), Qt::LeftButton, {}, QPoint(Thumb.x(), Table.Bar().height() - 1));
    TOpenTable::Paint();
    const int Page = Table.Widget->GetFullRows();
    EXPECT_EQ(Table.Widget->GetTopRow(), kMostRows - Page);
    EXPECT_LE(Table.Data().Texts, 2 * kTableColumns * (Page + 1));
    const auto Click = [&](int Row, Qt::KeyboardModifiers Modifiers) {
        QTest::mouseClick(Table.Widget->viewport(), Qt::LeftButton, Modifiers, Table.Widget->CellRect(Row, 0).center());
    };
    Click(kMostRows - 3, {});
    Click(kMostRows - 1, Qt::ShiftModifier);
    EXPECT_EQ(Table.Selection().GetFirst(), kMostRows - 3);
    EXPECT_EQ(Table.Selection().GetLast(), kMostRows - 1);
    const QPoint Below = Table.Widget->CellRect(kMostRows - 1, 0).center() +
                         QPoint(0, Table.Widget->CellRect(kMostRows - 1, 0).height());
    EXPECT_EQ(Table.Widget->RowAt(Below.y()), -1) << "there is no row behind the last";
    EXPECT_TRUE(Table.Widget->CellRect(0, 0).isEmpty()) << "a row that is not seen stands nowhere";
}

TEST_F(WindowedGridCounts, TheWheelStopsAtTheLastRow) {
    TOpenTable Table(kMostRows);
    const auto Turn = [&](int Notches) {
        QWheelEvent Wheel(QPointF(5, 50), Table.Widget->mapToGlobal(QPointF(5, 50)), {}, QPoint(0, 120 * Notches),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(Table.Widget->viewport(), &Wheel);
        TOpenTable::Paint();
    };
    Table.Scroll(kMostRows - Table.Widget->GetFullRows() - 4);
    Turn(-1);
    EXPECT_EQ(Table.Widget->GetTopRow(), kMostRows - Table.Widget->GetFullRows() - 1);
    Turn(-1000);
    EXPECT_EQ(Table.Widget->GetTopRow(), kMostRows - Table.Widget->GetFullRows());
    Table.Data().Forget();
    Turn(1);
    if (Table.HasRowsOfWholeDots()) {
        EXPECT_LE(Table.Data().Texts, kTableColumns * 4);
    }
}

TEST_F(WindowedGridCounts, ThreeRowsAtTheEndAreCopiedByAskingForThemAlone) {
    TOpenTable Table(kMostRows);
    fw::Text Copied;
    Table.Context.OnCopyRows = [&](fw::TGridTableView& View, int First, int Last) {
        for (int64_t Row = First; Row <= Last; ++Row)
            Copied += fw::TGridText(View, fw::ETextForm::Csv).Record(static_cast<int>(Row));
    };
    Table.Press(Qt::Key_End);
    Table.Press(Qt::Key_Up, Qt::ShiftModifier);
    Table.Press(Qt::Key_Up, Qt::ShiftModifier);
    Table.Data().Forget();
    Table.Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Copied, "0,0\r\n1,1\r\n-1,-1\r\n");
    EXPECT_EQ(Table.Data().Rows, (std::set<int32_t>{kMostRows - 3, kMostRows - 2, kMostRows - 1}));
    EXPECT_EQ(Table.Data().Values, 3 * kTableColumns);
    std::pair<int, int> Range;
    Table.Context.OnCopyRows = [&](fw::TGridTableView&, int First, int Last) { Range = {First, Last}; };
    Table.Press(Qt::Key_A, Qt::ControlModifier);
    Table.Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Range, std::pair(0, kMostRows - 1));
}

TEST_F(WindowedGridCounts, ACaptionThatDoesNotSortAsksForNothing) {
    TOpenTable Table(kMostRows);
    Table.Data().Forget();
    QTest::mouseClick(Table.Widget->viewport(), Qt::LeftButton, {}, Table.Widget->HeaderRect(0).center());
    EXPECT_EQ(Table.Data().Values + Table.Data().Texts, 0);
    EXPECT_EQ(Table.View.GetSortedColumn(), -1);
}

TEST_F(WindowedGridCounts, TheLastRowIsShownAndReadAloud) {
    TOpenTable Table(kMostRows);
    Table.Press(Qt::Key_End);
    QAccessibleInterface& Reader = TScreenReader::Of(*Table.Widget);
    QAccessibleTableInterface& Cells = TScreenReader::TableOf(*Table.Widget);
    Table.Data().Forget();
    QAccessibleInterface* Last = Cells.cellAt(kMostRows - 1, 0);
    ASSERT_NE(Last, nullptr);
    EXPECT_EQ(Last->text(QAccessible::Name), "2147483646");
    EXPECT_EQ(Last->tableCellInterface()->rowIndex(), kMostRows - 1);
    EXPECT_FALSE(Last->state().offscreen);
    EXPECT_TRUE(Last->state().focused);
    const QPoint Middle = Table.Widget->viewport()->mapFromGlobal(Last->rect().center());
    EXPECT_EQ(Table.Widget->RowAt(Middle.y()), kMostRows - 1);
    EXPECT_EQ(Reader.focusChild(), Last);
    EXPECT_EQ(Table.Data().Rows, (std::set<int32_t>{kMostRows - 1}));
    Table.Press(Qt::Key_Up);
    const TScreenReader Screen;
    Table.Press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_TRUE(Screen.HasHeard(QAccessible::Focus, "2147483646")) << "the current row is the last now";
    EXPECT_EQ(Cells.selectedRowCount(), Table.Widget->GetFullRows()) << "of the rows that are seen";
    EXPECT_TRUE(Cells.isRowSelected(0));
    TOpenTable Short(1'000);
    Short.Press(Qt::Key_End);
    EXPECT_EQ(Reader.childCount(), TScreenReader::Of(*Short.Widget).childCount());
}

}  // namespace gui
