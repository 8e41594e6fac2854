// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "workstation/market/MarketRows.h"

namespace ws {

// The exchange's form of a symbol as somebody typed or pasted it. Applying it twice changes nothing: a cell that is
// checked again when its data arrive is converted again. Never fails; a text that no rule knows only loses its blanks.
//  - blanks (also the wide ones of an input method) go, wide letters and digits become plain, upper case
//  - "SPX   230217C04100000" becomes "SPX230217C04100000"
//  - "SPX 230217 C 4100.5" (root and date apart, plain strike) becomes "SPX230217C04100500"
//  - a number of fewer than five digits gets the zeros of the exchange's code: "5" becomes "00005"
//  - "HSI27000A9W25" and every other form stay
std::string ConvertSymbolForm(std::string_view Typed);

// The same with the market's own codes: a typed short code ("00005") becomes the symbol of the contract that carries it
// as its attribute "ShortCode". Idempotent, because no short code equals a symbol.
class TSymbolConverter {
public:
    explicit TSymbolConverter(const std::vector<TProductRow>& Products);
    std::string Convert(std::string_view Typed) const;

private:
    std::map<std::string, std::string> FByShortCode;
};

}  // namespace ws
