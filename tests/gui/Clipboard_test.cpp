// SPDX-License-Identifier: GPL-3.0-or-later
#include <QClipboard>
#include <QGuiApplication>
#include <QMainWindow>
#include <QMimeData>
#include <QProgressDialog>
#include <QTimer>

#include "tests/gui/FakeDialogs.h"
#include "tests/gui/GuiTest.h"
#include "workstation/renderers/WindowedGridRenderer.h"
#include "workstation/shell/ClipboardFlow.h"
#include "workstation/shell/ViewDocks.h"

namespace gui {

class ClipboardTest : public GuiTest {
protected:
    ClipboardTest() {
        QGuiApplication::clipboard()->clear();
        Detail().setFocus();
    }
    ws::TWindowedGridRenderer& Detail() const { return *Find<ws::TWindowedGridRenderer>(); }
    void Fill(int32_t Count) {
        Frame.Table().Count = Count;
        Frame.Table().NotifyDataChanged();
    }
    void Press(Qt::Key Key, Qt::KeyboardModifiers Modifiers = {}) { QTest::keyClick(&Detail(), Key, Modifiers); }
    static QString Text() { return QGuiApplication::clipboard()->text(); }
    // Copying of many rows waits for the loop.
    fw::Text WaitSaid() {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !Said.empty(); }, 20000));
        return Said.empty() ? "" : Said.back();
    }

    QMainWindow Main;
    TFakeDialogs Dialogs{Context};
    ws::TViewCatalog Catalog;
    ws::TViewDocks Docks{Main, Catalog, Context, Dialogs};
    std::vector<fw::Text> Said;
    ws::TClipboardFlow Flow{Context, Dialogs, Docks, Main, [this](const fw::Text& Key, const auto& Args) {
                                fw::Text Line = Key;
                                for (const auto& Arg : Args) Line += "|" + Arg;
                                Said.push_back(Line);
                            }};
};

TEST_F(ClipboardTest, TheLegsAreCopiedWithTheirCaptionsAndWithoutTheEmptyRow) {
    Frame.Grid.GetDataController().SetRecordCount(2);
    Frame.Grid.GetDataController().SetValue(0, 0, "AAA");
    Frame.Grid.GetDataController().SetValue(0, Frame.ColumnOf(kPremium), 0.1);
    Frame.Grid.SetFocusedCell(0, 0);
    QTest::keyClick(&GridWidget(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Text(), "Res_Symbol\t\t\t\t\nAAA\t\t0.1\t\t\n");
    EXPECT_TRUE(QGuiApplication::clipboard()->mimeData()->html().contains("<td>AAA</td><td></td><td>0.1</td>"));
    EXPECT_EQ(Said, std::vector<fw::Text>{"Res_CopyDone|1"});
}

TEST_F(ClipboardTest, AnEmptyTableLeavesTheClipboardAsItIs) {
    QGuiApplication::clipboard()->setText("mine");
    QTest::keyClick(&GridWidget(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Text(), "mine");
    EXPECT_EQ(Said, std::vector<fw::Text>{"Res_CopyNothing"});
}

TEST_F(ClipboardTest, SelectedRowsOfTheLongTableAreCopiedElseAll) {
    Fill(20);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Text().count('\n'), 21);
    Press(Qt::Key_Home);
    Press(Qt::Key_Down);
    Press(Qt::Key_Down, Qt::ShiftModifier);
    Press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(Frame.Detail.GetSelection().GetFirst(), 1);
    EXPECT_EQ(Frame.Detail.GetSelection().GetLast(), 3);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Text(), "\t\n1\t-9\n2\t-8\n3\t-7\n");
    Press(Qt::Key_Up);
    EXPECT_EQ(Frame.Detail.GetSelection().GetFirst(), 2);
    EXPECT_EQ(Frame.Detail.GetSelection().GetLast(), 2);
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Text().count('\n'), 21);
    Fill(3);
    EXPECT_EQ(Frame.Detail.GetSelection().GetFirst(), -1) << "rows that are gone are not selected";
}

TEST_F(ClipboardTest, TheMouseSelectsWithShift) {
    Fill(100);
    const auto Click = [this](int Row, Qt::KeyboardModifiers Modifiers) {
        int Y = 0;
        while (Detail().RowAt(Y) != Row) ++Y;
        QTest::mouseClick(Detail().viewport(), Qt::LeftButton, Modifiers, QPoint(20, Y));
    };
    Click(3, {});
    Click(1, Qt::ShiftModifier);
    EXPECT_EQ(Frame.Detail.GetSelection().GetFirst(), 1);
    EXPECT_EQ(Frame.Detail.GetSelection().GetLast(), 3);
    EXPECT_EQ(Detail().GetCurrentRow(), 1);
}

TEST_F(ClipboardTest, MoreThanAMillionRowsAreAskedForFirst) {
    Fill(1'000'001);
    Dialogs.Yes = false;
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(WaitSaid(), "Res_CopyStopped");
    EXPECT_EQ(Dialogs.Asked.size(), 1u);
    EXPECT_TRUE(Text().isEmpty());
}

TEST_F(ClipboardTest, ManyRowsAreStreamedWhileTheLoopRuns) {
    Flow.SetLimits({1000, 1 << 30});
    Fill(5000);
    int Ticks = 0;
    QTimer Timer;
    QObject::connect(&Timer, &QTimer::timeout, [&] { ++Ticks; });
    Timer.start(0);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(WaitSaid(), "Res_CopyDone|5,000");
    EXPECT_EQ(Dialogs.Asked.size(), 1u);
    EXPECT_GT(Ticks, 1);
    EXPECT_EQ(Text().count('\n'), 5001);
    EXPECT_TRUE(Text().endsWith("4999\t2499\n"));
}

TEST_F(ClipboardTest, StreamingEndsWithCancelWithAChangeAndWithTheTable) {
    Flow.SetLimits({1000, 1 << 30});
    const struct {
        const char* Why;
        std::function<void()> Meanwhile;
        const char* Said;
    } Cases[] = {
        {"cancel",
         [] {
             for (QWidget* Each : QApplication::topLevelWidgets())
                 if (auto* Bar = qobject_cast<QProgressDialog*>(Each)) Bar->cancel();
         },
         "Res_CopyStopped"},
        {"other rows", [this] { Fill(6000); }, "Res_CopyChanged"},
        {"closed", [this] { Window.reset(), Frame.Detail.SetCustomDataSource(nullptr); }, "Res_CopyChanged"},
    };
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        Fill(5000);
        Said.clear();
        Press(Qt::Key_C, Qt::ControlModifier);
        QTimer::singleShot(0, [&] { QTimer::singleShot(0, Case.Meanwhile); });
        EXPECT_EQ(WaitSaid(), Case.Said);
        EXPECT_TRUE(Text().isEmpty());
    }
}

TEST_F(ClipboardTest, WhatNoClipboardHoldsIsRefusedWithItsSize) {
    Fill(2'000'000'000);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Dialogs.Told.empty(); }, 5000));
    EXPECT_TRUE(Dialogs.Asked.empty());
    EXPECT_EQ(Host.TakeLog().size(), 1u);
    EXPECT_TRUE(Text().isEmpty());
}

TEST_F(ClipboardTest, OneWordIsTypedIntoTheFocusedCell) {
    QGuiApplication::clipboard()->setText("12.5\r\n");
    Frame.Grid.SetFocusedCell(0, Frame.ColumnOf(kPremium));
    QTest::keyClick(&GridWidget(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Frame.Cell(0, kPremium).AsFloat(), 12.5);
    EXPECT_TRUE(Said.empty());
}

}  // namespace gui
