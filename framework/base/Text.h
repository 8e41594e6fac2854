// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "framework/base/Export.h"

namespace fw {

// UTF-8 everywhere.
using Text = std::string;

// Removes blanks and control characters (code points up to U+0020) from both ends.
FRAMEWORK_API Text Trim(std::string_view S);

// Equality without regard to the case of ASCII letters.
FRAMEWORK_API bool SameText(std::string_view A, std::string_view B);

// ASCII letters to upper case; every other byte stays, so UTF-8 stays whole.
FRAMEWORK_API Text UpperCase(std::string_view S);

// Replaces each "%s" of Pattern by the next argument, as it stands; surplus "%s" become empty. "%%" is a percent sign.
FRAMEWORK_API Text FormatText(std::string_view Pattern, const std::vector<Text>& Args);

}  // namespace fw
