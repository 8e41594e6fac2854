// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/WindowRun.h"

#include <QApplication>

#include "workstation/services/Workstation.h"
#include "workstation/shell/MainWindow.h"
#include "workstation/shell/PackageLoader.h"
#include "workstation/shell/SkinPalette.h"
#include "workstation/shell/StartUp.h"
#include "workstation/store/StoreLock.h"

namespace ws {

int RunWindow(const TCommandLine& Line) {
    const TStoreLock Lock(DefaultStorePath());
    TWorkstation Workstation(OptionsOf(Line));
    ApplyChoices(Workstation, Line);
    TRenderContext Context;
    ShowLook(Workstation, Context);
    TMainWindow Window(Workstation, Context, std::make_unique<TDialogs>(Context));
    LoadPackages();
    Window.ReloadViews();
    Window.show();
    if (!Window.Workspaces().OpenLast()) Window.OpenStartView();
    return QApplication::exec();
}

}  // namespace ws
