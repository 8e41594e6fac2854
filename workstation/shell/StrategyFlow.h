// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>

#include "workstation/shell/Dialogs.h"
#include "workstation/shell/DraftFlow.h"
#include "workstation/shell/StrategyDialog.h"

namespace ws {

// File > Strategies: what stands in the view that was used last is saved under a name, and a named strategy comes into
// it as one step that can be undone. Each user has his own. Borrows everything.
class TStrategyFlow {
public:
    TStrategyFlow(TWorkstation& Workstation, const TRenderContext& Context, TDialogs& Dialogs, TViewDocks& Docks,
                  TDraftFlow& Drafts, TCommands& Commands, QWidget& Window, TDraftFlow::TSay Say);

    void Save();
    void Open();
    // The dialog while it is open; for tests.
    TStrategyDialog* Dialog() const { return FDialog; }

private:
    TViewDock* LegsDock() const;
    void Show(TStrategyDialog::EMode Mode, std::function<bool(const std::string&, const std::string&)> Take);
    bool SaveAs(const TViewState& State, const std::string& Name, const std::string& Note);
    bool OpenInto(TViewDock* Dock, const std::string& Name);
    void Remove(const std::string& Name);
    std::vector<TStrategyRow> Load() const;
    // False, and the user is told, when the store fails.
    bool Guarded(const std::function<void()>& Body) const;

    TWorkstation& FWorkstation;
    const TRenderContext& FContext;
    TDialogs& FDialogs;
    TViewDocks& FDocks;
    TDraftFlow& FDrafts;
    QWidget& FWindow;
    TDraftFlow::TSay FSay;
    QPointer<TStrategyDialog> FDialog;  // child of the window
};

}  // namespace ws
