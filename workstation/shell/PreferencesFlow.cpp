// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/PreferencesFlow.h"

#include "workstation/shell/SkinPalette.h"

namespace ws {

TPreferencesFlow::TPreferencesFlow(TWorkstation& Workstation, TRenderContext& Context, QMainWindow& Window)
    : FWorkstation(Workstation),
      FContext(Context),
      FWindow(Window),
      FKeys(Workstation.Config()),
      FScales(Window),
      FLanguage(Workstation.Language().GetLanguage()) {
    Workstation.Config().AddConfigUpdateEvent([this](fw::TObject*, fw::TObject*) { Follow(); }, this);
    ShowLook(Workstation, Context);
}

TPreferencesFlow::~TPreferencesFlow() {
    FWorkstation.Config().RemoveConfigUpdateEvent(this);
    delete FDialog;
}

void TPreferencesFlow::SetCommands(TCommands& Commands) {
    FCommands = &Commands;
    FKeys.Follow(Commands);
}

void TPreferencesFlow::Follow() {
    const int Language = FWorkstation.Language().GetLanguage();
    const bool Retranslated = std::exchange(FLanguage, Language) != Language;
    if (Retranslated && OnLanguage) OnLanguage();
    const int Scale = FWorkstation.Config().ReadInteger(kPlatformSection, kPreferenceScale);
    const bool Scales = Scale != FContext.GetScale();
    if (Scales) FScales.Leave(FContext.GetScale());
    if (ShowLook(FWorkstation, FContext) && OnLook) OnLook();
    if (Scales) FScales.Arrive(Scale);
    if (FCommands) FKeys.Follow(*FCommands);
    if (!FDialog) return;
    if (Retranslated) FDialog->Retranslate();
    FDialog->Reload();
}

void TPreferencesFlow::Open() {
    if (!FCommands) return;
    if (!FDialog) {
        FDialog = new TPreferencesDialog(FWorkstation.Config(), *FCommands, FKeys, FContext, &FWindow);
        FDialog->setAttribute(Qt::WA_DeleteOnClose);
    }
    FDialog->open();
    FDialog->raise();
    FDialog->activateWindow();
}

}  // namespace ws
