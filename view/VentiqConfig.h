// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "view/VentiqForm.h"

namespace ventiq {

// Colours, display scale and the average-price mode, read from the host's configuration whenever it changes.
class TVentiqConfig {
public:
    explicit TVentiqConfig(TVentiqForm& Form) : FForm(Form) {}

    TColor FAlertColor = kColorRed;     // the chart's alert line
    TColor FInputRowColor = kColorRed;  // input rows with content
    int FAvgPriceMode = 0;              // which average price a loaded position brings along
    int FScaleSize = 0;                 // 100, 115, 125, 135 or 150; 0 before the first reading

    // The alert colour was read; fires on every reading.
    std::function<void(TColor Alert)> OnAlertColor;

    void ConfigUpdate(TObject* Sender, TObject* Data);
    // The skin may have put its own colour into the style of input rows.
    void LookAndFeelChanged(TObject* Sender, TObject* Data);

private:
    void ApplyScale(int ScaleSize);
    TVentiqForm& FForm;  // borrowed from the frame
};

}  // namespace ventiq
