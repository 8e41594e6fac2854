// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "framework/controls/Chart.h"

namespace ws {

// Where a line is zero: at one value of the bottom axis, or along a stretch of it.
struct TZeroPlace {
    double From = 0.0, To = 0.0;
    bool operator==(const TZeroPlace&) const = default;
};

// What a drawn line shows, in axis units.
struct TChartSummary {
    double From = 0.0, To = 0.0;  // of the bottom axis
    double Highest = 0.0, Lowest = 0.0;
    std::vector<TZeroPlace> Zeros;  // ascending for a line from left to right
};

// Of the line as it is drawn: straight between its points, those that are not finite left out. None without a point.
std::optional<TChartSummary> SummaryOf(const fw::TLineSeries& Line);

// The line that a chart is about: the first active one with marked points, else the first active one. Null: none.
const fw::TLineSeries* MainLine(const fw::TChart& Chart);

}  // namespace ws
