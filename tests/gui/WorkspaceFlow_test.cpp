// SPDX-License-Identifier: GPL-3.0-or-later
#include <QLabel>
#include <QMenu>

#include "framework/controls/SpinEdit.h"
#include "tests/gui/WorkspaceTest.h"

namespace gui {

using TKeys = std::vector<std::string>;
using TTime = ws::TAutoSave::TTime;

class WorkspaceFlowTest : public WorkspaceTest {
protected:
    std::vector<fw::Text> Logged() const {
        std::vector<fw::Text> Keys;
        for (const auto& Each : Log.Entries)
            if (Each.Key.starts_with("Res_Workspace")) Keys.push_back(Each.Key);
        return Keys;
    }
    bool SaysLocked() const {
        for (const auto* Each : Window->Status().findChildren<QLabel*>())
            if (Each->text() == Context.Translate("Res_WorkspaceLockedNow")) return true;
        return false;
    }
    bool Offers(const char* Id) const {
        Window->Commands().RefreshState();
        return Window->Commands().Action(Id)->isEnabled();
    }

    fw::TLogRecorder Log;
};

// --- saved by itself

TEST_F(WorkspaceFlowTest, AChangeIsSavedByItselfAfterFiveSeconds) {
    Start();
    const TTime Begin = std::chrono::steady_clock::now() + std::chrono::hours(1);
    EXPECT_FALSE(fs::exists(FileOf()));
    Flow().Poll(Begin);
    Flow().Poll(Begin + std::chrono::milliseconds(4999));
    EXPECT_FALSE(fs::exists(FileOf()));
    Flow().Poll(Begin + std::chrono::seconds(5));
    EXPECT_EQ(Sections(FileOf()).size(), 2u);
    Open(kOrders);
    Flow().Poll(Begin + std::chrono::seconds(6));
    Flow().Poll(Begin + std::chrono::seconds(11));
    EXPECT_EQ(Sections(FileOf()).size(), 3u);
    EXPECT_TRUE(fs::exists(FileOf().string() + ".1"));
    Kill();  // as a crash would
    Start();
    EXPECT_EQ(Keys(), (TKeys{"620-1", "701-1"}));
}

TEST_F(WorkspaceFlowTest, AWorkspaceThatEndedTheProgramIsAskedAboutBeforeItIsOpenedAgain) {
    Start();
    ASSERT_TRUE(ws::TPlayer(*Dock("620-1").Frame()).Play(ws::TStep::EnterNumber("edtDown", 12345)));
    Open(kOrders);
    Restart();
    const auto Down = [this] { return Dock("620-1").Frame()->FindControl<fw::TSpinEdit>("edtDown")->GetFloat(); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return Down() == 12345; }));
    EXPECT_EQ(Workstation->Store().ReadSetting("Workspace", "Opening"), "trader");
    const std::string Whole = Text(FileOf());
    Kill();  // before the views had settled
    struct TRefusing : TFakeDialogs {
        explicit TRefusing(const ws::TRenderContext& Context) : TFakeDialogs(Context) { Yes = false; }
    };
    StartWith(std::make_unique<TRefusing>(Context));
    ASSERT_EQ(Dialogs->Asked.size(), 1u);
    EXPECT_NE(Dialogs->Asked[0].find("last start"), fw::Text::npos);
    EXPECT_EQ(Keys(), (TKeys{"620-1"}));
    Change();
    End();
    EXPECT_EQ(Text(FileOf()), Whole) << "left as it was";
    Start();
    EXPECT_TRUE(Dialogs->Asked.empty());
    EXPECT_EQ(Keys(), (TKeys{"620-1", "701-1"}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return Down() == 12345; })) << "its drafts were left alone, too";
}

TEST_F(WorkspaceFlowTest, NothingIsSavedWhileAWorkspaceIsAskedAbout) {
    Start();
    Open(kOrders);
    Restart();
    const std::string Whole = Text(FileOf());
    Kill();
    // The question runs the loop, in which the timer of the saver comes.
    struct TWaiting : TFakeDialogs {
        using TFakeDialogs::TFakeDialogs;
        std::function<void()> Meanwhile;
        bool Ask(QWidget* Parent, const QString& Question) override {
            Meanwhile();
            return TFakeDialogs::Ask(Parent, Question);
        }
    };
    auto Given = std::make_unique<TWaiting>(Context);
    Given->Meanwhile = [&] {
        const TTime Begin = std::chrono::steady_clock::now() + std::chrono::hours(1);
        Flow().Poll(Begin);
        Flow().Poll(Begin + std::chrono::seconds(10));
    };
    StartWith(std::move(Given));
    ASSERT_EQ(Dialogs->Asked.size(), 1u);
    EXPECT_EQ(Text(FileOf()), Whole);
    EXPECT_EQ(Keys(), (TKeys{"620-1", "701-1"}));
}

TEST_F(WorkspaceFlowTest, AWindowThatClosesTakesItsFloatingViewsAlong) {
    Start();
    Dock("620-1").setFloating(true);
    ASSERT_TRUE(Dock("620-1").isVisible());
    EXPECT_TRUE(Window->close());
    EXPECT_FALSE(Dock("620-1").isVisible()) << "it would keep the program alive";
    Kill();
    Start();
    EXPECT_TRUE(Dock("620-1").isFloating());
    EXPECT_TRUE(Dock("620-1").isVisible());
}

TEST_F(WorkspaceFlowTest, AnImportOverTheOpenWorkspaceIsAskedAbout) {
    Start();
    Flow().Export(Top / "out.workspace");
    Dialogs->File = ws::ToQt((Top / "out.workspace").string());
    Dialogs->Text = Context.Translate("Res_WorkspaceDefault");
    Dialogs->Yes = false;
    ws::TViewDock* Before = &Dock("620-1");
    Window->Commands().Run("workspace.import");
    ASSERT_EQ(Dialogs->Asked.size(), 2u);  // the name, and whether it is to be replaced
    EXPECT_EQ(&Dock("620-1"), Before);
    EXPECT_EQ(Flow().Names(), (TKeys{ws::kDefaultWorkspace}));
}

TEST_F(WorkspaceFlowTest, AChangeInsideAViewIsOneToo) {
    Start();
    ASSERT_TRUE(Flow().Leave());
    Combo(Dock("620-1"), "cmbSeries").SetItemIndex(1);
    const TTime Begin = std::chrono::steady_clock::now() + std::chrono::hours(1);
    Flow().Poll(Begin);
    Flow().Poll(Begin + std::chrono::seconds(5));
    EXPECT_EQ(Sections(FileOf())[1].Get("layout"), LayoutOf(Dock("620-1")));
}

TEST_F(WorkspaceFlowTest, WhatCannotBeSavedIsSaidOnceAndTriedAgain) {
    Start();
    Put(Top / "workspaces", "a file where the folder would be");
    EXPECT_TRUE(Flow().Leave()) << "the user goes on all the same";
    Dialogs->Yes = false;
    EXPECT_FALSE(Flow().Leave());
    EXPECT_EQ(Dialogs->Asked.size(), 2u);
    EXPECT_FALSE(Window->close()) << "the user would rather stay";
    EXPECT_EQ(Logged(), TKeys{"Res_WorkspaceNotSaved"});
    fs::remove(Top / "workspaces");
    const TTime Begin = std::chrono::steady_clock::now() + std::chrono::hours(1);
    Flow().Poll(Begin);
    Flow().Poll(Begin + std::chrono::seconds(60));
    EXPECT_FALSE(fs::exists(FileOf())) << "nothing has changed since";
    Change();
    Flow().Poll(Begin + std::chrono::seconds(61));
    Flow().Poll(Begin + std::chrono::seconds(66));
    EXPECT_TRUE(fs::exists(FileOf()));
    EXPECT_EQ(Logged().size(), 1u);
}

// --- files that are not as they should be

TEST_F(WorkspaceFlowTest, ADamagedFileFallsBackToTheLastGoodOneWithAMessage) {
    Start();
    Open(kOrders);
    End();
    Start();
    Open(kPositions);
    End();
    const std::string Whole = Text(FileOf());
    for (const std::string& Bad : {std::string(), Whole.substr(0, Whole.size() / 2), std::string("\0\1\2", 3)}) {
        SCOPED_TRACE(Bad.size());
        Put(FileOf(), Bad);
        Log.Entries.clear();
        Start();
        EXPECT_EQ(Keys(), (TKeys{"620-1", "701-1"}));
        EXPECT_EQ(Logged(), (TKeys{"Res_WorkspaceFromBackup", "Res_WorkspaceSetAside"}));
        EXPECT_EQ(Text(Log.Entries.back().Args.at(0)), Bad);
        Kill();
    }
}

TEST_F(WorkspaceFlowTest, WithoutABackupItBeginsWithTheStartViewAndIsSavedAnew) {
    Put(FileOf(), "nonsense");
    Start();
    EXPECT_EQ(Keys(), TKeys{"620-1"});
    EXPECT_EQ(Logged(), (TKeys{"Res_WorkspaceLost", "Res_WorkspaceSetAside"}));
    Restart();
    EXPECT_EQ(Logged().size(), 2u) << "said once";
}

TEST_F(WorkspaceFlowTest, AFileOfALaterFormatIsShownAndNeverWrittenOver) {
    const std::string Later = "ventiq-workspace=2\n[view]\nid=701\nkey=701-5\nnew=1\nend=another sum\n";
    Put(FileOf(), Later);
    Start();
    EXPECT_EQ(Keys(), TKeys{"701-5"});
    EXPECT_EQ(Logged(), TKeys{"Res_WorkspaceNewer"});
    Open(kPayoff);
    const TTime Begin = std::chrono::steady_clock::now() + std::chrono::hours(1);
    Flow().Poll(Begin);
    Flow().Poll(Begin + std::chrono::seconds(9));
    EXPECT_TRUE(Flow().Leave());
    EXPECT_EQ(Text(FileOf()), Later);
    Flow().SaveAs("mine");
    Open(kPositions);
    Restart();
    EXPECT_EQ(Flow().Name(), "mine");
    EXPECT_EQ(Keys(), (TKeys{"701-5", "620-1", "702-1"}));
    EXPECT_EQ(Sections(FileOf("mine"))[1].Get("new"), "1");
    EXPECT_EQ(Text(FileOf()), Later);
}

// --- several workspaces

TEST_F(WorkspaceFlowTest, WorkspacesAreSavedUnderNamesAndSwitched) {
    Start();
    std::vector<std::string> Told;
    fw::TConnections Links;
    Links += Flow().OnSwitched.Connect([&](const auto& Name) { Told.push_back("open " + Name); });
    Links += Flow().OnCopied.Connect([&](const auto& From, const auto& To) { Told.push_back(From + " > " + To); });
    Links += Flow().OnRemoved.Connect([&](const auto& Name) { Told.push_back("gone " + Name); });
    Dialogs->Text = "  早市 1/2 ";
    Window->Commands().Run("workspace.save-as");
    EXPECT_EQ(Flow().Name(), "早市 1/2");
    Open(kOrders);
    Flow().Switch("new");
    EXPECT_EQ(Keys(), TKeys{"620-1"}) << "a new one begins with the start view";
    Open(kPositions);
    Dialogs->Choice = 0;
    Window->Commands().Run("workspace.open");
    EXPECT_EQ(Dialogs->Offered.size(), 2) << "the first was never saved";
    EXPECT_EQ(Flow().Name(), "new");
    Flow().Switch("早市 1/2");
    EXPECT_EQ(Keys(), (TKeys{"620-1", "701-1"})) << "what was changed before the switch is there";
    Restart();
    EXPECT_EQ(Flow().Name(), "早市 1/2");
    EXPECT_TRUE(Window->windowTitle().startsWith(QString::fromUtf8("早市 1/2 – ")));
    EXPECT_EQ(Keys(), (TKeys{"620-1", "701-1"}));
    EXPECT_EQ(Told, (TKeys{"default > 早市 1/2", "open new", "open 早市 1/2"}));
}

TEST_F(WorkspaceFlowTest, TheMenuListsThemAndMarksTheOpenOne) {
    Start();
    Flow().SaveAs("b & c");
    Flow().Switch("a");
    QMenu* List = nullptr;
    for (auto* Each : Window->menuBar()->findChildren<QMenu*>())
        if (Each->title() == Context.Translate("Res_MenuWorkspaces") && !Each->isEmpty()) List = Each;
    ASSERT_NE(List, nullptr);
    QStringList Texts;
    for (QAction* Each : List->actions()) Texts << Each->text() + (Each->isChecked() ? " *" : "");
    EXPECT_EQ(Texts, (QStringList{"a *", "b && c"}));
    List->actions().last()->trigger();
    EXPECT_EQ(Flow().Name(), "b & c");
}

TEST_F(WorkspaceFlowTest, ANameIsAskedForAndRefusedInASentence) {
    Start();
    Dialogs->Text = " ";
    Window->Commands().Run("workspace.save-as");
    Dialogs->Text = QString(200, 'x');
    Window->Commands().Run("workspace.save-as");
    EXPECT_EQ(Logged(), (TKeys{"Res_WorkspaceNameEmpty", "Res_WorkspaceNameLong"}));
    EXPECT_EQ(Dialogs->Told.size(), 2u);
    EXPECT_EQ(Flow().Name(), "default");
    Dialogs->Text = "a";
    Window->Commands().Run("workspace.save-as");
    Dialogs->Text = "b";
    Window->Commands().Run("workspace.save-as");
    Dialogs->Text = "a";
    Dialogs->Yes = false;
    Window->Commands().Run("workspace.save-as");
    EXPECT_EQ(Flow().Name(), "b") << "a is not replaced unasked";
    Dialogs->Text.reset();
    Window->Commands().Run("workspace.save-as");
    EXPECT_EQ(Flow().Name(), "b");
}

TEST_F(WorkspaceFlowTest, AnotherWorkspaceCanBeDeletedTheOpenOneCannot) {
    Start();
    Window->Commands().Run("workspace.delete");
    EXPECT_EQ(Dialogs->Told.size(), 1u);
    Flow().SaveAs("a");
    Flow().SaveAs("b");
    Flow().Remove("b");
    EXPECT_TRUE(fs::exists(FileOf("b")));
    Dialogs->Choice = 0;
    Dialogs->Yes = false;
    Window->Commands().Run("workspace.delete");
    EXPECT_TRUE(fs::exists(FileOf("a")));
    Dialogs->Yes = true;
    Window->Commands().Run("workspace.delete");
    EXPECT_EQ(Dialogs->Offered, QStringList{"a"});
    EXPECT_FALSE(fs::exists(FileOf("a")));
    EXPECT_EQ(Flow().Names(), TKeys{"b"});
}

TEST_F(WorkspaceFlowTest, AResetAsksAndLeavesOneView) {
    Start();
    Open(kOrders).setFloating(true);
    Window->Panel().hide();
    Dialogs->Yes = false;
    Window->Commands().Run("workspace.reset");
    EXPECT_EQ(Keys().size(), 2u);
    Dialogs->Yes = true;
    Window->Commands().Run("workspace.reset");
    EXPECT_EQ(Keys(), TKeys{"620-1"});
    EXPECT_TRUE(Window->Panel().isVisible());
    Restart();
    EXPECT_EQ(Keys(), TKeys{"620-1"});
    EXPECT_EQ(Sections(FileOf().string() + ".1").size(), 3u) << "what was there before is a backup";
}

TEST_F(WorkspaceFlowTest, OrdersThatWaitForTheirConfirmationHoldTheViews) {
    Start();
    Flow().SaveAs("a");
    bool Held = true;
    Docks().IsHeld = [&] { return Held; };
    Flow().Switch("b");
    Flow().Reset();
    Window->Commands().Run("workspace.reset");
    EXPECT_EQ(Flow().Name(), "a");
    EXPECT_EQ(Dialogs->Asked.size(), 0u);
    Held = false;
    Flow().Switch("b");
    EXPECT_EQ(Flow().Name(), "b");
}

// What the layout text does not hold comes back from the journal of that workspace and user.
TEST_F(WorkspaceFlowTest, TheRangeThatWasTypedGoesWithItsWorkspace) {
    const auto Down = [this] { return Dock("620-1").Frame()->FindControl<fw::TSpinEdit>("edtDown")->GetValue(); };
    const auto Becomes = [&](double Value) {
        return QTest::qWaitFor([&] { return Down().AsFloat() == Value; }, 12000);
    };
    Start();
    Dock("620-1").Frame()->FindControl<fw::TSpinEdit>("edtDown")->SetValue(12345.0);
    Flow().Switch("other");
    EXPECT_NE(Down().AsFloat(), 12345.0);
    Dock("620-1").Frame()->FindControl<fw::TSpinEdit>("edtDown")->SetValue(23456.0);
    Flow().Switch("default");
    EXPECT_TRUE(Becomes(12345));
    Flow().SaveAs("copy");
    Restart();
    EXPECT_TRUE(Becomes(12345));
    EXPECT_TRUE(Window->SetUser("fixed"));
    EXPECT_NE(Down().AsFloat(), 12345.0);
}

// --- lock

TEST_F(WorkspaceFlowTest, ALockedWorkspaceStaysAsItIs) {
    Start();
    Open(kOrders);
    Window->Commands().Run("workspace.lock");
    EXPECT_TRUE(Window->windowTitle().contains("(locked)"));
    ws::TViewDock& Orders = Dock("701-1");
    EXPECT_EQ(Orders.features(), QDockWidget::NoDockWidgetFeatures);
    EXPECT_FALSE(Orders.TitleBar().CloseButton().isEnabled());
    EXPECT_FALSE(Orders.TitleBar().FloatButton().isEnabled());
    for (const char* Id : {"view.close", "view.float", "open.620", "workspace.reset"}) {
        SCOPED_TRACE(Id);
        Window->Status().Say([] { return QString(); });
        Window->Commands().Run(Id);
        QTest::qWait(1);
        EXPECT_EQ(Keys(), (TKeys{"620-1", "701-1"}));
        EXPECT_FALSE(Orders.isFloating());
        EXPECT_TRUE(SaysLocked());
    }
    Orders.close();
    QTest::qWait(1);
    EXPECT_EQ(Keys().size(), 2u);
    Restart();
    EXPECT_TRUE(Flow().IsLocked()) << "it is part of the workspace";
    EXPECT_EQ(Keys().size(), 2u);
    EXPECT_EQ(Dock("701-1").features(), QDockWidget::NoDockWidgetFeatures);
    Flow().Switch("free");
    EXPECT_FALSE(Flow().IsLocked());
    EXPECT_NE(Dock("620-1").features(), QDockWidget::NoDockWidgetFeatures);
    Flow().Switch("default");
    EXPECT_TRUE(Flow().IsLocked());
    Window->Commands().Run("workspace.lock");
    Window->Commands().Run("view.close");
    EXPECT_TRUE(QTest::qWaitFor([this] { return Keys().size() == 1; }));
}

// --- by file

TEST_F(WorkspaceFlowTest, AWorkspaceMovesThroughATextFile) {
    Start();
    Open(kOrders);
    Combo(Dock("620-1"), "cmbSeries").SetItemIndex(1);
    const fw::Text Layout = LayoutOf(Dock("620-1"));
    Dialogs->File = Dialogs->SaveFile = ws::ToQt((Top / "desk.workspace").string());
    Window->Commands().Run("workspace.export");
    EXPECT_EQ(Sections(Top / "desk.workspace").size(), 3u);
    Docks().CloseAll();
    Dialogs->Text = "desk";
    Window->Commands().Run("workspace.import");
    EXPECT_EQ(Flow().Name(), "desk");
    EXPECT_EQ(Keys(), (TKeys{"620-1", "701-1"}));
    EXPECT_EQ(LayoutOf(Dock("620-1")), Layout);
    Flow().Switch("default");
    EXPECT_TRUE(Keys().empty());
    Flow().Import(Top / "desk.workspace", "default");
    EXPECT_EQ(Keys().size(), 2u) << "also in place of the one that is open";
}

TEST_F(WorkspaceFlowTest, WhatIsNoWorkspaceIsNotImported) {
    Start();
    Put(Top / "diary.txt", "dear diary");
    Put(Top / "newer.txt", "ventiq-workspace=2\n");
    for (const char* File : {"diary.txt", "newer.txt", "none.txt"}) Flow().Import(Top / File, "x");
    EXPECT_EQ(Logged(), (TKeys{"Res_WorkspaceImportNone", "Res_WorkspaceImportNewer", "Res_WorkspaceImportNone"}));
    EXPECT_EQ(Flow().Name(), "default");
    EXPECT_FALSE(fs::exists(FileOf("x")));
    Flow().Export(Top / "no" / "folder.txt");
    EXPECT_EQ(Dialogs->Told.size(), 4u);
}

// --- users, stores

TEST_F(WorkspaceFlowTest, EachUserHasWorkspacesOfHisOwn) {
    Start();
    Open(kOrders);
    EXPECT_TRUE(Window->SetUser("fixed"));
    EXPECT_EQ(Keys(), TKeys{"620-1"});
    Open(kPositions);
    Flow().SaveAs("mine");
    EXPECT_TRUE(Window->SetUser("trader"));
    EXPECT_EQ(Flow().Name(), "default");
    EXPECT_EQ(Keys(), (TKeys{"620-1", "701-1"}));
    EXPECT_EQ(Flow().Names(), TKeys{"default"});
    EXPECT_TRUE(Window->SetUser("fixed"));
    EXPECT_EQ(Flow().Name(), "mine");
    EXPECT_EQ(Keys(), (TKeys{"620-1", "702-1"}));
    EXPECT_TRUE(fs::exists(FileOf("mine", "fixed")));
}

TEST_F(WorkspaceFlowTest, AStoreInMemoryKeepsNothing) {
    ws::TWorkstationOptions Options;
    Options.StoreFile = Top / "store.db";
    Options.InMemory = true;
    Options.SampleFolder = TEST_SAMPLE_FOLDER;
    Workstation = std::make_unique<ws::TWorkstation>(Options);
    Window = std::make_unique<ws::TMainWindow>(*Workstation, Context, std::make_unique<TFakeDialogs>(Context));
    Window->ReloadViews();
    EXPECT_FALSE(Flow().OpenLast());
    Window->show();
    Window->OpenStartView();
    EXPECT_TRUE(Flow().Leave());
    Flow().SaveAs("a");
    Flow().Switch("b");
    EXPECT_FALSE(fs::exists(Top / "workspaces"));
    EXPECT_FALSE(Offers("workspace.open"));
    EXPECT_FALSE(Offers("workspace.import"));
    EXPECT_TRUE(Offers("workspace.lock"));
    EXPECT_TRUE(Offers("workspace.export"));
    EXPECT_EQ(Window->windowTitle(), Context.Translate("Res_AppTitle"));
}

}  // namespace gui
