// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/trading/PositionData.h"
#include "view/VentiqConfig.h"
#include "view/VentiqPositionGrid.h"
#include "view/VentiqSubscriptions.h"
#include "view/VentiqSymbolCheck.h"

namespace ventiq {

// Load: the account's positions in the chosen market become the first rows of the grid, for the trader to add legs
// below them. Loaded rows are not edited.
class TVentiqPositionLoader {
public:
    TVentiqPositionLoader(TVentiqForm& Form, TVentiqContext& Context, TVentiqPositionGrid& Grid, TVentiqTexts& Texts,
                          TVentiqConfig& Config, TVentiqSymbolCheck& Check, TVentiqSubscriptions& Subscriptions)
        : FForm(Form),
          FContext(Context),
          FGrid(Grid),
          FTexts(Texts),
          FConfig(Config),
          FCheck(Check),
          FSubscriptions(Subscriptions) {}

    // Without market or account: one message and nothing changes. Raises EConvertError for a position whose expiry is
    // no date; the grid is empty then.
    void btnLoadClick(TObject* Sender);

private:
    std::vector<const TCustomPositionData*> PositionsOfMarket();
    void FillRow(int Row, const TCustomPositionData& Position);
    // Null: the cell stays empty.
    Variant CellOf(int ColumnId, const TCustomPositionData& Position) const;
    double AveragePrice(const TCustomPositionData& Position) const;

    TVentiqForm& FForm;  // all borrowed from the frame
    TVentiqContext& FContext;
    TVentiqPositionGrid& FGrid;
    TVentiqTexts& FTexts;
    TVentiqConfig& FConfig;
    TVentiqSymbolCheck& FCheck;
    TVentiqSubscriptions& FSubscriptions;
};

}  // namespace ventiq
