// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The market's days and times as texts. Never read through the process-wide date settings: a view may change those.

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace ws {

// "2023/02/17"; nothing for any other form or a day that does not exist.
std::optional<std::chrono::sys_days> MarketDayOf(std::string_view Text);

std::string MarketDayText(std::chrono::sys_days Day);  // "2023/02/17"; years 0 to 9999

// "2023/02/17 09:30:00": the wall clock OffsetMinutes east of UTC, whole seconds.
std::string MarketTimeText(std::chrono::system_clock::time_point Utc, int OffsetMinutes);

// The moment at which that wall clock shows the text; nothing for any other form.
std::optional<std::chrono::system_clock::time_point> MarketTimeOf(std::string_view Text, int OffsetMinutes);

// The calendar day at that place.
std::chrono::sys_days MarketDayAt(std::chrono::system_clock::time_point Utc, int OffsetMinutes);

}  // namespace ws
