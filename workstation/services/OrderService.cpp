// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/OrderService.h"

#include <algorithm>

namespace ws {

std::unique_ptr<fw::TCustomClientOrder> TOrderService::CreateClientOrder() {
    auto Order = std::make_unique<fw::TCustomClientOrder>();
    Order->SetLineId(++FLastLineId);
    return Order;
}

int TOrderService::GetOrderOptionCount(const fw::Text& Exchange) {
    const auto& Rows = FMarket.Market().OrderOptions;
    return static_cast<int>(
        std::count_if(Rows.begin(), Rows.end(), [&](const auto& R) { return R.Exchange == Exchange; }));
}

fw::Text TOrderService::GetOrderOption(const fw::Text& Exchange, int Index) {
    for (const auto& Row : FMarket.Market().OrderOptions)
        if (Row.Exchange == Exchange && Index-- == 0) return Row.Option;
    return {};
}

fw::Text TOrderService::GetSideText(const fw::TCustomClientOrder& Order, bool) {
    return Order.GetSide() == 0   ? FLanguage.Resource("Res_Side_Buy")
           : Order.GetSide() == 1 ? FLanguage.Resource("Res_Side_Sell")
                                  : fw::Text();
}

fw::Text TOrderService::GetRemarkText(const fw::TCustomClientOrder& Order) { return Order.GetExtValue("Remark"); }

// The contract as the exchange lists it.
fw::Text TOrderService::GetOrderText(const fw::TCustomClientOrder& Order) {
    const auto* Product = FMarket.FindProduct(Order.GetSymbol());
    return Product ? Product->Exchange + " " + Product->Series + " " + Product->ExpiryDate : fw::Text();
}

}  // namespace ws
