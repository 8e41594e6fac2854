// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/ChainDate.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "framework/base/Text.h"
#include "workstation/market/MarketDay.h"

namespace ws {

namespace {

enum class EToken { Number, Word, Mark };
struct TToken {
    EToken Kind;
    std::string Text;  // upper case
};
using TTokens = std::vector<TToken>;

constexpr std::array<std::string_view, 12> kMonths{"JANUARY",   "FEBRUARY", "MARCH",    "APRIL",
                                                   "MAY",       "JUNE",     "JULY",     "AUGUST",
                                                   "SEPTEMBER", "OCTOBER",  "NOVEMBER", "DECEMBER"};
constexpr std::array<std::string_view, 7> kWeekdays{"MONDAY", "TUESDAY",  "WEDNESDAY", "THURSDAY",
                                                    "FRIDAY", "SATURDAY", "SUNDAY"};
constexpr std::array<std::string_view, 7> kFillers{"AT", "ON", "T", "ST", "ND", "RD", "TH"};
constexpr std::array<std::string_view, 5> kMarks{",", "/", "-", ".", "@"};

struct TZone {
    std::string_view Name;
    int Minutes;
};
constexpr std::array<TZone, 10> kZones{{{"EST", -300},
                                        {"EDT", -240},
                                        {"ET", -300},
                                        {"CST", -360},
                                        {"CDT", -300},
                                        {"CT", -360},
                                        {"UTC", 0},
                                        {"GMT", 0},
                                        {"Z", 0},
                                        {"HKT", 480}}};

bool IsDigit(char C) { return C >= '0' && C <= '9'; }
bool IsLetter(char C) { return C >= 'A' && C <= 'Z'; }

TTokens TokensOf(std::string_view Text) {
    const std::string Upper = fw::UpperCase(Text);
    TTokens Tokens;
    for (std::size_t I = 0; I < Upper.size();) {
        const std::size_t Start = I;
        const auto Take = [&](bool (*Belongs)(char), EToken Kind) {
            while (I < Upper.size() && Belongs(Upper[I])) ++I;
            Tokens.push_back({Kind, Upper.substr(Start, I - Start)});
        };
        if (static_cast<unsigned char>(Upper[I]) <= 0x20)
            ++I;
        else if (IsDigit(Upper[I]))
            Take(IsDigit, EToken::Number);
        else if (IsLetter(Upper[I]))
            Take(IsLetter, EToken::Word);
        else
            Tokens.push_back({EToken::Mark, Upper.substr(I++, 1)});
    }
    return Tokens;
}

// In full or the first three letters (and "SEPT", "TUES"): any beginning of at least three.
template <std::size_t N>
int IndexByName(const std::array<std::string_view, N>& Names, const std::string& Word) {
    if (Word.size() < 3) return -1;
    for (std::size_t I = 0; I < N; ++I)
        if (Names[I].substr(0, Word.size()) == Word) return static_cast<int>(I);
    return -1;
}

template <std::size_t N>
bool IsOneOf(const std::array<std::string_view, N>& Names, const std::string& Text) {
    return std::find(Names.begin(), Names.end(), Text) != Names.end();
}

int NumberOf(const std::string& Digits) {
    if (Digits.size() > 4) return -1;
    int Value = 0;
    for (char C : Digits) Value = Value * 10 + (C - '0');
    return Value;
}

bool IsMark(const TTokens& Tokens, std::size_t I, std::string_view Mark) {
    return I < Tokens.size() && Tokens[I].Kind == EToken::Mark && Tokens[I].Text == Mark;
}
bool IsNumber(const TTokens& Tokens, std::size_t I) { return I < Tokens.size() && Tokens[I].Kind == EToken::Number; }
bool IsWord(const TTokens& Tokens, std::size_t I) { return I < Tokens.size() && Tokens[I].Kind == EToken::Word; }

struct TTimeOfDay {
    int Hour = 0, Minute = 0, Second = 0;
    std::string Zone;
};

// Takes "11:24 PM EST" out of Tokens. False: there is a time, but no such time of day exists.
bool TakeTime(TTokens& Tokens, TTimeOfDay& Time) {
    std::size_t Begin = 0;
    while (Begin < Tokens.size() &&
           !(IsNumber(Tokens, Begin) && IsMark(Tokens, Begin + 1, ":") && IsNumber(Tokens, Begin + 2)))
        ++Begin;
    if (Begin == Tokens.size()) return true;
    std::size_t End = Begin + 3;
    Time.Hour = NumberOf(Tokens[Begin].Text);
    Time.Minute = NumberOf(Tokens[Begin + 2].Text);
    if (IsMark(Tokens, End, ":") && IsNumber(Tokens, End + 1)) {
        Time.Second = NumberOf(Tokens[End + 1].Text);
        End += 2;
    }
    bool Valid = Time.Hour >= 0 && Time.Hour <= 23 && Time.Minute >= 0 && Time.Minute <= 59 && Time.Second >= 0 &&
                 Time.Second <= 59;
    if (IsWord(Tokens, End) && (Tokens[End].Text == "AM" || Tokens[End].Text == "PM")) {
        Valid = Valid && Time.Hour >= 1 && Time.Hour <= 12;
        Time.Hour = Time.Hour % 12 + (Tokens[End].Text == "PM" ? 12 : 0);
        ++End;
    }
    if (IsWord(Tokens, End) && Tokens[End].Text.size() <= 5 && IndexByName(kMonths, Tokens[End].Text) < 0)
        Time.Zone = Tokens[End++].Text;
    Tokens.erase(Tokens.begin() + static_cast<std::ptrdiff_t>(Begin),
                 Tokens.begin() + static_cast<std::ptrdiff_t>(End));
    return Valid;
}

using TDate = std::optional<std::chrono::sys_days>;

TDate DateOf(int Year, int Month, int Day) {
    if (Year < 1900 || Month < 1 || Day < 1) return std::nullopt;
    const std::chrono::year_month_day Date{std::chrono::year{Year}, std::chrono::month{static_cast<unsigned>(Month)},
                                           std::chrono::day{static_cast<unsigned>(Day)}};
    return Date.ok() ? TDate(std::chrono::sys_days{Date}) : std::nullopt;
}

EDateReading Answer(TDate Date, std::chrono::sys_days& Result) {
    if (!Date) return EDateReading::NoDate;
    Result = *Date;
    return EDateReading::Read;
}

// "11/06/2022": the numbers decide where only one order gives a day, or both the same.
EDateReading ReadTwoAndYear(int First, int Second, int Year, EDateOrder Order, std::chrono::sys_days& Result) {
    const TDate DayFirst = DateOf(Year, Second, First), MonthFirst = DateOf(Year, First, Second);
    if (DayFirst && MonthFirst && *DayFirst != *MonthFirst) {
        if (Order == EDateOrder::Unstated) return EDateReading::Ambiguous;
        return Answer(Order == EDateOrder::DayFirst ? DayFirst : MonthFirst, Result);
    }
    return Answer(DayFirst ? DayFirst : MonthFirst, Result);
}

// Tokens without the time of day.
EDateReading ReadDay(const TTokens& Tokens, EDateOrder Order, std::chrono::sys_days& Result) {
    std::vector<std::string> Numbers;
    int Month = -1;
    for (const TToken& Token : Tokens) {
        if (Token.Kind == EToken::Number) {
            Numbers.push_back(Token.Text);
        } else if (Token.Kind == EToken::Mark) {
            if (!IsOneOf(kMarks, Token.Text)) return EDateReading::NoDate;
        } else if (const int Index = IndexByName(kMonths, Token.Text); Index >= 0) {
            if (Month >= 0) return EDateReading::NoDate;
            Month = Index + 1;
        } else if (!IsOneOf(kFillers, Token.Text) && IndexByName(kWeekdays, Token.Text) < 0) {
            return EDateReading::NoDate;
        }
    }
    const auto IsYear = [&](std::size_t I) { return Numbers[I].size() == 4; };
    const auto IsShort = [&](std::size_t I) { return Numbers[I].size() <= 2; };
    const auto Value = [&](std::size_t I) { return NumberOf(Numbers[I]); };
    if (Month >= 0 && Numbers.size() == 2) {
        if (IsShort(0) && IsYear(1)) return Answer(DateOf(Value(1), Month, Value(0)), Result);
        if (IsYear(0) && IsShort(1)) return Answer(DateOf(Value(0), Month, Value(1)), Result);
    } else if (Month < 0 && Numbers.size() == 3) {
        if (IsYear(0) && IsShort(1) && IsShort(2)) return Answer(DateOf(Value(0), Value(1), Value(2)), Result);
        if (IsShort(0) && IsShort(1) && IsYear(2)) return ReadTwoAndYear(Value(0), Value(1), Value(2), Order, Result);
    }
    return EDateReading::NoDate;
}

std::optional<int> OffsetOf(const std::string& Zone) {
    for (const TZone& Known : kZones)
        if (Known.Name == Zone) return Known.Minutes;
    return std::nullopt;
}

std::string TwoDigits(int Value) { return {static_cast<char>('0' + Value / 10), static_cast<char>('0' + Value % 10)}; }

}  // namespace

std::optional<EDateOrder> DateOrderOf(std::string_view Text) {
    for (const std::string_view Name : {"day-first", "dmy"})
        if (fw::SameText(Text, Name)) return EDateOrder::DayFirst;
    for (const std::string_view Name : {"month-first", "mdy"})
        if (fw::SameText(Text, Name)) return EDateOrder::MonthFirst;
    return std::nullopt;
}

EDateReading ReadChainDate(std::string_view Text, EDateOrder Order, TChainDate& Result) {
    TTokens Tokens = TokensOf(Text);
    TTimeOfDay Time;
    if (!TakeTime(Tokens, Time)) return EDateReading::NoDate;
    std::chrono::sys_days Day{};
    const EDateReading Reading = ReadDay(Tokens, Order, Day);
    if (Reading != EDateReading::Read) return Reading;
    Result.Day = MarketDayText(Day);
    Result.Time = Result.Day + " " + TwoDigits(Time.Hour) + ":" + TwoDigits(Time.Minute) + ":" + TwoDigits(Time.Second);
    Result.UtcOffsetMinutes = OffsetOf(Time.Zone);
    Result.Zone = std::move(Time.Zone);
    return Reading;
}

std::optional<std::chrono::sys_days> ReadDayOnly(std::string_view Text, EDateOrder Order) {
    std::chrono::sys_days Day{};
    if (ReadDay(TokensOf(Text), Order, Day) != EDateReading::Read) return std::nullopt;
    return Day;
}

}  // namespace ws
