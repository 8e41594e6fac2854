// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include "framework/base/Object.h"
#include "framework/base/Text.h"

namespace fw {

inline constexpr uint8_t kFormatPrice = 1;
inline constexpr uint8_t kFormatChartPrice = 2;  // FormatPrice only
inline constexpr uint8_t kFormatAmount = 3;
inline constexpr uint8_t kFormatQuantity = 4;

// Numbers as the user reads them.
class FRAMEWORK_API TCustomFormatter : public TObject {
public:
    ~TCustomFormatter() override;
    static TCustomFormatter& GetInstance();
    static TCustomFormatter* SetInstance(TCustomFormatter* Service);

    // Kind 1 with a symbol: a real price, written as that symbol is quoted (its decimals, its display factor);
    // without a symbol: default decimals. Kind 3: an amount. Kind 4: a quantity.
    virtual Text FormatValue(double Value, uint8_t Kind, const Text& Symbol = {}, bool UseDefault = true,
                             void* Extra = nullptr) = 0;
    virtual Text FormatPrice(double Value, uint8_t Kind = kFormatChartPrice, bool UseDefault = true) = 0;
};

}  // namespace fw
