// SPDX-License-Identifier: Apache-2.0
#include "framework/base/Variant.h"

#include <charconv>
#include <cmath>
#include <optional>

#include "framework/base/Numbers.h"

namespace fw {

namespace {

std::optional<int64_t> Truncated(double V) {
    // 2^63 is a double, the largest int64_t is not.
    constexpr double kLimit = 9223372036854775808.0;
    if (!(V >= -kLimit && V < kLimit)) return std::nullopt;
    return static_cast<int64_t>(V);
}

std::optional<int64_t> TextToInt64(std::string_view S) {
    int64_t Value = 0;
    const auto [End, Error] = std::from_chars(S.data(), S.data() + S.size(), Value);
    if (Error != std::errc{} || End != S.data() + S.size()) return std::nullopt;
    return Value;
}

}  // namespace

Text Variant::AsText() const {
    if (const auto* S = std::get_if<Text>(&FValue)) return *S;
    if (const auto* I = std::get_if<int64_t>(&FValue)) return std::to_string(*I);
    if (const auto* D = std::get_if<double>(&FValue)) return FloatToShortestText(*D);
    return {};
}

double Variant::AsFloat(double Default) const {
    if (const auto* S = std::get_if<Text>(&FValue)) return TextToFloatDef(*S, Default);
    if (const auto* I = std::get_if<int64_t>(&FValue)) return static_cast<double>(*I);
    if (const auto* D = std::get_if<double>(&FValue)) return *D;
    return Default;
}

int64_t Variant::AsInteger(int64_t Default) const {
    if (const auto* I = std::get_if<int64_t>(&FValue)) return *I;
    if (const auto* D = std::get_if<double>(&FValue)) return Truncated(*D).value_or(Default);
    const auto* S = std::get_if<Text>(&FValue);
    if (!S) return Default;
    if (const auto Whole = TextToInt64(*S)) return *Whole;
    const auto Number = TextToFloat(*S);
    return Number ? Truncated(*Number).value_or(Default) : Default;
}

}  // namespace fw
