// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/base/Text.h"

namespace ventiq {

using namespace fw;

// A typed symbol as the host's converter takes it: blanks at the ends removed, a whole number padded on the left with
// '0' to five characters, upper case. "" stays "".
Text NormalizeSymbolText(std::string_view Typed);

}  // namespace ventiq
