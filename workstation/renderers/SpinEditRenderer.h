// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/controls/SpinEdit.h"
#include "workstation/renderers/ButtonLine.h"
#include "workstation/renderers/ModelRef.h"
#include "workstation/renderers/RenderContext.h"

namespace ws {

// A text that is refused and stays is drawn as an error, with the reason at the field.
class TSpinEditRenderer : public TButtonLine {
public:
    TSpinEditRenderer(fw::TSpinEdit& Model, TRenderContext& Context, QWidget* Parent);

private:
    void Reload();
    void ShowRefusal();
    bool KeyPressed(QKeyEvent* Event);

    TModelRef<fw::TSpinEdit> FModel;
    TRenderContext& FContext;
    std::optional<fw::TRefusal> FTold;  // the refusal that was shown last
    fw::TConnections FLinks;
};

}  // namespace ws
