// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/gui/MainWindowTest.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMenuBar>
#include <QToolButton>

#include <fstream>

#include "framework/controls/Chart.h"
#include "framework/controls/ComboBox.h"
#include "tests/gui/TestFrame.h"
#include "workstation/shell/Picture.h"

namespace gui {

TEST_F(MainWindowTest, TheFirstStartShowsACalculatedStrategyWithItsHintOn) {
    fw::TFrame& Frame = PlayFirstStart();
    EXPECT_EQ(MessageTexts(), QStringList());
    auto* Chart = Frame.FindControl<fw::TChart>("DataChart");
    ASSERT_NE(Chart, nullptr);
    ASSERT_FALSE(Chart->Series().empty());
    EXPECT_GE(Chart->Series()[0]->GetCount(), 4);
    auto* Legs = Frame.FindControl<fw::TGridTableView>("PositionGridView");
    EXPECT_EQ(Legs->GetDataController().GetRecordCount(), 5);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Window->Status().Hint().isEmpty(); }, 2000));
    ws::TViewDock& Dock = *Window->Docks().Current();
    ASSERT_EQ(Dock.TitleBar().Buttons().size(), 2u);
    EXPECT_EQ(Dock.TitleBar().Buttons()[1]->toolTip(), "Hide the chart hint");
}

TEST_F(MainWindowTest, ALegTypedInTheCellsIsCalculated) {
    fw::TFrame& Frame = PlayFirstStart();
    Click("Clear");
    auto* Legs = Frame.FindControl<fw::TGridTableView>("PositionGridView");
    ASSERT_EQ(Legs->GetDataController().GetRecordCount(), 1);
    TypeCell(0, 0, "hsi25600x6", Qt::Key_Tab);
    EXPECT_EQ(Legs->GetDataController().GetValue(0, 0).AsText(), "HSI25600X6");
    EXPECT_EQ(Legs->GetDataController().GetRecordCount(), 2);
    ASSERT_NE(Grid().GetEditorWidget(), nullptr);  // the side, by Tab
    QTest::keyClick(Grid().GetEditorWidget()->FocusWidget(), Qt::Key_B);
    QTest::keyClick(Grid().GetEditorWidget()->FocusWidget(), Qt::Key_Return);
    TypeCell(0, 5, "100");
    TypeCell(0, 6, "2");
    Click("Calculate");
    auto* Chart = Frame.FindControl<fw::TChart>("DataChart");
    ASSERT_EQ(Chart->Series()[0]->GetCount(), 3);  // the two ends and the strike
    EXPECT_EQ(Chart->Series()[0]->GetX(1), 25600.0);
    EXPECT_EQ(Chart->Series()[0]->GetY(1), -100.0 * 2 * 50);
}

TEST_F(MainWindowTest, ASymbolThatTheViewBlanksIsNamedInTheMessagesAndTheStatusBar) {
    PlayFirstStart();
    Click("Clear");
    TypeCell(0, 0, "NOSUCH");
    EXPECT_TRUE(QTest::qWaitFor([this] { return Window->Messages().UnseenProblems() > 0; }, 3000));
    EXPECT_TRUE(MessageTexts().join('\n').contains("NOSUCH")) << ws::FromQt(MessageTexts().join('\n'));
    EXPECT_TRUE(Window->Status().Problem().contains("NOSUCH"));
    EXPECT_TRUE(Window->Panel().windowTitle().contains('1'));
    Window->Messages().MarkSeen();
    EXPECT_EQ(Window->Panel().windowTitle(), "Messages");
}

TEST_F(MainWindowTest, MessagesAreTranslatedAgainWithTheLanguageAndCanBeCopied) {
    fw::TLog::Warning("Res_LogNumberRefused", {"abc"});
    const QString English = MessageTexts().join('\n');
    EXPECT_TRUE(English.contains("abc"));
    Window->SetLanguage(2);
    const QString Chinese = MessageTexts().join('\n');
    EXPECT_TRUE(Chinese.contains("abc"));
    EXPECT_NE(Chinese, English);
    Window->Panel().CopySelected();
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(Chinese));
    EXPECT_EQ(Window->Status().Problem(), Chinese);
}

TEST_F(MainWindowTest, TheLanguageSwitchesLiveInMenusCaptionsAndCells) {
    fw::TFrame& Frame = PlayFirstStart();
    EXPECT_TRUE(MenuTexts().contains("Account"));
    auto* Legs = Frame.FindControl<fw::TGridTableView>("PositionGridView");
    EXPECT_EQ(Legs->GetDataController().GetValue(0, 1).AsText(), "Buy");
    Window->SetLanguage(1);
    EXPECT_FALSE(MenuTexts().contains("Account"));
    EXPECT_NE(Legs->GetDataController().GetValue(0, 1).AsText(), "Buy");
    EXPECT_NE(Window->Docks().Current()->windowTitle(), "Payoff");
    EXPECT_THROW(Click("Calculate"), std::runtime_error);
    Window->SetLanguage(0);
    EXPECT_EQ(Legs->GetDataController().GetValue(0, 1).AsText(), "Buy");
    Click("Calculate");
}

TEST_F(MainWindowTest, TheSkinSwitchesThePaletteAndTheViewsColours) {
    PlayFirstStart();
    const QColor Light = QApplication::palette().color(QPalette::Window);
    const QColor LightRow = Grid().model()->index(0, 0).data(Qt::BackgroundRole).value<QColor>();
    Window->SetSkin("Dark");
    EXPECT_LT(QApplication::palette().color(QPalette::Window).lightness(), Light.lightness());
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return Grid().model()->index(0, 0).data(Qt::BackgroundRole).value<QColor>() ==
               Context.Color("coPayOffInputRowBgColor");
    }));
    EXPECT_NE(Context.Color("coPayOffInputRowBgColor"), LightRow);
    EXPECT_EQ(Workstation->LookAndFeel().GetSkinName(), "Dark");
    Window->SetSkin("Light");
}

TEST_F(MainWindowTest, AUserWithoutTheFunctionDoesNotSeeTheView) {
    PlayFirstStart();
    fw::Text Without, With = Workstation->User().Code;
    for (const auto& User : Workstation->Users())
        if (std::find(User.Functions.begin(), User.Functions.end(), "PayOff") == User.Functions.end())
            Without = User.Code;
    ASSERT_FALSE(Without.empty());
    Dialogs->Yes = false;
    EXPECT_FALSE(Window->SetUser(Without));
    EXPECT_EQ(Workstation->User().Code, With);
    EXPECT_EQ(Window->Docks().Docks().size(), 1u);
    Dialogs->Yes = true;
    EXPECT_TRUE(Window->SetUser(Without));
    EXPECT_TRUE(Window->Docks().Docks().empty());
    EXPECT_FALSE(MenuTexts().contains("Account"));
    EXPECT_TRUE(Window->SetUser(With));
    EXPECT_TRUE(MenuTexts().contains("Account"));
    EXPECT_EQ(Window->Docks().Docks().size(), 1u);
}

TEST_F(MainWindowTest, ClosedViewsLeaveNoRegistrationBehind) {
    PlayFirstStart();
    Window->Docks().Open(Window->Docks().Current()->View());
    EXPECT_TRUE(Workstation->HasOwners());
    Window->Docks().CloseAll();
    Window.reset();
    EXPECT_FALSE(Workstation->HasOwners());
}

TEST_F(MainWindowTest, AFileThatIsNoChainIsRefusedWithASentence) {
    const fs::path File = Folder / "prose.csv";
    std::ofstream(File) << "This is a letter,\nnot a chain.\n";
    Window->ImportFile(ws::ToQt(File.string()));
    ASSERT_EQ(Dialogs->Told.size(), 1u);
    EXPECT_NE(Dialogs->Told[0].find("prose.csv"), fw::Text::npos);
    EXPECT_EQ(Window->Messages().UnseenProblems(), 1);
}

TEST_F(MainWindowTest, AChainIsImportedAndItsExchangeStandsInTheSelector) {
    fw::TFrame& Frame = PlayFirstStart();
    auto* Exchanges = Frame.FindControl<fw::TComboBox>("cmbExchange");
    const int Before = Exchanges->GetCount();
    Window->ImportFile(QStringLiteral(TEST_DATA_FOLDER "/chain_small.csv"));
    ASSERT_EQ(Dialogs->Told.size(), 1u);
    EXPECT_NE(Dialogs->Told[0].find("TLX"), fw::Text::npos) << Dialogs->Told[0];
    EXPECT_TRUE(QTest::qWaitFor([&] { return Exchanges->GetCount() == Before + 1; }, 3000));
}

TEST_F(MainWindowTest, BadLinesAreShownAndSkippedOnlyWhenTheUserSaysSo) {
    const QString File = QStringLiteral(TEST_DATA_FOLDER "/chain_bad_lines.csv");
    Dialogs->Yes = false;
    Window->ImportFile(File);
    ASSERT_EQ(Dialogs->Asked.size(), 1u);
    EXPECT_NE(Dialogs->Asked[0].find("TLXW24C01020000"), fw::Text::npos) << Dialogs->Asked[0];
    EXPECT_TRUE(Dialogs->Told.empty());
    EXPECT_EQ(Workstation->Market().GetSeriesCount("CBOE"), 0);
    Dialogs->Yes = true;
    Window->ImportFile(File);
    EXPECT_EQ(Dialogs->Told.size(), 1u);
    EXPECT_GT(Workstation->Market().GetSeriesCount("CBOE"), 0);
}

TEST_F(MainWindowTest, ADateThatCanBeReadTwoWaysIsAskedFor) {
    const QString File = QStringLiteral(TEST_DATA_FOLDER "/chain_numeric_date.csv");
    Dialogs->Choice = -1;
    Window->ImportFile(File);
    EXPECT_EQ(Dialogs->Asked.size(), 1u);
    EXPECT_EQ(Workstation->Market().GetSeriesCount("CBOE"), 0);
    Dialogs->Choice = 0;
    Window->ImportFile(File);
    EXPECT_EQ(Dialogs->Told.size(), 1u);
    EXPECT_GT(Workstation->Market().GetSeriesCount("CBOE"), 0);
}

TEST_F(MainWindowTest, ACellThatAViewRefusesToEditIsExplainedInTheStatusBar) {
    TTestView View;
    ws::TViewDock* Dock = Window->Docks().Open(View);
    ASSERT_NE(Dock, nullptr);
    auto& Frame = dynamic_cast<TTestFrame&>(*Dock->Frame());
    Frame.AllowEditing = false;
    QTest::qWait(1);
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, Grid().CellRect(0, 0).center());
    EXPECT_EQ(Window->Status().Hint(), "Choose exchange, series and expiry to type legs.");
    Frame.Combo.AddItem("HKFE");
    Frame.Combo.SetItemIndex(0);
    Frame.Grid.GetDataController().SetRecordCount(2);
    QTest::keyClick(&Grid(), Qt::Key_A);
    EXPECT_TRUE(Window->Status().Hint().contains("loaded positions stay as they are"));
    Frame.AllowEditing = true;
    Frame.RefuseSymbol = "A";
    QTest::keyClick(&Grid(), Qt::Key_A);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(Window->Status().Hint(), "no such symbol");
    Window->Docks().CloseAll();
}

TEST_F(MainWindowTest, TheSampleMarketIsPutBackAfterAQuestion) {
    Dialogs->Yes = false;
    Window->ResetSample();
    EXPECT_EQ(MessageTexts(), QStringList());
    Dialogs->Yes = true;
    Window->ResetSample();
    EXPECT_EQ(Dialogs->Asked.size(), 2u);
    EXPECT_FALSE(MessageTexts().isEmpty());
}

TEST_F(MainWindowTest, ThePictureShowsTheWindow) {
    PlayFirstStart();
    const fs::path File = Folder / "window.png";
    ASSERT_TRUE(ws::GrabPng(*Window, File));
    const QImage Picture(ws::ToQt(File.string()));
    EXPECT_EQ(Picture.size(), Window->size());
    EXPECT_FALSE(ws::GrabPng(*Window, Folder / "no-such-folder" / "window.png"));
}

}  // namespace gui
