// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>

#include "framework/base/Color.h"
#include "framework/controls/Control.h"

namespace fw {

class TChart;

enum class EPointerStyle { Rectangle, Circle };

// A broken line through points in the order in which they were added. Axis units.
class FRAMEWORK_API TLineSeries : public TObject {
public:
    TLineSeries();
    ~TLineSeries() override;

    void Clear();
    void AddXY(double X, double Y);
    int GetCount() const { return static_cast<int>(FPoints.size()); }
    double GetX(int Index) const { return FPoints.at(static_cast<size_t>(Index)).first; }
    double GetY(int Index) const { return FPoints.at(static_cast<size_t>(Index)).second; }
    // Over the finite points; 0 when there is none.
    double MaxY() const;
    double MinY() const;

    // X under the mouse and the line's own Y there, interpolated between its points (of several points on one X the
    // last). False without chart, mouse or line at that X; the arguments stay untouched then.
    bool GetCursorValues(double& X, double& Y) const;

    bool IsActive() const { return FActive; }
    void SetActive(bool Value);
    std::optional<TColor> GetColor() const { return FColor; }  // none: the renderer's palette
    void SetColor(TColor Value);

    bool ShowInLegend = true;
    bool PointerVisible = false;
    EPointerStyle PointerStyle = EPointerStyle::Rectangle;
    int PointerSize = 4;  // pixels at scale 100

private:
    friend class TChart;
    void Changed();
    std::vector<std::pair<double, double>> FPoints;
    bool FActive = true;
    std::optional<TColor> FColor;
    TChart* FChart = nullptr;  // borrowed; set by AddSeries
};

class FRAMEWORK_API TChartAxis : public TObject {
public:
    explicit TChartAxis(TChart& Chart) : FChart(Chart) {}
    ~TChartAxis() override;

    bool AutomaticMinimum = true, AutomaticMaximum = true;
    bool PenVisible = true;
    double GetMinimum() const { return FMinimum; }
    double GetMaximum() const { return FMaximum; }
    // A bound beyond the other, or not finite, raises EAxisRange and changes nothing.
    void SetMinimum(double Value);
    void SetMaximum(double Value);
    double GetIncrement() const { return FIncrement; }  // 0: the renderer's own spacing
    void SetIncrement(double Value);                    // not finite or below 0: 0

private:
    TChart& FChart;
    double FMinimum = 0.0, FMaximum = 0.0;
    double FIncrement = 0.0;
};

struct TChartLegend {
    int TextStyle = 0;
    int TitleAlignment = 0;
    bool SymbolsVisible = true;
    int LegendStyle = 0;
};

// Two-dimensional line chart.
class FRAMEWORK_API TChart : public TControl {
public:
    TChart();
    ~TChart() override;

    const Text& GetTitle() const { return FTitle; }
    void SetTitle(Text Value);
    TChartAxis& LeftAxis() { return FLeft; }
    TChartAxis& BottomAxis() { return FBottom; }
    TChartLegend Legend;
    bool OuterBevel = true, View3D = true, BackWalls = true, Hints = false;

    void AddSeries(TLineSeries& Added);  // borrowed; the series leaves by itself when it dies
    void RemoveSeries(TLineSeries& Removed);
    const std::vector<TLineSeries*>& Series() const { return FSeries; }

    // The range that the bottom axis shows: set bounds where it is not automatic, else the span of the active series'
    // finite points; no points: 0..1; one X: half a unit to each side.
    void BottomRange(double& Minimum, double& Maximum) const;

    // The renderer tells where the axes' rectangle lies, in the control's pixels.
    void SetPlotArea(int Left, int Top, int Width, int Height);
    // Mouse over the control, in its pixels; fires OnMouseMove or OnMouseLeave. Also what the player calls.
    void MouseMove(int X, int Y, int Shift = 0);
    void MouseLeave();
    bool HasCursor() const { return FHasCursor; }
    double CursorAxisX() const;  // value of the bottom axis under the mouse; its minimum without one
    // Pixel of a value on the bottom axis, brought into the plot area.
    int PixelOfX(double Value) const;

    std::function<void(TObject* Sender, int Shift, int X, int Y)> OnMouseMove;
    TNotifyEvent OnMouseLeave;

    TSignal<> OnDataChanged;  // points, colours, axes, title

private:
    friend class TLineSeries;
    Text FTitle;
    TChartAxis FLeft{*this}, FBottom{*this};
    std::vector<TLineSeries*> FSeries;
    int FPlotLeft = 0, FPlotTop = 0, FPlotWidth = 0, FPlotHeight = 0;
    bool FHasCursor = false;
    int FCursorX = 0, FCursorY = 0;
};

}  // namespace fw
