// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/view/Frame.h"

namespace ws {

// Resource key of what the user should do next in a view that types legs: what the selectors lack, or why a cell of the
// grid is not edited. "" when there is nothing to say.
const char* StatusHintOf(const fw::TFrame& Frame);

// Why a cell that the user tried to edit stays closed.
const char* EditRefusedHintOf(const fw::TFrame& Frame);

}  // namespace ws
