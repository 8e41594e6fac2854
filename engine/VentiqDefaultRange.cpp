// SPDX-License-Identifier: Apache-2.0
// The default price range of a month: from its strikes, or from the price of its future.
#include <algorithm>
#include <cmath>

#include "engine/VentiqDataControl.h"
#include "engine/VentiqMarketData.h"
#include "framework/base/Numbers.h"

namespace ventiq {

namespace {

// Where an underlying belongs: what the market knows, completed from the item's own fields.
struct TOrigin {
    Text Exchange, Series, Expiry, WeeklyTag;
};

TOrigin OriginOf(const TCustomSubItem& Item) {
    TOrigin Result;
    if (const auto* Product = ListedProduct(Item.GetSymbol()))
        Result = {Product->GetExchange(), Product->GetSeries(), Product->GetExpiryDate(),
                  Trim(Product->GetAttribute(kWeeklyAttribute))};
    if (Result.Exchange.empty()) Result.Exchange = Item.GetFieldText(kFieldExchange);
    if (Result.Series.empty()) Result.Series = Item.GetFieldText(kFieldSeries);
    if (Result.Series.empty()) Result.Series = SeriesPrefix(Item.GetSymbol());
    if (Result.Expiry.empty()) Result.Expiry = Item.GetFieldText(kFieldExpiry);
    return Result;
}

bool IsUnset(double Default) { return std::abs(Default) <= kPriceTolerance; }

}  // namespace

void TCustomVentiqDataControl::SetMonth(const Text& Value) {
    if (Value == FMonth) return;
    FMonth = Value;
    FDefaultDownPrice = FDefaultUpPrice = FDefaultInterval = 0.0;
    int OptionCount = 0;
    Text Underlying;
    ScanStrikes(OptionCount, Underlying);
    if (OptionCount > 0) {
        // A call and a put are listed for each strike.
        const int Gaps = OptionCount / 2 - 1;
        if (Gaps > 0) FDefaultInterval = std::trunc((FDefaultUpPrice - FDefaultDownPrice) / Gaps);
        return;
    }
    if (Underlying.empty()) return;
    auto* Item = PriceDataItem(Underlying);
    if (Item->GetState() != kItemReady && !FSubscribedList.contains(Underlying)) {
        Subscribe(Underlying, Item);
        return;
    }
    UpdateDefaultPrice(Item);
}

void TCustomVentiqDataControl::ScanStrikes(int& OptionCount, Text& Underlying) {
    WalkMonthProducts([&](TCustomProduct& Product, const Text& MonthCode) {
        if (MonthCode != FMonth) return;
        if (Product.GetProductType() == kProductFuture) {
            if (Underlying.empty()) Underlying = Product.GetSymbol();
            return;
        }
        // A strike that is no number counts as 0 and drags the range down to it.
        const double Strike = TextToFloatDef(Product.GetStrikePrice(), 0.0);
        const bool First = OptionCount++ == 0;
        FDefaultDownPrice = First ? Strike : std::min(FDefaultDownPrice, Strike);
        FDefaultUpPrice = First ? Strike : std::max(FDefaultUpPrice, Strike);
    });
}

void TCustomVentiqDataControl::UpdateDefaultPrice(TCustomSubItem* Item) {
    if (Item->GetState() != kItemReady) return;
    if (!IsUnset(FDefaultDownPrice) || !IsUnset(FDefaultUpPrice) || !IsUnset(FDefaultInterval)) return;
    const TOrigin Origin = OriginOf(*Item);
    const Text MonthCode = GetMonthCode(Origin.Expiry, Origin.WeeklyTag);
    // The user may have gone elsewhere since.
    if (Origin.Exchange != FExchange || Origin.Series != FSeries || MonthCode != FMonth) return;
    const double Price = Item->GetFieldValue(kFieldReferencePrice);
    FDefaultDownPrice = std::trunc(std::max(0.0, Price * kDefaultDownFactor));
    FDefaultUpPrice = std::trunc(std::max(0.0, Price * kDefaultUpFactor));
    FDefaultInterval = std::trunc(std::max(1.0, Price * kDefaultIntervalFactor));
    if (FOnUpdateDefaultPrice) FOnUpdateDefaultPrice(this);
}

}  // namespace ventiq
