// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QMainWindow;

namespace ws {

// Moves the focus to the next panel (Step 1) or the one before (Step -1), round the end: the parts of each view that is
// seen, the messages, the status bar. A panel gets the focus where it had it last, else in its first control.
void WalkPanels(QMainWindow& Window, int Step);

}  // namespace ws
