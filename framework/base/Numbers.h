// SPDX-License-Identifier: Apache-2.0
#pragma once

// Numbers to text and back, always in C form ('.' as separator, no grouping unless a pattern asks for it),
// whatever the process locale or the process-wide date settings say.

#include <cstdint>
#include <optional>

#include "framework/base/Text.h"

namespace fw {

// Optional sign, then decimal digits only, the whole text, within 32 bits; anything else gives no value
// (" 3", "3.0" and "0x3" do not convert).
FRAMEWORK_API std::optional<int32_t> TextToInt(std::string_view S);
FRAMEWORK_API int32_t TextToIntDef(std::string_view S, int32_t Default);

// A finite decimal number (sign, point, exponent allowed), the whole text; "nan", "inf" and numbers beyond the
// double range, too large or too small to be told from zero, do not convert.
FRAMEWORK_API std::optional<double> TextToFloat(std::string_view S);
FRAMEWORK_API double TextToFloatDef(std::string_view S, double Default);

// Exact decimal text of a double, rounded half away from zero at MaxDecimals of its own binary value.
// No exponent at any magnitude, no trailing zeros, never "-0". Grouping puts ',' between thousands.
// Not finite: "nan", "inf", "-inf".
FRAMEWORK_API Text FloatToText(double Value, int MaxDecimals, bool Grouping = false, int MinDecimals = 0);

// The pattern "0.########": the text under which prices are keyed.
FRAMEWORK_API Text PriceKey(double Price);

// Reads back what FloatToText writes with groups: ',' may stand between the groups of three of the whole part.
// Blanks at the ends are ignored. Anything that is not a finite number gives no value.
FRAMEWORK_API std::optional<double> GroupedTextToFloat(std::string_view S);

// Shortest text that reads back as the same double, without exponent for |Value| in [1e-6, 1e17). Both zeros: "0".
FRAMEWORK_API Text FloatToShortestText(double Value);

}  // namespace fw
