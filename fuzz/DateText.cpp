// SPDX-License-Identifier: Apache-2.0
// Dates by the process-wide settings: a text is refused with EConvertError or is a day that exists. Under settings that
// write all three fields, the day written reads as the same day, blanks around it or not.
// The input's lines: a pattern, a separator, and the text that is read under these and under the house's settings.
#include <chrono>
#include <optional>

#include "framework/base/FormatSettings.h"
#include "fuzz/FuzzTarget.h"

namespace {

std::optional<fw::TDateTime> Read(std::string_view Text) {
    try {
        return fw::StrToDateTime(Text);
    } catch (const fw::EConvertError&) {
        return std::nullopt;
    }
}

bool Exists(const fw::TDateTime& Date) {
    using namespace std::chrono;
    return year_month_day{year{Date.Year}, month{static_cast<unsigned>(Date.Month)},
                          day{static_cast<unsigned>(Date.Day)}}
        .ok();
}

struct TSettings {
    const char* Pattern;
    const char* Separator;
};
constexpr TSettings kSettings[] = {
    {"yyyy/MM/dd", "/"}, {"yyyy-MM-dd", "-"}, {"dd.MM.yyyy", "."}, {"MM::dd::yyyy", "::"}};

void CheckUnder(const TSettings& Settings, std::string_view Text) {
    fw::FormatSettings() = {Settings.Pattern, Settings.Separator};
    const auto Date = Read(Text);
    fuzz::Require(Read(" " + fw::Text(Text) + "\t") == Date, "blanks around a date change nothing");
    if (!Date) return;
    fuzz::Require(Exists(*Date) && Date->Year >= 1 && Date->Year <= 9999, "a date that was read exists");
    fuzz::Require(Read(fw::FormatDate(*Date, Settings.Pattern)) == Date, "a written date reads as the same day");
}

}  // namespace

int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size) {
    std::string_view Rest = fuzz::AsText(Data, Size);
    const fw::Text Pattern(fuzz::TakeLine(Rest)), Separator(fuzz::TakeLine(Rest));
    fw::FormatSettings() = {Pattern, Separator};
    const auto Date = Read(Rest);
    fuzz::Require(!Date || Exists(*Date), "a date read under any settings exists");
    if (Date) fw::FormatDate(*Date, Pattern);
    for (const auto& Settings : kSettings) CheckUnder(Settings, Rest);
    fw::FormatSettings() = fw::TFormatSettings();
    return 0;
}
