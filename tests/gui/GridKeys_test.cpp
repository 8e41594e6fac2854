// SPDX-License-Identifier: GPL-3.0-or-later
// Keys and wheel on the editable table.
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>

#include "tests/gui/GuiTest.h"

namespace gui {

using TTexts = std::vector<fw::Text>;

class GridKeysTest : public GuiTest {
protected:
    GridKeysTest() {
        Frame.Grid.GetDataController().SetRecordCount(3);
        Frame.Grid.OnEditKeyDown = [this](fw::TGridTableView&, fw::TGridColumn&, fw::TCellEditor& Editor, int& Key,
                                          int) { Keys.push_back(std::to_string(Key) + "@" + Editor.GetText()); };
        Context.OnEditRefused = [this](fw::TGridTableView&) { ++Refused; };
        Context.OnEditKept = [this](const QString& Reason) { Kept << Reason; };
        GridWidget().setFocus();
    }
    void Focus(int Record, int Tag) { Frame.Grid.SetFocusedCell(Record, Frame.ColumnOf(Tag)); }
    void Put(int Record, int Tag, const fw::Variant& Value) {
        Frame.Grid.GetDataController().SetValue(Record, Frame.ColumnOf(Tag), Value);
    }
    void Press(Qt::Key Key, Qt::KeyboardModifiers Modifiers = {}) {
        QTest::keyClick(EditorFocus() ? EditorFocus() : &GridWidget(), Key, Modifiers);
    }
    fw::Text At() const {
        return std::to_string(Frame.Grid.GetFocusedRecord()) + "," +
               std::to_string(Frame.Grid.GetColumn(Frame.Grid.GetFocusedColumn())->Tag);
    }
    bool IsOpen() const { return Frame.Grid.GetEditor() != nullptr; }
    // What a widget does not take goes to its parent, as the mouse's own events do.
    static void Turn(QWidget* Over, int Notches) {
        for (QWidget* Each = Over; Each; Each = Each->parentWidget()) {
            const QPointF Middle = QRectF(Each->rect()).center();
            QWheelEvent Wheel(Middle, Each->mapToGlobal(Middle), {}, QPoint(0, 120 * Notches), Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(Each, &Wheel);
            if (Wheel.isAccepted()) return;
        }
    }

    TTexts Keys;
    int Refused = 0;
    QStringList Kept;
};

TEST_F(GridKeysTest, EnterPostsAndGoesDownAndEnterAgainOpens) {
    Focus(0, kPremium);
    Press(Qt::Key_1);
    Press(Qt::Key_Return);
    EXPECT_EQ(Frame.Cell(0, kPremium).AsFloat(), 1.0);
    EXPECT_EQ(At(), "1,103");
    EXPECT_FALSE(IsOpen());
    Press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_TRUE(IsOpen());
    Press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(At(), "2,103");
    Press(Qt::Key_2);
    Press(Qt::Key_Return);
    EXPECT_EQ(At(), "2,103") << "the last row stays";
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Frame.Cell(2, kPremium).AsFloat(), 2.0);
    EXPECT_TRUE(GridWidget().hasFocus());
}

TEST_F(GridKeysTest, EnterInTheLastRowGoesToTheRowThatItsSymbolAdds) {
    Focus(2, kSymbol);
    Press(Qt::Key_A);
    Press(Qt::Key_Return);
    EXPECT_EQ(Frame.Cell(2, kSymbol).AsText(), "A");
    EXPECT_EQ(At(), "3,0");
}

TEST_F(GridKeysTest, TheArrowsLeaveTextsAndListsOfTextsButSpinNumbers) {
    Focus(1, kSymbol);
    Press(Qt::Key_F2);
    Press(Qt::Key_Down);
    EXPECT_EQ(At(), "2,0");
    Press(Qt::Key_F2);
    Press(Qt::Key_Up, Qt::KeypadModifier);
    EXPECT_EQ(At(), "1,0");
    EXPECT_FALSE(IsOpen());
    Put(1, kPremium, 5.0);
    Focus(1, kPremium);
    Press(Qt::Key_F2);
    Keys.clear();
    Press(Qt::Key_Up);
    Press(Qt::Key_PageUp);
    EXPECT_EQ(Frame.Grid.GetEditor()->GetValue().AsFloat(), 16.0);
    EXPECT_EQ(Keys.size(), 11u);
    for (const auto& Key : Keys) EXPECT_TRUE(Key.starts_with("38@")) << Key;
    Press(Qt::Key_Down);
    Press(Qt::Key_Escape);
    EXPECT_EQ(Frame.Cell(1, kPremium).AsFloat(), 5.0);
}

TEST_F(GridKeysTest, DeleteEmptiesEveryKindOfCell) {
    Put(0, kSymbol, "AAA");
    Put(0, kSide, "Sell");
    Put(0, kPremium, 5.0);
    for (const int Tag : {kSymbol, kSide, kPremium}) {
        Focus(0, Tag);
        Press(Qt::Key_Delete);
        EXPECT_TRUE(Frame.Cell(0, Tag).AsText().empty());
        EXPECT_FALSE(IsOpen());
    }
    EXPECT_EQ(Keys, (TTexts{"46@AAA", "46@Sell", "46@5"}));
    EXPECT_TRUE(Frame.Cell(0, kSide).IsNull());
}

TEST_F(GridKeysTest, DeleteEmptiesAnOpenListToo) {
    Put(0, kSide, "Sell");
    Focus(0, kSide);
    Press(Qt::Key_F2);
    ASSERT_NE(dynamic_cast<QComboBox*>(EditorFocus()), nullptr);
    Press(Qt::Key_Delete);
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(Frame.Cell(0, kSide).IsNull());
}

TEST_F(GridKeysTest, InsertGoesToTheInputRowAndAddsNone) {
    Focus(0, kPremium);
    Press(Qt::Key_7);
    Press(Qt::Key_Insert);
    EXPECT_EQ(Frame.Cell(0, kPremium).AsFloat(), 7.0);
    EXPECT_EQ(At(), "2,0");
    EXPECT_EQ(Frame.Grid.GetDataController().GetRecordCount(), 3);
    Focus(0, kQty);
    Press(Qt::Key_Insert);
    EXPECT_EQ(At(), "2,0");
}

TEST_F(GridKeysTest, ControlDFillsDownInClosedAndOpenCells) {
    Put(0, kPremium, 1.0 / 3.0);
    Put(0, kSide, "Sell");
    Focus(1, kPremium);
    Press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(Frame.Cell(1, kPremium).AsFloat(), 1.0 / 3.0);
    Focus(1, kSide);
    Press(Qt::Key_F2);
    Press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(Frame.Cell(1, kSide).AsText(), "Sell");
    EXPECT_FALSE(IsOpen());
}

TEST_F(GridKeysTest, OnlyTheOpenSpinEditorTakesTheWheelAndNoKeyIsTold) {
    Frame.Grid.GetDataController().SetRecordCount(100);
    Put(0, kQty, 5.0);
    Turn(GridWidget().viewport(), -1);
    EXPECT_EQ(Frame.Cell(0, kQty).AsFloat(), 5.0);
    EXPECT_GT(GridWidget().verticalScrollBar()->value(), 0);
    Focus(0, kQty);
    Press(Qt::Key_F2);
    const int Scrolled = GridWidget().verticalScrollBar()->value();
    Keys.clear();
    Turn(EditorFocus(), 3);
    EXPECT_EQ(Frame.Grid.GetEditor()->GetValue().AsFloat(), 8.0);
    EXPECT_EQ(GridWidget().verticalScrollBar()->value(), Scrolled);
    EXPECT_TRUE(Keys.empty());
    Press(Qt::Key_Escape);
    Focus(0, kSymbol);
    Press(Qt::Key_F2);
    Turn(EditorFocus(), -1);
    EXPECT_GT(GridWidget().verticalScrollBar()->value(), Scrolled) << "a text scrolls with its table";
}

TEST_F(GridKeysTest, EveryTypedKeyIsToldBeforeTheTextChanges) {
    Put(0, kPremium, 5.0);
    Focus(0, kPremium);
    Press(Qt::Key_4);  // opens the cell
    Press(Qt::Key_2);
    QGuiApplication::clipboard()->setText("7");
    Press(Qt::Key_V, Qt::ControlModifier);
    QInputMethodEvent Composed;
    Composed.setCommitString("3");
    QApplication::sendEvent(EditorFocus(), &Composed);
    EXPECT_EQ(Frame.Grid.GetEditor()->GetText(), "4273");
    EXPECT_EQ(Keys, (TTexts{"52@5", "50@4", "17@42", "86@42", "229@427"}));
}

TEST_F(GridKeysTest, ALetterOpensTheListAndSelectsItsItem) {
    Focus(0, kSide);
    Press(Qt::Key_S);
    ASSERT_TRUE(IsOpen());
    EXPECT_EQ(Frame.Grid.GetEditor()->GetItemIndex(), 1);
    EXPECT_EQ(Keys, TTexts{"83@"});
    Press(Qt::Key_Tab);
    EXPECT_EQ(Frame.Cell(0, kSide).AsText(), "Sell");
    EXPECT_EQ(At(), "0,103");
    EXPECT_TRUE(IsOpen());
}

TEST_F(GridKeysTest, F4AndAltDownOpenListsFromClosedAndOpenCells) {
    for (const bool First : {false, true}) {
        Focus(0, kSide);
        if (First) Press(Qt::Key_F2);
        Press(First ? Qt::Key_F4 : Qt::Key_Down, First ? Qt::NoModifier : Qt::AltModifier);
        auto* Combo = dynamic_cast<QComboBox*>(GridWidget().GetEditorWidget()->Widget());
        ASSERT_NE(Combo, nullptr);
        EXPECT_NE(QApplication::activePopupWidget(), nullptr);
        Combo->hidePopup();
        Press(Qt::Key_Escape);
    }
}

TEST_F(GridKeysTest, ACellThatDoesNotOpenSaysSoUnlessItNeverDoes) {
    Frame.AllowEditing = false;
    const Qt::Key Opening[] = {Qt::Key_F2, Qt::Key_Return, Qt::Key_Delete, Qt::Key_A, Qt::Key_F4};
    for (const Qt::Key Key : Opening) {
        Focus(1, kRemark);
        Press(Key);
        EXPECT_EQ(Refused, 0);
        Focus(1, kPremium);
        Press(Key);
        EXPECT_EQ(std::exchange(Refused, 0), 1) << Key;
        EXPECT_FALSE(IsOpen());
    }
    Press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(std::exchange(Refused, 0), 1);
    Frame.AllowEditing = true;
    Focus(1, kRemark);
    Press(Qt::Key_A);
    EXPECT_TRUE(Frame.Cell(1, kRemark).IsNull());
    EXPECT_EQ(Refused, 0);
}

TEST_F(GridKeysTest, ARefusedEntryStaysOpenAndSaysWhyAtTheCellAndInTheStatusBar) {
    Frame.RefuseSymbol = "ZZZ";
    static_cast<fw::TcxPopupEditProperties*>(Frame.Grid.GetColumn(0)->GetProperties())->ShowErrorIcon = true;
    Focus(0, kSymbol);
    Press(Qt::Key_Z);
    TypeIntoEditor("zz");
    auto* Line = dynamic_cast<QLineEdit*>(EditorFocus());
    ASSERT_NE(Line, nullptr);
    const QColor Plain = Line->palette().color(QPalette::Text);
    const Qt::Key Leaving[] = {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Down, Qt::Key_Insert};
    for (const Qt::Key Key : Leaving) {
        Press(Key);
        EXPECT_TRUE(IsOpen());
        EXPECT_TRUE(Line->hasFocus());
        EXPECT_EQ(At(), "0,0");
        ASSERT_FALSE(Kept.isEmpty()) << Key;
        EXPECT_EQ(Kept.back(), "no such symbol");
        Kept.clear();
    }
    EXPECT_EQ(Line->toolTip(), "no such symbol");
    EXPECT_NE(Line->palette().color(QPalette::Text), Plain);
    EXPECT_EQ(Line->actions().size(), 1);  // the icon
    QTest::mouseClick(GridWidget().viewport(), Qt::LeftButton, {}, GridWidget().CellRect(1, 1).center());
    EXPECT_EQ(Kept, QStringList{"no such symbol"});
    EXPECT_TRUE(Line->hasFocus());
    EXPECT_EQ(At(), "0,0");
    Press(Qt::Key_Escape);
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(Frame.Cell(0, kSymbol).IsNull());
}

TEST_F(GridKeysTest, ANumberWithTwoReadingsKeepsTheEditorUntilItIsMended) {
    Host.TakeLog();
    Focus(0, kPremium);
    for (const char Letter : {'1', ',', '2', '3', '4'})
        QTest::keyClick(EditorFocus() ? EditorFocus() : &GridWidget(), Letter);
    Press(Qt::Key_Return);
    ASSERT_TRUE(IsOpen());
    EXPECT_EQ(At(), "0,103");
    ASSERT_FALSE(Kept.isEmpty());
    EXPECT_EQ(EditorFocus()->toolTip(), Kept.back());
    const qsizetype Told = Kept.size();
    QTest::mouseClick(GridWidget().viewport(), Qt::LeftButton, {}, GridWidget().CellRect(1, 1).center());
    EXPECT_EQ(Kept.size(), Told + 1);
    EXPECT_EQ(At(), "0,103");
    for (auto* Each : Window->findChildren<QPushButton*>())
        if (Each->text() == "Res_Calculate") QTest::mouseClick(Each, Qt::LeftButton);
    EXPECT_EQ(std::count(Frame.Seen.begin(), Frame.Seen.end(), "go "), 0);
    EXPECT_TRUE(EditorFocus()->hasFocus());
    Press(Qt::Key_0);
    EXPECT_TRUE(EditorFocus()->toolTip().isEmpty());
    Press(Qt::Key_Return);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Frame.Cell(0, kPremium).AsFloat(), 1.234);
    Host.TakeLog();
}

TEST_F(GridKeysTest, HiddenAndReadOnlyCellsArePassedOver) {
    Frame.Grid.GetColumn(Frame.ColumnOf(kSide))->SetVisible(false);
    Focus(0, kSymbol);
    Press(Qt::Key_Right);
    EXPECT_EQ(At(), "0,103");
    Press(Qt::Key_End);
    EXPECT_EQ(At(), "0,25");
    Press(Qt::Key_Home);
    EXPECT_EQ(At(), "0,0");
    Focus(0, kQty);
    Press(Qt::Key_Tab);
    EXPECT_EQ(At(), "1,0");
}

}  // namespace gui
