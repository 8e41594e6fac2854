// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QMenuBar>
#include <QPushButton>
#include <QTest>

#include <filesystem>

#include "framework/base/Clock.h"
#include "tests/gui/FakeDialogs.h"
#include "workstation/renderers/GridRenderer.h"
#include "workstation/shell/MainWindow.h"
#include "workstation/shell/PackageLoader.h"

namespace gui {

namespace fs = std::filesystem;

// The whole program with the real package, on the sample market in memory.
class MainWindowTest : public testing::Test {
protected:
    MainWindowTest() {
        fw::TClock::Fix(std::chrono::sys_days(std::chrono::year(2026) / 11 / 20) + std::chrono::hours(4));
        Folder = fs::temp_directory_path() / ("shell-" + std::to_string(::getpid()));
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
    }
    ~MainWindowTest() override {
        Window.reset();
        Workstation.reset();
        fs::remove_all(Folder);
        fw::TClock::Fix({});
    }

    fw::TFrame& PlayFirstStart() {
        ws::TViewDock* Dock = Window->PlayFirstStart();
        if (!Dock || !Dock->Frame()) throw std::runtime_error("no view opened");
        EXPECT_TRUE(QTest::qWaitFor([this] { return !Window->IsPlaying(); }, 12000));
        return *Dock->Frame();
    }
    ws::TGridRenderer& Grid() const {
        for (auto* Each : Window->Docks().Current()->findChildren<QTableView*>())
            if (auto* Found = dynamic_cast<ws::TGridRenderer*>(Each)) return *Found;
        throw std::runtime_error("no grid");
    }
    QStringList MenuTexts() const {
        QStringList Result;
        for (QAction* Each : Window->menuBar()->actions()) Result << Each->text();
        return Result;
    }
    QStringList MessageTexts() const {
        QStringList Result;
        for (int Row = 0; Row < Window->Messages().rowCount(); ++Row)
            Result << Window->Messages().index(Row, ws::TMessageList::kText).data().toString();
        return Result;
    }
    // As a trader: click the cell, type, press the key.
    void TypeCell(int Row, int Column, const char* Text, Qt::Key Key = Qt::Key_Return) {
        QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, Grid().CellRect(Row, Column).center());
        if (!Grid().GetEditorWidget()) throw std::runtime_error("the cell does not open");
        QWidget* Editor = Grid().GetEditorWidget()->FocusWidget();
        QTest::keyClicks(Editor, QString::fromUtf8(Text));
        QTest::keyClick(Editor, Key);
    }
    void Click(const QString& Caption) {
        for (auto* Each : Window->Docks().Current()->findChildren<QPushButton*>())
            if (Each->text() == Caption) return QTest::mouseClick(Each, Qt::LeftButton);
        throw std::runtime_error("no such button");
    }

    fs::path Folder;
    std::unique_ptr<ws::TWorkstation> Workstation;
    ws::TRenderContext Context;
    TFakeDialogs* Dialogs = nullptr;
    std::unique_ptr<ws::TMainWindow> Window;
};

}  // namespace gui
