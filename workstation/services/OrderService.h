// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/services/OrderAdapter.h"
#include "workstation/services/LanguageService.h"
#include "workstation/services/MarketService.h"

namespace ws {

// Orders before they are sent: creation, what an exchange offers, and their texts.
class TOrderService : public fw::TCustomOrderAdapter {
public:
    TOrderService(const TMarketService& Market, const TLanguageService& Language)
        : FMarket(Market), FLanguage(Language) {}

    std::unique_ptr<fw::TCustomClientOrder> CreateClientOrder() override;  // with a line id of its own
    int GetOrderOptionCount(const fw::Text& Exchange) override;
    fw::Text GetOrderOption(const fw::Text& Exchange, int Index) override;
    fw::Text GetSideText(const fw::TCustomClientOrder& Order, bool Short) override;
    fw::Text GetRemarkText(const fw::TCustomClientOrder& Order) override;
    fw::Text GetOrderText(const fw::TCustomClientOrder& Order) override;

private:
    const TMarketService& FMarket;  // both borrowed
    const TLanguageService& FLanguage;
    int64_t FLastLineId = 0;
};

}  // namespace ws
