// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <QMainWindow>

#include "framework/base/Signal.h"
#include "workstation/shell/Dialogs.h"
#include "workstation/shell/ViewCatalog.h"
#include "workstation/shell/ViewDock.h"

namespace ws {

// The open instances and their docks. Borrows the window, which owns the docks as widgets.
class TViewDocks {
public:
    TViewDocks(QMainWindow& Window, TViewCatalog& Catalog, TRenderContext& Context, TDialogs& Dialogs);
    ~TViewDocks();

    // A new instance in a dock of its own, beside the others as a tab. What the construction throws is shown to the
    // user, and nothing is left behind; null then. Key: of the instance; empty: the first number that is free.
    TViewDock* Open(fw::TIBaseView& View, std::string Key = {});
    void CloseLater(TViewDock& Dock);  // when control is back in the loop and nothing holds the views
    bool CanArrange() const { return !MayArrange || MayArrange(); }
    void CloseAll();  // at once; for the end of the program

    const std::vector<TViewDock*>& Docks() const { return FDocks; }
    TViewDock* DockOf(const fw::TFrame& Frame) const;
    TViewDock* DockOf(const std::string& Key) const;
    // The dock with the focus, else the one that was used last; null without any.
    TViewDock* Current() const;
    // Of those that fit the one that was used last; null: none.
    TViewDock* LastUsed(const std::function<bool(TViewDock& Dock)>& Fits) const;

    void SetLanguage(int Language);

    std::function<bool(const std::string& Key)> IsKept;  // a key that a new view does not get; may be left out
    std::function<bool()> IsHeld;                        // true while no view may close; may be left out
    std::function<bool()> MayArrange;  // false, having said why, while the user moves none; may be left out
    fw::TSignal<> OnChanged;           // opened or closed
    fw::TSignal<TViewDock&> OnOpened;
    fw::TSignal<fw::TFrame&> OnFrameGoes;  // before an instance is destroyed

    void Use(TViewDock& Dock);  // as if it had got the focus

private:
    std::string FreeKey(fw::TIBaseView& View) const;
    void Close(TViewDock& Dock);

    QMainWindow& FWindow;
    TViewCatalog& FCatalog;
    TRenderContext& FContext;
    TDialogs& FDialogs;
    std::vector<TViewDock*> FDocks;  // in order of opening; children of the window
    std::vector<TViewDock*> FUsed;   // the same, the one that was used last first
    fw::TConnection FNotifyLink;
    std::unique_ptr<QObject> FGuard;  // ends what waits in the loop
};

}  // namespace ws
