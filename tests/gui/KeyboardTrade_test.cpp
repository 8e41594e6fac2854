// SPDX-License-Identifier: GPL-3.0-or-later
// What a trader does with the keyboard and the clipboard in the real window.
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "framework/controls/Chart.h"
#include "framework/controls/ComboBox.h"
#include "framework/controls/SpinEdit.h"
#include "framework/data/ColumnIds.h"
#include "tests/gui/MainWindowTest.h"
#include "workstation/renderers/WindowedGridRenderer.h"

namespace gui {

constexpr int kStrike = 27, kExpiry = 29;  // filled by the view, never typed

class KeyboardTradeTest : public MainWindowTest {
protected:
    KeyboardTradeTest() {
        Workstation->Store().WriteSetting("Shell", "FirstStartDone", "1");
        Window->OpenStartView();
        Window->activateWindow();
        QTest::qWait(1);
        Frame = Window->Docks().Current()->Frame();
        Legs = Frame->FindControl<fw::TGridTableView>("PositionGridView");
    }
    ~KeyboardTradeTest() override { QGuiApplication::clipboard()->clear(); }

    static void Press(Qt::Key Key, Qt::KeyboardModifiers Modifiers = {}) {
        QWidget* Focused = QApplication::focusWidget();
        if (!Focused) throw std::runtime_error("nothing has the focus");
        QTest::keyClick(Focused, Key, Modifiers);
    }
    // Each key goes to whoever has the focus by then: the first one may open a cell.
    static void Type(const char* Text) {
        for (; *Text; ++Text) QTest::keyClick(QApplication::focusWidget(), *Text);
    }
    template <class T>
    T& Control(const char* Name) {
        return *Frame->FindControl<T>(Name);
    }
    void ChooseMarket() {
        for (const char* Name : {"cmbExchange", "cmbSeries", "cmbMonth"}) {
            Control<fw::TComboBox>(Name).SetFocus();
            Press(Qt::Key_Home);
        }
        ASSERT_TRUE(Control<fw::TComboBox>("cmbSeries").GetText().starts_with("HSI"));
        ASSERT_EQ(Control<fw::TComboBox>("cmbMonth").GetText(), "2026-12");
    }
    fw::Variant Cell(int Row, int Tag) const {
        for (int i = 0; i < Legs->GetColumnCount(); ++i)
            if (Legs->GetColumn(i)->Tag == Tag) return Legs->GetDataController().GetValue(Row, i);
        return {};
    }
    void Focus(int Row, int Tag) {
        Grid().setFocus();
        for (int i = 0; i < Legs->GetColumnCount(); ++i)
            if (Legs->GetColumn(i)->Tag == Tag) Legs->SetFocusedCell(Row, i);
    }
    QString Hint() const { return Window->Status().Hint(); }

    fw::TFrame* Frame = nullptr;
    fw::TGridTableView* Legs = nullptr;
};

TEST_F(KeyboardTradeTest, AnIronCondorIsTypedAndCalculatedWithoutTheMouse) {
    ChooseMarket();
    Focus(0, fw::kColumnSymbol);
    const struct {
        const char *Symbol, *Side, *Premium;
    } Condor[] = {
        {"hsi25000x6", "b", "30"}, {"hsi25600x6", "s", "90"}, {"hsi27400l6", "s", "80"}, {"hsi28000l6", "b", "25"}};
    for (const auto& Leg : Condor) {
        Press(Qt::Key_Insert);  // to the input row
        Type(Leg.Symbol);
        Press(Qt::Key_Tab);
        Type(Leg.Side);
        Press(Qt::Key_Tab);
        Type(Leg.Premium);
        Press(Qt::Key_Return);
    }
    ASSERT_EQ(Legs->GetDataController().GetRecordCount(), 5);
    EXPECT_EQ(Cell(1, fw::kColumnSymbol).AsText(), "HSI25600X6");
    EXPECT_EQ(Cell(1, fw::kColumnSide).AsText(), "Sell");
    EXPECT_EQ(Cell(3, fw::kColumnPremium).AsFloat(), 25.0);
    Focus(0, fw::kColumnQuantity);
    for (int Row = 0; Row < 4; ++Row) {
        Type("2");
        Press(Qt::Key_Return);
    }
    EXPECT_EQ(Cell(3, fw::kColumnQuantity).AsFloat(), 2.0);
    const std::pair<const char*, const char*> Range[] = {
        {"edtDown", "24000"}, {"edtUp", "29000"}, {"edtInterval", "100"}};
    for (const auto& [Name, Text] : Range) {
        Control<fw::TSpinEdit>(Name).SetFocus();
        Press(Qt::Key_A, Qt::ControlModifier);
        Type(Text);
        Press(Qt::Key_Return);
    }
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Cell(3, kExpiry).AsText().empty(); }, 5000))
        << "market data come by and by";
    for (auto* Each : Window->Docks().Current()->findChildren<QPushButton*>())
        if (Each->text() == "Calculate") Each->setFocus();
    Press(Qt::Key_Space);
    const auto& Line = *Control<fw::TChart>("DataChart").Series()[0];
    ASSERT_EQ(Line.GetCount(), 6);  // both ends and four strikes
    const double Credit = 90 + 80 - 30 - 25;
    EXPECT_EQ(Line.GetY(2), Credit * 2 * 50);          // between the short strikes
    EXPECT_EQ(Line.GetY(0), (Credit - 600) * 2 * 50);  // beyond the wings
}

TEST_F(KeyboardTradeTest, DeletingASymbolTakesItsRowAway) {
    ChooseMarket();
    QGuiApplication::clipboard()->setText("HSI25600X6\tSell\t1\nHSI26400L6\tSell\t2\n");
    Focus(0, fw::kColumnSymbol);
    Press(Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(Legs->GetDataController().GetRecordCount(), 3);
    Focus(0, fw::kColumnSymbol);
    Press(Qt::Key_Delete);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Legs->GetDataController().GetRecordCount() == 2; }, 3000));
    EXPECT_EQ(Cell(0, fw::kColumnSymbol).AsText(), "HSI26400L6");
}

TEST_F(KeyboardTradeTest, ASpunQuantityKeepsToTheLotAndATypedOneDoesNot) {
    ChooseMarket();
    Focus(0, fw::kColumnSymbol);
    Type("hsi25600x6");
    Press(Qt::Key_Return);
    Focus(0, fw::kColumnQuantity);
    Press(Qt::Key_F2);
    Press(Qt::Key_A, Qt::ControlModifier);
    Type("2.5");
    EXPECT_EQ(Legs->GetEditor()->GetValue().AsFloat(), 2.5);
    Press(Qt::Key_Up);
    EXPECT_EQ(Legs->GetEditor()->GetValue().AsFloat(), 3.0);
}

TEST_F(KeyboardTradeTest, ACellThatIsNeverTypedSaysNothing) {
    ChooseMarket();
    const QString Before = Hint();
    Focus(0, kStrike);
    Type("1");
    EXPECT_EQ(Hint(), Before);
    EXPECT_EQ(Legs->GetEditor(), nullptr);
    EXPECT_TRUE(Cell(0, kStrike).IsNull());
}

TEST_F(KeyboardTradeTest, PastedLegsAreReportedInTheStatusBarAndTheMessages) {
    ChooseMarket();
    QGuiApplication::clipboard()->setText("Symbol\tSide\tPremium\r\nHSI25600X6\tSell\t1\r\nHSI26400L6\tSold\t2\r\n");
    Focus(0, fw::kColumnPremium);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Legs->GetDataController().GetRecordCount(), 3);
    EXPECT_EQ(Hint(),
              "2 of 2 legs pasted; 1 cells were not taken. Row 3, Side: \u201cSold\u201d was not taken. \"Sold\" is "
              "not an entry of this list; the previous value stays.");
    EXPECT_TRUE(MessageTexts().join('\n').contains("Row 3, Side"));
    Window->SetLanguage(1);
    EXPECT_TRUE(Hint().contains("買賣")) << ws::FromQt(Hint());
    Window->SetLanguage(0);
}

TEST_F(KeyboardTradeTest, WhatIsCopiedCanBePastedAgain) {
    ChooseMarket();
    QGuiApplication::clipboard()->setText("HSI25600X6\tSell\t1.25\t3\nHSI26400L6\tBuy\t2\t4");
    Focus(0, fw::kColumnSymbol);
    Press(Qt::Key_V, Qt::ControlModifier);
    Press(Qt::Key_C, Qt::ControlModifier);
    const QString Copied = QGuiApplication::clipboard()->text();
    EXPECT_EQ(Copied.count('\n'), 3) << ws::FromQt(Copied);
    EXPECT_TRUE(Copied.contains("\t1.25\t"));
    Click("Clear");
    ASSERT_EQ(Legs->GetDataController().GetRecordCount(), 1);
    Focus(0, fw::kColumnSymbol);
    Press(Qt::Key_V, Qt::ControlModifier);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), Copied);
}

TEST_F(KeyboardTradeTest, TheEditMenuServesTheTableThatHadTheFocus) {
    ChooseMarket();
    QGuiApplication::clipboard()->setText("HSI25600X6\tSell\t1\nHSI26400L6\tBuy\t2");
    QMenu* Edit = nullptr;
    for (QAction* Each : Window->menuBar()->actions())
        if (Each->text() == "&Edit") Edit = Each->menu();
    ASSERT_NE(Edit, nullptr);
    const auto Entry = [Edit](const char* Id) {
        for (QAction* Each : Edit->actions())
            if (Each->objectName() == Id) return Each;
        throw std::runtime_error("no such entry");
    };
    Entry("edit.paste")->trigger();  // the focus is in a selector: the legs' table takes them
    EXPECT_EQ(Legs->GetDataController().GetRecordCount(), 3);
    Click("Calculate");
    for (auto* Each : Window->Docks().Current()->findChildren<QWidget*>())
        if (dynamic_cast<ws::TWindowedGridRenderer*>(Each)) Each->setFocus();
    Entry("edit.copy")->trigger();
    const auto* Detail = Frame->FindControl<fw::TGridTableView>("DetailGridView");
    EXPECT_EQ(QGuiApplication::clipboard()->text().count('\n'), Detail->GetDataController().GetRecordCount() + 1);
}

}  // namespace gui
