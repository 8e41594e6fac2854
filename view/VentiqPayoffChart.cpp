// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqPayoffChart.h"

#include <cmath>

#include "framework/services/Formatter.h"
#include "registration/VentiqConstDef.h"
#include "view/VentiqTexts.h"

namespace ventiq {

namespace {

constexpr int kLegendTextStyle = 8;
constexpr int kLegendTitleAlignment = 1;
constexpr int kLegendStyle = 2;
constexpr int kMarkerSize = 3;
constexpr double kStepsPerSpan = 8.0;
constexpr double kMarginsPerSpan = 10.0;

}  // namespace

void TVentiqPayoffChart::InitChart() {
    auto& Chart = FForm.DataChart;
    Chart.OuterBevel = false;
    Chart.View3D = false;
    Chart.BackWalls = false;
    Chart.LeftAxis().PenVisible = false;
    Chart.BottomAxis().PenVisible = false;
    Chart.SetTitle(GetResourceHeader("Res_PL"));
    Chart.Legend = {.TextStyle = kLegendTextStyle,
                    .TitleAlignment = kLegendTitleAlignment,
                    .SymbolsVisible = false,
                    .LegendStyle = kLegendStyle};
    Chart.LeftAxis().AutomaticMaximum = false;
    Chart.LeftAxis().AutomaticMinimum = false;
    Chart.OnMouseMove = [this](TObject* Sender, int Shift, int X, int Y) { DataChartMouseMove(Sender, Shift, X, Y); };
    Chart.OnMouseLeave = [this](TObject* Sender) { DataChartMouseLeave(Sender); };
    Chart.Hints = true;

    FPLSeries = std::make_unique<TLineSeries>();
    FPLSeries->ShowInLegend = false;
    FPLSeries->PointerVisible = true;
    FPLSeries->PointerStyle = EPointerStyle::Rectangle;
    FPLSeries->PointerSize = kMarkerSize;
    FAlertSeries = std::make_unique<TLineSeries>();
    FAlertSeries->ShowInLegend = false;
    SetAlertColor(FConfig.FAlertColor);
    Chart.AddSeries(*FPLSeries);
    Chart.AddSeries(*FAlertSeries);
}

void TVentiqPayoffChart::SetAlertColor(TColor Color) {
    if (FAlertSeries) FAlertSeries->SetColor(Color);
}

void TVentiqPayoffChart::DataChanged(TObject*) { RefreshChart(); }

void TVentiqPayoffChart::RefreshChart() {
    FAlertSeries->Clear();
    FPLSeries->Clear();
    if (auto* Control = FContext.FMyDataControl.get(); Control && Control->GetCount() > 0) {
        AddPoints(*Control);
        ScaleAxis();
        ShowAlertLine(*Control);
    }
    UpdateTitle();
}

void TVentiqPayoffChart::AddPoints(TCustomVentiqDataControl& Control) {
    for (int i = 0; i < Control.GetCount(); ++i) {
        double Price = 0.0, PL = 0.0;
        if (Control.GetPrice(i, Price) && Control.GetPL(i, PL)) FPLSeries->AddXY(Price, PL);
    }
}

void TVentiqPayoffChart::ScaleAxis() {
    auto& Axis = FForm.DataChart.LeftAxis();
    const double Max = FPLSeries->MaxY(), Min = FPLSeries->MinY();
    const double Span = Max - Min;
    const double Top = Max + Span / kMarginsPerSpan, Bottom = Min - Span / kMarginsPerSpan;
    if (!std::isfinite(Top) || !std::isfinite(Bottom)) return;  // beyond what an axis can carry
    // The bounds must not cross on the way from the old pair to the new one.
    if (Axis.GetMinimum() > Top) {
        Axis.SetMinimum(Bottom);
        Axis.SetMaximum(Top);
    } else {
        Axis.SetMaximum(Top);
        Axis.SetMinimum(Bottom);
    }
    // Half to even: a span of 4 or less gives 0, and the chart spaces the axis itself.
    Axis.SetIncrement(std::nearbyint(Span / kStepsPerSpan));
}

// From limit to limit, although key prices outside the limits make the P/L line longer.
void TVentiqPayoffChart::ShowAlertLine(const TCustomVentiqDataControl& Control) {
    if (Control.GetShowAlertLine()) {
        FAlertSeries->AddXY(Control.GetDownLimit(), 0.0);
        FAlertSeries->AddXY(Control.GetUpLimit(), 0.0);
    }
    FAlertSeries->SetActive(Control.GetShowAlertLine());
}

void TVentiqPayoffChart::UpdateTitle() {
    auto* Control = FContext.FMyDataControl.get();
    const Text Code = Control && Control->GetCount() > 0 ? Control->GetCurrency() : Text();
    const Text Currency = Code.empty() ? Text() : GetTagText(kTagCurrency, Code);
    const Text PL = GetResourceHeader("Res_PL");
    FForm.DataChart.SetTitle(Currency.empty() ? PL : FormatText(kCodeAndText, {PL, Currency}));
}

void TVentiqPayoffChart::DataChartMouseMove(TObject* Sender, int, int X, int Y) {
    auto* Control = FContext.FMyDataControl.get();
    if (!Control || Control->GetCount() <= 0 || !FButtons.IsHintOn()) return;
    double Price = 0.0, PL = 0.0;
    // The limits that are applied, which a left editor may have moved since the line was drawn.
    if (!FPLSeries->GetCursorValues(Price, PL) || Price > Control->GetUpLimit() || Price < Control->GetDownLimit())
        return DataChartMouseLeave(Sender);
    auto& Formatter = TCustomFormatter::GetInstance();
    const Text Hint = "X:" + Formatter.FormatPrice(Price, kFormatChartPrice, true) +
                      "\r\nY:" + Formatter.FormatValue(PL, kFormatAmount, "", true, nullptr);
    const TPoint Screen = FForm.DataChart.ClientToScreen({X, Y});
    FForm.HintController.ShowHint(Screen.X, Screen.Y, Hint, "", 0);
}

void TVentiqPayoffChart::DataChartMouseLeave(TObject*) { FForm.HintController.HideHint(); }

}  // namespace ventiq
