// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <map>
#include <string>

#include "workstation/shell/Commands.h"
#include "workstation/shell/ViewCatalog.h"

class QMenu;
class QMenuBar;

namespace ws {

// The menu bar: the commands and what the views' descriptors ask for. Borrows everything.
class TMainMenus {
public:
    // Open: a view was chosen.
    TMainMenus(QMenuBar& Bar, TCommands& Commands, const TViewCatalog& Catalog, const TRenderContext& Context,
               std::function<void(fw::TIBaseView& View)> Open);

    // What stands at a place of the menus ("users", "workspaces") that no command fills; asked whenever they are built.
    void Fill(const std::string& Place, std::function<void(QMenu& Menu)> Filler) {
        FFillers[Place] = std::move(Filler);
    }

    // Anew on every change of language, user, skin or packages: the descriptors are asked again.
    void Build();

private:
    void AddViews();
    void AddNodes(QMenu& Menu, const std::vector<TMenuNode>& Nodes);
    void AddLine(QMenu& Menu, const std::string& Item);
    QAction* ViewAction(const TMenuNode& Node);

    QMenuBar& FBar;
    TCommands& FCommands;
    const TViewCatalog& FCatalog;
    const TRenderContext& FContext;
    std::function<void(fw::TIBaseView&)> FOpen;
    std::map<std::string, std::function<void(QMenu&)>> FFillers;
    int FViewKey = 0;  // of the shortcut that the next view gets
};

}  // namespace ws
