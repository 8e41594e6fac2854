// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Days on which exchanges trade, and the days on which their contracts expire.
// Calendar days only: no clock, no time zone, no locale.

#include <chrono>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace ws {

using TDay = std::chrono::sys_days;
using TYearMonth = std::chrono::year_month;

// "2026/12/30" (four, two and two digits) and back; nothing for any other form or a day that does not exist.
std::optional<TDay> DayFromText(const std::string& Text);
std::string TextFromDay(TDay Day);
std::optional<TYearMonth> YearMonthFromText(const std::string& Text);  // "2026-12"
std::string TextFromYearMonth(TYearMonth Month);

// The same day Months later; the month's last day where that day does not exist. "" and malformed texts, and
// whatever follows the date ("... HH:mm:ss"), stay as they are.
std::string ShiftedDateText(const std::string& Text, int Months);

// The days off of every exchange beside Saturdays and Sundays.
class THolidays {
public:
    // Day is "yyyy/MM/dd" or, for a day off every year, "MM/dd". False: neither.
    bool Add(const std::string& Exchange, const std::string& Day);
    bool IsBusinessDay(const std::string& Exchange, TDay Day) const;
    TDay BusinessDayUpTo(const std::string& Exchange, TDay Day) const;  // Day, or the last one before it

private:
    std::map<std::string, std::set<TDay>> FDays;
    std::map<std::string, std::set<std::string>> FYearly;  // "MM/dd"
};

// How an exchange's monthly contracts expire; the names stand in exchanges.csv.
enum class EExpiryRule {
    BeforeLastBusinessDay,  // the business day before the month's last business day
    LastBusinessDay,
    ThirdFriday,  // or the business day before it
};
std::optional<EExpiryRule> ExpiryRuleFromText(const std::string& Text);

TDay MonthlyExpiry(EExpiryRule Rule, TYearMonth Month, const THolidays& Holidays, const std::string& Exchange);

// Week 1 to 4 of a month: its first to fourth Friday, or the business day before; a day after it where the one
// before lies in another month, so that a week always expires inside its month.
TDay WeeklyExpiry(int Week, TYearMonth Month, const THolidays& Holidays, const std::string& Exchange);

}  // namespace ws
