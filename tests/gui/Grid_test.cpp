// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include "tests/gui/GuiTest.h"

namespace gui {

using namespace testing;
using TTexts = std::vector<fw::Text>;

class GridTest : public GuiTest {
protected:
    GridTest() {
        for (const char* Symbol : {"AAA", "BBB"}) Host.Subscriptions.AddOption(Symbol, 100, "C");
    }
};

TEST_F(GridTest, AClickOpensTheEditorAndTypingReachesTheCellOnEnter) {
    ClickCell(0, kSymbol);
    ASSERT_NE(Frame.Grid.GetEditor(), nullptr);
    TypeIntoEditor("aaa");
    EXPECT_TRUE(Frame.Cell(0, kSymbol).IsNull());
    PressInEditor(Qt::Key_Return);
    EXPECT_EQ(Frame.Cell(0, kSymbol).AsText(), "AAA");
    EXPECT_EQ(Frame.Grid.GetEditor(), nullptr);
    EXPECT_EQ(GridWidget().GetEditorWidget(), nullptr);
    EXPECT_EQ(GridWidget().model()->rowCount(), 2);
    EXPECT_EQ(GridWidget().model()->index(0, 0).data().toString(), "AAA");
    EXPECT_TRUE(GridWidget().hasFocus());
}

TEST_F(GridTest, ACharacterOpensTheFocusedCellAndStandsInIt) {
    Frame.Grid.SetFocusedCell(0, Frame.ColumnOf(kPremium));
    GridWidget().setFocus();
    QTest::keyClick(&GridWidget(), '4');
    TypeIntoEditor("2.5");
    EXPECT_EQ(Frame.Grid.GetEditor()->GetText(), "42.5");
    PressInEditor(Qt::Key_Return);
    EXPECT_EQ(Frame.Cell(0, kPremium).AsFloat(), 42.5);
}

TEST_F(GridTest, TabPostsAndWalksOverTheEditableCells) {
    ClickCell(0, kSymbol);
    TypeIntoEditor("bbb");
    PressInEditor(Qt::Key_Tab);
    EXPECT_EQ(Frame.Cell(0, kSymbol).AsText(), "BBB");
    ASSERT_NE(Frame.Grid.GetEditor(), nullptr);
    EXPECT_EQ(Frame.Grid.GetEditor()->GetColumn().Tag, kSide);
    PressInEditor(Qt::Key_Down);
    PressInEditor(Qt::Key_Tab);
    EXPECT_EQ(Frame.Cell(0, kSide).AsText(), "Buy");
    TypeIntoEditor("7");
    PressInEditor(Qt::Key_Tab);
    TypeIntoEditor("3");
    PressInEditor(Qt::Key_Tab);
    EXPECT_EQ(Frame.Cell(0, kQty).AsFloat(), 3.0);
    EXPECT_EQ(Frame.Grid.GetFocusedRecord(), 1);  // the remark is not editable: the next row's symbol is next
    EXPECT_EQ(Frame.Grid.GetFocusedColumn(), 0);
    PressInEditor(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Frame.Grid.GetFocusedRecord(), 0);
    EXPECT_EQ(Frame.Grid.GetEditor()->GetColumn().Tag, kQty);
}

TEST_F(GridTest, EscapeLeavesTheCellAsItWas) {
    Frame.Grid.GetDataController().SetValue(0, Frame.ColumnOf(kPremium), 5.0);
    ClickCell(0, kPremium);
    TypeIntoEditor("99");
    PressInEditor(Qt::Key_Escape);
    EXPECT_EQ(Frame.Cell(0, kPremium).AsFloat(), 5.0);
    EXPECT_EQ(Frame.Grid.GetEditor(), nullptr);
}

TEST_F(GridTest, TheButtonsBesideTheTextSpin) {
    const int Column = Frame.ColumnOf(kQty);
    Frame.Grid.GetDataController().SetValue(0, Column, 5.0);
    const auto Buttons = GridWidget().CellButtons(0, Column);
    ASSERT_EQ(Buttons.size(), 2u);
    const QRect Cell = GridWidget().CellRect(0, Column);
    EXPECT_EQ(Buttons[0].Rect.left(), Cell.left());
    EXPECT_EQ(Buttons[1].Rect.right(), Cell.right());
    QTest::mouseClick(GridWidget().viewport(), Qt::LeftButton, {}, Buttons[1].Rect.center());
    ASSERT_NE(Frame.Grid.GetEditor(), nullptr);
    EXPECT_EQ(Frame.Grid.GetEditor()->GetValue().AsFloat(), 6.0);
    PressInEditor(Qt::Key_Down);
    PressInEditor(Qt::Key_Down);
    EXPECT_EQ(Frame.Grid.GetEditor()->GetValue().AsFloat(), 4.0);
    PressInEditor(Qt::Key_Return);
    EXPECT_EQ(Frame.Cell(0, kQty).AsFloat(), 4.0);
}

TEST_F(GridTest, AFixedListTakesItsItemsOnly) {
    Frame.Grid.GetColumn(Frame.ColumnOf(kSide))->SetCaption("Buy or sell");
    ClickCell(0, kSide);
    auto* Combo = dynamic_cast<QComboBox*>(EditorFocus());
    ASSERT_NE(Combo, nullptr);
    Combo->showPopup();
    EXPECT_EQ(Combo->view()->accessibleName(), "Buy or sell");
    EXPECT_EQ(Combo->count(), 2);
    Combo->hidePopup();
    QTest::keyClick(Combo, 's');
    EXPECT_EQ(Frame.Grid.GetEditor()->GetItemIndex(), 1);
    QTest::keyClick(Combo, Qt::Key_Return);
    EXPECT_EQ(Frame.Cell(0, kSide).AsText(), "Sell");
}

TEST_F(GridTest, AButtonOfTheFormPostsTheOpenEditorBeforeItsHandlerRuns) {
    ClickCell(0, kQty);
    TypeIntoEditor("12");
    for (auto* Each : Window->findChildren<QPushButton*>())
        if (Each->text() == "Res_Calculate") QTest::mouseClick(Each, Qt::LeftButton);
    EXPECT_EQ(Frame.Seen.back(), "go 12");
    EXPECT_EQ(GridWidget().GetEditorWidget(), nullptr);
}

TEST_F(GridTest, ARefusedValidationKeepsTheEditorOpen) {
    Frame.RefuseSymbol = "ZZZ";
    ClickCell(0, kSymbol);
    TypeIntoEditor("zzz");
    PressInEditor(Qt::Key_Return);
    ASSERT_NE(Frame.Grid.GetEditor(), nullptr);
    EXPECT_EQ(Frame.Grid.GetErrorText(), "no such symbol");
    EXPECT_TRUE(EditorFocus()->hasFocus());
    PressInEditor(Qt::Key_Escape);
    EXPECT_TRUE(Frame.Cell(0, kSymbol).IsNull());
}

TEST_F(GridTest, AValidationThatThrowsLogsAndTheNextEditWorks) {
    ClickCell(0, kSymbol);
    TypeIntoEditor("throw");
    PressInEditor(Qt::Key_Return);
    EXPECT_EQ(Host.TakeErrors().size(), 1u);
    ClickCell(0, kSymbol);
    TypeIntoEditor("aaa");
    PressInEditor(Qt::Key_Return);
    EXPECT_EQ(Frame.Cell(0, kSymbol).AsText(), "AAA");
}

TEST_F(GridTest, ARefusedNumberInACellLeavesItAsItWas) {
    Frame.Grid.GetDataController().SetValue(0, Frame.ColumnOf(kPremium), 5.0);
    Host.TakeLog();
    ClickCell(0, kPremium);
    TypeIntoEditor("1e999");
    PressInEditor(Qt::Key_Return);
    EXPECT_EQ(Frame.Cell(0, kPremium).AsFloat(), 5.0);
    EXPECT_EQ(Host.TakeLog(), TTexts{"Res_LogNumberRefused(1e999)"});
}

TEST_F(GridTest, ACellThatTheFormRefusesIsTold) {
    int Refused = 0;
    Context.OnEditRefused = [&](fw::TGridTableView& View) { Refused += &View == &Frame.Grid; };
    Frame.AllowEditing = false;
    ClickCell(0, kQty);
    EXPECT_EQ(Refused, 1);
    ClickCell(0, kRemark);
    EXPECT_EQ(Refused, 1);  // never editable: nothing is missing
    EXPECT_EQ(GridWidget().GetEditorWidget(), nullptr);
}

TEST_F(GridTest, AProgramMayOpenCloseDeleteAndTheScreenFollows) {
    Frame.Grid.GetDataController().SetRecordCount(4);
    EXPECT_EQ(GridWidget().model()->rowCount(), 4);
    Frame.Grid.StartEdit(2, Frame.ColumnOf(kQty));
    ASSERT_NE(GridWidget().GetEditorWidget(), nullptr);
    Frame.Grid.GetDataController().DeleteRecord(0);
    EXPECT_EQ(GridWidget().model()->rowCount(), 3);
    ASSERT_NE(GridWidget().GetEditorWidget(), nullptr);
    EXPECT_EQ(GridWidget().GetEditorWidget()->Widget()->geometry().top(), GridWidget().CellRect(1, 0).top());
    Frame.Grid.GetDataController().DeleteRecord(1);
    EXPECT_EQ(GridWidget().GetEditorWidget(), nullptr);
    Frame.Grid.GetColumn(0)->SetCaption("Kuerzel");
    EXPECT_EQ(GridWidget().model()->headerData(0, Qt::Horizontal).toString(), "Kuerzel");
}

TEST_F(GridTest, DeleteEmptiesTheFocusedCell) {
    Frame.Grid.GetDataController().SetValue(0, Frame.ColumnOf(kPremium), 5.0);
    Frame.Grid.SetFocusedCell(0, Frame.ColumnOf(kPremium));
    GridWidget().setFocus();
    QTest::keyClick(&GridWidget(), Qt::Key_Delete);
    EXPECT_TRUE(Frame.Cell(0, kPremium).IsNull());
}

TEST_F(GridTest, ColumnsShareTheWidthByTheirOwnWidths) {
    Frame.Grid.GetColumn(0)->SetWidth(300);
    Frame.Grid.GetColumn(4)->SetVisible(false);
    int Sum = 0;
    for (int i = 0; i < 4; ++i) Sum += GridWidget().columnWidth(i);
    EXPECT_EQ(Sum, GridWidget().viewport()->width());
    EXPECT_TRUE(GridWidget().isColumnHidden(4));
    EXPECT_NEAR(GridWidget().columnWidth(0), 3 * GridWidget().columnWidth(1), 6);
}

TEST_F(GridTest, InputRowsTakeTheStyleAndTheTextStaysReadable) {
    Frame.InputStyle.SetColor(fw::MakeColor(0, 0, 96));
    Frame.Grid.GetDataController().SetValue(0, 0, "AAA");
    const QModelIndex Cell = GridWidget().model()->index(0, 1);
    EXPECT_EQ(Cell.data(Qt::BackgroundRole).value<QColor>(), QColor(0, 0, 96));
    EXPECT_EQ(Cell.data(Qt::ForegroundRole).value<QColor>(), QColor(Qt::white));
    EXPECT_FALSE(GridWidget().model()->index(0, 1).data(Qt::TextAlignmentRole).value<Qt::Alignment>() & Qt::AlignRight);
    EXPECT_TRUE(GridWidget().model()->index(0, 2).data(Qt::TextAlignmentRole).value<Qt::Alignment>() & Qt::AlignRight);
}

TEST_F(GridTest, SymbolsWithoutDataAreMarkedUntilTheyArrive) {
    struct TCase {
        const char* Why;
        fw::Text Symbol;
        int State;
        const char* Hint;
    };
    const TCase Cases[] = {{"ready", "AAA", fw::kItemReady, ""},
                           {"requested", "LATE", fw::kItemUnknown, "Res_SymbolWaiting"},
                           {"nothing to be had", "GONE", fw::kItemNoData, "Res_SymbolNoData"},
                           {"blank", " ", fw::kItemUnknown, ""}};
    for (const TCase& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        Host.Subscriptions.Item(fw::Trim(Case.Symbol)).State = Case.State;
        Frame.Grid.GetDataController().SetValue(0, 0, Case.Symbol);
        const QModelIndex Cell = GridWidget().model()->index(0, 0);
        EXPECT_EQ(Cell.data(Qt::FontRole).value<QFont>().italic(), *Case.Hint != 0);
        EXPECT_EQ(Cell.data(Qt::ToolTipRole).toString(), Case.Hint);
    }
}

TEST_F(GridTest, ThePopupShowsTheHostsContentAndClosesWithIt) {
    QWidget* Content = nullptr;
    Context.MakePopupContent = [&](fw::TPopupControl& Popup, QWidget* Parent) {
        EXPECT_EQ(&Popup, &Frame.SymbolPopup);
        return Content = new QLineEdit(Parent);
    };
    const auto Buttons = GridWidget().CellButtons(0, 0);
    ASSERT_EQ(Buttons.size(), 1u);
    QTest::mouseClick(GridWidget().viewport(), Qt::LeftButton, {}, Buttons[0].Rect.center());
    ASSERT_NE(Content, nullptr);
    EXPECT_TRUE(Content->isVisible());
    EXPECT_TRUE(Frame.SymbolPopup.IsShown());
    EXPECT_NE(Frame.Grid.GetEditor(), nullptr);  // the popup belongs to the form: the editor stays open
    Frame.Grid.GetDataController().SetValue(0, 0, "BBB");
    Frame.SymbolPopup.Hide();
    EXPECT_FALSE(Content->isVisible());
    ASSERT_NE(Frame.Grid.GetEditor(), nullptr);
    EXPECT_EQ(Frame.Grid.GetEditor()->GetText(), "BBB");
    QTest::qWait(1);
}

TEST_F(GridTest, ClosingTheFormWithAnOpenEditorIsHarmless) {
    ClickCell(0, kSymbol);
    TypeIntoEditor("half");
    Window.reset();
    EXPECT_NE(Frame.Grid.GetEditor(), nullptr);
    Frame.Grid.PostEditor();
    EXPECT_EQ(Frame.Cell(0, kSymbol).AsText(), "HALF");
}

}  // namespace gui
