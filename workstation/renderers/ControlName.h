// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "workstation/renderers/RenderContext.h"

class QWidget;

namespace ws {

// The name of a control for screen readers, parts included: the text inside, its buttons, the list that drops down.
void NameControl(QWidget& Control, const QString& Name, const TRenderContext& Context);

}  // namespace ws
