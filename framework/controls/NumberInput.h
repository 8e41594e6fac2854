// SPDX-License-Identifier: Apache-2.0
#pragma once

// What the numeric editors of forms and of grid cells share.

#include <cmath>
#include <optional>

#include "framework/base/Numbers.h"
#include "framework/base/Variant.h"

namespace fw {

// A typed text as the value of a numeric editor: blanks give null, a finite number within the bounds that number (the
// separators of thousands may stand in it); anything else no value.
inline std::optional<Variant> ReadNumber(std::string_view Typed, std::optional<double> Min, std::optional<double> Max) {
    if (Trim(Typed).empty()) return Variant();
    const auto Number = GroupedTextToFloat(Typed);
    if (!Number || (Min && *Number < *Min) || (Max && *Number > *Max)) return std::nullopt;
    return Variant(*Number);
}

// The value a number of spin steps away, brought into the bounds. An increment of (nearly) 0 counts as 1. Cut at the
// tenth decimal, so that steps of 0.1 do not pile up binary noise.
inline double StepNumber(double From, int Steps, double Increment, std::optional<double> Min,
                         std::optional<double> Max) {
    const bool Usable = std::isfinite(Increment) && std::fabs(Increment) >= 1e-7;
    const double Raw = From + Steps * (Usable ? Increment : 1.0);
    double Result = std::isfinite(Raw) ? TextToFloatDef(FloatToText(Raw, 10), Raw) : From;
    if (Max && Result > *Max) Result = *Max;
    if (Min && Result < *Min) Result = *Min;
    return Result;
}

// A value that a program hands to a numeric editor, as float or null; no value when it is no finite number.
inline std::optional<Variant> ToNumber(const Variant& Value) {
    if (Value.IsNull()) return Value;
    if (Value.IsText()) return ReadNumber(Value.AsText(), {}, {});
    const double Number = Value.IsFloat() ? Value.AsFloat(NAN) : static_cast<double>(Value.AsInteger());
    if (!std::isfinite(Number)) return std::nullopt;
    return Variant(Number);
}

}  // namespace fw
