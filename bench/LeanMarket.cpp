// SPDX-License-Identifier: Apache-2.0
#include "bench/LeanMarket.h"

#include <algorithm>

#include "framework/base/Numbers.h"

namespace bench {

using namespace fw;

TLeanItem& TLeanItem::Set(int Field, const Text& Value) {
    FFields.at(FCount++) = {Field, Value, TextToFloatDef(Value, 0.0)};
    return *this;
}

const TLeanItem::TField* TLeanItem::Find(int FieldId) const {
    const auto End = FFields.begin() + static_cast<std::ptrdiff_t>(FCount);
    const auto Found = std::find_if(FFields.begin(), End, [&](const TField& Each) { return Each.Id == FieldId; });
    return Found == End ? nullptr : &*Found;
}

Text TLeanItem::GetFieldText(int FieldId) const {
    const auto* Field = Find(FieldId);
    return Field ? Field->Shown : Text();
}

double TLeanItem::GetFieldValue(int FieldId) const {
    const auto* Field = Find(FieldId);
    return Field ? Field->Value : 0.0;
}

TLeanItem& TLeanMarket::ItemOf(const Text& Symbol) {
    auto& Item = FItems[Symbol];
    if (!Item) Item = std::make_unique<TLeanItem>(Symbol);
    return *Item;
}

void TLeanMarket::AddOption(const Text& Symbol, double Strike, const Text& CallPut, double Multiplier) {
    ItemOf(Symbol)
        .Set(kFieldProductType, "3")
        .Set(kFieldCurrency, "HKD")
        .Set(kFieldStrike, FloatToShortestText(Strike))
        .Set(kFieldCallPut, CallPut)
        .Set(kFieldMultiplier, FloatToShortestText(Multiplier));
}

void TLeanMarket::AddFuture(const Text& Symbol, double Multiplier) {
    ItemOf(Symbol)
        .Set(kFieldProductType, "2")
        .Set(kFieldCurrency, "HKD")
        .Set(kFieldMultiplier, FloatToShortestText(Multiplier));
}

TCustomSubItem* TLeanMarket::GetSubItem(const Text& Symbol, const Text&, int) { return &ItemOf(Symbol); }

}  // namespace bench
