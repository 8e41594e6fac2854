// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>

#include "framework/services/OrderAdapter.h"
#include "workstation/services/LanguageService.h"
#include "workstation/services/MarketService.h"

namespace ws {

// Orders before they are sent: creation, what an exchange offers, and their texts. Every order that it created is found
// by its line id as long as it lives.
class TOrderService : public fw::TCustomOrderAdapter {
public:
    TOrderService(const TMarketService& Market, const TLanguageService& Language);
    ~TOrderService() override;

    std::unique_ptr<fw::TCustomClientOrder> CreateClientOrder() override;  // with a line id of its own
    int GetOrderOptionCount(const fw::Text& Exchange) override;
    fw::Text GetOrderOption(const fw::Text& Exchange, int Index) override;
    fw::Text GetSideText(const fw::TCustomClientOrder& Order, bool Short) override;
    fw::Text GetRemarkText(const fw::TCustomClientOrder& Order) override;  // what OnRemark says; "" while it is empty
    fw::Text GetOrderText(const fw::TCustomClientOrder& Order) override;   // the line id

    // The living order of a line id; of an order and its copies the one that took the id last. Null when there is none.
    const fw::TCustomClientOrder* FindOrder(int64_t LineId) const;
    std::function<fw::Text(const fw::TCustomClientOrder& Order)> OnRemark;

private:
    class TRegisteredOrder;
    using TRegistry = std::multimap<int64_t, const fw::TCustomClientOrder*>;

    const TMarketService& FMarket;  // both borrowed
    const TLanguageService& FLanguage;
    std::shared_ptr<TRegistry> FOrders;  // orders may outlive the service
    int64_t FLastLineId = 0;
};

}  // namespace ws
