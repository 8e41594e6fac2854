// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>

#include "framework/services/Formatter.h"

namespace ws {

// How a symbol is quoted: decimals of the shown price, and the factor between real and shown price (none: as it is).
struct TQuoteForm {
    int Decimals = 2;
    std::optional<double> DisplayFactor;
};

// Prices, amounts and quantities in the current number format. Prices of a symbol are written as the symbol is quoted,
// display factor included,
// so that a cell reads the same whether it is edited or not. Typed decimals beyond the quoted ones are never hidden.
class TFormatterService : public fw::TCustomFormatter {
public:
    using TLookup = std::function<std::optional<TQuoteForm>(const fw::Text& Symbol)>;
    explicit TFormatterService(TLookup Lookup) : FLookup(std::move(Lookup)) {}

    fw::Text FormatValue(double Value, uint8_t Kind, const fw::Text& Symbol, bool UseDefault, void* Extra) override;
    fw::Text FormatPrice(double Value, uint8_t Kind, bool UseDefault) override;

private:
    TLookup FLookup;
};

}  // namespace ws
