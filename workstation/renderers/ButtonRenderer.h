// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPushButton>

#include "framework/controls/Button.h"
#include "workstation/renderers/ModelRef.h"
#include "workstation/renderers/RenderContext.h"

namespace ws {

class TButtonRenderer : public QPushButton {
public:
    TButtonRenderer(fw::TButton& Model, TRenderContext& Context, QWidget* Parent);

private:
    void Reload();

    TModelRef<fw::TButton> FModel;
    fw::TConnections FLinks;
};

}  // namespace ws
