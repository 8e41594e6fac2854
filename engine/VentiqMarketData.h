// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/market/Product.h"
#include "framework/market/SubItem.h"

namespace ventiq {

using namespace fw;

// The market-data item of a symbol; never null.
TCustomSubItem* PriceDataItem(const Text& Symbol);

// The product record of a symbol; null when the market does not list it.
TCustomProduct* ListedProduct(const Text& Symbol);

// The series code with which a symbol begins, for symbols whose series nobody tells: the first three characters (code
// points, so that a name outside ASCII stays whole); a shorter symbol is its own series.
Text SeriesPrefix(const Text& Symbol);

}  // namespace ventiq
