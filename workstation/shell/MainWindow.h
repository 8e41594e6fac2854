// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <vector>

#include <QElapsedTimer>
#include <QLabel>
#include <QMainWindow>

#include "workstation/script/StrategyRun.h"
#include "workstation/services/Workstation.h"
#include "workstation/shell/MenuTree.h"
#include "workstation/shell/MessagesPanel.h"
#include "workstation/shell/ViewDock.h"

namespace ws {

// The window: menus from the views' descriptors, a dock for every open instance, the Messages panel and a status bar
// that says what to do next and what went wrong last.
class TMainWindow : public QMainWindow {
public:
    TMainWindow(TWorkstation& Workstation, const TViewRegistry& Views, TMessageLog& Log, TRenderContext& Context);
    ~TMainWindow() override;  // closes every instance

    // Opens an instance in a dock. An error of the view is shown and opens nothing; null then.
    TViewDock* OpenView(fw::TIBaseView& View);
    const std::vector<TViewDock*>& Docks() const { return FDocks; }

    // Plays a strategy in an open view; the window's loop carries it on.
    void PlayStrategy(TViewDock& Dock, TStrategy Strategy);
    bool IsPlaying() const { return FRun != nullptr; }

    // Language, skin and user of the whole program, live.
    void SwitchLanguage(int Language);
    void SwitchSkin(const std::string& Skin);
    void SwitchUser(const std::string& Code);

    TMessagesPanel& Messages() const { return *FMessages; }
    QString StatusText() const { return FHint->text(); }
    QString AlertText() const { return FAlert->text(); }

protected:
    void closeEvent(QCloseEvent* Event) override;

private:
    void BuildMenus();
    void AddViewMenus(QMenuBar& Bar);
    void AddEntries(QMenu& Menu, const std::vector<TMenuEntry>& Entries);
    void AddFileMenu(QMenuBar& Bar);
    void AddUserMenu(QMenu& File);
    void AddViewMenu(QMenuBar& Bar);
    void AddHelpMenu(QMenuBar& Bar);
    void Retranslate();
    void ResetSample();
    void ShowAbout();
    void RequestClose(TViewDock& Dock);
    void CloseDock(TViewDock& Dock);
    void CloseInvisible();
    void ShowMessageBox(const fw::Text& Message);
    void ShowAlert(const TMessage& Message);
    void ShowHint();
    void Poll();
    TViewDock* ActiveDock() const;

    TWorkstation& FWorkstation;  // all borrowed, outlive the window
    const TViewRegistry& FViews;
    TRenderContext& FContext;
    TMessagesPanel* FMessages;
    QLabel* FHint;               // what to do next
    QLabel* FAlert;              // the last warning or error
    std::vector<TViewDock*> FDocks;
    std::unique_ptr<TStrategyRun> FRun;
    TViewDock* FRunDock = nullptr;
    QElapsedTimer FRunTime;
    QTimer FPolling;
    fw::TConnections FLinks;
};

}  // namespace ws
