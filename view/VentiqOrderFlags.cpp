// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqOrderFlags.h"

#include <algorithm>

#include "engine/VentiqMarketData.h"
#include "framework/services/OrderAdapter.h"
#include "framework/services/UserAppProfile.h"
#include "registration/VentiqConstDef.h"
#include "view/VentiqTexts.h"

namespace ventiq {

namespace {

// One choice: its text, the exchange's order option that offers it (none: it goes with any other), its value in orders.
struct TFlagChoice {
    const char* Key;
    const char* Option;
    int Value;
};

constexpr TFlagChoice kOpenCloseChoices[] = {
    {"Res_OpenClose_N", nullptr, kOpenCloseNone},
    {"Res_OrderOpen", "Open", kOpenCloseOpen},
    {"Res_OrderClose", "Close", kOpenCloseClose},
};

constexpr TFlagChoice kPrincipalChoices[] = {
    {"Res_Principal_N", nullptr, kPrincipalNone},
    {"Res_Principal_C", "Client", kPrincipalClient},
    {"Res_Principal_H", "House", kPrincipalHouse},
    {"Res_Principal_RT", "RT", kPrincipalRT},
};

Text ExchangeOf(const Text& Symbol) {
    Text Result;
    if (const auto* Product = ListedProduct(Symbol)) Result = Product->GetExchange();
    if (Result.empty()) Result = PriceDataItem(Symbol)->GetFieldText(kFieldExchange);
    return Result;
}

void Offer(TStringList& Keys, std::span<const TFlagChoice> Choices, const char* Right, const Text& Symbol) {
    Keys.Clear();
    const Text Exchange = ExchangeOf(Symbol);
    if (Exchange.empty()) return;
    auto& Orders = TCustomOrderAdapter::GetInstance();
    const int Count = Orders.GetOrderOptionCount(Exchange);
    for (int i = 0; i < Count; ++i) {
        const Text Option = Orders.GetOrderOption(Exchange, i);
        for (const auto& Choice : Choices)
            if (Choice.Option && SameText(Option, Choice.Option) &&
                TCustomUserAppProfile::GetInstance().HasRight(Right))
                Keys.Add(Choice.Key);
    }
    const Text None = Choices.front().Key;
    if (!Keys.IsEmpty() && !Keys.Contains(None)) Keys.Insert(0, None);
}

void Translate(TFlagDictionary& Dictionary, std::span<const TFlagChoice> Choices) {
    Dictionary.clear();
    for (const auto& Choice : Choices) Dictionary.emplace_back(Choice.Key, GetResourceHeader(Choice.Key));
}

// Key of the first choice shown as Shown; "" when there is none.
Text KeyOf(const TFlagDictionary& Dictionary, const Text& Shown) {
    const auto It =
        std::find_if(Dictionary.begin(), Dictionary.end(), [&](const auto& Entry) { return Entry.second == Shown; });
    return It == Dictionary.end() ? Text() : It->first;
}

int ValueOf(const TFlagDictionary& Dictionary, std::span<const TFlagChoice> Choices, const Text& Shown) {
    const Text Key = KeyOf(Dictionary, Trim(Shown));
    const auto It =
        std::find_if(Choices.begin(), Choices.end(), [&](const TFlagChoice& Choice) { return Key == Choice.Key; });
    return It == Choices.end() ? 0 : It->Value;
}

}  // namespace

void TVentiqOrderFlags::UpdateOpenCloseTexts() { Translate(FOpenCloseDictionary, kOpenCloseChoices); }
void TVentiqOrderFlags::UpdatePrincipalTexts() { Translate(FPrincipalDictionary, kPrincipalChoices); }

void TVentiqOrderFlags::InitOpenClose(const Text& Symbol) {
    Offer(FFlagKeys, kOpenCloseChoices, kRightOpenClose, Symbol);
}
void TVentiqOrderFlags::InitPrincipal(const Text& Symbol) {
    Offer(FFlagKeys, kPrincipalChoices, kRightPrincipal, Symbol);
}

int TVentiqOrderFlags::GetOpenCloseFlag(const Text& Shown) const {
    return ValueOf(FOpenCloseDictionary, kOpenCloseChoices, Shown);
}
int TVentiqOrderFlags::GetPrincipalFlag(const Text& Shown) const {
    return ValueOf(FPrincipalDictionary, kPrincipalChoices, Shown);
}

bool TVentiqOrderFlags::CheckSymbolOpenCloseValidation(const Text& Symbol, const Text& Shown) {
    const Text Key = KeyOf(FOpenCloseDictionary, Shown);
    InitOpenClose(Symbol);
    return !Key.empty() && FFlagKeys.Contains(Key);
}

bool TVentiqOrderFlags::CheckSymbolPrincipalValidation(const Text& Symbol, const Text& Shown) {
    const Text Key = KeyOf(FPrincipalDictionary, Shown);
    InitPrincipal(Symbol);
    return !Key.empty() && FFlagKeys.Contains(Key);
}

}  // namespace ventiq
