// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>
#include <QPointer>

#include "framework/base/Object.h"
#include "workstation/services/Workstation.h"
#include "workstation/shell/PreferencesDialog.h"
#include "workstation/shell/ScaleMemory.h"
#include "workstation/shell/ShortcutKeys.h"

namespace ws {

// Follows the configuration for the window: language, look and keys hold as soon as they are stored, wherever that was
// asked for. Opens the preferences. Borrows everything.
class TPreferencesFlow : public fw::TObject {
public:
    TPreferencesFlow(TWorkstation& Workstation, TRenderContext& Context, QMainWindow& Window);
    ~TPreferencesFlow() override;

    // The commands exist now, or others do.
    void SetCommands(TCommands& Commands);
    const TShortcutKeys& Keys() const { return FKeys; }

    void Open();
    TPreferencesDialog* Dialog() const { return FDialog; }  // null: not open

    std::function<void()> OnLanguage;  // the window is to be written anew
    std::function<void()> OnLook;      // another skin or palette is shown

private:
    void Follow();

    TWorkstation& FWorkstation;
    TRenderContext& FContext;
    QMainWindow& FWindow;
    TCommands* FCommands = nullptr;  // borrowed
    TShortcutKeys FKeys;
    TScaleMemory FScales;
    int FLanguage;
    QPointer<TPreferencesDialog> FDialog;
};

}  // namespace ws
