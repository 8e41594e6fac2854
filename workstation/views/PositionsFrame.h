// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workstation/views/PositionsData.h"
#include "workstation/views/TradingFrame.h"

namespace ws {

// What the user's accounts hold and what it is worth. The average price that the user's configuration chooses stands
// first of the three and in bold, and the profit goes by it. Control: "PositionsGridView".
class TPositionsFrame : public TTradingFrame {
public:
    explicit TPositionsFrame(TTradingDesk& Desk);
    ~TPositionsFrame() override;

private:
    void Refresh() override;
    EInk InkOf(int DataRecord, int Column) override;
    fw::Text HintOf(int DataRecord, int Column, const fw::Text& Shown) override;
    std::vector<TColumn> Columns() const;
    void TakeMode();

    TPositionsData* FData = nullptr;  // of the data source
    bool FHoldingsChanged = false;    // else only prices
    fw::TConnections FLinks;
};

}  // namespace ws
