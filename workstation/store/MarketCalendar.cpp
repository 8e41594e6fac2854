// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/store/MarketCalendar.h"

#include <array>
#include <cstdio>
#include <string_view>

namespace ws {
namespace {

using namespace std::chrono;

// Digits only, exactly Size of them from Start on.
std::optional<int> Digits(std::string_view Text, std::size_t Start, std::size_t Size) {
    int Value = 0;
    for (std::size_t i = Start; i < Start + Size; ++i) {
        if (i >= Text.size() || Text[i] < '0' || Text[i] > '9') return std::nullopt;
        Value = Value * 10 + (Text[i] - '0');
    }
    return Value;
}

std::optional<year_month_day> DateFromText(std::string_view Text) {
    if (Text.size() != 10 || Text[4] != '/' || Text[7] != '/') return std::nullopt;
    const auto Y = Digits(Text, 0, 4);
    const auto M = Digits(Text, 5, 2);
    const auto D = Digits(Text, 8, 2);
    if (!Y || !M || !D) return std::nullopt;
    const year_month_day Date{year{*Y}, month{static_cast<unsigned>(*M)}, day{static_cast<unsigned>(*D)}};
    if (!Date.ok()) return std::nullopt;
    return Date;
}

std::string TextFromDate(year_month_day Date) {
    char Text[16];
    std::snprintf(Text, sizeof Text, "%04d/%02u/%02u", static_cast<int>(Date.year()),
                  static_cast<unsigned>(Date.month()), static_cast<unsigned>(Date.day()));
    return Text;
}

constexpr int kLongestClosure = 31;  // days; a holiday list that closes an exchange for longer is not followed

struct TRuleName {
    EExpiryRule Rule;
    std::string_view Name;
};
constexpr std::array kRuleNames{TRuleName{EExpiryRule::BeforeLastBusinessDay, "BeforeLastBusinessDay"},
                                TRuleName{EExpiryRule::LastBusinessDay, "LastBusinessDay"},
                                TRuleName{EExpiryRule::ThirdFriday, "ThirdFriday"}};

TDay NthFriday(TYearMonth Month, int Nth) { return sys_days{Month / Friday[static_cast<unsigned>(Nth)]}; }

}  // namespace

std::optional<TDay> DayFromText(const std::string& Text) {
    const auto Date = DateFromText(Text);
    if (!Date) return std::nullopt;
    return sys_days{*Date};
}

std::string TextFromDay(TDay Day) { return TextFromDate(year_month_day{Day}); }

std::optional<TYearMonth> YearMonthFromText(const std::string& Text) {
    if (Text.size() != 7 || Text[4] != '-') return std::nullopt;
    const auto Y = Digits(Text, 0, 4);
    const auto M = Digits(Text, 5, 2);
    if (!Y || !M || *M < 1 || *M > 12) return std::nullopt;
    return year{*Y} / month{static_cast<unsigned>(*M)};
}

std::string TextFromYearMonth(TYearMonth Month) {
    char Text[16];
    std::snprintf(Text, sizeof Text, "%04d-%02u", static_cast<int>(Month.year()), static_cast<unsigned>(Month.month()));
    return Text;
}

std::string ShiftedDateText(const std::string& Text, int Months) {
    const auto Date = DateFromText(std::string_view(Text).substr(0, 10));
    if (!Date) return Text;
    year_month_day Shifted = *Date + months{Months};
    if (!Shifted.ok()) Shifted = Shifted.year() / Shifted.month() / last;
    return TextFromDate(Shifted) + Text.substr(10);
}

bool THolidays::Add(const std::string& Exchange, const std::string& Day) {
    if (const auto Date = DayFromText(Day)) {
        FDays[Exchange].insert(*Date);
        return true;
    }
    if (Day.size() != 5 || !DateFromText("2000/" + Day)) return false;  // a leap year knows every day
    FYearly[Exchange].insert(Day);
    return true;
}

bool THolidays::IsBusinessDay(const std::string& Exchange, TDay Day) const {
    const weekday Weekday{Day};
    if (Weekday == Saturday || Weekday == Sunday) return false;
    const auto Days = FDays.find(Exchange);
    if (Days != FDays.end() && Days->second.contains(Day)) return false;
    const auto Yearly = FYearly.find(Exchange);
    return Yearly == FYearly.end() || !Yearly->second.contains(TextFromDay(Day).substr(5));
}

TDay THolidays::BusinessDayUpTo(const std::string& Exchange, TDay Day) const {
    for (int Tries = 0; Tries < kLongestClosure && !IsBusinessDay(Exchange, Day); ++Tries) Day -= days{1};
    return Day;
}

std::optional<EExpiryRule> ExpiryRuleFromText(const std::string& Text) {
    for (const auto& Entry : kRuleNames)
        if (Entry.Name == Text) return Entry.Rule;
    return std::nullopt;
}

TDay MonthlyExpiry(EExpiryRule Rule, TYearMonth Month, const THolidays& Holidays, const std::string& Exchange) {
    if (Rule == EExpiryRule::ThirdFriday) return Holidays.BusinessDayUpTo(Exchange, NthFriday(Month, 3));
    const TDay Last = Holidays.BusinessDayUpTo(Exchange, sys_days{Month / last});
    if (Rule == EExpiryRule::LastBusinessDay) return Last;
    return Holidays.BusinessDayUpTo(Exchange, Last - days{1});
}

TDay WeeklyExpiry(int Week, TYearMonth Month, const THolidays& Holidays, const std::string& Exchange) {
    const TDay Friday = NthFriday(Month, Week);
    TDay Day = Holidays.BusinessDayUpTo(Exchange, Friday);
    if (year_month_day{Day}.month() == Month.month()) return Day;
    Day = Friday;
    for (int Tries = 0; Tries < kLongestClosure && !Holidays.IsBusinessDay(Exchange, Day); ++Tries) Day += days{1};
    return Day;
}

}  // namespace ws
