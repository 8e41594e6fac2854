// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include <QMainWindow>
#include <QTimer>

#include "workstation/script/StrategyRun.h"
#include "workstation/services/Workstation.h"
#include "workstation/shell/BatchConfirmation.h"
#include "workstation/shell/ClipboardFlow.h"
#include "workstation/shell/Commands.h"
#include "workstation/shell/Dialogs.h"
#include "workstation/shell/DraftFlow.h"
#include "workstation/shell/ExportFlow.h"
#include "workstation/shell/MainMenus.h"
#include "workstation/shell/MessageList.h"
#include "workstation/shell/MessagesPanel.h"
#include "workstation/shell/PreferencesFlow.h"
#include "workstation/shell/StatusLine.h"
#include "workstation/shell/StrategyFlow.h"
#include "workstation/shell/SymbolPopups.h"
#include "workstation/shell/TradingFlow.h"
#include "workstation/shell/ViewCatalog.h"
#include "workstation/shell/ViewCommands.h"
#include "workstation/shell/ViewDocks.h"
#include "workstation/shell/WorkspaceFlow.h"

class QMenu;

namespace ws {

// The workstation's window: menus from the descriptors, a dock for each open view, messages, status. Runs the services'
// loop while it lives. Borrows the workstation and the context, which outlive it.
class TMainWindow : public QMainWindow {
public:
    TMainWindow(TWorkstation& Workstation, TRenderContext& Context, std::unique_ptr<TDialogs> Dialogs);
    ~TMainWindow() override;

    // Takes up what packages have registered and builds the menus.
    void ReloadViews();
    // The first start shows a calculated strategy in the first visible view, with its hint on; later ones the view as
    // it was left.
    void OpenStartView();
    // The same strategy, asked for; null when no view is visible.
    TViewDock* PlayFirstStart();
    bool IsPlaying() const { return FRun != nullptr; }

    void SetLanguage(int Language);
    void SetSkin(const std::string& Skin);
    bool SetUser(const std::string& Code);
    void ImportFile(const QString& File);
    void ResetSample();

    TViewCatalog& Catalog() { return FCatalog; }
    TViewDocks& Docks() { return *FDocks; }
    TMessageList& Messages() { return *FMessages; }
    TMessagesPanel& Panel() { return *FPanel; }
    TStatusLine& Status() { return *FStatus; }
    TClipboardFlow& Clipboard() { return *FClipboard; }
    TDraftFlow& Drafts() { return *FDrafts; }
    TStrategyFlow& Strategies() { return *FStrategies; }
    TCommands& Commands() { return *FCommands; }
    TPreferencesFlow& Preferences() { return *FPreferences; }
    TMainMenus& Menus() { return *FMenus; }
    TWorkspaceFlow& Workspaces() { return *FWorkspaces; }

protected:
    void showEvent(QShowEvent* Event) override;
    void closeEvent(QCloseEvent* Event) override;

private:
    void GiveRoomToViews();
    void BindCommands();
    void MakeWorkspaces();
    void BuildMenus();
    void FillUsers(QMenu& Menu);
    fw::TIBaseView* FirstVisibleView() const;
    void OpenFirstView();
    bool LeaveDrafts();
    void ShowAbout();
    void Retranslate();
    void Remember(const std::function<void()>& Choice);
    void UpdateHint();
    void Say(const fw::Text& Key, const std::vector<fw::Text>& Args);
    void PollRun();
    void PumpLater();

    TWorkstation& FWorkstation;
    TRenderContext& FContext;
    std::unique_ptr<TDialogs> FDialogs;
    TSymbolPopups FPopups;
    TBatchConfirmation FConfirmation;
    TTradingFlow FTrading;
    TViewCatalog FCatalog;
    TMessageList* FMessages;
    TMessagesPanel* FPanel;
    TStatusLine* FStatus;
    std::unique_ptr<TViewDocks> FDocks;
    std::unique_ptr<TPreferencesFlow> FPreferences;
    std::unique_ptr<TCommands> FCommands;
    std::unique_ptr<TMainMenus> FMenus;
    std::unique_ptr<TViewCommands> FViewCommands;
    std::unique_ptr<TExportFlow> FExport;
    std::unique_ptr<TWorkspaceFlow> FWorkspaces;
    std::unique_ptr<TClipboardFlow> FClipboard;
    std::unique_ptr<TDraftFlow> FDrafts;
    std::unique_ptr<TStrategyFlow> FStrategies;
    std::unique_ptr<TStrategyRun> FRun;
    fw::TFrame* FRunFrame = nullptr;  // the view that FRun types into
    qint64 FRunBegan = 0;
    QTimer FTick, FRunTimer, FHintTimer;
    fw::TConnections FLinks;
    bool FShown = false;    // the views have been told that the window stands
    bool FPumping = false;  // a round of the services' queue is on its way
};

}  // namespace ws
