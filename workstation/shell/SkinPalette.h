// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPalette>
#include <string>

namespace ws {

// The toolkit's palette of a skin of the skin table; an unknown skin gives the first one's.
QPalette SkinPalette(const std::string& Skin);

}  // namespace ws
