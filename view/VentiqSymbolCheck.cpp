// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqSymbolCheck.h"

#include "engine/VentiqMarketData.h"
#include "registration/VentiqConstDef.h"

namespace ventiq {

TSymbolPlace PlaceOfSymbol(const Text& Symbol) {
    TSymbolPlace Place;
    if (const auto* Product = ListedProduct(Symbol)) {
        Place.Exchange = Product->GetExchange();
        Place.Series = Product->GetSeries();
        Place.ExpiryDate = Product->GetExpiryDate();
        // Deliberate: at every exchange, although the expiry list tags months at one exchange only. An instrument with
        // a weekly tag elsewhere therefore never matches a listed month.
        Place.WeeklyTag = Trim(Product->GetAttribute(kWeeklyAttribute));
    }
    const auto* Item = PriceDataItem(Symbol);
    if (Place.Exchange.empty()) Place.Exchange = Trim(Item->GetFieldText(kFieldExchange));
    if (Place.Series.empty()) Place.Series = Trim(Item->GetFieldText(kFieldSeries));
    if (Place.Series.empty()) Place.Series = SeriesPrefix(Symbol);
    if (Place.ExpiryDate.empty()) Place.ExpiryDate = Trim(Item->GetFieldText(kFieldExpiry));
    return Place;
}

bool TVentiqSymbolCheck::IsValidSymbol(const Text& Symbol) const {
    auto* Control = FContext.FMyDataControl.get();
    if (!Control) return false;
    const TSymbolPlace Place = PlaceOfSymbol(Symbol);
    if (Place.Exchange != Control->GetExchange()) return false;
    if (Place.Series != Control->GetSeries()) return false;
    if (Control->GetMonthCode(Place.ExpiryDate, Place.WeeklyTag) != Control->GetMonth()) return false;
    return CheckDuplicateSymbol(Symbol);
}

bool TVentiqSymbolCheck::CheckDuplicateSymbol(const Text&) const { return true; }

}  // namespace ventiq
