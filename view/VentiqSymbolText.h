// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/base/Text.h"

namespace ventiq {

using namespace fw;

// A typed symbol as the host's converter takes it: blanks at the ends removed, a whole number padded on the left with
// '0' to five characters, upper case. "" stays "".
Text NormalizeSymbolText(std::string_view Typed);

// The weekly tag at the end of a symbol: of what stands behind as many characters as its series has, up to a '/' that
// is not its first character, the last three when they are a W and a two-digit day ("W25"). "" when there is none, and
// for a symbol that does not hold the series.
Text WeeklyTagOfSymbol(const Text& Symbol, const Text& Series);

}  // namespace ventiq
