// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "view/VentiqContext.h"

namespace ventiq {

// Where a symbol is listed: from its product record, else from its market data.
struct TSymbolPlace {
    Text Exchange, Series, ExpiryDate;
    Text WeeklyTag;  // of the product record only
};

TSymbolPlace PlaceOfSymbol(const Text& Symbol);

// Whether a symbol belongs to the market that is selected.
class TVentiqSymbolCheck {
public:
    explicit TVentiqSymbolCheck(TVentiqContext& Context) : FContext(Context) {}

    // Raises EConvertError when exchange and series match and the expiry is no date.
    bool IsValidSymbol(const Text& Symbol) const;
    // Two legs on one symbol are two legs: true for every symbol.
    bool CheckDuplicateSymbol(const Text& Symbol) const;

private:
    TVentiqContext& FContext;  // borrowed from the frame
};

}  // namespace ventiq
