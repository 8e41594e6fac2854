// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "workstation/selector/OptionChain.h"

namespace ws {

// What somebody typed to find a contract. Words stand apart by blanks, small and capital letters are the same, every
// word must fit:
//   "24000"     strikes that begin so, as the exchange states them or as they are shown ("26,4")
//   "24000c"    the same, calls only; also "c24000", "p92.5"
//   "c", "put"  one side
//   "12/30"     expiries that hold it
//   "hsif7"     symbols that hold it; a number fits symbols that begin with it too
class TChainFilter {
public:
    // Any text; control characters count as blanks.
    explicit TChainFilter(std::string_view Typed = {});

    bool IsEmpty() const { return FWords.empty(); }
    bool Fits(const TChainFuture& Future) const;
    bool Fits(const TChainStrike& Strike, ECallPut Side) const;
    // The typed strike is this very one, not only the beginning of it.
    bool IsExactly(const TChainStrike& Strike) const;

private:
    struct TWord {
        fw::Text Text;                 // as typed, capital letters
        fw::Text Number;               // "" where the word names no strike
        std::optional<ECallPut> Side;  // none: both
    };
    static TWord WordOf(fw::Text Typed);
    static bool Fits(const TWord& Word, const fw::Text& Symbol, const fw::Text& Expiry);

    std::vector<TWord> FWords;
};

}  // namespace ws
