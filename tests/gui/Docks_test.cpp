// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QEventLoop>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include "framework/base/ClassRegistry.h"
#include "tests/gui/FakeDialogs.h"
#include "tests/gui/TestFrame.h"
#include "tests/support/FakeHost.h"
#include "workstation/renderers/GridRenderer.h"
#include "workstation/renderers/QtText.h"
#include "workstation/shell/MissingHint.h"
#include "workstation/shell/ViewDocks.h"

namespace gui {

using TTexts = std::vector<fw::Text>;

class DocksTest : public testing::Test {
protected:
    DocksTest() : Dialogs(Context), Docks(Window, Catalog, Context, Dialogs) {
        Context.SetSkin("Light");
        Host.Profile.Functions.clear();  // the payoff view keeps out, wherever an earlier test has loaded it
        TTestView::Visible = true;
        TTestView::FailToOpen = false;
        fw::TClassRegistry::RegisterClass("TTestView", [] { return std::make_unique<TTestView>(); });
        fw::TClassRegistry::RegisterClass("TNoView", [] { return std::make_unique<fw::TObject>(); });
        Catalog.Reload();
        for (const auto& Each : Catalog.Views())
            if (dynamic_cast<TTestView*>(Each.get())) View = Each.get();
        Host.Language.SetText("Res_Ventiq", "Payoff");
        Host.Language.SetText(1, Const::ResourceStringTag, "Res_Ventiq", "Ertrag");
        Host.Language.SetText(1, Const::ResourceStringTag, "Res_Calculate", "Rechnen");
        Window.resize(1200, 800);
        Window.show();
    }
    ~DocksTest() override {
        Docks.CloseAll();
        TTestView::Visible = false;
    }
    static TTestFrame& FrameOf(ws::TViewDock& Dock) { return dynamic_cast<TTestFrame&>(*Dock.Frame()); }

    support::TFakeHost Host;
    ws::TRenderContext Context;
    QMainWindow Window;
    ws::TViewCatalog Catalog;
    TFakeDialogs Dialogs;
    ws::TViewDocks Docks;
    fw::TIBaseView* View = nullptr;
};

TEST_F(DocksTest, AViewOpensInADockWithItsCaptionAndButtons) {
    ASSERT_NE(View, nullptr);
    ws::TViewDock* Dock = Docks.Open(*View);
    ASSERT_NE(Dock, nullptr);
    EXPECT_EQ(Dock->windowTitle(), "Payoff");
    EXPECT_EQ(Dock->TitleBar().Caption().text(), "Payoff");
    EXPECT_TRUE(Dock->isVisible());
    EXPECT_EQ(View->OpenViews(), std::vector<int64_t>{Dock->Handle()});
    ASSERT_EQ(Dock->TitleBar().Buttons().size(), 2u);
    EXPECT_FALSE(Dock->TitleBar().Buttons()[0]->icon().isNull());
}

TEST_F(DocksTest, TheTitleSaysSinceWhenTheResultsDifferFromTheInputs) {
    Host.Language.SetText("Res_TitleStale", "%1, changed after %2");
    Host.Language.SetText(1, Const::ResourceStringTag, "Res_TitleStale", "%1, ge\u00e4ndert nach %2");
    ws::TViewDock& Dock = *Docks.Open(*View);
    const fw::TClock::TTimePoint Calculated{std::chrono::hours(40)};
    FrameOf(Dock).SetStaleSince(Calculated);
    const QString Time = ws::ClockText(Calculated);
    EXPECT_EQ(Dock.windowTitle(), "Payoff, changed after " + Time);
    EXPECT_EQ(Dock.TitleBar().Caption().text(), Dock.windowTitle());
    Host.Language.Language = 1;
    Dock.Retranslate();
    EXPECT_EQ(Dock.windowTitle(), QString::fromUtf8("Ertrag, ge\u00e4ndert nach ") + Time);
    FrameOf(Dock).SetStaleSince(std::nullopt);
    EXPECT_EQ(Dock.windowTitle(), "Ertrag");
}

TEST_F(DocksTest, ACaptionButtonReachesTheViewAndItsNotificationTheTitleBar) {
    ws::TViewDock& Dock = *Docks.Open(*View);
    QToolButton* More = Dock.TitleBar().Buttons()[0];
    QTest::mouseClick(More, Qt::LeftButton);
    EXPECT_EQ(FrameOf(Dock).MoreButton.State, 1);
    EXPECT_EQ(More->toolTip(), "Res_More");
    EXPECT_FALSE(FrameOf(Dock).DetailItem.IsVisible());
    QTest::mouseClick(More, Qt::LeftButton);
    EXPECT_EQ(More->toolTip(), "Res_Less");
}

TEST_F(DocksTest, ACaptionButtonThatThrowsIsLoggedAndTheNextClickWorks) {
    ws::TViewDock& Dock = *Docks.Open(*View);
    QTest::mouseClick(Dock.TitleBar().Buttons()[1], Qt::LeftButton);
    EXPECT_EQ(Host.TakeErrors().size(), 1u);
    QTest::mouseClick(Dock.TitleBar().Buttons()[0], Qt::LeftButton);
    EXPECT_EQ(FrameOf(Dock).MoreButton.State, 1);
}

TEST_F(DocksTest, SeveralInstancesStandSideBySideAndCloseOneByOne) {
    ws::TViewDock* First = Docks.Open(*View);
    ws::TViewDock* Second = Docks.Open(*View);
    EXPECT_NE(First->Handle(), Second->Handle());
    EXPECT_EQ(Window.tabifiedDockWidgets(First), QList<QDockWidget*>{Second});
    FrameOf(*First).Down.SetValue(1.0);
    EXPECT_TRUE(FrameOf(*Second).Down.GetValue().IsNull());
    QTest::mouseClick(&First->TitleBar().CloseButton(), Qt::LeftButton);
    EXPECT_EQ(Docks.Docks().size(), 2u);  // closed when control is back in the loop
    EXPECT_TRUE(QTest::qWaitFor([this] { return Docks.Docks().size() == 1; }));
    EXPECT_EQ(View->OpenViews(), std::vector<int64_t>{Second->Handle()});
    EXPECT_EQ(Docks.Current(), Second);
    Second->close();
    EXPECT_TRUE(QTest::qWaitFor([this] { return Docks.Docks().empty(); }));
    EXPECT_TRUE(View->OpenViews().empty());
}

TEST_F(DocksTest, ADockFloatsAtTheViewsDefaultSizeAndComesBack) {
    ws::TViewDock& Dock = *Docks.Open(*View);
    QTest::mouseClick(&Dock.TitleBar().FloatButton(), Qt::LeftButton);
    EXPECT_TRUE(Dock.isFloating());
    EXPECT_EQ(Dock.size(), QSize(Context.Scaled(700), Context.Scaled(500)));
    QTest::mouseClick(&Dock.TitleBar().FloatButton(), Qt::LeftButton);
    EXPECT_FALSE(Dock.isFloating());
}

TEST_F(DocksTest, AViewThatCannotBeBuiltIsSaidAndLeavesNothing) {
    TTestView::FailToOpen = true;
    EXPECT_EQ(Docks.Open(*View), nullptr);
    EXPECT_TRUE(Docks.Docks().empty());
    EXPECT_TRUE(View->OpenViews().empty());
    EXPECT_EQ(Host.TakeErrors(), TTexts{"Res_ViewOpenFailed(Payoff, no room for a view)"});
    EXPECT_EQ(Dialogs.Told.size(), 1u);
    EXPECT_TRUE(Window.findChildren<QDockWidget*>().empty());
    TTestView::FailToOpen = false;
    EXPECT_NE(Docks.Open(*View), nullptr);
}

TEST_F(DocksTest, ClosingWithAnOpenEditorIsHarmless) {
    ws::TViewDock& Dock = *Docks.Open(*View);
    FrameOf(Dock).Grid.StartEdit(0, 0);
    auto* Grid = dynamic_cast<ws::TGridRenderer*>(Dock.findChild<QTableView*>());
    ASSERT_NE(Grid, nullptr);
    ASSERT_NE(Grid->GetEditorWidget(), nullptr);
    QTest::keyClicks(Grid->GetEditorWidget()->FocusWidget(), "half");
    Dock.close();
    EXPECT_TRUE(QTest::qWaitFor([this] { return Docks.Docks().empty(); }));
}

TEST_F(DocksTest, AnInstanceWhoseHandlerRunsALoopIsClosedAfterIt) {
    ws::TViewDock& Dock = *Docks.Open(*View);
    bool StoodWhileTheHandlerRan = false;
    FrameOf(Dock).Go.OnClick = [&](fw::TObject*) {
        Dock.close();
        QEventLoop Inner;  // a message box
        QTimer::singleShot(120, &Inner, &QEventLoop::quit);
        Inner.exec();
        StoodWhileTheHandlerRan = Docks.Docks().size() == 1;
    };
    QEventLoop Outer;
    QTimer::singleShot(0, &Outer, [&] { FrameOf(Dock).Go.Click(); });
    QTimer::singleShot(600, &Outer, &QEventLoop::quit);
    Outer.exec();
    EXPECT_TRUE(StoodWhileTheHandlerRan);
    EXPECT_TRUE(Docks.Docks().empty());
}

TEST_F(DocksTest, ASwitchOfLanguagePostsTheEditorAndRenamesEverything) {
    ws::TViewDock& Dock = *Docks.Open(*View);
    FrameOf(Dock).Grid.StartEdit(0, FrameOf(Dock).ColumnOf(kPremium));
    FrameOf(Dock).Grid.GetEditor()->SetEditText("12");
    Host.Language.Language = 1;
    Docks.SetLanguage(1);
    EXPECT_EQ(FrameOf(Dock).Grid.GetEditor(), nullptr);
    EXPECT_EQ(FrameOf(Dock).Cell(0, kPremium).AsFloat(), 12.0);
    EXPECT_EQ(Dock.windowTitle(), "Ertrag");
    bool Found = false;
    for (auto* Button : Dock.findChildren<QPushButton*>()) Found |= Button->text() == "Rechnen";
    EXPECT_TRUE(Found);
}

TEST_F(DocksTest, MenusFollowTheDescriptorsLevels) {
    // Packages that other tests have loaded stay registered: only the entries of this view count.
    const auto Entries = [this] {
        std::vector<std::pair<ws::TMenuNode, ws::TMenuNode>> Found;
        for (const ws::TMenuNode& Node : ws::MenuOf(Catalog))
            for (const ws::TMenuNode& Child : Node.Children)
                if (Child.View == View) Found.emplace_back(Node, Child);
        return Found;
    };
    ASSERT_EQ(Entries().size(), 1u);
    const auto [Menu, Entry] = Entries().front();
    EXPECT_EQ(Menu.Id, 103);
    EXPECT_EQ(Menu.Caption, "Res_Account");
    EXPECT_EQ(Menu.View, nullptr);
    EXPECT_EQ(Entry.Index, 3950);
    EXPECT_EQ(Entry.Caption, "Payoff");
    TTestView::Visible = false;
    EXPECT_TRUE(Entries().empty());
}

TEST_F(DocksTest, TheMenuIsPrintedALineForEachView) {
    std::ostringstream Out;
    ws::PrintViews(ws::MenuOf(Catalog), Out);
    EXPECT_EQ(Out.str(), std::to_string(View->GetViewID()) + '\t' + View->GetName() + "\tRes_Account > Payoff\n");
}

TEST_F(DocksTest, TheHintNamesWhatIsMissingNext) {
    TTestFrame& Frame = FrameOf(*Docks.Open(*View));
    EXPECT_STREQ(ws::MissingHint(Frame), "Res_HintChooseMarket");
    Frame.Grid.GetDataController().SetRecordCount(2);
    Frame.Grid.SetFocusedCell(0, 0);
    EXPECT_STREQ(ws::RefusedHint(Frame, Frame.Grid), "Res_HintChooseMarket");
    Frame.Combo.AddItem("HKFE");
    Frame.Combo.SetItemIndex(0);
    EXPECT_STREQ(ws::MissingHint(Frame), "Res_HintTypeSymbol");
    EXPECT_STREQ(ws::RefusedHint(Frame, Frame.Grid), "Res_HintRowFixed");
    Frame.Grid.SetFocusedCell(1, 0);
    EXPECT_STREQ(ws::RefusedHint(Frame, Frame.Grid), "Res_HintChooseMarket") << "the input row is never fixed";
    Frame.Grid.SetFocusedCell(0, 0);
    Frame.Grid.GetDataController().SetValue(0, 0, "AAA");
    EXPECT_STREQ(ws::MissingHint(Frame), "Res_HintCalculate");
    Frame.Line.AddXY(1, 1);
    EXPECT_EQ(ws::MissingHint(Frame), nullptr);
}

}  // namespace gui
