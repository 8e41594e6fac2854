// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/store/MarketCalendar.h"

#include <gtest/gtest.h>

namespace ws::test {
namespace {

TYearMonth Month(const char* Text) { return YearMonthFromText(Text).value(); }

TEST(MarketCalendar, DatesAreReadInOneFormOnly) {
    EXPECT_EQ(TextFromDay(DayFromText("2026/12/30").value()), "2026/12/30");
    EXPECT_TRUE(DayFromText("2028/02/29"));
    for (const char* Text :
         {"", "2026-12-30", "2026/2/3", "2027/02/29", "2026/13/01", "2026/12/30 ", "30/12/2026", "2026/1a/01"})
        EXPECT_FALSE(DayFromText(Text)) << Text;
    EXPECT_FALSE(YearMonthFromText("2026-13"));
    EXPECT_FALSE(YearMonthFromText("2026/12"));
    EXPECT_EQ(TextFromYearMonth(Month("2026-01")), "2026-01");
}

struct TShift {
    const char* From;
    int Months;
    const char* To;
};

TEST(MarketCalendar, ShiftedDatesStayInTheirMonth) {
    const TShift Cases[] = {{"2026/12/30", 1, "2027/01/30"},
                            {"2026/12/31", 2, "2027/02/28"},
                            {"2027/12/31 16:30:00", 2, "2028/02/29 16:30:00"},
                            {"2026/12/30", 0, "2026/12/30"},
                            {"2026/03/31", -1, "2026/02/28"},
                            {"", 3, ""},
                            {"soon", 3, "soon"}};
    for (const auto& Case : Cases) EXPECT_EQ(ShiftedDateText(Case.From, Case.Months), Case.To) << Case.From;
}

TEST(MarketCalendar, HolidaysAreOfOneExchangeYearlyOrOnce) {
    THolidays Holidays;
    EXPECT_TRUE(Holidays.Add("A", "12/25"));
    EXPECT_TRUE(Holidays.Add("A", "2026/12/24"));
    EXPECT_TRUE(Holidays.Add("A", "02/29"));
    for (const char* Bad : {"13/01", "25.12.", "2026-12-24", "", "02/30"}) EXPECT_FALSE(Holidays.Add("A", Bad)) << Bad;
    const auto Open = [&](const char* Exchange, const char* Day) {
        return Holidays.IsBusinessDay(Exchange, DayFromText(Day).value());
    };
    EXPECT_FALSE(Open("A", "2026/12/25"));
    EXPECT_FALSE(Open("A", "2028/12/25"));
    EXPECT_FALSE(Open("A", "2026/12/24"));
    EXPECT_TRUE(Open("A", "2027/12/24"));
    EXPECT_TRUE(Open("B", "2026/12/25"));
    EXPECT_FALSE(Open("B", "2026/12/26"));  // a Saturday
    EXPECT_EQ(TextFromDay(Holidays.BusinessDayUpTo("A", DayFromText("2026/12/27").value())), "2026/12/23");
}

struct TMonthly {
    const char* Month;
    EExpiryRule Rule;
    const char* Day;
    const char* Why;
};

TEST(MarketCalendar, MonthlyExpiriesFollowTheirRule) {
    THolidays Holidays;
    for (const char* Day : {"01/01", "2027/03/26", "2027/03/29"}) Holidays.Add("A", Day);
    constexpr auto kBefore = EExpiryRule::BeforeLastBusinessDay;
    const TMonthly Cases[] = {{"2026/12", kBefore, "2026/12/30", "Thursday 31 is the last business day"},
                              {"2027/01", kBefore, "2027/01/28", "Friday 29 is the last business day"},
                              {"2027/02", kBefore, "2027/02/25", "the month ends on a Sunday"},
                              {"2027/03", kBefore, "2027/03/30", "holidays lie before it"},
                              {"2026/11", kBefore, "2026/11/27", "over a weekend"},
                              {"2027/02", EExpiryRule::LastBusinessDay, "2027/02/26", "the month ends on a Sunday"},
                              {"2026/12", EExpiryRule::ThirdFriday, "2026/12/18", "the month begins on a Tuesday"},
                              {"2027/01", EExpiryRule::ThirdFriday, "2027/01/15", "the month begins on a Friday"}};
    for (const auto& Case : Cases) {
        std::string Text = Case.Month;
        Text[4] = '-';
        EXPECT_EQ(TextFromDay(MonthlyExpiry(Case.Rule, Month(Text.c_str()), Holidays, "A")), Case.Day) << Case.Why;
    }
}

TEST(MarketCalendar, WeeksExpireOnFridayOrTheBusinessDayBefore) {
    THolidays Holidays;
    for (const char* Day : {"01/01", "12/25"}) Holidays.Add("A", Day);
    const auto Week = [&](int Number, const char* Text) {
        return TextFromDay(WeeklyExpiry(Number, Month(Text), Holidays, "A"));
    };
    EXPECT_EQ(Week(2, "2026-12"), "2026/12/11");
    EXPECT_EQ(Week(4, "2026-12"), "2026/12/24");  // Friday is Christmas Day
    EXPECT_EQ(Week(1, "2027-01"), "2027/01/04");  // Friday is New Year's Day, and Thursday lies in December
}

TEST(MarketCalendar, RulesHaveNames) {
    EXPECT_EQ(ExpiryRuleFromText("ThirdFriday"), EExpiryRule::ThirdFriday);
    EXPECT_EQ(ExpiryRuleFromText("BeforeLastBusinessDay"), EExpiryRule::BeforeLastBusinessDay);
    EXPECT_FALSE(ExpiryRuleFromText("thirdfriday"));
}

}  // namespace
}  // namespace ws::test
