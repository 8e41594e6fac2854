// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/gui/WorkspaceTest.h"

namespace gui {

namespace {

using TKeys = std::vector<std::string>;

// Order, size and place of the docks of the window, as the user sees them.
struct TSeen {
    std::map<std::string, QRect> Places;
    std::map<std::string, bool> Floats, InFront;
    bool operator==(const TSeen&) const = default;
};

std::string Told(const TSeen& Seen) {
    std::ostringstream Text;
    for (const auto& [Key, Place] : Seen.Places)
        Text << Key << ' ' << Place.x() << ',' << Place.y() << ' ' << Place.width() << 'x' << Place.height()
             << (Seen.Floats.at(Key) ? " floats" : "") << (Seen.InFront.at(Key) ? " in front" : "") << '\n';
    return Text.str();
}

}  // namespace

class WorkspaceRestoreTest : public WorkspaceTest {
protected:
    // Two payoff views as tabs, the orders to the right of them, the positions floating.
    void Arrange() {
        Start();
        Combo(Dock("620-1"), "cmbSeries").SetItemIndex(1);
        Open(kPayoff);
        Combo(Dock("620-2"), "cmbExchange").SetItemIndex(0);
        Combo(Dock("620-2"), "cmbMonth").SetItemIndex(1);
        Open(kOrders);
        Window->addDockWidget(Qt::RightDockWidgetArea, &Dock("701-1"));
        Open(kPositions).setFloating(true);
        Dock("702-1").setGeometry(1500, 700, 640, 320);
        Dock("620-1").raise();
        Window->resizeDocks({&Dock("620-1"), &Dock("701-1")}, {700, 500}, Qt::Horizontal);
        Dock("620-2").SetGroup("3");
        Dock("620-1").View().HandleCaptionButtonClick(Dock("620-1").Handle(), 1);
        QTest::qWait(1);
    }
    TSeen See() const {
        TSeen Result;
        for (ws::TViewDock* Each : Docks().Docks()) {
            Result.Floats[Each->Key()] = Each->isFloating();
            Result.InFront[Each->Key()] = !Each->visibleRegion().isEmpty();
            if (Result.InFront[Each->Key()]) Result.Places[Each->Key()] = Each->geometry();
        }
        return Result;
    }
};

TEST_F(WorkspaceRestoreTest, EverythingIsThereAtTheNextStart) {
    Arrange();
    const TSeen Before = See();
    const fw::Text First = LayoutOf(Dock("620-1")), Second = LayoutOf(Dock("620-2"));
    EXPECT_NE(First, Second);
    Restart();
    EXPECT_EQ(Keys(), (TKeys{"620-1", "620-2", "701-1", "702-1"}));
    EXPECT_EQ(Told(See()), Told(Before));
    EXPECT_EQ(LayoutOf(Dock("620-1")), First);
    EXPECT_EQ(LayoutOf(Dock("620-2")), Second);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Docks().Current()->Key() == "620-1"; }));
    EXPECT_EQ(Dock("620-1").GetGroup(), "");
    EXPECT_EQ(Dock("620-2").GetGroup(), "3");
    EXPECT_EQ(Window->tabifiedDockWidgets(&Dock("620-1")), QList<QDockWidget*>{&Dock("620-2")});
}

TEST_F(WorkspaceRestoreTest, AWorkspaceThatIsOnlyOpenedStaysAsItWas) {
    Arrange();
    Restart();
    const TSeen Before = See();
    const std::string Stored = Text(FileOf());
    for (int Times = 0; Times < 3; ++Times) Restart();
    EXPECT_EQ(Told(See()), Told(Before));
    EXPECT_EQ(Text(FileOf()), Stored);
}

TEST_F(WorkspaceRestoreTest, LanguageSkinAndTitlesDoNotMatter) {
    Arrange();
    const TSeen Before = See();
    End();
    const std::string Stored = Text(FileOf());
    for (const char* Title : {"Payoff", "Orders", "Positions"}) EXPECT_EQ(Stored.find(Title), std::string::npos);
    Start();
    Window->SetLanguage(2);
    Window->SetSkin("Dark");
    End();
    Start();
    EXPECT_EQ(Keys(), (TKeys{"620-1", "620-2", "701-1", "702-1"}));
    EXPECT_EQ(See().Floats, Before.Floats);
    EXPECT_EQ(See().InFront, Before.InFront);
    EXPECT_TRUE(Window->windowTitle().startsWith(QString::fromUtf8("主要")));
}

TEST_F(WorkspaceRestoreTest, WithoutTheToolkitsAccountTheEntriesDecide) {
    Arrange();
    const TSeen Before = See();
    End();
    const ws::TWorkspaceSections Good = Sections(FileOf());
    const std::string Arrangement = ws::ReadWindow(Good).Arrangement;
    for (const std::string& Bad : {std::string(), std::string("not base64!"), std::string(400, 'A'),
                                   Arrangement.substr(0, Arrangement.size() / 2 / 4 * 4)}) {
        SCOPED_TRACE(Bad.substr(0, 20));
        ws::TWorkspaceSections Changed = Good;
        Changed.front().Set("arrangement", Bad);
        Put(FileOf(), ws::WriteWorkspace(Changed));
        Start();
        EXPECT_EQ(Keys(), (TKeys{"620-1", "620-2", "701-1", "702-1"}));
        EXPECT_EQ(See().Floats, Before.Floats);
        EXPECT_EQ(See().InFront.at("620-1"), true);
        EXPECT_EQ(See().InFront.at("620-2"), false);
        EXPECT_EQ(Dock("702-1").geometry(), QRect(1500, 700, 640, 320));
        EXPECT_EQ(Window->tabifiedDockWidgets(&Dock("620-1")), QList<QDockWidget*>{&Dock("620-2")});
        EXPECT_EQ(Window->dockWidgetArea(&Dock("701-1")), Qt::RightDockWidgetArea);
        EXPECT_EQ(Dock("701-1").width(), Before.Places.at("701-1").width());
        EXPECT_GT(Dock("701-1").y(), Dock("620-1").geometry().bottom());
        Kill();
    }
}

TEST_F(WorkspaceRestoreTest, WindowsComeBackFromAScreenThatIsGone) {
    Screens = {kScreen, {-3000, -1000, 1920, 1080}};
    Arrange();
    Dock("702-1").setGeometry(-2900, -900, 640, 320);
    Restart();
    EXPECT_EQ(Dock("702-1").geometry(), QRect(-2900, -900, 640, 320));
    Window->setGeometry(-2800, -800, 1300, 900);
    End();
    Screens = {{0, 0, 1024, 768}};
    Start();
    EXPECT_EQ(Dock("702-1").geometry(), QRect(0, 0, 640, 320));
    EXPECT_LE((Window->geometry().topLeft() - QPoint(0, 0)).manhattanLength(), 4);  // the platform's frame
    EXPECT_EQ(Keys().size(), 4u);
}

TEST_F(WorkspaceRestoreTest, ViewsAreToldWhenTheLayoutIsLoadedAndTheWindowShown) {
    Arrange();
    End();
    Workstation = std::make_unique<ws::TWorkstation>(
        ws::TWorkstationOptions{Top / "store.db", false, TEST_SAMPLE_FOLDER, {}, 1, {}});
    std::vector<std::string> Told;
    fw::TObject Owner;
    Workstation->Channels().Subscribe(
        fw::kChannelLayoutLoaded, [&](auto*, auto*) { Told.push_back("loaded"); }, &Owner);
    Workstation->Channels().Subscribe(
        fw::kChannelMainFormShow, [&](auto*, auto*) { Told.push_back("shown"); }, &Owner);
    Window = std::make_unique<ws::TMainWindow>(*Workstation, Context, std::make_unique<TFakeDialogs>(Context));
    Window->ReloadViews();
    fw::TConnections Links;
    Links += Flow().OnSwitched.Connect([&](const std::string& Name) { Told.push_back(Name); });
    Links += Docks().OnOpened.Connect([&](ws::TViewDock& Each) { Told.push_back("opened " + Each.Key()); });
    Links += Flow().OnViewRestored.Connect([&](ws::TViewDock& Each) { Told.push_back("restored " + Each.Key()); });
    Window->show();
    EXPECT_TRUE(Flow().OpenLast());
    QTest::qWait(1);
    Window->hide();
    Window->show();
    QTest::qWait(1);
    EXPECT_EQ(Told, (TKeys{"default", "opened 620-1", "opened 620-2", "opened 701-1", "opened 702-1", "loaded",
                           "restored 620-1", "restored 620-2", "restored 701-1", "restored 702-1", "shown"}));
    Workstation->Channels().Unsubscribe(fw::kChannelLayoutLoaded, &Owner);
    Workstation->Channels().Unsubscribe(fw::kChannelMainFormShow, &Owner);
}

TEST_F(WorkspaceRestoreTest, ClosingLeavesNoRegistrationBehind) {
    Arrange();
    Restart();
    EXPECT_TRUE(Workstation->HasOwners());
    Window.reset();
    EXPECT_FALSE(Workstation->HasOwners());
}

// The market lists may come after the layout data; then nothing is said of the market meanwhile.
TEST_F(WorkspaceRestoreTest, ARestoreBeforeTheMarketListsArriveEndsAsOneAfter) {
    Arrange();
    const fw::Text First = LayoutOf(Dock("620-1")), Second = LayoutOf(Dock("620-2"));
    End();
    const ws::TWorkspaceSections Stored = Sections(FileOf());
    Workstation = std::make_unique<ws::TWorkstation>(
        ws::TWorkstationOptions{Top / "store.db", false, TEST_SAMPLE_FOLDER, {}, 1, {}});
    const ws::TMarketSet Market = Workstation->Market().Market();
    Workstation->Market().Load({});
    Window = std::make_unique<ws::TMainWindow>(*Workstation, Context, std::make_unique<TFakeDialogs>(Context));
    Window->ReloadViews();
    EXPECT_TRUE(Flow().OpenLast());
    EXPECT_EQ(LayoutOf(Dock("620-1")), "");
    Change();
    EXPECT_TRUE(Flow().Leave());
    const ws::TWorkspaceSections Meanwhile = Sections(FileOf());
    ASSERT_EQ(Meanwhile.size(), Stored.size());
    for (size_t i = 0; i < Stored.size(); ++i) EXPECT_EQ(Meanwhile[i].Get("layout"), Stored[i].Get("layout"));
    Workstation->Market().Load(Market);
    Workstation->Market().NotifyListsChanged();
    Workstation->Pump();
    EXPECT_EQ(LayoutOf(Dock("620-1")), First);
    EXPECT_EQ(LayoutOf(Dock("620-2")), Second);
}

// --- entries that stay

TEST_F(WorkspaceRestoreTest, AnEntryOfAViewThatNobodyHasKeepsItsPlace) {
    Arrange();
    End();
    ws::TWorkspaceSections Changed = Sections(FileOf());
    const ws::TWorkspaceSection Unknown{"view",
                                        {{"id", "9999"}, {"key", "9999-1"}, {"place", "nonsense"}, {"x", "\n"}}};
    const ws::TWorkspaceSection Later{"later", {{"kept", "1"}}};
    Changed.insert(Changed.begin() + 2, Unknown);
    Changed.push_back(Later);
    Changed[1].Set("zoom", "150");
    Put(FileOf(), ws::WriteWorkspace(Changed));
    fw::TLogRecorder Log;
    Start();
    EXPECT_EQ(Keys(), (TKeys{"620-1", "620-2", "701-1", "702-1"}));
    EXPECT_EQ(std::count_if(Log.Entries.begin(), Log.Entries.end(),
                            [](const auto& Each) { return Each.Key == "Res_WorkspaceViewsMissing"; }),
              1);
    Dock("620-2").close();
    ASSERT_TRUE(QTest::qWaitFor([this] { return Docks().Docks().size() == 3; }));
    Open(kOrders);
    End();
    const ws::TWorkspaceSections Now = Sections(FileOf());
    ASSERT_EQ(Now.size(), 7u);
    EXPECT_EQ(Now[1].Get("key"), "620-1");
    EXPECT_EQ(Now[1].Get("zoom"), "150");
    EXPECT_EQ(Now[2], Unknown);
    EXPECT_EQ(Now[3].Get("key"), "701-1");
    EXPECT_EQ(Now[5], Later);
    EXPECT_EQ(Now[6].Get("key"), "701-2");
}

TEST_F(WorkspaceRestoreTest, TwoEntriesWithOneKeyBecomeTwoViews) {
    Arrange();
    End();
    ws::TWorkspaceSections Changed = Sections(FileOf());
    Changed.push_back(Changed[1]);
    Changed.back().Set("key", "620-1");
    Changed.push_back(Changed[1]);
    Changed.back().Set("key", "");
    Put(FileOf(), ws::WriteWorkspace(Changed));
    Start();
    EXPECT_EQ(Keys(), (TKeys{"620-1", "620-2", "701-1", "702-1", "620-3", "620-4"}));
    Restart();
    EXPECT_EQ(Keys(), (TKeys{"620-1", "620-2", "701-1", "702-1", "620-3", "620-4"}));
}

TEST_F(WorkspaceRestoreTest, AnEmptyDeskIsAWorkspaceToo) {
    Start();
    Docks().CloseAll();
    Restart();
    EXPECT_TRUE(Keys().empty());
}

}  // namespace gui
