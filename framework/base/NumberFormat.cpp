// SPDX-License-Identifier: Apache-2.0
#include "framework/base/NumberFormat.h"

#include <algorithm>
#include <utility>

#include "framework/base/Numbers.h"

namespace fw {

namespace {

struct TNamedFormat {
    std::string_view Name;
    std::string_view Decimal, Group;
};
constexpr TNamedFormat kFormats[] = {
    {"C", ".", ","}, {"en_US", ".", ","}, {"de_DE", ",", "."}, {"fr_FR", ",", "\u202F"}, {"zh_HK", ".", ","},
};

// Characters that are read as a plainer one.
constexpr std::pair<std::string_view, char> kAlike[] = {
    {"\u00A0", ' '}, {"\u2007", ' '}, {"\u2009", ' '}, {"\u202F", ' '}, {"\u2019", '\''}, {"\u2212", '-'},
};
constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kDecimals = ".,";
constexpr std::string_view kGroups = ".,' ";

TNumberFormat& Current() {
    static auto* const Format = new TNumberFormat;  // never destroyed: packages read it up to the end
    return *Format;
}

Text Alike(std::string_view S) {
    Text Result;
    while (!S.empty()) {
        const auto* Entry =
            std::find_if(std::begin(kAlike), std::end(kAlike), [&](const auto& A) { return S.starts_with(A.first); });
        const bool Found = Entry != std::end(kAlike);
        Result += Found ? Entry->second : S.front();
        S.remove_prefix(Found ? Entry->first.size() : 1);
    }
    return Result;
}

bool IsOneOf(std::string_view Separator, std::string_view Known) {
    const Text Read = Alike(Separator);
    return Read.size() == 1 && Known.find(Read[0]) != std::string_view::npos;
}

bool AreDigits(std::string_view S) { return S.find_first_not_of(kDigits) == std::string_view::npos; }

// The digits of a whole part; none when it is neither digits nor well-formed groups behind one separator.
std::optional<Text> WholeDigits(std::string_view S) {
    const size_t First = S.find_first_not_of(kDigits);
    if (First == std::string_view::npos) return Text(S);
    if (First < 1 || First > 3 || S[0] == '0' || kGroups.find(S[First]) == std::string_view::npos) return std::nullopt;
    Text Digits(S.substr(0, First));
    for (size_t I = First; I < S.size(); I += 4) {
        const auto Group = S.substr(I + 1, 3);
        if (S[I] != S[First] || Group.size() != 3 || !AreDigits(Group)) return std::nullopt;
        Digits += Group;
    }
    return Digits;
}

// A typed number without its blanks at the ends, taken apart.
struct TTyped {
    Text Sign, Mantissa, Exponent;

    explicit TTyped(const Text& S) {
        const size_t Start = S.starts_with('-') || S.starts_with('+') ? 1 : 0;
        const size_t End = std::min(S.find_first_of("eE", Start), S.size());
        Sign = S.substr(0, Start) == "-" ? "-" : "";
        Mantissa = S.substr(Start, End - Start);
        Exponent = S.substr(End);
    }

    // The last separator and where it stands; npos when there is none.
    size_t SeparatorAt() const { return Mantissa.find_last_not_of(kDigits); }

    std::optional<double> WithoutDecimals() const {
        const auto Digits = WholeDigits(Mantissa);
        return Digits ? TextToFloat(Sign + *Digits + Exponent) : std::nullopt;
    }

    std::optional<double> WithDecimals() const {
        const size_t At = SeparatorAt();
        if (At == Text::npos || kDecimals.find(Mantissa[At]) == std::string_view::npos) return std::nullopt;
        if (Mantissa.find(Mantissa[At]) != At) return std::nullopt;
        const auto Digits = WholeDigits(std::string_view(Mantissa).substr(0, At));
        return Digits ? TextToFloat(Sign + *Digits + "." + Mantissa.substr(At + 1) + Exponent) : std::nullopt;
    }
};

TNumberReading ReadTwoWays(const Text& S, const TTyped& Typed, double WithDecimals, double WithoutDecimals,
                           const std::function<Text(double)>& Shows) {
    const Text Separator(1, Typed.Mantissa[Typed.SeparatorAt()]);
    const bool OwnDecimal = Separator == Current().Decimal, OwnGroup = Separator == Current().Group;
    TNumberReading Result{ENumberText::Ambiguous, WithDecimals, WithoutDecimals};
    if (OwnGroup) std::swap(Result.Value, Result.Other);
    const Text Unsigned = S.substr(S.starts_with('+') ? 1 : 0);
    const bool Shown = (OwnDecimal || OwnGroup) && Shows && Trim(Alike(Shows(Result.Value))) == Unsigned;
    if (Shown || (OwnDecimal && !Typed.Exponent.empty())) return {ENumberText::Number, Result.Value};
    return Result;
}

Text InCurrent(const Text& CForm) {
    Text Result;
    for (const char C : CForm) {
        if (C == '.')
            Result += Current().Decimal;
        else if (C == ',')
            Result += Current().Group;
        else
            Result += C;
    }
    return Result;
}

}  // namespace

const TNumberFormat& NumberFormat() { return Current(); }

bool IsNumberFormat(const TNumberFormat& Format) {
    return IsOneOf(Format.Decimal, kDecimals) && Format.Decimal != Format.Group &&
           (Format.Group.empty() || IsOneOf(Format.Group, kGroups));
}

bool SetNumberFormat(const TNumberFormat& Format) {
    if (!IsNumberFormat(Format)) return false;
    if (Format == Current()) return true;
    NumberFormatChanging()();
    Current() = Format;
    NumberFormatChanged()();
    return true;
}

TSignal<>& NumberFormatChanging() {
    static auto* const Signal = new TSignal<>;
    return *Signal;
}

TSignal<>& NumberFormatChanged() {
    static auto* const Signal = new TSignal<>;
    return *Signal;
}

std::optional<TNumberFormat> FindNumberFormat(std::string_view Name) {
    for (const auto& Each : kFormats)
        if (Each.Name == Name) return TNumberFormat{Text(Each.Decimal), Text(Each.Group)};
    return std::nullopt;
}

std::vector<Text> NumberFormatNames() {
    std::vector<Text> Names;
    for (const auto& Each : kFormats) Names.emplace_back(Each.Name);
    return Names;
}

Text FormatNumber(double Value, int MaxDecimals, bool Grouping, int MinDecimals) {
    return InCurrent(FloatToText(Value, MaxDecimals, Grouping, MinDecimals));
}

Text FormatShortest(double Value) { return InCurrent(FloatToShortestText(Value)); }

Text FormatUnmistakably(double Value) {
    const Text CForm = FloatToShortestText(Value);
    const size_t Point = CForm.find('.');
    const bool ThreeDecimals = Point != Text::npos && CForm.size() - Point == 4;
    return InCurrent(ThreeDecimals ? CForm + "0" : CForm);
}

TNumberReading ReadNumberText(std::string_view Typed, const std::function<Text(double Value)>& Shows) {
    const Text S = Trim(Alike(Typed));
    if (S.empty()) return {ENumberText::Empty};
    const TTyped Parts(S);
    const auto WithDecimals = Parts.WithDecimals(), WithoutDecimals = Parts.WithoutDecimals();
    if (WithDecimals && WithoutDecimals) return ReadTwoWays(S, Parts, *WithDecimals, *WithoutDecimals, Shows);
    if (!WithDecimals && !WithoutDecimals) return {ENumberText::NoNumber};
    return {ENumberText::Number, WithDecimals ? *WithDecimals : *WithoutDecimals};
}

}  // namespace fw
