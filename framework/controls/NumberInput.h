// SPDX-License-Identifier: Apache-2.0
#pragma once

// What the numeric editors of forms and of grid cells share.

#include <cmath>
#include <optional>

#include "framework/base/NumberFormat.h"
#include "framework/base/Numbers.h"
#include "framework/base/Refusal.h"
#include "framework/base/Variant.h"

namespace fw {

// What may be entered into a numeric editor.
struct TNumberLimits {
    std::optional<double> Min, Max;
    bool WholeOnly = false;

    bool Allow(double Value) const {
        return (!Min || Value >= *Min) && (!Max || Value <= *Max) && (!WholeOnly || std::trunc(Value) == Value);
    }
};

// A typed text as the value of an editor.
struct TTypedValue {
    std::optional<Variant> Value;     // none: refused
    std::optional<TRefusal> Refusal;  // why
    bool Ambiguous = false;           // refused because it can be read in two ways
};

inline TRefusal NumberRefusal(Text Typed) { return {"Res_LogNumberRefused", {std::move(Typed)}}; }

// Blanks give null, a number within the limits that number. Shows: what the editor's place would show for a number.
inline TTypedValue ReadNumber(const Text& Typed, const TNumberLimits& Limits,
                              const std::function<Text(double Value)>& Shows) {
    const TNumberReading Reading = ReadNumberText(Typed, Shows);
    if (Reading.Kind == ENumberText::Empty) return {Variant(), {}};
    if (Reading.Kind == ENumberText::Ambiguous)
        return {{},
                TRefusal{"Res_LogNumberAmbiguous",
                         {Typed, FormatUnmistakably(Reading.Value), FormatUnmistakably(Reading.Other)}},
                true};
    if (Reading.Kind == ENumberText::NoNumber || !Limits.Allow(Reading.Value)) return {{}, NumberRefusal(Typed)};
    return {Variant(Reading.Value), {}};
}

// The value a number of spin steps away, brought into the bounds. An increment of (nearly) 0 counts as 1. Cut at the
// tenth decimal, so that steps of 0.1 do not pile up binary noise.
inline double StepNumber(double From, int Steps, double Increment, const TNumberLimits& Limits) {
    const bool Usable = std::isfinite(Increment) && std::fabs(Increment) >= 1e-7;
    const double Raw = From + Steps * (Usable ? Increment : 1.0);
    double Result = std::isfinite(Raw) ? TextToFloatDef(FloatToText(Raw, 10), Raw) : From;
    if (Limits.Max && Result > *Limits.Max) Result = *Limits.Max;
    if (Limits.Min && Result < *Limits.Min) Result = *Limits.Min;
    return Result;
}

// A value that a program hands to a numeric editor, as float or null; texts in C form. No value when it is no finite
// number.
inline std::optional<Variant> ToNumber(const Variant& Value) {
    if (Value.IsNull()) return Value;
    if (Value.IsText()) {
        if (Trim(Value.AsText()).empty()) return Variant();
        const auto Number = GroupedTextToFloat(Value.AsText());
        return Number ? std::optional<Variant>(*Number) : std::nullopt;
    }
    const double Number = Value.IsFloat() ? Value.AsFloat(NAN) : static_cast<double>(Value.AsInteger());
    if (!std::isfinite(Number)) return std::nullopt;
    return Variant(Number);
}

}  // namespace fw
