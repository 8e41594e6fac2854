// SPDX-License-Identifier: Apache-2.0
#pragma once

// The one way in which numbers are written for people and read from what they type. Files and keys are in C form
// (Numbers.h), whatever is set here.

#include <functional>
#include <optional>
#include <vector>

#include "framework/base/Signal.h"
#include "framework/base/Text.h"

namespace fw {

struct TNumberFormat {
    Text Decimal = ".";
    Text Group = ",";  // between thousands; "": thousands are not grouped
    friend bool operator==(const TNumberFormat&, const TNumberFormat&) = default;
};

// The process-wide format; C form until another is set.
FRAMEWORK_API const TNumberFormat& NumberFormat();
// Open editors are posted first, so that what was typed in the former format is read in it. False, and nothing changes,
// where IsNumberFormat is false.
FRAMEWORK_API bool SetNumberFormat(const TNumberFormat& Format);
// Whether its numbers can be read back: the decimal separator is a point or a comma, the other one of these, a blank,
// an apostrophe or nothing.
FRAMEWORK_API bool IsNumberFormat(const TNumberFormat& Format);
FRAMEWORK_API TSignal<>& NumberFormatChanging();
FRAMEWORK_API TSignal<>& NumberFormatChanged();

// A format by its name ("C", "de_DE", ...); none for an unknown name.
FRAMEWORK_API std::optional<TNumberFormat> FindNumberFormat(std::string_view Name);
FRAMEWORK_API std::vector<Text> NumberFormatNames();

// FloatToText and FloatToShortestText in the current format.
FRAMEWORK_API Text FormatNumber(double Value, int MaxDecimals, bool Grouping = false, int MinDecimals = 0);
FRAMEWORK_API Text FormatShortest(double Value);
// A text that has one reading only: not grouped, and never just three decimals.
FRAMEWORK_API Text FormatUnmistakably(double Value);

enum class ENumberText { Empty, Number, Ambiguous, NoNumber };

struct TNumberReading {
    ENumberText Kind = ENumberText::NoNumber;
    double Value = 0.0;  // the number; of an ambiguous text the current format's own reading where it has one
    double Other = 0.0;  // the other reading of an ambiguous text
};

// What a user typed. Point and comma may each be the decimal separator or stand between groups of three, blanks and
// apostrophes only between groups: a text that makes sense in one way only is that number, whatever the format. One
// point or comma with three digits behind it makes sense in two ways ("1.234"); it is a number only where Shows gives
// that very text for the current format's own reading of it. Groups do not begin with 0. Exponents may stand behind
// ("1e3"), where the current decimal separator is never doubted. Numbers are finite.
FRAMEWORK_API TNumberReading ReadNumberText(std::string_view Typed, const std::function<Text(double Value)>& Shows);

}  // namespace fw
