// SPDX-License-Identifier: GPL-3.0-or-later
// What a screen reader reads in the tables and the chart of a form.
#include <QPointer>

#include "tests/gui/AccessibleTest.h"
#include "tests/gui/GuiTest.h"
#include "workstation/renderers/ChartRenderer.h"
#include "workstation/renderers/WindowedGridRenderer.h"

namespace gui {

class AccessibleTables : public GuiTest {
protected:
    AccessibleTables() {
        Frame.Detail.GetColumn(0)->SetCaption("Price");
        Frame.Detail.GetColumn(1)->SetCaption("P/L");
        Detail().setFocus();
    }
    ws::TWindowedGridRenderer& Detail() const { return *Find<ws::TWindowedGridRenderer>(); }
    QAccessibleInterface& Reader() const { return TScreenReader::Of(Detail()); }
    QAccessibleTableInterface& Table() const { return TScreenReader::TableOf(Detail()); }
    void Fill(int32_t Count) {
        Frame.Table().Count = Count;
        Frame.Table().NotifyDataChanged();
    }
    static QString Read(QAccessibleInterface* Cell) { return Cell ? Cell->text(QAccessible::Name) : QString("none"); }

    TScreenReader Screen;
};

TEST_F(AccessibleTables, EveryCellOfTheLongestTableIsReadWhenItIsAskedFor) {
    constexpr int kRows = 2147483647;
    Fill(kRows);
    EXPECT_EQ(Reader().role(), QAccessible::Table);
    EXPECT_EQ(Table().rowCount(), kRows);
    EXPECT_EQ(Table().columnCount(), 2);
    EXPECT_EQ(Table().columnDescription(1), "P/L");
    Frame.Table().Asked = 0;
    EXPECT_EQ(Read(Table().cellAt(0, 0)), ws::ToQt(Frame.Detail.GetCellText(0, 0)));
    EXPECT_EQ(Read(Table().cellAt(kRows - 1, 1)), ws::ToQt(Frame.Detail.GetCellText(kRows - 1, 1)));
    EXPECT_NE(Read(Table().cellAt(kRows - 1, 1)), "");
    EXPECT_LE(Frame.Table().Asked, 20);
    EXPECT_EQ(Table().cellAt(-1, 0), nullptr);
    EXPECT_EQ(Table().cellAt(kRows, 0), nullptr);
    EXPECT_EQ(Table().cellAt(0, 2), nullptr);
    EXPECT_TRUE(Table().rowDescription(7).startsWith("Price 7")) << ws::FromQt(Table().rowDescription(7));
}

TEST_F(AccessibleTables, ChildrenAreTheHeadsAndTheCellsThatAreSeen) {
    Fill(1'000'000);
    Detail().ScrollTo(500'000);
    const int Count = Reader().childCount();
    EXPECT_LE(Count, 2 * (Detail().GetFullRows() + 2));
    for (int i = 0; i < Count; ++i) {
        QAccessibleInterface* Child = Reader().child(i);
        ASSERT_NE(Child, nullptr);
        EXPECT_EQ(Reader().indexOfChild(Child), i);
        EXPECT_EQ(Child->parent(), &Reader());
        EXPECT_EQ(Child->role(), i < 2 ? QAccessible::ColumnHeader : QAccessible::Cell);
        EXPECT_EQ(Child->tableCellInterface()->columnIndex(), i % 2);
        EXPECT_FALSE(Child->state().invalid);
    }
    EXPECT_EQ(Read(Reader().child(0)), "Price");
    QAccessibleInterface* Cell = Reader().child(3);
    EXPECT_EQ(Cell->tableCellInterface()->rowIndex(), Detail().GetTopRow());
    EXPECT_EQ(Read(Cell->tableCellInterface()->columnHeaderCells().value(0)), "P/L");
    const QPoint Middle = Cell->rect().center();
    EXPECT_EQ(Reader().childAt(Middle.x(), Middle.y()), Cell);
    EXPECT_EQ(Detail().RowAt(Detail().viewport()->mapFromGlobal(Middle).y()), Detail().GetTopRow());
    QAccessibleInterface* Far = Table().cellAt(3, 0);
    EXPECT_TRUE(Far->state().offscreen);
    EXPECT_TRUE(Far->rect().isEmpty());
    EXPECT_EQ(Reader().indexOfChild(Far), -1);
}

TEST_F(AccessibleTables, CellsThatHaveBeenReadAreNotKeptWithoutEnd) {
    Fill(1'000'000);
    const auto First = QAccessible::uniqueId(Table().cellAt(0, 0));
    EXPECT_EQ(Table().cellAt(0, 0), QAccessible::accessibleInterface(First)) << "the same cell while it is known";
    for (int Row = 1; Row < 10'000; ++Row) ASSERT_EQ(Read(Table().cellAt(Row, 0)), QString::number(Row));
    EXPECT_EQ(QAccessible::accessibleInterface(First), nullptr);
    EXPECT_EQ(Read(Table().cellAt(0, 0)), "0");
}

TEST_F(AccessibleTables, TheCellThatTheUserMovesToIsTold) {
    Fill(100);
    Frame.Detail.GetSelection().Select(4);
    EXPECT_EQ(Reader().focusChild(), Table().cellAt(4, 0));
    Screen.Heard.clear();
    QTest::keyClick(&Detail(), Qt::Key_Down);
    EXPECT_TRUE(Screen.HasHeard(QAccessible::Focus, "5"));
    EXPECT_TRUE(Screen.HasHeard(QAccessible::Selection, "5"));
    EXPECT_TRUE(Table().cellAt(5, 0)->state().focused);
    EXPECT_TRUE(Table().cellAt(5, 0)->text(QAccessible::Description).contains("P/L"));
    QTest::keyClick(&Detail(), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(Table().selectedRows(), (QList<int>{5, 6}));
    EXPECT_EQ(Table().selectedCellCount(), 4);
    EXPECT_TRUE(Table().isRowSelected(6));
    EXPECT_FALSE(Table().isRowSelected(4));
}

TEST_F(AccessibleTables, AScreenReaderChoosesAndTakesARow) {
    Fill(100);
    EXPECT_TRUE(Table().selectRow(40));
    EXPECT_EQ(Detail().GetCurrentRow(), 40);
    int Taken = -1;
    Frame.Detail.OnActivate = [&](fw::TGridTableView&, int Record) { Taken = Record; };
    QAccessibleInterface* Cell = Table().cellAt(41, 1);
    ASSERT_NE(Cell->actionInterface(), nullptr);
    Cell->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(Detail().GetCurrentRow(), 41);
    EXPECT_EQ(Taken, -1);
    Cell->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(Taken, 41);
}

TEST_F(AccessibleTables, OtherRowsAreToldAndCellsThatAreGoneAreInvalid) {
    Fill(100);
    QAccessibleInterface* Last = Table().cellAt(99, 0);
    Screen.Heard.clear();
    Fill(10);
    EXPECT_TRUE(Screen.HasHeard(QAccessible::TableModelChanged));
    EXPECT_TRUE(Last->state().invalid);
    EXPECT_FALSE(Last->isValid());
    EXPECT_EQ(Read(Last), "");
    Frame.Detail.GetColumn(0)->SetVisible(false);
    EXPECT_EQ(Table().columnCount(), 1);
    EXPECT_EQ(Table().columnDescription(0), "P/L");
    EXPECT_EQ(Read(Table().cellAt(9, 0)), ws::ToQt(Frame.Detail.GetCellText(9, 1)));
}

TEST_F(AccessibleTables, CellsOutliveNeitherFormNorWidgetInAWayThatHurts) {
    Fill(100);
    const auto Cell = QAccessible::uniqueId(Table().cellAt(3, 1));
    Window.reset();
    EXPECT_EQ(QAccessible::accessibleInterface(Cell), nullptr);
}

TEST_F(AccessibleTables, TheEditableTableReadsWhatIsShownAndItsEditorsCarryTheColumnsName) {
    Frame.Grid.GetColumn(Frame.ColumnOf(kPremium))->SetCaption("Premium");
    Frame.Grid.GetColumn(Frame.ColumnOf(kSide))->SetCaption("Side");
    Frame.Grid.GetDataController().SetRecordCount(2);
    Frame.Grid.GetDataController().SetValue(0, Frame.ColumnOf(kPremium), 12.5);
    auto& Cells = TScreenReader::TableOf(GridWidget());
    EXPECT_EQ(Cells.rowCount(), 2);
    EXPECT_EQ(Cells.columnDescription(Frame.ColumnOf(kPremium)), "Premium");
    EXPECT_EQ(Read(Cells.cellAt(0, Frame.ColumnOf(kPremium))),
              ws::ToQt(Frame.Grid.GetCellText(0, Frame.ColumnOf(kPremium))));
    EXPECT_EQ(Read(Cells.cellAt(1, Frame.ColumnOf(kPremium))), "");
    Host.Language.SetText("Res_EmptyRow", "Empty row");
    EXPECT_EQ(Read(TScreenReader::RowHead(GridWidget(), 0)), "1");
    EXPECT_EQ(Read(TScreenReader::RowHead(GridWidget(), 1)), "Empty row") << "the input row";
    GridWidget().setFocus();
    Frame.Grid.SetFocusedCell(0, Frame.ColumnOf(kPremium));
    EXPECT_EQ(TScreenReader::Of(GridWidget()).focusChild(), Cells.cellAt(0, Frame.ColumnOf(kPremium)));
    Frame.Grid.StartEdit(0, Frame.ColumnOf(kPremium));
    ASSERT_NE(EditorFocus(), nullptr);
    EXPECT_EQ(TScreenReader::NameOf(*EditorFocus()), "Premium");
    Frame.Grid.StartEdit(0, Frame.ColumnOf(kSide));
    ASSERT_NE(EditorFocus(), nullptr);
    EXPECT_EQ(TScreenReader::CaptionOf(*EditorFocus()), "Side");
}

TEST_F(AccessibleTables, TheChartSaysWhatItShows) {
    Host.Language.SetText("Res_ChartName", "Chart: %1");
    Host.Language.SetText("Res_ChartRange", "From %1 to %2.");
    Host.Language.SetText("Res_ChartProfit", "Most %1.");
    Host.Language.SetText("Res_ChartLoss", "Least %1.");
    Host.Language.SetText("Res_ChartBreakEven", "Even at %1.");
    Frame.Line.PointerVisible = true;
    auto& Chart = *Find<ws::TChartRenderer>();
    Frame.Chart.SetTitle("P/L");
    for (const auto& [X, Y] : {std::pair{90.0, -250.0}, {100.0, -250.0}, {110.0, 250.0}}) Frame.Line.AddXY(X, Y);
    Chart.Redraw();
    EXPECT_EQ(TScreenReader::NameOf(Chart), "Chart: P/L");
    EXPECT_EQ(TScreenReader::Of(Chart).role(), QAccessible::Chart);
    EXPECT_EQ(TScreenReader::Of(Chart).text(QAccessible::Description),
              "From 2:90 to 2:110. Most 3:250. Least 3:250. Even at 2:105.");
}

}  // namespace gui
