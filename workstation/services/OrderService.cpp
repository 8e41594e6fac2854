// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/OrderService.h"

#include <algorithm>

namespace ws {

class TOrderService::TRegisteredOrder : public fw::TCustomClientOrder {
public:
    TRegisteredOrder(std::shared_ptr<TRegistry> Registry, int64_t LineId) : FRegistry(std::move(Registry)) {
        SetLineId(LineId);
        Enter();
    }
    ~TRegisteredOrder() override { FRegistry->erase(FEntry); }
    void Assign(const fw::TCustomClientOrder& Source) override {
        TCustomClientOrder::Assign(Source);
        FRegistry->erase(FEntry);
        Enter();
    }

private:
    void Enter() { FEntry = FRegistry->emplace(GetLineId(), this); }
    std::shared_ptr<TRegistry> FRegistry;
    TRegistry::iterator FEntry;
};

TOrderService::TOrderService(const TMarketService& Market, const TLanguageService& Language)
    : FMarket(Market), FLanguage(Language), FOrders(std::make_shared<TRegistry>()) {}
TOrderService::~TOrderService() = default;

std::unique_ptr<fw::TCustomClientOrder> TOrderService::CreateClientOrder() {
    return std::make_unique<TRegisteredOrder>(FOrders, ++FLastLineId);
}

const fw::TCustomClientOrder* TOrderService::FindOrder(int64_t LineId) const {
    const auto Last = FOrders->upper_bound(LineId);
    if (Last == FOrders->begin() || std::prev(Last)->first != LineId) return nullptr;
    return std::prev(Last)->second;
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

fw::Text TOrderService::GetRemarkText(const fw::TCustomClientOrder& Order) {
    return OnRemark ? OnRemark(Order) : fw::Text();
}

fw::Text TOrderService::GetOrderText(const fw::TCustomClientOrder& Order) { return std::to_string(Order.GetLineId()); }

}  // namespace ws
