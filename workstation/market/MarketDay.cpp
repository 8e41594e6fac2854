// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/MarketDay.h"

#include <algorithm>
#include <charconv>

namespace ws {

namespace {

bool AllDigits(std::string_view S) {
    return std::all_of(S.begin(), S.end(), [](char C) { return C >= '0' && C <= '9'; });
}

int NumberOf(std::string_view Digits) {
    int Value = 0;
    std::from_chars(Digits.data(), Digits.data() + Digits.size(), Value);
    return Value;
}

// Written by hand: every quote of every step of the market has its time as text.
void Put(char* To, int Digits, unsigned Value) {
    for (; Digits > 0; Value /= 10) To[--Digits] = static_cast<char>('0' + Value % 10);
}

}  // namespace

std::optional<std::chrono::sys_days> MarketDayOf(std::string_view Text) {
    if (Text.size() != 10 || Text[4] != '/' || Text[7] != '/') return std::nullopt;
    const std::string_view Y = Text.substr(0, 4), M = Text.substr(5, 2), D = Text.substr(8, 2);
    if (!AllDigits(Y) || !AllDigits(M) || !AllDigits(D)) return std::nullopt;
    const std::chrono::year_month_day Date{std::chrono::year{NumberOf(Y)},
                                           std::chrono::month{static_cast<unsigned>(NumberOf(M))},
                                           std::chrono::day{static_cast<unsigned>(NumberOf(D))}};
    if (!Date.ok()) return std::nullopt;
    return std::chrono::sys_days{Date};
}

std::string MarketDayText(std::chrono::sys_days Day) {
    const std::chrono::year_month_day Date{Day};
    std::string Text = "0000/00/00";
    Put(&Text[0], 4, static_cast<unsigned>(static_cast<int>(Date.year())));
    Put(&Text[5], 2, static_cast<unsigned>(Date.month()));
    Put(&Text[8], 2, static_cast<unsigned>(Date.day()));
    return Text;
}

std::optional<std::chrono::system_clock::time_point> MarketTimeOf(std::string_view Text, int OffsetMinutes) {
    if (Text.size() != 19 || Text[10] != ' ' || Text[13] != ':' || Text[16] != ':') return std::nullopt;
    const auto Day = MarketDayOf(Text.substr(0, 10));
    const std::string_view H = Text.substr(11, 2), M = Text.substr(14, 2), S = Text.substr(17, 2);
    if (!Day || !AllDigits(H) || !AllDigits(M) || !AllDigits(S)) return std::nullopt;
    if (NumberOf(H) > 23 || NumberOf(M) > 59 || NumberOf(S) > 59) return std::nullopt;
    return *Day + std::chrono::hours{NumberOf(H)} + std::chrono::minutes{NumberOf(M) - OffsetMinutes} +
           std::chrono::seconds{NumberOf(S)};
}

std::chrono::sys_days MarketDayAt(std::chrono::system_clock::time_point Utc, int OffsetMinutes) {
    return std::chrono::floor<std::chrono::days>(Utc + std::chrono::minutes{OffsetMinutes});
}

std::string MarketTimeText(std::chrono::system_clock::time_point Utc, int OffsetMinutes) {
    const auto Local = std::chrono::floor<std::chrono::seconds>(Utc + std::chrono::minutes{OffsetMinutes});
    const auto Day = std::chrono::floor<std::chrono::days>(Local);
    const auto Second = static_cast<unsigned>((Local - Day).count());
    std::string Text = MarketDayText(Day) + " 00:00:00";
    Put(&Text[11], 2, Second / 3600);
    Put(&Text[14], 2, Second / 60 % 60);
    Put(&Text[17], 2, Second % 60);
    return Text;
}

}  // namespace ws
