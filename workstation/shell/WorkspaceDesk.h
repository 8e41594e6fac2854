// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <vector>

#include <QByteArray>
#include <QPointer>

#include "workstation/shell/ViewDocks.h"
#include "workstation/workspace/WorkspaceEntries.h"

class QMainWindow;

namespace ws {

// The docks of the window as the sections of a workspace, and back. Sections of views that are not open keep their
// place: nobody here has the view, or it could not be built this time. Borrows everything.
class TWorkspaceDesk {
public:
    TWorkspaceDesk(QMainWindow& Window, TViewDocks& Docks, const TViewCatalog& Catalog);

    // Opens the views that the sections name, in their order, with group and layout data, then arranges them. Nothing
    // is open before. Returns what was opened.
    std::vector<TViewDock*> Restore(TWorkspaceSections Sections);
    // As on the first start: no view, and the window's own docks where they were then.
    void Clear();
    // How it looks now. An empty layout text of a view never replaces the one that it had.
    TWorkspaceSections Capture();
    // Whether the workspace holds the key for a view that is not open now.
    bool Keeps(const std::string& Key) const;
    // Whether the workspace brought a layout text for the view.
    bool BroughtLayout(const TViewDock& Dock) const;

    // Locked docks can neither be dragged nor made to float nor closed by hand.
    void SetLocked(bool Locked);
    bool IsLocked() const { return FLocked; }

    // Window and floating docks come back onto the present screens.
    void BringBack();
    std::function<std::vector<TRectangle>()> Screens;  // the toolkit's; tests replace them

private:
    struct TSlot {
        TWorkspaceSection Section;
        std::string Dock;  // key of the instance that it stands for; "" none, it is kept as it is
    };
    TSlot& SlotOf(const TViewDock& Dock);
    TViewEntry EntryOf(TViewDock& Dock) const;
    TViewDock* Open(TWorkspaceSection& Section);
    void Arrange(const TWindowEntry& Window);
    void ArrangeByEntries();
    void ForEachOpen(const std::function<void(TViewDock& Dock, const TViewEntry& Entry)>& Do) const;
    void Fix(TViewDock& Dock) const;
    void FixFeatures(QDockWidget& Dock) const;
    fw::TIBaseView* VisibleView(int Id) const;

    QMainWindow& FWindow;
    TViewDocks& FDocks;
    const TViewCatalog& FCatalog;
    QByteArray FEmpty;  // the window without views
    std::vector<TSlot> FSlots;
    bool FLocked = false;
    QPointer<QObject> FAtNextSize;  // the arrangement that waits for the window to be large
    fw::TConnection FOpenedLink;
};

}  // namespace ws
