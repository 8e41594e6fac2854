// SPDX-License-Identifier: GPL-3.0-or-later
// What a view was like is there again: by undo, after a restart, under the name of a strategy.
#include <QAccessible>
#include <QLineEdit>
#include <QTreeWidget>

#include "framework/controls/SpinEdit.h"
#include "tests/gui/MainWindowTest.h"
#include "workstation/renderers/SpinEditRenderer.h"
#include "workstation/script/Player.h"
#include "workstation/store/StoreTransaction.h"
#include "workstation/views/TradingViews.h"

namespace gui {

class DraftsTest : public MainWindowTest {
protected:
    DraftsTest() {
        PlayFirstStart();
        Window->activateWindow();
        Settle();
    }

    ws::TViewDock& Dock() const { return *Window->Docks().Current(); }
    fw::TFrame& Frame() const { return *Dock().Frame(); }
    ws::TViewDraft& Draft() const { return *Window->Drafts().DraftOf(Dock()); }
    ws::TViewInputs Inputs() const { return *ws::CaptureView(Frame()); }
    // Until what was changed is a state.
    void Settle() const {
        QTest::qWait(50);
        Window->Drafts().Flush();
    }
    bool Play(const ws::TStep& Step) const { return ws::TPlayer(Frame()).Play(Step); }
    bool Returns(const ws::TViewInputs& Expected) const {
        return QTest::qWaitFor([&] { return Inputs() == Expected; }, 5000);
    }
    static void Press(Qt::Key Key, Qt::KeyboardModifiers Modifiers = {}) {
        QWidget* Focused = QApplication::focusWidget();
        if (!Focused) throw std::runtime_error("nothing has the focus");
        QTest::keyClick(Focused, Key, Modifiers);
    }
    // The program ends and starts again on the same store.
    void Restart() {
        Window.reset();
        auto Given = std::make_unique<TFakeDialogs>(Context);
        Dialogs = Given.get();
        Window = std::make_unique<ws::TMainWindow>(*Workstation, Context, std::move(Given));
        Window->ReloadViews();
        Window->show();
        Window->activateWindow();
        Window->OpenStartView();
    }
    ws::TStrategyDialog& Dialog() const {
        if (!Window->Strategies().Dialog()) throw std::runtime_error("no dialog is open");
        return *Window->Strategies().Dialog();
    }
    void SaveStrategy(const char* Name, const char* Note) const {
        Window->Commands().Run("strategy.save");
        QTest::keyClicks(&Dialog().Line(), Name);
        QTest::keyClicks(&Dialog().Note(), Note);
        QTest::keyClick(&Dialog().Note(), Qt::Key_Return);
        QTest::qWait(1);
    }
    QStringList Shown() const {
        QStringList Names;
        for (int i = 0; i < Dialog().List().topLevelItemCount(); ++i)
            if (!Dialog().List().topLevelItem(i)->isHidden()) Names << Dialog().List().topLevelItem(i)->text(0);
        return Names;
    }
};

TEST_F(DraftsTest, TheKeysOfUndoBringBackWhatClearWiped) {
    const auto Before = Inputs();
    ASSERT_EQ(Before.Rows.size(), 4u);
    Click("Clear");
    const auto Cleared = Inputs();
    ASSERT_TRUE(Cleared.Rows.empty());
    Grid().setFocus();
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(Returns(Before));
    EXPECT_TRUE(Grid().hasFocus()) << "the user goes on where he was";
    Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(Returns(Cleared));
    Window->Commands().Run("edit.redo");
    EXPECT_EQ(Window->Status().Hint(), "There is nothing to redo in this view.");
}

TEST_F(DraftsTest, WhatTheFirstStartTypedIsOneStep) {
    const auto Before = Inputs();
    ASSERT_EQ(Before.Rows.size(), 4u);
    Window->Drafts().Undo();
    EXPECT_TRUE(QTest::qWaitFor([this] { return Inputs().Rows.empty(); }, 5000));
    EXPECT_FALSE(Draft().CanUndo());
    Window->Drafts().Redo();
    EXPECT_TRUE(Returns(Before));
    EXPECT_FALSE(Draft().CanRedo());
}

TEST_F(DraftsTest, TheUndoOfALineComesFirst) {
    auto& Down = *Frame().FindControl<fw::TSpinEdit>("edtDown");
    const auto Before = Inputs();
    Down.SetFocus();
    auto* Line = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_TRUE(Line);
    Line->selectAll();
    QTest::keyClicks(Line, "23000");
    ASSERT_TRUE(Line->isUndoAvailable());
    QTest::keyClick(Line, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(Line->text(), "23000");
    EXPECT_EQ(Inputs(), Before);
    Line->selectAll();
    QTest::keyClicks(Line, "23000");
    Window->Commands().Run("edit.undo");
    EXPECT_NE(Line->text(), "23000") << "from the menu too";
    Line->selectAll();
    QTest::keyClicks(Line, "23000");
    QTest::keyClick(Line, Qt::Key_Return);
    ASSERT_EQ(Down.GetFloat(), 23000);
    ASSERT_FALSE(Line->isUndoAvailable());
    QTest::keyClick(Line, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(Returns(Before)) << "a line without anything to undo leaves the keys to the view";
}

TEST_F(DraftsTest, AStartBringsBackWhatTheLastOneLeft) {
    ASSERT_TRUE(Play(ws::TStep::CellNumber("PositionGridView", 0, 103, 123.4567)));
    ASSERT_TRUE(Play(ws::TStep::EnterNumber("edtUp", 28765.5)));
    const auto Before = Inputs();
    Restart();
    EXPECT_TRUE(Returns(Before));
    EXPECT_EQ(Before.Rows[0].Premium, 123.4567);
    EXPECT_EQ(MessageTexts(), QStringList());
    ASSERT_TRUE(Play(ws::TStep::Click("btnCalc")));
    Settle();
    Restart();
    EXPECT_TRUE(QTest::qWaitFor([this] { return ws::CaptureView(Frame())->Calculated; }, 5000));
    EXPECT_EQ(Inputs(), Before);
}

TEST_F(DraftsTest, AStartThatShallNotRestoreStartsAnewAndUndoFetchesTheLegs) {
    const auto Before = Inputs();
    Workstation->Config().WriteString("Workstation", "RestoreDrafts", "0");
    Restart();
    QTest::qWait(300);
    EXPECT_TRUE(Inputs().Rows.empty());
    Window->Commands().Run("edit.undo");
    EXPECT_TRUE(Returns(Before));
}

TEST_F(DraftsTest, AViewThatIsOpenedAgainStartsAnewAndUndoFetchesTheLegs) {
    const auto Before = Inputs();
    fw::TIBaseView& View = Dock().View();
    const std::string Key = Dock().Key();
    Window->Docks().CloseLater(Dock());
    ASSERT_TRUE(QTest::qWaitFor([this] { return Window->Docks().Docks().empty(); }, 2000));
    ASSERT_TRUE(Window->Docks().Open(View));
    ASSERT_EQ(Dock().Key(), Key);
    QTest::qWait(300);
    EXPECT_TRUE(Inputs().Rows.empty());
    Window->Commands().Run("edit.undo");
    EXPECT_TRUE(Returns(Before));
}

// Views are brought back one after the other while the user works in one of them already.
TEST_F(DraftsTest, ARestoreDoesNotTakeTheFocus) {
    const auto Before = Inputs();
    ws::TViewDock& First = Dock();
    ASSERT_TRUE(Window->Docks().Open(First.View()));
    Window->Docks().Use(Dock());
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, Grid().CellRect(0, 0).center());
    ASSERT_TRUE(Grid().GetEditorWidget());
    QTest::keyClicks(Grid().GetEditorWidget()->FocusWidget(), "HSI");
    QWidget* Focused = QApplication::focusWidget();
    ASSERT_TRUE(Focused && Dock().isAncestorOf(Focused));
    Window->Drafts().RestoreView(First);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !Window->Drafts().DraftOf(First)->IsRestoring(); }, 5000));
    EXPECT_EQ(ws::CaptureView(*First.Frame())->Inputs(), Before);
    EXPECT_EQ(QApplication::focusWidget(), Focused);
    ASSERT_TRUE(Grid().GetEditorWidget()) << "what is typed elsewhere goes on";
}

TEST_F(DraftsTest, OtherViewsHaveNothingToUndo) {
    for (const auto& View : Window->Catalog().Views())
        if (dynamic_cast<ws::TTradingView*>(View.get())) Window->Docks().Open(*View);
    EXPECT_FALSE(Window->Drafts().DraftOf(Dock()));
    Window->Drafts().Undo();
    EXPECT_EQ(Window->Status().Hint(), "There is nothing to undo in this view.");
}

TEST_F(DraftsTest, AWorkspaceHasJournalsOfItsOwn) {
    const auto Before = Inputs();
    fw::TIBaseView& View = Dock().View();
    ASSERT_TRUE(Window->Drafts().CopyJournals("", "Day"));
    Window->Docks().CloseAll();
    Window->Drafts().SetWorkspace("Day");
    Window->Drafts().RestoreView(*Window->Docks().Open(View));
    EXPECT_TRUE(Returns(Before));
    Click("Clear");
    Settle();
    Window->Docks().CloseAll();
    Window->Drafts().SetWorkspace("");
    Window->Drafts().RestoreView(*Window->Docks().Open(View));
    EXPECT_TRUE(Returns(Before)) << "the other workspace's journal was left alone";
    Window->Drafts().SetWorkspace("Night");  // save as, with the view open
    Settle();
    EXPECT_FALSE(Workstation->Store().LoadJournal({"Night", Dock().Key()}).States.empty());
    ASSERT_TRUE(Window->Drafts().RemoveJournals("Day"));
    EXPECT_TRUE(Workstation->Store().LoadJournal({"Day", Dock().Key()}).States.empty());
    ASSERT_TRUE(Window->Drafts().RemoveJournals("Night"));
    Settle();
    EXPECT_FALSE(Workstation->Store().LoadJournal({"Night", Dock().Key()}).States.empty()) << "the open view keeps it";
}

TEST_F(DraftsTest, OnlyLegsAreWorthSaving) {
    SaveStrategy("Condor", "wide");
    EXPECT_FALSE(Window->Strategies().Dialog());
    EXPECT_EQ(Window->Status().Hint(), "Strategy “Condor” saved.");
    Click("Clear");
    Window->Commands().Run("strategy.save");
    EXPECT_FALSE(Window->Strategies().Dialog());
    EXPECT_EQ(Window->Status().Hint(), "The view has no legs to save.");
    Window->Docks().CloseAll();
    Window->Commands().Run("strategy.open");
    EXPECT_EQ(Window->Status().Hint(), "Open a payoff view first.");
}

TEST_F(DraftsTest, AnOpenedStrategyIsOneUndoableStep) {
    const auto Before = Inputs();
    SaveStrategy("Condor", "wide");
    ASSERT_TRUE(Play(ws::TStep::CellNumber("PositionGridView", 0, 4, 9)));
    SaveStrategy("Straddle", "for the numbers");
    Click("Clear");
    ASSERT_TRUE(Play(ws::TStep::EnterNumber("edtUp", 40000)));
    const auto Cleared = Inputs();
    Window->Commands().Run("strategy.open");
    EXPECT_EQ(Shown(), (QStringList{"Condor", "Straddle"}));
    QTest::keyClicks(&Dialog().Line(), "WID");
    EXPECT_EQ(Shown(), QStringList{"Condor"}) << "the note counts, the case does not";
    QTest::keyClick(&Dialog().Line(), Qt::Key_Return);
    EXPECT_TRUE(Returns(Before));
    QTest::qWait(1);
    EXPECT_FALSE(Window->Strategies().Dialog());
    EXPECT_FALSE(ws::CaptureView(Frame())->Calculated) << "nothing is pressed for the user";
    Window->Drafts().Undo();
    EXPECT_TRUE(Returns(Cleared));
    Window->Commands().Run("strategy.open");
    QTest::keyClick(&Dialog().Line(), Qt::Key_Down);
    QTest::keyClick(&Dialog().Line(), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Inputs().Rows.size() == 4 && Inputs().Rows[0].Qty == 9; }, 5000));
}

TEST_F(DraftsTest, SavingOverANameAndDeletingAsk) {
    SaveStrategy("Condor", "wide");
    Dialogs->Yes = false;
    SaveStrategy("Condor", "other");
    ASSERT_EQ(Dialogs->Asked.size(), 1u);
    EXPECT_EQ(Dialogs->Asked[0], "There is a strategy “Condor” already. Replace it?");
    ASSERT_TRUE(Window->Strategies().Dialog()) << "the user may choose another name";
    Dialogs->Yes = true;
    QTest::keyClick(&Dialog().Line(), Qt::Key_Return);
    QTest::qWait(1);
    const auto User = Workstation->User().Code;
    ASSERT_EQ(Workstation->Store().LoadStrategies(User).size(), 1u);
    EXPECT_EQ(Workstation->Store().LoadStrategies(User)[0].Note, "other");
    Window->Commands().Run("strategy.open");
    Dialogs->Yes = false;
    QTest::keyClick(&Dialog().List(), Qt::Key_Delete);
    EXPECT_EQ(Workstation->Store().LoadStrategies(User).size(), 1u);
    Dialogs->Yes = true;
    QTest::keyClick(&Dialog().List(), Qt::Key_Delete);
    EXPECT_TRUE(Workstation->Store().LoadStrategies(User).empty());
    EXPECT_TRUE(Shown().isEmpty());
    EXPECT_FALSE(Dialog().TakeButton().isEnabled());
    EXPECT_FALSE(Dialog().RemoveButton().isEnabled());
    QTest::keyClick(&Dialog().Line(), Qt::Key_Escape);
    QTest::qWait(1);
    Window->Commands().Run("strategy.open");
    EXPECT_FALSE(Window->Strategies().Dialog());
    EXPECT_EQ(Window->Status().Hint(), "No strategy is saved yet.");
}

TEST_F(DraftsTest, ToSaveAChosenLineGivesNameAndNote) {
    SaveStrategy("Condor", "wide");
    Window->Commands().Run("strategy.save");
    EXPECT_FALSE(Dialog().TakeButton().isEnabled()) << "without a name nothing is saved";
    QTest::keyClick(&Dialog().Line(), Qt::Key_Down);
    EXPECT_EQ(Dialog().Line().text(), "Condor");
    EXPECT_EQ(Dialog().Note().text(), "wide");
    EXPECT_TRUE(Dialog().TakeButton().isEnabled());
    for (QWidget* Each : {static_cast<QWidget*>(&Dialog().Line()), static_cast<QWidget*>(&Dialog().Note()),
                          static_cast<QWidget*>(&Dialog().List())})
        EXPECT_NE(QAccessible::queryAccessibleInterface(Each)->text(QAccessible::Name), "");
}

// --- a store in a file

class DraftsFileTest : public testing::Test {
protected:
    DraftsFileTest() {
        fw::TClock::Fix(std::chrono::sys_days(std::chrono::year(2026) / 11 / 20) + std::chrono::hours(4));
        fs::create_directories(Folder);
        ws::TWorkstationOptions Options;
        Options.StoreFile = Folder / "store.db";
        Options.SampleFolder = TEST_SAMPLE_FOLDER;
        Workstation = std::make_unique<ws::TWorkstation>(Options);
        Workstation->Store().WriteSetting("Shell", "FirstStartDone", "1");
        Context.SetSkin("Light");
        Window = std::make_unique<ws::TMainWindow>(*Workstation, Context, std::make_unique<TFakeDialogs>(Context));
        EXPECT_TRUE(ws::LoadPackage(TEST_PACKAGE));
        Window->ReloadViews();
        Window->show();
        Window->OpenStartView();
        Window->Drafts().Flush();
    }
    ~DraftsFileTest() override {
        Window.reset();
        Workstation.reset();
        fs::remove_all(Folder);
        fw::TClock::Fix({});
    }
    fs::path Folder = fs::temp_directory_path() / ("drafts-" + std::to_string(::getpid()));
    std::unique_ptr<ws::TWorkstation> Workstation;
    ws::TRenderContext Context;
    std::unique_ptr<ws::TMainWindow> Window;
};

TEST_F(DraftsFileTest, AStoreThatTakesNothingIsNamedOnceAndTriedAgain) {
    std::vector<fw::Text> Keys;
    const auto Link = fw::TLog::Entries().Connect([&](const auto& Entry) { Keys.push_back(Entry.Key); });
    ws::TViewDock& Dock = *Window->Docks().Current();
    ws::TPlayer Player(*Dock.Frame());
    const ws::TJournalKey Key{"", Dock.Key()};
    const auto States = [&] { return Workstation->Store().LoadJournal(Key).States.size(); };
    const size_t Before = States();
    ASSERT_GT(Before, 0u);
    const auto Other = ws::TStore::OpenFile(Folder / "store.db", "2026/11/20 12:00:00").Store;
    {
        ws::TStoreTransaction Held(*Other);
        for (const double Up : {50000.0, 51000.0}) {
            ASSERT_TRUE(Player.Play(ws::TStep::EnterNumber("edtUp", Up)));
            Window->Drafts().Flush();
        }
        EXPECT_EQ(Keys, std::vector<fw::Text>{"Res_DraftsNotWritten"});
    }
    Window->Drafts().Flush();
    EXPECT_EQ(States(), Before + 2) << "what was kept meanwhile is there";
    EXPECT_EQ(Keys.back(), "Res_DraftsWrittenAgain");
}

}  // namespace gui
