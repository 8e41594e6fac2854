// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/controls/PopupEdit.h"
#include "workstation/renderers/ButtonLine.h"
#include "workstation/renderers/ModelRef.h"
#include "workstation/renderers/RenderContext.h"

class QMenu;

namespace ws {

// A text that is chosen from a drop-down, never typed: a letter opens the list at the choices that begin with it.
class TPopupEditRenderer : public TButtonLine {
public:
    TPopupEditRenderer(fw::TPopupEdit& Model, TRenderContext& Context, QWidget* Parent);

    void OpenChoices();
    QMenu* GetMenu() const { return FMenu; }  // null while none is open

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;

private:
    void Reload();
    bool KeyPressed(QKeyEvent* Event);

    TModelRef<fw::TPopupEdit> FModel;
    fw::TConnections FLinks;
    QMenu* FMenu = nullptr;  // owned by this widget while it is open
};

}  // namespace ws
