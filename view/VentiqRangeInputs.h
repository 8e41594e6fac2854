// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "view/VentiqPositionGrid.h"

namespace ventiq {

// Calculate, and the editors of the price range. Prices of the range are real ones, as the editors show them.
class TVentiqRangeInputs {
public:
    TVentiqRangeInputs(TVentiqForm& Form, TVentiqContext& Context, TVentiqPositionGrid& Grid)
        : FForm(Form), FContext(Context), FGrid(Grid) {}

    // Formats and bounds of the editors.
    void InitEditors();

    // Turns the grid's rows into legs and calculates; a range that cannot be calculated gives one message and changes
    // nothing.
    void btnCalcClick(TObject* Sender);

    // Hand the editor's value (empty: 0) to the data control, unchecked and without calculating.
    void edtDownExit(TObject* Sender);
    void edtUpExit(TObject* Sender);
    void edtIntervalExit(TObject* Sender);
    // Enter does what leaving does.
    void edtDownKeyPress(TObject* Sender, char& Key);
    void edtUpKeyPress(TObject* Sender, char& Key);
    void edtIntervalKeyPress(TObject* Sender, char& Key);

    // Shows the data control's default range in the editors, over whatever stands there.
    void UpdateDefaultPrice(TObject* Sender);

private:
    void AddLegs(TCustomVentiqDataControl& Control);

    TVentiqForm& FForm;  // all borrowed from the frame
    TVentiqContext& FContext;
    TVentiqPositionGrid& FGrid;
};

}  // namespace ventiq
