// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "workstation/market/CallPut.h"
#include "workstation/market/MonthCode.h"

namespace ws {
namespace {

TEST(MonthCode, NamesAWeekOnlyWhereTheViewsListIt) {
    const struct {
        const char *Why, *Exchange, *Expiry, *Tag, *Code;
    } Cases[] = {{"a month", "HKFE", "2026/12/30", "", "2026-12"},
                 {"a week", "HKFE", "2026/12/11", "W2", "2026-12-W2"},
                 {"blanks around the week", "HKFE", "2026/12/11", " W2 ", "2026-12-W2"},
                 {"a blank for a week", "HKFE", "2026/12/11", " ", "2026-12"},
                 {"the exchange in small letters", "hkfe", "2026/12/11", "W2", "2026-12-W2"},
                 {"a week elsewhere", "XDER", "2026/12/11", "W2", "2026-12"},
                 {"no expiry", "HKFE", "", "", ""},
                 {"a short expiry", "HKFE", "2026", "", "2026"}};
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        EXPECT_EQ(MonthCodeOf(Case.Exchange, Case.Expiry, Case.Tag), Case.Code);
        TProductRow Row;
        Row.Exchange = Case.Exchange;
        Row.ExpiryDate = Case.Expiry;
        if (*Case.Tag) Row.Attributes["WeeklyOptionExp"] = Case.Tag;
        EXPECT_EQ(MonthCodeOf(Row), Case.Code);
    }
}

TEST(CallPut, ReadsLettersAndTheExchangesNumbers) {
    for (const char* Code : {"C", "c", "Call", "1", "6", "10"}) EXPECT_EQ(CallOrPut(Code), ECallPut::Call) << Code;
    for (const char* Code : {"P", "p", "PUT", "2", "7", "11"}) EXPECT_EQ(CallOrPut(Code), ECallPut::Put) << Code;
    for (const char* Code : {"", "X", "3", "1C", " C"}) EXPECT_EQ(CallOrPut(Code), std::nullopt) << Code;
}

}  // namespace
}  // namespace ws
