// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "view/VentiqCaptionButtons.h"
#include "view/VentiqConfig.h"
#include "view/VentiqContext.h"
#include "view/VentiqForm.h"

namespace ventiq {

// The payoff line over the key prices of the last calculation, the zero line where the P/L changes sign, and the hint
// under the mouse.
class TVentiqPayoffChart {
public:
    TVentiqPayoffChart(TVentiqForm& Form, TVentiqContext& Context, TVentiqConfig& Config,
                       TVentiqCaptionButtons& Buttons)
        : FForm(Form), FContext(Context), FConfig(Config), FButtons(Buttons) {}

    // Creates the two series. Once, after the configuration was read.
    void InitChart();
    void RefreshChart();
    // "P/L(currency)" in the current language, without parentheses while nothing is calculated or no leg has a
    // currency.
    void UpdateTitle();
    // Before InitChart there is no line to colour.
    void SetAlertColor(TColor Color);

    // The data control has calculated.
    void DataChanged(TObject* Sender);

    void DataChartMouseMove(TObject* Sender, int Shift, int X, int Y);
    void DataChartMouseLeave(TObject* Sender);

    TLineSeries* GetPLSeries() const { return FPLSeries.get(); }  // both null before InitChart
    TLineSeries* GetAlertSeries() const { return FAlertSeries.get(); }

private:
    void AddPoints(TCustomVentiqDataControl& Control);
    void ScaleAxis();
    void ShowAlertLine(const TCustomVentiqDataControl& Control);

    TVentiqForm& FForm;  // all borrowed from the frame
    TVentiqContext& FContext;
    TVentiqConfig& FConfig;
    TVentiqCaptionButtons& FButtons;
    std::unique_ptr<TLineSeries> FPLSeries, FAlertSeries;
};

}  // namespace ventiq
