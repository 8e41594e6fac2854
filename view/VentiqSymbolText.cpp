// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqSymbolText.h"

#include "framework/base/Numbers.h"

namespace ventiq {

namespace {
constexpr size_t kPaddedLength = 5;
}

Text NormalizeSymbolText(std::string_view Typed) {
    Text Result = Trim(Typed);
    if (Result.size() < kPaddedLength && TextToInt(Result)) Result.insert(0, kPaddedLength - Result.size(), '0');
    return UpperCase(Result);
}

}  // namespace ventiq
