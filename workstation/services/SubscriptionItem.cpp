// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/SubscriptionItem.h"

#include <cmath>
#include <iterator>

#include "framework/base/Numbers.h"

namespace ws {

fw::Text TSubscriptionItem::GetFieldText(int FieldId) const {
    const auto It = FFields.find(FieldId);
    return It == FFields.end() ? fw::Text() : It->second.Shown;
}

double TSubscriptionItem::GetFieldValue(int FieldId) const {
    const auto It = FFields.find(FieldId);
    return It == FFields.end() ? 0.0 : It->second.Value;
}

void TSubscriptionItem::SetText(int FieldId, const std::string& Value) {
    if (Value.empty()) return;
    FFields[FieldId] = {Value, fw::TextToFloatDef(Value, 0.0)};
}

void TSubscriptionItem::SetValue(int FieldId, double Value) {
    FFields[FieldId] = {fw::FloatToShortestText(Value), Value};
}

void TSubscriptionItem::Take(const TProductRow& Product, std::optional<double> Price) {
    FFields.clear();
    if (Price) SetValue(fw::kFieldReferencePrice, *Price);
    SetText(fw::kFieldExchange, Product.Exchange);
    SetText(fw::kFieldProductType, std::to_string(Product.ProductType));
    SetText(fw::kFieldCurrency, Product.Currency);
    SetText(fw::kFieldLotSize, Product.LotSize);
    SetText(fw::kFieldStrike, Product.StrikePrice);
    SetText(fw::kFieldCallPut, Product.CallPutCode);
    SetText(fw::kFieldExpiry, Product.ExpiryDate);
    SetText(fw::kFieldSpreadCode, Product.SpreadCode);
    SetText(fw::kFieldSeries, Product.Series);
    if (Product.Multiplier) SetValue(fw::kFieldMultiplier, *Product.Multiplier);
    if (Product.DisplayFactor) SetValue(fw::kFieldDisplayFactor, *Product.DisplayFactor);
    TakeOwnFields(Product);
    FState = fw::kItemReady;
}

// What the market data state on their own comes last, and wins.
void TSubscriptionItem::TakeOwnFields(const TProductRow& Product) {
    for (const auto& [Name, Value] : Product.Attributes) {
        if (!Name.starts_with(kAttributeField)) continue;
        const auto Field = fw::TextToInt(Name.substr(std::size(kAttributeField) - 1));
        if (!Field) continue;
        FFields.erase(*Field);
        SetText(*Field, Value);
    }
}

void TSubscriptionItem::TakeQuote(const TQuoteRow& Quote, std::optional<std::chrono::system_clock::time_point> At) {
    if (Quote.Bid) SetValue(fw::kFieldBid, *Quote.Bid);
    if (Quote.Ask) SetValue(fw::kFieldAsk, *Quote.Ask);
    if (Quote.Last) SetValue(fw::kFieldLast, *Quote.Last);
    if (At) SetValue(fw::kFieldQuoteTime, std::floor(std::chrono::duration<double>(At->time_since_epoch()).count()));
}

void TSubscriptionItem::TakeNothing() {
    FFields.clear();
    FState = fw::kItemNoData;
}

}  // namespace ws
