// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/controls/GridTableView.h"
#include "framework/view/Frame.h"

namespace ws {

// Resource key of what a view still needs before its next step: a choice in one of its lists, a symbol in its table of
// legs, a calculation. Null when nothing is missing. Looks at the kinds of controls only, so it fits any view.
const char* MissingHint(fw::TFrame& Frame);

// Why a view has just refused to edit the focused cell of an editable column. The last row is there to be typed into:
// refused there, the market is missing.
const char* RefusedHint(fw::TFrame& Frame, const fw::TGridTableView& Grid);

}  // namespace ws
