// SPDX-License-Identifier: Apache-2.0
#include "engine/VentiqMarketData.h"

#include "framework/services/MarketAdapter.h"
#include "framework/services/SubscribeAdapter.h"

namespace ventiq {

TCustomSubItem* PriceDataItem(const Text& Symbol) {
    return TCustomSubscribeAdapter::GetInstance().GetSubItem(Symbol, kPriceDataKind, 0);
}

TCustomProduct* ListedProduct(const Text& Symbol) {
    return TCustomMarketAdapter::GetInstance().GetProductBySymbol(Symbol);
}

Text SeriesPrefix(const Text& Symbol) {
    int Characters = 3;
    size_t End = 0;
    for (; End < Symbol.size(); ++End) {
        const bool Starts = (static_cast<unsigned char>(Symbol[End]) & 0xC0) != 0x80;
        if (Starts && Characters-- == 0) break;
    }
    return Symbol.substr(0, End);
}

}  // namespace ventiq
