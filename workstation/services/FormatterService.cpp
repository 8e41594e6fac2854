// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/FormatterService.h"

#include <cmath>

#include "framework/base/NumberFormat.h"

namespace ws {

namespace {

constexpr int kMaxDecimals = 8;
constexpr int kDefaultPriceDecimals = 2;
constexpr int kAmountDecimals = 2;

// Prices under the mouse are interpolated: enough decimals to tell neighbouring pixels apart, no more.
int ChartDecimals(double Value) {
    const double Size = std::fabs(Value);
    return Size >= 100 ? 2 : Size >= 1 ? 4 : 6;
}

}  // namespace

fw::Text TFormatterService::FormatValue(double Value, uint8_t Kind, const fw::Text& Symbol, bool, void*) {
    if (Kind == fw::kFormatAmount) return fw::FormatNumber(Value, kAmountDecimals, true, kAmountDecimals);
    if (Kind == fw::kFormatQuantity) return fw::FormatNumber(Value, kMaxDecimals, true);
    const auto Form = Symbol.empty() ? std::nullopt : FLookup(Symbol);
    if (!Form) return fw::FormatNumber(Value, kMaxDecimals, true, kDefaultPriceDecimals);
    return fw::FormatNumber(Form->DisplayFactor ? Value * *Form->DisplayFactor : Value, kMaxDecimals, true,
                            Form->Decimals);
}

fw::Text TFormatterService::FormatPrice(double Value, uint8_t, bool) {
    return fw::FormatNumber(Value, ChartDecimals(Value), true);
}

}  // namespace ws
