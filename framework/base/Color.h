// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace fw {

// BGR encoding: the low byte is red, so 255 is pure red. Toolkits convert at their boundary.
using TColor = int32_t;

inline constexpr TColor kColorRed = 255;

constexpr int RedOf(TColor C) { return C & 0xFF; }
constexpr int GreenOf(TColor C) { return (C >> 8) & 0xFF; }
constexpr int BlueOf(TColor C) { return (C >> 16) & 0xFF; }
constexpr TColor MakeColor(int Red, int Green, int Blue) { return Red | (Green << 8) | (Blue << 16); }

}  // namespace fw
