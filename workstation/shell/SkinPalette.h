// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPalette>
#include <string>

#include "workstation/renderers/RenderContext.h"
#include "workstation/services/Workstation.h"

namespace ws {

// The toolkit's palette of a skin of the skin table; an unknown skin gives the first one's.
QPalette SkinPalette(const std::string& Skin);

// Skin, palette of profit and loss and scale as they are configured, for everything that is open. True where the look
// is another than before.
bool ShowLook(TWorkstation& Workstation, TRenderContext& Context);

}  // namespace ws
