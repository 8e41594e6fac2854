// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "workstation/renderers/RenderContext.h"
#include "workstation/services/Workstation.h"

namespace ws {

// Asks for an option-chain file and imports it: progress that can be cancelled, bad lines shown before anything is
// imported without them, the outcome in the log.
void ImportWithDialog(TWorkstation& Workstation, const TRenderContext& Context, QWidget* Parent);

}  // namespace ws
