// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqSymbolText.h"

#include "framework/base/Numbers.h"

namespace ventiq {

namespace {
constexpr size_t kPaddedLength = 5;
constexpr size_t kTagLength = 3;
}  // namespace

Text NormalizeSymbolText(std::string_view Typed) {
    Text Result = Trim(Typed);
    if (Result.size() < kPaddedLength && TextToInt(Result)) Result.insert(0, kPaddedLength - Result.size(), '0');
    return UpperCase(Result);
}

Text WeeklyTagOfSymbol(const Text& Symbol, const Text& Series) {
    if (Symbol.find(Series) == Text::npos) return {};
    Text Tail = Symbol.substr(Series.size());
    if (const auto Slash = Tail.find('/'); Slash != Text::npos && Slash > 0) Tail.resize(Slash);
    if (Tail.size() < kTagLength) return {};
    // Only the tens digit of the day is looked at.
    const Text Tag = Tail.substr(Tail.size() - kTagLength);
    return Tag[0] == 'W' && Tag[1] >= '0' && Tag[1] <= '3' ? Tag : Text();
}

}  // namespace ventiq
