// SPDX-License-Identifier: Apache-2.0
#include "orders/VentiqBatchSubmitOrderDataControl.h"

#include "framework/services/Formatter.h"
#include "framework/services/OrderAdapter.h"
#include "orders/VentiqBatchColumns.h"
#include "registration/VentiqConstDef.h"

namespace ventiq {

TCustomBatchSubmitOrderDataControl::TCustomBatchSubmitOrderDataControl(TObject*) : TCustomDataControl(nullptr) {}

TCustomBatchSubmitOrderDataControl::~TCustomBatchSubmitOrderDataControl() { ClearData(); }

void TCustomBatchSubmitOrderDataControl::InitData(const TClientOrderList& Orders) {
    ClearData();
    for (const auto& Source : Orders) {
        auto Copy = TCustomOrderAdapter::GetInstance().CreateClientOrder();
        Copy->Assign(*Source);
        FOrders.push_back(std::move(Copy));
    }
}

void TCustomBatchSubmitOrderDataControl::ClearData() { FOrders.clear(); }

TColumnInfoList* TCustomBatchSubmitOrderDataControl::GetColList() { return BatchColumns(); }

int32_t TCustomBatchSubmitOrderDataControl::GetCount() { return static_cast<int32_t>(FOrders.size()); }

const TCustomClientOrder* TCustomBatchSubmitOrderDataControl::OrderAt(int32_t RecordIndex) const {
    const bool Inside = RecordIndex >= 0 && RecordIndex < static_cast<int32_t>(FOrders.size());
    return Inside ? FOrders[static_cast<size_t>(RecordIndex)].get() : nullptr;
}

Variant TCustomBatchSubmitOrderDataControl::GetValue(int32_t RecordIndex, int32_t Attribute) {
    const auto* Order = OrderAt(RecordIndex);
    if (!Order) return "";
    auto& Adapter = TCustomOrderAdapter::GetInstance();
    switch (Attribute) {
        case kColSymbol: return Order->GetSymbol();
        case kColPrice: return Order->GetPrice();
        case kColQty: return Order->GetQty();
        case kColOrderText: return Adapter.GetOrderText(*Order);
        case kColAccount: return Order->GetAccount();
        case kColSide: return Adapter.GetSideText(*Order, false);
        case kColRemark: return Adapter.GetRemarkText(*Order);
        default: return "";
    }
}

Text TCustomBatchSubmitOrderDataControl::GetDisplayValue(int32_t RecordIndex, int32_t Attribute) {
    const auto* Order = OrderAt(RecordIndex);
    if (!Order) return "";
    auto& Formatter = TCustomFormatter::GetInstance();
    switch (Attribute) {
        case kColPrice: return Formatter.FormatValue(Order->GetPrice(), kFormatPrice, Order->GetSymbol(), true, nullptr);
        case kColQty: return Formatter.FormatValue(Order->GetQty(), kFormatQuantity, Order->GetSymbol(), true, nullptr);
        default: return GetValue(RecordIndex, Attribute).AsText();
    }
}

}  // namespace ventiq
