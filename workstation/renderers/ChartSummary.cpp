// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/ChartSummary.h"

#include <algorithm>
#include <cmath>

namespace ws {

namespace {

struct TPoint {
    double X, Y;
};

std::vector<TPoint> PointsOf(const fw::TLineSeries& Line) {
    std::vector<TPoint> Result;
    for (int i = 0; i < Line.GetCount(); ++i)
        if (std::isfinite(Line.GetX(i)) && std::isfinite(Line.GetY(i))) Result.push_back({Line.GetX(i), Line.GetY(i)});
    return Result;
}

bool IsAcross(const TPoint& A, const TPoint& B) { return (A.Y < 0 && B.Y > 0) || (A.Y > 0 && B.Y < 0); }

// The share is taken before the widths are multiplied: neither overflows.
double ZeroBetween(const TPoint& A, const TPoint& B) { return A.X + A.Y / (A.Y - B.Y) * (B.X - A.X); }

}  // namespace

std::optional<TChartSummary> SummaryOf(const fw::TLineSeries& Line) {
    const auto Points = PointsOf(Line);
    if (Points.empty()) return std::nullopt;
    TChartSummary Result{Points.front().X, Points.front().X, Points.front().Y, Points.front().Y, {}};
    for (size_t i = 0; i < Points.size(); ++i) {
        const TPoint& Here = Points[i];
        Result.From = std::min(Result.From, Here.X);
        Result.To = std::max(Result.To, Here.X);
        Result.Highest = std::max(Result.Highest, Here.Y);
        Result.Lowest = std::min(Result.Lowest, Here.Y);
        if (Here.Y == 0 && i > 0 && Points[i - 1].Y == 0) {
            Result.Zeros.back().To = Here.X;
        } else if (Here.Y == 0) {
            Result.Zeros.push_back({Here.X, Here.X});
        } else if (i > 0 && IsAcross(Points[i - 1], Here)) {
            const double At = ZeroBetween(Points[i - 1], Here);
            Result.Zeros.push_back({At, At});
        }
    }
    return Result;
}

const fw::TLineSeries* MainLine(const fw::TChart& Chart) {
    const fw::TLineSeries* Found = nullptr;
    for (const fw::TLineSeries* Each : Chart.Series()) {
        if (!Each->IsActive()) continue;
        if (Each->PointerVisible) return Each;
        if (!Found) Found = Each;
    }
    return Found;
}

}  // namespace ws
