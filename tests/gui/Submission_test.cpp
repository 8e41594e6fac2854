// SPDX-License-Identifier: GPL-3.0-or-later
// From the Submit button of the real package to the order system, on the sample market in memory.
#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "framework/base/Clock.h"
#include "framework/data/ColumnIds.h"
#include "tests/gui/FakeDialogs.h"
#include "workstation/shell/BatchDialog.h"
#include "workstation/shell/MainWindow.h"
#include "workstation/shell/PackageLoader.h"

namespace gui {

namespace fs = std::filesystem;

class SubmissionTest : public testing::Test {
protected:
    SubmissionTest() {
        fw::TClock::Fix(std::chrono::sys_days(std::chrono::year(2026) / 11 / 20) + std::chrono::hours(4));
        Folder = fs::temp_directory_path() / ("submission-" + std::to_string(::getpid()));
        fs::create_directories(Folder);
        ws::TWorkstationOptions Options;
        Options.StoreFile = Folder / "none.db";
        Options.InMemory = true;
        Options.SampleFolder = TEST_SAMPLE_FOLDER;
        Workstation = std::make_unique<ws::TWorkstation>(Options);
        Context.SetSkin("Light");
        auto Given = std::make_unique<TFakeDialogs>(Context);
        Dialogs = Given.get();
        Window = std::make_unique<ws::TMainWindow>(*Workstation, Context, std::move(Given));
        EXPECT_TRUE(ws::LoadPackage(TEST_PACKAGE));
        Window->ReloadViews();
        Window->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(Window.get()));
        Window->PlayFirstStart();  // an iron condor of four legs for account A100
        EXPECT_TRUE(QTest::qWaitFor([this] { return !Window->IsPlaying(); }, 12000));
    }
    ~SubmissionTest() override {
        Window.reset();
        Workstation.reset();
        fs::remove_all(Folder);
        fw::TClock::Fix({});
    }

    void ClickSubmit() {
        for (auto* Each : Window->Docks().Current()->findChildren<QPushButton*>())
            if (Each->text() == "Submit") return QTest::mouseClick(Each, Qt::LeftButton);
        throw std::runtime_error("no such button");
    }
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

    fs::path Folder;
    std::unique_ptr<ws::TWorkstation> Workstation;
    ws::TRenderContext Context;
    TFakeDialogs* Dialogs = nullptr;
    std::unique_ptr<ws::TMainWindow> Window;
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
