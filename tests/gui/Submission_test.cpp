// SPDX-License-Identifier: GPL-3.0-or-later
// From the Submit button of the real package to the order system, on the sample market in memory.
#include "tests/gui/MainWindowTest.h"

#include <QApplication>
#include <QTimer>

#include "framework/data/ColumnIds.h"
#include "workstation/shell/BatchDialog.h"

namespace gui {

class SubmissionTest : public MainWindowTest {
protected:
    SubmissionTest() {
        EXPECT_TRUE(QTest::qWaitForWindowActive(Window.get()));
        PlayFirstStart();  // an iron condor of four legs for account A100
    }
    void ClickSubmit() { Click("Submit"); }
    // Submits and lets InDialog act on the confirmation; whether there was one.
    bool Submit(const std::function<void(ws::TBatchDialog&)>& InDialog) {
        bool Opened = false;
        QTimer::singleShot(0, Window.get(), [&] {
            auto* Dialog = dynamic_cast<ws::TBatchDialog*>(QApplication::activeModalWidget());
            if (!Dialog) return;
            Opened = QTest::qWaitFor([&] { return Dialog->isActiveWindow(); }, 5000);
            InDialog(*Dialog);
            if (QApplication::activeModalWidget() == Dialog) Dialog->reject();
        });
        ClickSubmit();
        return Opened;
    }
    static void Press(int Key, Qt::KeyboardModifiers Modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(Key), Modifiers);
    }
};

TEST_F(SubmissionTest, WhatIsTickedReachesTheOrderSystemOnce) {
    EXPECT_TRUE(Submit([&](ws::TBatchDialog& Dialog) {
        auto& Model = Dialog.Model();
        ASSERT_EQ(Model.rowCount(), 4);
        EXPECT_EQ(Model.data(Model.index(3, Model.ColumnOf(fw::kColumnSymbol)), Qt::DisplayRole), "HSI28000L6");
        // The sample's account holds three of it.
        EXPECT_EQ(Model.data(Model.index(3, Model.ColumnOf(25)), Qt::DisplayRole), "You hold +3; after this +4");
        EXPECT_EQ(QApplication::focusWidget(), &Dialog.CancelButton());
        Dialog.View().setFocus();
        Press(Qt::Key_Down);
        Press(Qt::Key_Space);  // leaves the second leg out
        Press(Qt::Key_Return, Qt::ControlModifier);
    }));
    const auto& Orders = Workstation->Orders().Orders();
    ASSERT_EQ(Orders.size(), 3u);
    const char* Symbols[] = {"HSI25000X6", "HSI27400L6", "HSI28000L6"};
    const int Sides[] = {0, 1, 0};
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(Orders[i].Symbol, Symbols[i]);
        EXPECT_EQ(Orders[i].Side, Sides[i]);
        EXPECT_EQ(Orders[i].Account, "A100");
        EXPECT_EQ(Orders[i].Qty, 1);
        EXPECT_EQ(Orders[i].Place, static_cast<int>(i) + 1);
        EXPECT_EQ(Orders[i].BatchSize, 3);
        EXPECT_EQ(Orders[i].BatchId, Orders[0].BatchId);
    }
    EXPECT_TRUE(Dialogs->Told.empty());
}

TEST_F(SubmissionTest, CancelSendsNothing) {
    EXPECT_TRUE(Submit([](ws::TBatchDialog&) { Press(Qt::Key_Escape); }));
    EXPECT_TRUE(Workstation->Orders().Orders().empty());
}

TEST_F(SubmissionTest, TheSameBatchAMomentLaterIsWarnedOf) {
    const auto Send = [](ws::TBatchDialog&) { Press(Qt::Key_Return, Qt::ControlModifier); };
    EXPECT_TRUE(Submit(Send));
    fw::TClock::Fix(fw::TClock::Now() + std::chrono::seconds(12));
    EXPECT_TRUE(Submit([](ws::TBatchDialog& Dialog) {
        EXPECT_EQ(Dialog.Banner(), "These orders equal the batch that was sent 12 s ago.");
    }));
    EXPECT_EQ(Workstation->Orders().Orders().size(), 4u);
}

TEST_F(SubmissionTest, NothingClosesAndNothingIsSubmittedTwiceWhileTheConfirmationIsOpen) {
    ws::TViewDock* Dock = Window->Docks().Current();
    const auto User = Workstation->User().Code;
    EXPECT_TRUE(Submit([&](ws::TBatchDialog& Dialog) {
        Window->Docks().CloseLater(*Dock);
        QTest::qWait(200);
        EXPECT_EQ(Window->Docks().Docks().size(), 1u);
        EXPECT_FALSE(Window->close());
        EXPECT_TRUE(Window->isVisible());
        EXPECT_FALSE(Window->SetUser("fixed"));
        EXPECT_EQ(Workstation->User().Code, User);
        for (auto* Each : Dock->findChildren<QPushButton*>())
            if (Each->text() == "Submit") Each->click();
        EXPECT_EQ(QApplication::activeModalWidget(), &Dialog);
        Press(Qt::Key_Return, Qt::ControlModifier);
    }));
    EXPECT_EQ(Workstation->Orders().Orders().size(), 4u);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Window->Docks().Docks().empty(); }, 5000)) << "closes afterwards";
}

TEST_F(SubmissionTest, TheLanguageMaySwitchWhileTheConfirmationIsOpen) {
    EXPECT_TRUE(Submit([&](ws::TBatchDialog& Dialog) {
        Window->SetLanguage(ws::kLanguageSimplified);
        EXPECT_EQ(Dialog.windowTitle(), QString::fromUtf8("确认委托"));
        Press(Qt::Key_Return, Qt::ControlModifier);
    }));
    EXPECT_EQ(Workstation->Orders().Orders().size(), 4u);
}

TEST_F(SubmissionTest, ARefusedOrderIsNamedAndNothingIsSent) {
    Workstation->Store().WriteSetting("Trading", "Exchanges.A100", "SEHK");
    EXPECT_FALSE(Submit([](ws::TBatchDialog&) {}));
    ASSERT_EQ(Dialogs->Told.size(), 1u);
    EXPECT_EQ(Dialogs->Told[0], "Order 1 (HSI25000X6) is not accepted: account A100 may not trade on HKFE.");
    EXPECT_TRUE(Workstation->Orders().Orders().empty());
}

}  // namespace gui
