// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/controls/SpinEdit.h"
#include "workstation/renderers/ButtonLine.h"
#include "workstation/renderers/ModelRef.h"
#include "workstation/renderers/RenderContext.h"

namespace ws {

class TSpinEditRenderer : public TButtonLine {
public:
    TSpinEditRenderer(fw::TSpinEdit& Model, TRenderContext& Context, QWidget* Parent);

private:
    void Reload();
    bool KeyPressed(QKeyEvent* Event);

    TModelRef<fw::TSpinEdit> FModel;
    fw::TConnections FLinks;
};

}  // namespace ws
