// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

namespace ws {

// Left edge, upper edge and size in the pixels of the whole desktop; the edges may be negative.
struct TRectangle {
    int X = 0, Y = 0, Width = 0, Height = 0;
    bool IsEmpty() const { return Width <= 0 || Height <= 0; }
    bool operator==(const TRectangle&) const = default;
};

// Where a window stands that was last seen at Wanted: there, if every pixel of it is on a screen; else wholly on the
// screen that shows most of it or, if none does, on the nearest, no larger than that. Without screens, or for an empty
// rectangle: Wanted.
TRectangle OntoScreens(const TRectangle& Wanted, const std::vector<TRectangle>& Screens);

}  // namespace ws
