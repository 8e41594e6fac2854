// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include "workstation/script/ViewDraft.h"
#include "workstation/services/Workstation.h"
#include "workstation/shell/Commands.h"
#include "workstation/shell/ViewDocks.h"

namespace ws {

// Drafts of the open views: each view that has legs is followed into its journal in the store, where undo, redo and the
// next start find it. What the store does not take is said once, kept and tried again. Borrows everything; the docks
// are closed before it goes.
class TDraftFlow : public QObject {
public:
    using TSay = std::function<void(const fw::Text& Key, const std::vector<fw::Text>& Args)>;  // to the status bar
    TDraftFlow(TWorkstation& Workstation, TViewDocks& Docks, TCommands& Commands, TSay Say);
    ~TDraftFlow() override;

    // The workspace whose journals are kept from now on. Open views go on with theirs under the new name; to leave them
    // behind, close them first.
    void SetWorkspace(const std::string& Name);
    // In the store; over what the other workspace has. False: the store took nothing, and the log says why.
    bool CopyJournals(const std::string& From, const std::string& To);
    // Views of the workspace that are open keep theirs.
    bool RemoveJournals(const std::string& Workspace);

    // Right after a view was opened: brings back how it was left, its layout text too, unless the user wants none of it
    // (the preference kPreferenceRestoreDrafts). Without this call a view starts anew, and undo fetches what
    // was there before.
    // WithLayout: the layout text of the draft, too; left out where a newer one is there already.
    void RestoreView(TViewDock& Dock, bool WithLayout = true);
    // A state from elsewhere, as one step that can be undone. False: the view takes none.
    bool OpenState(TViewDock& Dock, TViewState State);
    // How the view is now; none for a view without legs.
    std::optional<TViewState> StateOf(TViewDock& Dock);

    void Undo() { Step(true); }
    void Redo() { Step(false); }
    // What waits for quiet and what waits for the store; at the end of the program the docks do it as they close.
    void Flush();
    bool HasUnwritten() const;  // the store does not take them

    TViewDraft* DraftOf(const TViewDock& Dock) const;

    std::function<bool()> IsPaused;  // true while views come and go that are not the user's yet; may be left out
    std::function<bool()>
        IsHeld;  // true while the program itself types into a view, which is one step; may be left out

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;

private:
    struct TFollowed {
        TViewDock* Dock;
        std::unique_ptr<TViewDraft> Draft;
    };
    void Follow(TViewDock& Dock);
    void Leave(const fw::TFrame& Frame);
    void Poll();
    void Write();
    void Step(bool Back);
    void TellRestored(TViewDock& Dock, const std::vector<fw::TRefusal>& Problems);
    bool InStore(const std::function<void(class TStoreTransaction& Write)>& Body);

    TWorkstation& FWorkstation;
    TViewDocks& FDocks;
    TCommands& FCommands;
    TSay FSay;
    std::string FWorkspace;
    std::map<const fw::TFrame*, TFollowed> FFollowed;
    QElapsedTimer FClock;
    QTimer FPoll;
    qint64 FNextTry = 0;    // of the store, after it took nothing
    bool FFailing = false;  // and that has been said
    fw::TConnections FLinks;
};

}  // namespace ws
