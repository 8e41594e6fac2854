// SPDX-License-Identifier: Apache-2.0
#include "framework/base/Numbers.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>

namespace fw {

namespace {

bool IsDigit(char C) { return C >= '0' && C <= '9'; }

// A double has at most 1074 decimals of its own; more would be zeros.
constexpr int kMaxDecimals = 1074;
constexpr size_t kMaxWholeDigits = 309;

// A finite double that is not negative: Mantissa * 2^Exponent.
struct TBinary {
    uint64_t Mantissa;  // below 2^53
    int Exponent;

    explicit TBinary(double Magnitude) {
        const auto Bits = std::bit_cast<uint64_t>(Magnitude);
        const int RawExponent = static_cast<int>(Bits >> 52);
        Mantissa = Bits & ((uint64_t{1} << 52) - 1);
        if (RawExponent != 0) Mantissa |= uint64_t{1} << 52;
        Exponent = std::max(RawExponent, 1) - 1075;
    }

    // Places behind the binary point; that many decimals write it exactly.
    int FractionBits() const { return Mantissa == 0 ? 0 : std::max(0, -(Exponent + std::countr_zero(Mantissa))); }
};

__extension__ using TWide = unsigned __int128;

// 10^8 and below: the product of a mantissa with one of them has fewer than 80 bits.
constexpr std::array<uint32_t, 9> kPowersOfTen{1, 10, 100, 1'000, 10'000, 100'000, 1'000'000, 10'000'000, 100'000'000};
constexpr int kMaxShift = 81;  // what is shifted by more rounds to 0

// Magnitude * 10^Decimals as a whole number, the exact product rounded half away from zero. None for more than eight
// decimals, for 2^52 and above, and for what 64 bits do not hold: prices and results never are.
std::optional<uint64_t> Scaled(double Magnitude, int Decimals) {
    const TBinary Binary(Magnitude);
    if (Decimals >= static_cast<int>(kPowersOfTen.size()) || Binary.Exponent >= 0) return std::nullopt;
    const int Shift = -Binary.Exponent;
    if (Shift > kMaxShift) return 0;
    const TWide Product = TWide{Binary.Mantissa} * kPowersOfTen[static_cast<size_t>(Decimals)];
    const TWide Rounded = (Product + (TWide{1} << (Shift - 1))) >> Shift;
    if (Rounded >> 64 != 0) return std::nullopt;
    return static_cast<uint64_t>(Rounded);
}

// "00" to "99", one behind the other.
constexpr auto kPairs = [] {
    std::array<char, 200> Result{};
    for (size_t I = 0; I < Result.size(); ++I) Result[I] = static_cast<char>('0' + (I % 2 == 0 ? I / 20 : I / 2 % 10));
    return Result;
}();

char* WritePair(char* To, uint64_t Pair) {
    *--To = kPairs[Pair * 2 + 1];
    *--To = kPairs[Pair * 2];
    return To;
}

// Backwards: the digits of Number end before To. Returns where they begin.
char* WriteWhole(char* To, uint64_t Number) {
    for (; Number >= 100; Number /= 100) To = WritePair(To, Number % 100);
    if (Number >= 10) return WritePair(To, Number);
    *--To = static_cast<char>('0' + Number);
    return To;
}

// The same with leading zeros up to as many digits as Places.
char* WritePlaces(char* To, uint64_t Number, int Places) {
    for (; Places >= 2; Places -= 2, Number /= 100) To = WritePair(To, Number % 100);
    if (Places > 0) *--To = static_cast<char>('0' + Number);
    return To;
}

// Digits behind the point: Digits / 10^Places.
struct TBehind {
    uint64_t Digits;
    int Places;

    // As many zeros at a time; at least MinPlaces stay.
    template <int Zeros>
    void Drop(int MinPlaces) {
        constexpr auto kStep = kPowersOfTen[Zeros];
        for (; Places - Zeros >= MinPlaces && Digits % kStep == 0; Places -= Zeros) Digits /= kStep;
    }
};

// Number / 10^Decimals without trailing zeros behind MinDecimals.
Text ScaledText(uint64_t Number, int Decimals, int MinDecimals) {
    const uint64_t Power = kPowersOfTen[static_cast<size_t>(Decimals)];
    TBehind Behind{Number % Power, Decimals};
    Behind.Drop<4>(MinDecimals);
    Behind.Drop<1>(MinDecimals);
    std::array<char, 32> Buffer;  // 64 bits have 20 digits
    char* const End = Buffer.data() + Buffer.size();
    char* Begin = WritePlaces(End, Behind.Digits, Behind.Places);
    if (Behind.Places > 0) *--Begin = '.';
    Begin = WriteWhole(Begin, Number / Power);
    return Text(Begin, End);
}

// Adds one in the last place of a text of digits and at most one point.
void IncrementLastPlace(Text& Digits) {
    for (size_t I = Digits.size(); I-- > 0;) {
        if (Digits[I] == '.') continue;
        if (Digits[I] != '9') {
            ++Digits[I];
            return;
        }
        Digits[I] = '0';
    }
    Digits.insert(Digits.begin(), '1');
}

Text FixedText(double Magnitude, int Decimals) {
    std::array<char, kMaxWholeDigits + 1 + kMaxDecimals + 1> Buffer;
    const auto End =
        std::to_chars(Buffer.data(), Buffer.data() + Buffer.size(), Magnitude, std::chars_format::fixed, Decimals).ptr;
    return Text(Buffer.data(), End);
}

// Rounded half away from zero. The library rounds the exact value and differs from that only on ties. With k binary
// places, Magnitude is m / 2^k with m odd, and Magnitude * 10^d = m * 5^d * 2^(d-k) lies halfway between two whole
// numbers exactly when k = d + 1: then d + 1 decimals write it exactly and the last of them is a 5.
Text RoundedByLibrary(double Magnitude, int Decimals) {
    if (TBinary(Magnitude).FractionBits() != Decimals + 1) return FixedText(Magnitude, Decimals);
    Text Digits = FixedText(Magnitude, Decimals + 1);
    Digits.pop_back();
    if (Digits.back() == '.') Digits.pop_back();
    IncrementLastPlace(Digits);
    return Digits;
}

void DropTrailingZeros(Text& Digits, int MinDecimals) {
    const size_t Point = Digits.find('.');
    if (Point == Text::npos) return;
    const size_t Keep = Point + 1 + static_cast<size_t>(MinDecimals);
    while (Digits.size() > Keep && Digits.back() == '0') Digits.pop_back();
    if (Digits.back() == '.') Digits.pop_back();
}

Text RoundedText(double Magnitude, int MaxDecimals, int MinDecimals) {
    if (const auto Number = Scaled(Magnitude, MaxDecimals)) return ScaledText(*Number, MaxDecimals, MinDecimals);
    Text Digits = RoundedByLibrary(Magnitude, MaxDecimals);
    DropTrailingZeros(Digits, MinDecimals);
    return Digits;
}

void InsertGroups(Text& Digits) {
    size_t I = std::min(Digits.find('.'), Digits.size());
    for (; I > 3; I -= 3) Digits.insert(I - 3, 1, ',');
}

// 1 to 3 digits, then groups of exactly three behind each comma.
bool IsGrouped(std::string_view Whole) {
    const size_t First = std::min(Whole.find(','), Whole.size());
    if (First < 1 || First > 3 || (Whole.size() - First) % 4 != 0) return false;
    for (size_t I = 0; I < Whole.size(); ++I) {
        const bool CommaPlace = I >= First && (I - First) % 4 == 0;
        if (CommaPlace ? Whole[I] != ',' : !IsDigit(Whole[I])) return false;
    }
    return true;
}

}  // namespace

std::optional<int32_t> TextToInt(std::string_view S) {
    if (S.starts_with('+')) {
        S.remove_prefix(1);
        if (S.starts_with('-')) return std::nullopt;
    }
    int32_t Value = 0;
    const auto [End, Error] = std::from_chars(S.data(), S.data() + S.size(), Value);
    if (Error != std::errc{} || End != S.data() + S.size()) return std::nullopt;
    return Value;
}

int32_t TextToIntDef(std::string_view S, int32_t Default) { return TextToInt(S).value_or(Default); }

std::optional<double> TextToFloat(std::string_view S) {
    if (S.starts_with('+')) {
        S.remove_prefix(1);
        if (S.starts_with('-')) return std::nullopt;
    }
    double Value = 0.0;
    const auto [End, Error] = std::from_chars(S.data(), S.data() + S.size(), Value);
    if (Error != std::errc{} || End != S.data() + S.size() || !std::isfinite(Value)) return std::nullopt;
    return Value;
}

double TextToFloatDef(std::string_view S, double Default) { return TextToFloat(S).value_or(Default); }

Text FloatToText(double Value, int MaxDecimals, bool Grouping, int MinDecimals) {
    if (std::isnan(Value)) return "nan";
    if (std::isinf(Value)) return Value < 0 ? "-inf" : "inf";
    MaxDecimals = std::clamp(MaxDecimals, 0, kMaxDecimals);
    MinDecimals = std::clamp(MinDecimals, 0, MaxDecimals);

    Text Digits = RoundedText(std::fabs(Value), MaxDecimals, MinDecimals);
    const bool Minus = std::signbit(Value) && Digits.find_first_not_of("0.") != Text::npos;
    if (Grouping) InsertGroups(Digits);
    if (Minus) Digits.insert(Digits.begin(), '-');
    return Digits;
}

Text PriceKey(double Price) { return FloatToText(Price, 8); }

std::optional<double> GroupedTextToFloat(std::string_view S) {
    Text Plain = Trim(S);
    const size_t Start = Plain.starts_with('-') || Plain.starts_with('+') ? 1 : 0;
    const size_t End = std::min(Plain.find_first_not_of("0123456789,", Start), Plain.size());
    const std::string_view Whole = std::string_view(Plain).substr(Start, End - Start);
    if (Whole.find(',') != std::string_view::npos) {
        if (!IsGrouped(Whole)) return std::nullopt;
        const auto From = Plain.begin() + static_cast<std::ptrdiff_t>(Start);
        const auto To = Plain.begin() + static_cast<std::ptrdiff_t>(End);
        Plain.erase(std::remove(From, To, ','), To);  // a comma further behind stays and is refused below
    }
    return TextToFloat(Plain);
}

Text FloatToShortestText(double Value) {
    if (std::isnan(Value)) return "nan";
    if (std::isinf(Value)) return Value < 0 ? "-inf" : "inf";
    if (Value == 0.0) return "0";
    const double Magnitude = std::fabs(Value);
    const bool Plain = Magnitude >= 1e-6 && Magnitude < 1e17;
    std::array<char, 64> Buffer;
    const auto End = std::to_chars(Buffer.data(), Buffer.data() + Buffer.size(), Value,
                                   Plain ? std::chars_format::fixed : std::chars_format::scientific)
                         .ptr;
    return Text(Buffer.data(), End);
}

}  // namespace fw
