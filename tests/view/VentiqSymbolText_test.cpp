// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqSymbolText.h"

#include <gtest/gtest.h>

namespace ventiq {

TEST(SymbolText, IsPaddedTrimmedAndUpperCased) {
    const struct {
        const char* Why;
        const char* Typed;
        const char* Expected;
    } Cases[] = {
        {"a digit is padded to five", "5", "00005"},
        {"blanks around a number do not count", "  700 ", "00700"},
        {"five digits stay", "12345", "12345"},
        {"six digits stay", "123456", "123456"},
        {"a number with a letter is no number", "12A", "12A"},
        {"letters become upper case", "abc", "ABC"},
        {"a sign belongs to the number and is padded in front", "-5", "000-5"},
        {"a fraction is no whole number", "1.5", "1.5"},
        {"nothing stays nothing", "   ", ""},
        {"letters beyond ASCII stay whole",
         "\xC3\xA4"
         "b",
         "\xC3\xA4"
         "B"},
    };
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Why);
        EXPECT_EQ(NormalizeSymbolText(C.Typed), C.Expected);
    }
}

TEST(SymbolText, AWeeklySymbolEndsInItsTag) {
    const struct {
        const char* Why;
        const char* Symbol;
        const char* Series;
        const char* Tag;
    } Cases[] = {
        {"a weekly option", "HSI26400L6W11", "HSI", "W11"},
        {"cut at the slash", "HSI26400L6W25/XX", "HSI", "W25"},
        {"a slash that comes first cuts nothing", "HSI/6W11", "HSI", "W11"},
        {"no day has a four in front", "HSI26400L6W41", "HSI", ""},
        {"only the tens digit is looked at", "HSI26400L6W3X", "HSI", "W3X"},
        {"a small w is none", "HSI26400L6w11", "HSI", ""},
        {"a monthly option", "HSI26400L6", "HSI", ""},
        {"behind as many characters as the series has, wherever it stands", "XHSIW11", "HSI", "W11"},
        {"too short a rest", "HSI11", "HSI", ""},
        {"another series", "HHI26400L6W11", "HSI", ""},
        {"no series", "W11", "", "W11"},
    };
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Why);
        EXPECT_EQ(WeeklyTagOfSymbol(C.Symbol, C.Series), C.Tag);
    }
}

}  // namespace ventiq
