// SPDX-License-Identifier: Apache-2.0
#include "framework/base/FormatSettings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

namespace fw {

namespace {

bool IsDigit(char C) { return C >= '0' && C <= '9'; }

// MinDigits to MaxDigits digits and nothing else.
std::optional<int> ReadNumber(std::string_view S, size_t MinDigits, size_t MaxDigits) {
    if (S.size() < MinDigits || S.size() > MaxDigits || !std::all_of(S.begin(), S.end(), IsDigit)) return std::nullopt;
    int Value = 0;
    std::from_chars(S.data(), S.data() + S.size(), Value);
    return Value;
}

// "y", "M" and "d" in the order of their first appearance in the pattern; those that it lacks follow in this order.
Text FieldOrder(std::string_view Pattern) {
    Text Order;
    for (const char C : Text(Pattern) + "yMd") {
        const char Field = C == 'Y' ? 'y' : C == 'm' ? 'M' : C == 'D' ? 'd' : C;
        if (std::string_view("yMd").find(Field) != std::string_view::npos && Order.find(Field) == Text::npos)
            Order += Field;
    }
    return Order;
}

int DaysOfMonth(int Year, int Month) {
    constexpr std::array kDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool Leap = (Year % 4 == 0 && Year % 100 != 0) || Year % 400 == 0;
    return kDays[static_cast<size_t>(Month - 1)] + (Month == 2 && Leap ? 1 : 0);
}

bool Exists(const TDateTime& D) {
    return D.Year >= 1 && D.Month >= 1 && D.Month <= 12 && D.Day >= 1 && D.Day <= DaysOfMonth(D.Year, D.Month);
}

// h:mm, h:mm:ss or h:mm:ss.fff, "AM" or "PM" may follow.
bool IsTime(std::string_view S) {
    if (S.size() > 2 && (SameText(S.substr(S.size() - 2), "AM") || SameText(S.substr(S.size() - 2), "PM")))
        S = S.substr(0, S.find_last_not_of(' ', S.size() - 3) + 1);
    constexpr std::array kLimits{23, 59, 59};
    for (size_t Field = 0; Field < kLimits.size(); ++Field) {
        const size_t End = std::min(S.find(Field < 2 ? ':' : '.'), S.size());
        const auto Value = ReadNumber(S.substr(0, End), Field == 0 ? 1 : 2, 2);
        if (!Value || *Value > kLimits[Field]) return false;
        if (End == S.size()) return Field > 0;
        S.remove_prefix(End + 1);
    }
    return ReadNumber(S, 1, 9).has_value();
}

[[noreturn]] void Refuse(std::string_view S) { throw EConvertError("'" + Text(S) + "' is not a valid date"); }

}  // namespace

TFormatSettings& FormatSettings() {
    static auto* const Settings = new TFormatSettings;  // never destroyed: packages read it up to the end
    return *Settings;
}

TDateTime StrToDateTime(std::string_view S) {
    const Text Whole = Trim(S);
    const size_t Blank = Whole.find(' ');
    std::string_view Rest = std::string_view(Whole).substr(0, Blank);
    if (Blank != Text::npos && !IsTime(Trim(std::string_view(Whole).substr(Blank)))) Refuse(S);

    const auto& Settings = FormatSettings();
    const Text& Separator = Settings.DateSeparator;
    if (Separator.empty()) Refuse(S);

    TDateTime Date;
    const Text Order = FieldOrder(Settings.ShortDateFormat);
    for (size_t I = 0; I < Order.size(); ++I) {
        const bool Last = I + 1 == Order.size();
        const size_t End = Last ? Rest.size() : Rest.find(Separator);
        if (End == std::string_view::npos) Refuse(S);
        const bool IsYear = Order[I] == 'y';
        const auto Value = ReadNumber(Rest.substr(0, End), IsYear ? 4 : 1, IsYear ? 4 : 2);
        if (!Value) Refuse(S);
        (IsYear ? Date.Year : Order[I] == 'M' ? Date.Month : Date.Day) = *Value;
        if (!Last) Rest.remove_prefix(End + Separator.size());
    }
    if (!Exists(Date)) Refuse(S);
    return Date;
}

Text FormatDate(const TDateTime& Date, std::string_view Pattern) {
    struct TField {
        std::string_view Token;
        int Value;
    };
    const TField Fields[] = {{"yyyy", Date.Year}, {"MM", Date.Month}, {"dd", Date.Day}};
    Text Result;
    while (!Pattern.empty()) {
        const auto* Field = std::find_if(std::begin(Fields), std::end(Fields),
                                         [&](const TField& F) { return Pattern.starts_with(F.Token); });
        if (Field == std::end(Fields)) {
            Result += Pattern.front();
            Pattern.remove_prefix(1);
            continue;
        }
        const Text Digits = std::to_string(Field->Value);
        if (Digits.size() < Field->Token.size()) Result.append(Field->Token.size() - Digits.size(), '0');
        Result += Digits;
        Pattern.remove_prefix(Field->Token.size());
    }
    return Result;
}

}  // namespace fw
