// SPDX-License-Identifier: Apache-2.0
#include "framework/market/Product.h"
#include "framework/market/SubItem.h"

namespace fw {

TCustomProduct::~TCustomProduct() = default;
TCustomSeries::~TCustomSeries() = default;
TCustomSpreadTable::~TCustomSpreadTable() = default;
TCustomMarketData::~TCustomMarketData() = default;
TCustomSubItem::~TCustomSubItem() = default;

TCustomUpdate::TCustomUpdate(int Count) : FCount(Count) {}
TCustomUpdate::~TCustomUpdate() = default;

}  // namespace fw
