// SPDX-License-Identifier: Apache-2.0
#include "engine/VentiqPriceConversion.h"

#include <cmath>
#include <optional>

#include "engine/VentiqMarketData.h"
#include "registration/VentiqConstDef.h"

namespace ventiq {

namespace {

std::optional<double> DisplayFactor(const Text& Symbol) {
    if (Symbol.empty()) return std::nullopt;
    const auto* Item = PriceDataItem(Symbol);
    if (!Item->HasField(kFieldDisplayFactor)) return std::nullopt;
    return Item->GetFieldValue(kFieldDisplayFactor);
}

}  // namespace

double GetDisplayPriceValue(double Value, const Text& Symbol) {
    const auto Factor = DisplayFactor(Symbol);
    return Factor ? Value * *Factor : Value;
}

double GetRealPriceValue(double Value, const Text& Symbol) {
    const auto Factor = DisplayFactor(Symbol);
    return Factor && std::abs(*Factor) > kPriceTolerance ? Value / *Factor : Value;
}

}  // namespace ventiq
