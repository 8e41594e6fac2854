// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/Chart.h"

#include <cmath>

#include "framework/base/Errors.h"

namespace fw {

namespace {

bool IsFinite(const std::pair<double, double>& Point) {
    return std::isfinite(Point.first) && std::isfinite(Point.second);
}

}  // namespace

TLineSeries::TLineSeries() = default;

TLineSeries::~TLineSeries() {
    if (FChart) FChart->RemoveSeries(*this);
}

void TLineSeries::Clear() {
    if (FPoints.empty()) return;
    FPoints.clear();
    Changed();
}

void TLineSeries::AddXY(double X, double Y) {
    FPoints.emplace_back(X, Y);
    Changed();
}

double TLineSeries::MaxY() const {
    std::optional<double> Result;
    for (const auto& Point : FPoints)
        if (IsFinite(Point) && (!Result || Point.second > *Result)) Result = Point.second;
    return Result.value_or(0.0);
}

double TLineSeries::MinY() const {
    std::optional<double> Result;
    for (const auto& Point : FPoints)
        if (IsFinite(Point) && (!Result || Point.second < *Result)) Result = Point.second;
    return Result.value_or(0.0);
}

bool TLineSeries::GetCursorValues(double& X, double& Y) const {
    if (!FChart || !FChart->HasCursor() || FChart->FPlotWidth <= 0) return false;
    const double At = FChart->CursorAxisX();
    std::optional<double> Found;
    for (const auto& Point : FPoints)
        if (IsFinite(Point) && Point.first == At) Found = Point.second;
    for (size_t Index = 1; Index < FPoints.size() && !Found; ++Index) {
        const auto& [X0, Y0] = FPoints[Index - 1];
        const auto& [X1, Y1] = FPoints[Index];
        if (!IsFinite(FPoints[Index - 1]) || !IsFinite(FPoints[Index])) continue;
        if (At > std::min(X0, X1) && At < std::max(X0, X1)) Found = std::lerp(Y0, Y1, (At - X0) / (X1 - X0));
    }
    if (!Found) return false;
    X = At;
    Y = *Found;
    return true;
}

void TLineSeries::SetActive(bool Value) {
    if (Value == FActive) return;
    FActive = Value;
    Changed();
}

void TLineSeries::SetColor(TColor Value) {
    if (FColor == Value) return;
    FColor = Value;
    Changed();
}

void TLineSeries::Changed() {
    if (FChart) FChart->OnDataChanged();
}

TChartAxis::~TChartAxis() = default;

void TChartAxis::SetMinimum(double Value) {
    if (!std::isfinite(Value) || Value > FMaximum) throw EAxisRange("axis minimum above the maximum");
    if (Value == FMinimum) return;
    FMinimum = Value;
    FChart.OnDataChanged();
}

void TChartAxis::SetMaximum(double Value) {
    if (!std::isfinite(Value) || Value < FMinimum) throw EAxisRange("axis maximum below the minimum");
    if (Value == FMaximum) return;
    FMaximum = Value;
    FChart.OnDataChanged();
}

void TChartAxis::SetIncrement(double Value) {
    const double Usable = std::isfinite(Value) && Value > 0.0 ? Value : 0.0;
    if (Usable == FIncrement) return;
    FIncrement = Usable;
    FChart.OnDataChanged();
}

TChart::TChart() = default;

TChart::~TChart() {
    for (TLineSeries* Shown : FSeries) Shown->FChart = nullptr;
}

void TChart::SetTitle(Text Value) {
    if (Value == FTitle) return;
    FTitle = std::move(Value);
    OnDataChanged();
}

void TChart::AddSeries(TLineSeries& Added) {
    if (Added.FChart == this) return;
    if (Added.FChart) Added.FChart->RemoveSeries(Added);
    Added.FChart = this;
    FSeries.push_back(&Added);
    OnDataChanged();
}

void TChart::RemoveSeries(TLineSeries& Removed) {
    if (Removed.FChart != this) return;
    Removed.FChart = nullptr;
    std::erase(FSeries, &Removed);
    OnDataChanged();
}

void TChart::BottomRange(double& Minimum, double& Maximum) const {
    std::optional<double> Low, High;
    for (const TLineSeries* Shown : FSeries) {
        if (!Shown->FActive) continue;
        for (const auto& Point : Shown->FPoints) {
            if (!IsFinite(Point)) continue;
            Low = std::min(Low.value_or(Point.first), Point.first);
            High = std::max(High.value_or(Point.first), Point.first);
        }
    }
    Minimum = FBottom.AutomaticMinimum ? Low.value_or(0.0) : FBottom.GetMinimum();
    Maximum = FBottom.AutomaticMaximum ? High.value_or(1.0) : FBottom.GetMaximum();
    if (Minimum < Maximum) return;
    // One X, or a set bound beyond the points: the set bounds hold, room comes from the automatic ones.
    if (FBottom.AutomaticMinimum && FBottom.AutomaticMaximum) {
        Minimum -= 0.5;
        Maximum += 0.5;
    } else if (FBottom.AutomaticMinimum) {
        Minimum = Maximum - 1.0;
    } else {
        Maximum = Minimum + 1.0;
    }
}

void TChart::SetPlotArea(int Left, int Top, int Width, int Height) {
    FPlotLeft = Left;
    FPlotTop = Top;
    FPlotWidth = std::max(0, Width);
    FPlotHeight = std::max(0, Height);
}

void TChart::MouseMove(int X, int Y, int Shift) {
    FHasCursor = true;
    FCursorX = X;
    FCursorY = Y;
    if (!OnMouseMove) return;
    const auto Running = OnMouseMove;
    Dispatch(EventName("OnMouseMove"), [&] { Running(this, Shift, X, Y); });
}

void TChart::MouseLeave() {
    FHasCursor = false;
    FireNotify(OnMouseLeave, "OnMouseLeave");
}

double TChart::CursorAxisX() const {
    double Minimum = 0.0, Maximum = 0.0;
    BottomRange(Minimum, Maximum);
    if (!FHasCursor || FPlotWidth <= 0) return Minimum;
    return std::lerp(Minimum, Maximum, static_cast<double>(FCursorX - FPlotLeft) / FPlotWidth);
}

int TChart::PixelOfX(double Value) const {
    double Minimum = 0.0, Maximum = 0.0;
    BottomRange(Minimum, Maximum);
    const double Share = (Value - Minimum) / (Maximum - Minimum);
    if (!(Share > 0.0)) return FPlotLeft;  // not a number, too
    return FPlotLeft + static_cast<int>(std::lround(std::min(Share, 1.0) * FPlotWidth));
}

}  // namespace fw
