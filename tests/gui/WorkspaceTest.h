// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QMenuBar>
#include <QTest>
#include <QToolButton>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "framework/base/Clock.h"
#include "framework/controls/ComboBox.h"
#include "tests/framework/base/LogRecorder.h"
#include "tests/gui/FakeDialogs.h"
#include "workstation/shell/MainWindow.h"
#include "workstation/shell/PackageLoader.h"

namespace gui {

namespace fs = std::filesystem;

// The whole program with the real package on a store file of its own, ended and started again.
class WorkspaceTest : public testing::Test {
protected:
    static constexpr ws::TRectangle kScreen{0, 0, 2400, 1600};
    static constexpr int kPayoff = 620, kOrders = 701, kPositions = 702;  // files hold them

    static void SetUpTestSuite() {
        fs::remove_all(Prepared());
        FixClock();
        ws::TWorkstation(OptionsFor(Prepared() / "store.db")).Store().WriteSetting("Shell", "FirstStartDone", "1");
    }
    static void TearDownTestSuite() { fs::remove_all(Prepared()); }

    WorkspaceTest() {
        fs::remove_all(Top);
        fs::create_directories(Top);
        fs::copy_file(Prepared() / "store.db", Top / "store.db");
        FixClock();
        Context.SetSkin("Light");
    }
    ~WorkspaceTest() override {
        Kill();
        fs::remove_all(Top);
        fw::TClock::Fix({});
    }

    // As the program starts and ends; Kill ends it without a word.
    void Start() { StartWith(std::make_unique<TFakeDialogs>(Context)); }
    void StartWith(std::unique_ptr<TFakeDialogs> Given) {
        Workstation = std::make_unique<ws::TWorkstation>(OptionsFor(Top / "store.db"));
        Dialogs = Given.get();
        Window = std::make_unique<ws::TMainWindow>(*Workstation, Context, std::move(Given));
        EXPECT_TRUE(ws::LoadPackage(TEST_PACKAGE));
        Window->ReloadViews();
        Flow().Desk().Screens = [this] { return Screens; };
        Window->show();
        if (!Flow().OpenLast()) Window->OpenStartView();
        QTest::qWait(1);
    }
    void Kill() {
        Window.reset();
        Workstation.reset();
    }
    void End() {
        EXPECT_TRUE(Window->close());
        Kill();
    }
    void Restart() {
        End();
        Start();
    }

    ws::TWorkspaceFlow& Flow() const { return Window->Workspaces(); }
    ws::TViewDocks& Docks() const { return Window->Docks(); }
    ws::TViewDock& Dock(const std::string& Key) const {
        ws::TViewDock* Found = Docks().DockOf(Key);
        if (!Found) throw std::runtime_error("no view " + Key);
        return *Found;
    }
    std::vector<std::string> Keys() const {
        std::vector<std::string> Result;
        for (const ws::TViewDock* Each : Docks().Docks()) Result.push_back(Each->Key());
        return Result;
    }
    ws::TViewDock& Open(int Id) {
        Window->Commands().Run("open." + std::to_string(Id));
        return *Docks().Current();
    }
    static fw::TComboBox& Combo(const ws::TViewDock& Dock, const char* Name) {
        return *Dock.Frame()->FindControl<fw::TComboBox>(Name);
    }
    static fw::Text LayoutOf(const ws::TViewDock& Dock) { return Dock.View().GetLayoutData(Dock.Handle()); }
    // A change of the arrangement that every workspace keeps.
    void Change() { Window->resize(Window->width() + 10, Window->height()); }

    fs::path FileOf(const std::string& Name = ws::kDefaultWorkspace, const std::string& User = "trader") const {
        return Top / "workspaces" / User / (Name + ".workspace");
    }
    static std::string Text(const fs::path& File) {
        std::ostringstream Result;
        Result << std::ifstream(File, std::ios::binary).rdbuf();
        return Result.str();
    }
    static void Put(const fs::path& File, const std::string& Text) {
        fs::create_directories(File.parent_path());
        std::ofstream(File, std::ios::binary) << Text;
    }
    static ws::TWorkspaceSections Sections(const fs::path& File) { return ws::ReadWorkspaceFile(File).Sections; }

    static fs::path Prepared() { return fs::temp_directory_path() / ("prepared-" + std::to_string(::getpid())); }
    fs::path Top = fs::temp_directory_path() / ("session-" + std::to_string(::getpid()));
    std::vector<ws::TRectangle> Screens{kScreen};
    ws::TRenderContext Context;
    std::unique_ptr<ws::TWorkstation> Workstation;
    TFakeDialogs* Dialogs = nullptr;
    std::unique_ptr<ws::TMainWindow> Window;

private:
    static void FixClock() {
        fw::TClock::Fix(std::chrono::sys_days(std::chrono::year(2026) / 11 / 20) + std::chrono::hours(4));
    }
    static ws::TWorkstationOptions OptionsFor(const fs::path& File) {
        ws::TWorkstationOptions Options;
        Options.StoreFile = File;
        Options.SampleFolder = TEST_SAMPLE_FOLDER;
        return Options;
    }
};

}  // namespace gui
