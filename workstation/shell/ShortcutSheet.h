// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workstation/shell/Commands.h"

namespace ws {

// Every command and its keys on one sheet, with a line that filters; the keys that work in the tables stand below. One
// sheet at a time: asked for again, it closes.
void ShowShortcutSheet(TCommands& Commands, const TRenderContext& Context, QWidget* Parent);

}  // namespace ws
