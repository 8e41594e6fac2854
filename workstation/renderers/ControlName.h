// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "workstation/renderers/RenderContext.h"

class QWidget;

namespace ws {

// The name of a control for screen readers, parts included: the text inside, its buttons. A combo gives it to the list
// that drops down when it does: making the list costs more than the rest of a cell's editor.
void NameControl(QWidget& Control, const QString& Name, const TRenderContext& Context);

}  // namespace ws
