// SPDX-License-Identifier: Apache-2.0
#include "framework/trading/ClientOrder.h"
#include "framework/trading/OrderTakeActionRecord.h"
#include "framework/trading/PositionData.h"

namespace fw {

TCustomClientOrder::TCustomClientOrder() = default;
TCustomClientOrder::~TCustomClientOrder() = default;

Text TCustomClientOrder::GetExtValue(const Text& Name) const {
    const auto It = FExtValues.find(Name);
    return It == FExtValues.end() ? Text() : It->second;
}

void TCustomClientOrder::Assign(const TCustomClientOrder& Source) {
    FAccount = Source.FAccount;
    FSymbol = Source.FSymbol;
    FSide = Source.FSide;
    FPrice = Source.FPrice;
    FQty = Source.FQty;
    FOpenClose = Source.FOpenClose;
    FPrincipal = Source.FPrincipal;
    FLineId = Source.FLineId;
    FExtValues = Source.FExtValues;
}

TOrderTakeActionRecord::TOrderTakeActionRecord() = default;
TOrderTakeActionRecord::~TOrderTakeActionRecord() = default;

TCustomPositionData::~TCustomPositionData() = default;

}  // namespace fw
