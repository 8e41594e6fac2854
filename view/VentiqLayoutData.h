// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "view/VentiqCaptionButtons.h"
#include "view/VentiqMarketSelectors.h"
#include "view/VentiqPositionGrid.h"

namespace ventiq {

// What of the view outlives a session, as one comma text: market, account, the states of the caption buttons and the
// position grid's columns; codes, never what is shown for them. Legs, range and chart are not part of it.
class TVentiqLayoutData {
public:
    // View is what the host is told about; all borrowed from the frame.
    TVentiqLayoutData(TVentiqForm& Form, TVentiqPositionGrid& Grid, TVentiqMarketSelectors& Selectors,
                      TVentiqCaptionButtons& Buttons, TFrame& View)
        : FForm(Form), FGrid(Grid), FSelectors(Selectors), FButtons(Buttons), FView(View) {}

    // Restored column layout of the position grid that waits for the host's windows to stand; "" none.
    Text FPendingColumnLayout;

    // "" before the market lists have come. Deliberate: not even the buttons' states then, which would be read back
    // without a market.
    Text GetLayoutData() const;
    // Always true. Without market lists the market waits in the selectors for them. What is no longer offered leaves
    // its selector as it is; a state that is missing or no number is 0.
    bool SetLayoutData(const Text& Data);

    // Applies the pending column layout, once, where the user wants layouts kept.
    void AdjustLayout();
    // The host has loaded a layout (channel 109) or shown its main form (channel 104).
    void LoadLayoutComp(TObject* Sender, TObject* Data);
    void MainFormShow(TObject* Sender, TObject* Data);

private:
    void RestoreMarket(const TStringList& Pairs);
    void RestoreColumns(const Text& Layout);

    TVentiqForm& FForm;
    TVentiqPositionGrid& FGrid;
    TVentiqMarketSelectors& FSelectors;
    TVentiqCaptionButtons& FButtons;
    TFrame& FView;
};

}  // namespace ventiq
