// SPDX-License-Identifier: Apache-2.0
// Numbers and their texts. A text that reads is a finite number, the one that the C library reads. A number's text is
// its exact decimal expansion rounded half away from zero, and reads back; the shortest text to the last bit.
// The input is taken as a text, and its first eight bytes as a double.
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>

#include "framework/base/Numbers.h"
#include "fuzz/FuzzTarget.h"

namespace {

using fuzz::Require;

uint64_t Bits(double Value) { return std::bit_cast<uint64_t>(Value); }

fw::Text WithoutCommas(fw::Text S) {
    S.erase(std::remove(S.begin(), S.end(), ','), S.end());
    return S;
}

// By schoolbook: all decimals that a double can have, cut, one added where the next digit is 5 or more.
fw::Text Schoolbook(double Value, size_t Decimals) {
    std::array<char, 1500> Buffer;
    const int Size = std::snprintf(Buffer.data(), Buffer.size(), "%.1074f", std::fabs(Value));
    fw::Text Digits(Buffer.data(), static_cast<size_t>(Size));
    const size_t Keep = Digits.find('.') + 1 + Decimals;
    bool Carry = Digits[Keep] >= '5';
    Digits.erase(Keep);
    for (size_t I = Digits.size(); Carry && I-- > 0;) {
        if (Digits[I] == '.') continue;
        Carry = Digits[I] == '9';
        Digits[I] = Carry ? '0' : static_cast<char>(Digits[I] + 1);
    }
    if (Carry) Digits.insert(0, 1, '1');
    Digits.erase(Digits.find_last_not_of('0') + 1);
    if (Digits.back() == '.') Digits.pop_back();
    return Value < 0 && Digits != "0" ? "-" + Digits : Digits;
}

void CheckNumber(double Value) {
    if (!std::isfinite(Value)) {
        Require(!fw::TextToFloat(fw::FloatToText(Value, 8)), "what is not finite writes no number");
        return;
    }
    for (const size_t Decimals : {0U, 2U, 8U, 17U})
        Require(fw::FloatToText(Value, static_cast<int>(Decimals)) == Schoolbook(Value, Decimals),
                "a text is the exact expansion, rounded half away from zero");

    const fw::Text Grouped = fw::FloatToText(Value, 8, true);
    const auto Back = fw::GroupedTextToFloat(Grouped);
    Require(Back.has_value(), "a grouped text reads");
    Require(fw::FloatToText(*Back, 8, true) == Grouped, "and writes the same text");
    Require(WithoutCommas(Grouped) == fw::PriceKey(Value), "groups only add commas");
    Require(std::fabs(*Back - Value) <= 0.5e-8 + 1e-15 * std::fabs(Value),
            "a grouped text stays within its last place");

    const auto Exact = fw::TextToFloat(fw::FloatToShortestText(Value));
    Require(Exact && (Value == 0.0 ? *Exact == 0.0 : Bits(*Exact) == Bits(Value)),
            "the shortest text reads to the bit");
}

void CheckText(std::string_view Text) {
    const fw::Text Copy(Text);
    const auto Plain = fw::TextToFloat(Text);
    if (Plain) {
        char* End = nullptr;
        Require(Bits(std::strtod(Copy.c_str(), &End)) == Bits(*Plain) && End == Copy.c_str() + Copy.size(),
                "a text reads as the C library reads it");
        CheckNumber(*Plain);
    }
    const auto Whole = fw::TextToInt(Text);
    if (Whole)
        Require(Plain && *Plain == *Whole && fw::TextToInt(std::to_string(*Whole)) == Whole, "whole numbers agree");

    const auto Grouped = fw::GroupedTextToFloat(Text);
    Require(!Plain || Grouped == Plain, "a plain number reads as a grouped one");
    if (!Grouped) return;
    Require(Grouped == fw::TextToFloat(fw::Trim(WithoutCommas(Copy))), "commas between groups change nothing");
    CheckNumber(*Grouped);
}

}  // namespace

int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size) {
    CheckText(fuzz::AsText(Data, Size));
    double Value = 0.0;
    if (Size < sizeof Value) return 0;
    std::memcpy(&Value, Data, sizeof Value);
    CheckNumber(Value);
    return 0;
}
