// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace ws {

// Host-wide column numbers that a grid shows in a special way.
inline constexpr int kColumnSymbol = 0;        // symbols without market data are marked
inline constexpr int kColumnProfitLoss = 607;  // amounts whose sign is shown by marker and colour

}  // namespace ws
