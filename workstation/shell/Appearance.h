// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace ws {

// Style and fonts of the whole program; once, after the application object exists. The font is set explicitly, so that
// Chinese is drawn wherever the program runs.
void ApplyStyle();

// Palette of a skin of the embedded table.
void ApplySkin(const std::string& Skin);

}  // namespace ws
