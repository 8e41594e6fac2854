// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/controls/Control.h"
#include "workstation/renderers/RenderContext.h"

namespace ws {

// The widget that draws a control model and passes the user's actions to it, chosen by the model's dynamic type; null
// for a type that no renderer knows. Parent owns the result. The model is borrowed and may die first.
QWidget* MakeRenderer(fw::TControl& Model, TRenderContext& Context, QWidget* Parent);

}  // namespace ws
