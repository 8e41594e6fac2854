// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/gui/MainWindowTest.h"

#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QTableWidget>

#include <set>

#include "framework/controls/Button.h"
#include "framework/controls/Chart.h"
#include "workstation/renderers/WindowedGridRenderer.h"

namespace gui {

class CommandsTest : public MainWindowTest {
protected:
    void SetUp() override {
        Window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(Window.get()));
    }
    void Press(int Key, Qt::KeyboardModifiers Modifiers = Qt::NoModifier) {
        QWidget* Focused = QApplication::focusWidget();
        QTest::keyClick(Focused ? Focused : Window.get(), static_cast<Qt::Key>(Key), Modifiers);
    }
    static QAction* FindEntry(const QMenu& Menu, const QString& Text) {
        for (QAction* Each : Menu.actions()) {
            if (ws::PlainCaption(Each->text()) == Text) return Each;
            if (QAction* Inner = Each->menu() ? FindEntry(*Each->menu(), Text) : nullptr) return Inner;
        }
        return nullptr;
    }
    QAction* Entry(const QString& Text) const {
        for (QAction* Top : Window->menuBar()->actions())
            if (QAction* Found = Top->menu() ? FindEntry(*Top->menu(), Text) : nullptr) return Found;
        return nullptr;
    }
};

TEST(ShippedCommandsTest, EveryCommandHasKeysOfItsOwn) {
    std::set<QString> Taken;
    for (const ws::TCommand& Command : ws::ShippedCommands()) {
        const auto Keys = QKeySequence::listFromString(ws::ToQt(Command.Keys), QKeySequence::PortableText);
        EXPECT_FALSE(Keys.isEmpty()) << Command.Id;
        for (const QKeySequence& Each : Keys) {
            EXPECT_FALSE(Each.isEmpty()) << Command.Id;
            EXPECT_TRUE(Taken.insert(Each.toString()).second) << Command.Id << " " << ws::FromQt(Each.toString());
        }
    }
    for (int Number = 1; Number <= 9; ++Number) EXPECT_FALSE(Taken.contains("Ctrl+" + QString::number(Number)));
}

TEST(PlainCaptionTest, TheMarkOfTheMenuKeyGoesAndADoubledOneStays) {
    EXPECT_EQ(ws::PlainCaption("&Import…"), "Import…");
    EXPECT_EQ(ws::PlainCaption("匯入(&I)…"), "匯入…");
    EXPECT_EQ(ws::PlainCaption("P&&L"), "P&L");
}

TEST_F(CommandsTest, AMenuEntryShowsItsKeysAndFollowsTheLanguage) {
    ASSERT_NE(Entry("Calculate"), nullptr);
    EXPECT_EQ(Entry("Calculate")->shortcut(), QKeySequence("F9"));
    Window->SetLanguage(1);
    EXPECT_EQ(Entry("Calculate"), nullptr);
    ASSERT_NE(Entry("計算"), nullptr);
    EXPECT_EQ(Entry("計算"), Window->Commands().Action("view.calculate"));
}

TEST_F(CommandsTest, EveryShippedCommandDoesSomething) {
    for (const ws::TCommand& Each : ws::ShippedCommands())
        EXPECT_NE(Window->Commands().Action(Each.Id), nullptr) << Each.Id;
}

TEST_F(CommandsTest, EveryBoundCommandStandsInAMenu) {
    std::set<const QAction*> Shown;
    std::function<void(const QMenu&)> Take = [&](const QMenu& Menu) {
        for (const QAction* Each : Menu.actions()) {
            Shown.insert(Each);
            if (Each->menu()) Take(*Each->menu());
        }
    };
    for (const QAction* Top : Window->menuBar()->actions())
        if (Top->menu()) Take(*Top->menu());
    for (const auto& Each : Window->Commands().All())
        EXPECT_TRUE(Shown.contains(Window->Commands().Action(Each.Id))) << Each.Id;
}

TEST_F(CommandsTest, F9CalculatesAndTheWindowSaysWhenAButtonCannotBePressed) {
    fw::TFrame& Frame = PlayFirstStart();
    Click("Clear");
    auto* Chart = Frame.FindControl<fw::TChart>("DataChart");
    TypeCell(0, 0, "hsi25600x6", Qt::Key_Tab);
    Press(Qt::Key_Escape);
    Press(Qt::Key_F9);
    EXPECT_EQ(Chart->Series()[0]->GetCount(), 3);  // the two ends and the strike
    Frame.FindControl<fw::TButton>("btnCalc")->SetEnabled(false);
    Press(Qt::Key_F9);
    EXPECT_TRUE(Window->Status().Hint().contains("Calculate")) << ws::FromQt(Window->Status().Hint());
}

TEST_F(CommandsTest, CaptionButtonsArePressedByKeys) {
    PlayFirstStart();
    ws::TViewDock& Dock = *Window->Docks().Current();
    Press(Qt::Key_H, Qt::ControlModifier);
    EXPECT_EQ(Dock.TitleBar().Buttons()[1]->toolTip(), "Show the chart hint");
    EXPECT_TRUE(Grid().isVisible());
    Press(Qt::Key_M, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !Grid().isVisible(); }));
    Press(Qt::Key_M, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Grid().isVisible(); }));
}

TEST_F(CommandsTest, TheLinkGroupIsChosenByKeys) {
    PlayFirstStart();
    ws::TViewDock& Dock = *Window->Docks().Current();
    Press(Qt::Key_G, Qt::ControlModifier);
    QMenu* Menu = Dock.TitleBar().GroupButton().Menu();
    ASSERT_NE(Menu, nullptr);
    QTest::keyClick(Menu, Qt::Key_Down);
    QTest::keyClick(Menu, Qt::Key_Down);
    QTest::keyClick(Menu, Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !Dock.GetGroup().empty(); }));
}

TEST_F(CommandsTest, F6WalksOverEveryPanelAndComesBack) {
    PlayFirstStart();
    Grid().setFocus();
    std::vector<QWidget*> Stops{QApplication::focusWidget()};
    for (int i = 0; i < 12; ++i) {
        Press(Qt::Key_F6);
        if (QApplication::focusWidget() == Stops.front()) break;
        Stops.push_back(QApplication::focusWidget());
    }
    EXPECT_EQ(QApplication::focusWidget(), Stops.front());
    EXPECT_GE(Stops.size(), 5u);  // grid, range, results, messages, selectors
    EXPECT_TRUE(std::any_of(Stops.begin(), Stops.end(),
                            [](QWidget* Each) { return dynamic_cast<ws::TWindowedGridRenderer*>(Each) != nullptr; }));
    EXPECT_TRUE(
        std::any_of(Stops.begin(), Stops.end(), [&](QWidget* Each) { return Window->Panel().isAncestorOf(Each); }));
    Press(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), Stops.back());
}

TEST_F(CommandsTest, ViewsAreOpenedWalkedAndClosedByKeys) {
    Press(Qt::Key_1, Qt::ControlModifier);
    ASSERT_EQ(Window->Docks().Docks().size(), 1u);
    EXPECT_EQ(Window->Docks().Current()->Key(), std::to_string(Window->Docks().Current()->View().GetViewID()) + "-1");
    Press(Qt::Key_1, Qt::ControlModifier);
    ASSERT_EQ(Window->Docks().Docks().size(), 2u);
    ws::TViewDock* Second = Window->Docks().Current();
    EXPECT_TRUE(Second->Key().ends_with("-2"));
    Press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(Window->Docks().Current(), Window->Docks().Docks()[0]);
    Press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Window->Docks().Docks().size() == 1; }));
    Press(Qt::Key_1, Qt::ControlModifier);
    EXPECT_TRUE(Window->Docks().Current()->Key().ends_with("-1"));  // the first number that is free
}

TEST_F(CommandsTest, TheSheetListsEveryCommandWithItsKeysAndFilters) {
    Press(Qt::Key_F1);
    auto* Sheet = Window->findChild<QDialog*>("shortcut-sheet");
    ASSERT_NE(Sheet, nullptr);
    auto* Table = Sheet->findChild<QTableWidget*>();
    const auto All = Window->Commands().All();
    ASSERT_GT(Table->rowCount(), static_cast<int>(All.size()));
    for (size_t i = 0; i < All.size(); ++i) {
        EXPECT_EQ(Table->item(static_cast<int>(i), 1)->text(), All[i].Caption);
        EXPECT_FALSE(Table->item(static_cast<int>(i), 2)->text().isEmpty()) << All[i].Id;
    }
    Sheet->findChild<QLineEdit*>()->setText("panel next");
    int Left = 0;
    for (int Row = 0; Row < Table->rowCount(); ++Row) Left += Table->isRowHidden(Row) ? 0 : 1;
    EXPECT_EQ(Left, 1);
    QTest::keyClick(Sheet, Qt::Key_F1);
    EXPECT_FALSE(Sheet->isVisible());
}

TEST_F(CommandsTest, TheUsersOwnKeysReplaceTheShippedOnes) {
    Workstation->Config().WriteString("Shortcuts", "view.messages", "Ctrl+Alt+M");
    const bool Shown = Window->Panel().isVisible();
    Press(Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Window->Panel().isVisible(), Shown);
    Press(Qt::Key_M, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_NE(Window->Panel().isVisible(), Shown);
}

}  // namespace gui
