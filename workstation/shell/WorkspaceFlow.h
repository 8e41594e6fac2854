// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

#include <QTimer>

#include "workstation/services/Workstation.h"
#include "workstation/shell/Commands.h"
#include "workstation/shell/Dialogs.h"
#include "workstation/shell/MainMenus.h"
#include "workstation/shell/WorkspaceDesk.h"
#include "workstation/workspace/AutoSave.h"
#include "workstation/workspace/WorkspaceFolder.h"

namespace ws {

// The name of the first workspace on disk; it is shown in the user's language.
inline constexpr char kDefaultWorkspace[] = "default";

// Where the workspaces of the users stand: beside the store's file; empty for a store in memory.
std::filesystem::path WorkspacesBeside(const TStore& Store);

// The workspaces of the user who is logged in: one is open, is saved by itself and comes back at the next start.
// Without a folder nothing is read or written, and what needs one is not possible. Borrows everything.
class TWorkspaceFlow {
public:
    struct THost {
        std::filesystem::path Folder;     // a folder for each user in it; empty: none
        std::function<void()> OpenStart;  // the view that an empty workspace begins with
        std::function<void(const fw::Text& Key, const std::vector<fw::Text>& Args)> Say;  // in the status bar
        std::chrono::milliseconds Delay = std::chrono::seconds(5);                        // from a change to its save
    };
    TWorkspaceFlow(TWorkstation& Workstation, const TRenderContext& Context, TDialogs& Dialogs, QMainWindow& Window,
                   TViewDocks& Docks, const TViewCatalog& Catalog, THost Host);
    ~TWorkspaceFlow();

    // The user's last workspace; nothing is open before. False: there is none yet.
    bool OpenLast();
    // Saves. False: that failed, and the user would rather stay.
    bool Leave();
    // Looks whether something has changed; by itself once a second.
    void Poll(TAutoSave::TTime Now);

    const std::string& Name() const { return FName; }
    QString Title() const;  // of the window
    std::vector<std::string> Names() const;
    bool IsLocked() const { return FDesk.IsLocked(); }
    bool IsRestoring() const { return FRestoring; }
    bool IsBusy() const { return FBusy; }  // on the way from one workspace to another: what is open is none of both
    // False, having said why, while the workspace is locked.
    bool MayArrange() const;

    void Switch(const std::string& Name);  // a name that nothing has begins with the start view
    void SaveAs(const std::string& Name);
    void Remove(const std::string& Name);  // not the one that is open
    void Reset();
    void SetLocked(bool Locked);
    void Export(const std::filesystem::path& File);
    void Import(const std::filesystem::path& File, const std::string& Name);  // replaces what has the name

    // Menu entries and keys, with the questions that belong to them.
    void Bind(TCommands& Commands, TMainMenus& Menus);

    TWorkspaceDesk& Desk() { return FDesk; }

    fw::TSignal<> OnChanged;                     // name, names or lock
    fw::TSignal<const std::string&> OnSwitched;  // another name is open, "" none; no view of it yet
    fw::TSignal<TViewDock&> OnViewRestored;      // in its place, with its layout data; not for newly opened views
    fw::TSignal<const std::string&, const std::string&> OnCopied;  // from, to: the views are the same
    fw::TSignal<const std::string&> OnRemoved;

private:
    bool Save();
    bool MaySwitch() const;
    void Enter(const std::string& Name);
    bool Restore(TWorkspaceFolder::TFound Found);
    void Begin();
    void TellFound(const TWorkspaceFolder::TFound& Found) const;
    void Refuse(const fw::TRefusal& Reason) const;
    std::string LastName() const;
    void Remember() const;
    bool MayOpenAgain();
    void MarkOpening();
    void EndOpening();
    void LeaveAlone();
    static void InStore(const std::function<void()>& Body);  // what the store refuses is said
    // AskOpen: the name of the open workspace is asked about like that of another.
    std::optional<std::string> AskName(const QString& Question, const std::string& Proposed, bool AskOpen);
    void AskOpen();
    void AskSaveAs();
    void AskRemove();
    void AskReset();
    void AskExport();
    void AskImport();
    QString Shown(const std::string& Name) const;

    TWorkstation& FWorkstation;
    const TRenderContext& FContext;
    TDialogs& FDialogs;
    QMainWindow& FWindow;
    TViewDocks& FDocks;
    THost FHost;
    TWorkspaceDesk FDesk;
    TWorkspaceFolder FFolder;
    TAutoSave FAutoSave;
    std::string FName;
    bool FReadOnly = false;  // its file is not ours to write
    bool FFailed = false;    // the last save did; said once
    bool FRestoring = false;
    bool FBusy = false;
    QTimer FTimer, FSettled;
};

}  // namespace ws
