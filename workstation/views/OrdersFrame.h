// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/controls/Button.h"
#include "workstation/views/OrdersData.h"
#include "workstation/views/TradingFrame.h"

namespace ws {

// Every order of the user's accounts with its life. Controls: "OrdersGridView", "btnCancelSelected", "btnCancelAll".
class TOrdersFrame : public TTradingFrame {
public:
    explicit TOrdersFrame(TTradingDesk& Desk);

private:
    void Refresh() override;
    EInk InkOf(int DataRecord, int Column) override;
    fw::Text HintOf(int DataRecord, int Column, const fw::Text& Shown) override;
    void Translate() override;

    std::vector<std::string> OpenOrders(bool SelectedOnly) const;
    void UpdateButtons();
    void CancelSelected();
    void CancelAll();
    void PushOrder(int DataRecord) const;

    TOrdersData* FData = nullptr;  // of the data source
    fw::TButton FCancelSelected, FCancelAll;
    fw::TLayoutGroup FButtons{fw::EDirection::Horizontal};
    fw::TLayoutItem FSelectedItem{&FCancelSelected}, FAllItem{&FCancelAll}, FSpacer;
    fw::TConnections FLinks;
};

}  // namespace ws
