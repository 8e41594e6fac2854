// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The option symbol of the US clearing house: root, yymmdd, C or P, strike in thousandths in eight digits.
// The store keeps it without the padding blanks of the root: "SPXW230203C01000000".

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace ws {

struct TOccSymbol {
    std::string Root;  // 1 to 6 letters and digits (and '.'), upper case, first a letter
    std::chrono::sys_days Expiry{};
    char CallPut = 'C';          // 'C' or 'P'
    long StrikeThousandths = 0;  // 0 to 99,999,999

    std::string Text() const;        // the store's form
    std::string StrikeText() const;  // exact and shortest: "1000", "12.5", "0.001"
    double Strike() const;
};

// Blanks between root and date, blanks at the ends and lower case are accepted; anything else gives nothing.
std::optional<TOccSymbol> ParseOccSymbol(std::string_view Text);

}  // namespace ws
