// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/OccSymbol.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "framework/base/Text.h"

namespace ws {

namespace {

constexpr std::size_t kTailLength = 15;  // yymmdd, C or P, eight digits
constexpr std::size_t kMaxRoot = 6;

bool IsDigit(char C) { return C >= '0' && C <= '9'; }
bool IsLetter(char C) { return C >= 'A' && C <= 'Z'; }

// Digits only, checked by the caller.
long NumberOf(std::string_view Digits) {
    long Value = 0;
    for (char C : Digits) Value = Value * 10 + (C - '0');
    return Value;
}

bool IsRoot(std::string_view S) {
    return !S.empty() && S.size() <= kMaxRoot && IsLetter(S.front()) &&
           std::all_of(S.begin(), S.end(), [](char C) { return IsLetter(C) || IsDigit(C) || C == '.'; });
}

}  // namespace

std::string TOccSymbol::Text() const {
    const std::chrono::year_month_day Date{Expiry};
    std::array<char, 64> Tail{};
    std::snprintf(Tail.data(), Tail.size(), "%02d%02u%02u%c%08ld", static_cast<int>(Date.year()) % 100,
                  static_cast<unsigned>(Date.month()), static_cast<unsigned>(Date.day()), CallPut, StrikeThousandths);
    return Root + Tail.data();
}

std::string TOccSymbol::StrikeText() const {
    std::string Whole = std::to_string(StrikeThousandths / 1000);
    if (StrikeThousandths % 1000 == 0) return Whole;
    std::string Fraction = std::to_string(1000 + StrikeThousandths % 1000).substr(1);
    Fraction.erase(Fraction.find_last_not_of('0') + 1);
    return Whole + "." + Fraction;
}

double TOccSymbol::Strike() const { return static_cast<double>(StrikeThousandths) / 1000.0; }

std::optional<TOccSymbol> ParseOccSymbol(std::string_view Text) {
    const std::string Upper = fw::UpperCase(fw::Trim(Text));
    if (Upper.size() <= kTailLength) return std::nullopt;
    const std::string_view All = Upper;
    const std::string_view Tail = All.substr(All.size() - kTailLength);
    const std::string_view Date = Tail.substr(0, 6), Strike = Tail.substr(7);
    TOccSymbol Result;
    Result.Root = fw::Trim(All.substr(0, All.size() - kTailLength));
    Result.CallPut = Tail[6];
    if (!IsRoot(Result.Root) || (Result.CallPut != 'C' && Result.CallPut != 'P') ||
        !std::all_of(Date.begin(), Date.end(), IsDigit) || !std::all_of(Strike.begin(), Strike.end(), IsDigit))
        return std::nullopt;
    const std::chrono::year_month_day Day{std::chrono::year{2000 + static_cast<int>(NumberOf(Date.substr(0, 2)))},
                                          std::chrono::month{static_cast<unsigned>(NumberOf(Date.substr(2, 2)))},
                                          std::chrono::day{static_cast<unsigned>(NumberOf(Date.substr(4, 2)))}};
    if (!Day.ok()) return std::nullopt;
    Result.Expiry = std::chrono::sys_days{Day};
    Result.StrikeThousandths = NumberOf(Strike);
    return Result;
}

}  // namespace ws
