// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "view/VentiqPositionGrid.h"

namespace ventiq {

// What of the view outlives a session.
class TVentiqLayoutData {
public:
    TVentiqLayoutData(TVentiqForm& Form, TVentiqPositionGrid& Grid) : FForm(Form), FGrid(Grid) {}

    // Restored column layout of the position grid that waits for the host's windows to stand; "" none.
    Text FPendingColumnLayout;

    // Applies the pending column layout, once, where the user wants layouts kept.
    void AdjustLayout();
    // The host has loaded a layout (channel 109) or shown its main form (channel 104).
    void LoadLayoutComp(TObject* Sender, TObject* Data);
    void MainFormShow(TObject* Sender, TObject* Data);

private:
    TVentiqForm& FForm;  // both borrowed from the frame
    TVentiqPositionGrid& FGrid;
};

}  // namespace ventiq
