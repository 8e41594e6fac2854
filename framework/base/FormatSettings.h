// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/base/Errors.h"
#include "framework/base/Text.h"

namespace fw {

// A calendar date; the time part of a date-time text is accepted and dropped.
struct TDateTime {
    int Year = 0, Month = 0, Day = 0;
    friend bool operator==(const TDateTime&, const TDateTime&) = default;
};

// The process-wide date settings. Packages may write them and rely on what was written last; the workstation never
// reads dates through them.
struct TFormatSettings {
    Text ShortDateFormat = "yyyy/MM/dd";
    Text DateSeparator = "/";
};
FRAMEWORK_API TFormatSettings& FormatSettings();

// Reads a date by the current settings (order of y, M and d in ShortDateFormat, those that it lacks behind the others,
// DateSeparator between them): four-digit year, one or two digits for month and day, blanks around it ignored, an
// optional time part (h:mm, h:mm:ss) after a blank ignored.
// Raises EConvertError for anything else, days that do not exist included.
FRAMEWORK_API TDateTime StrToDateTime(std::string_view S);

// Writes yyyy, MM, dd of the pattern; every other character stands for itself.
FRAMEWORK_API Text FormatDate(const TDateTime& Date, std::string_view Pattern);

}  // namespace fw
