// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The dates of option-chain files, in the spellings met so far:
//   "February 3, 2023 at 11:24 PM EST"   "February 5 2022, 8:09 PM EST"   "11 June 2022 20:47"
//   "2022-06-11 20:47"   "2022/06/11"     year first needs no order
//   "25/09/2025 9:05 PM", "9.25.2025"     the numbers decide; "11/06/2022" needs an order
// English month names in full or by their first three letters, any case; a day of the week before the date is skipped.
// Years have four digits. The time is optional.

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace ws {

// How to read a date of three numbers with the year last.
enum class EDateOrder { Unstated, DayFirst, MonthFirst };

// "day-first", "dmy" / "month-first", "mdy" (any case); nothing for any other text. For the command line.
std::optional<EDateOrder> DateOrderOf(std::string_view Text);

struct TChainDate {
    std::string Day;                      // "2023/02/03"
    std::string Time;                     // "2023/02/03 23:24:00"; midnight when the file states no time
    std::string Zone;                     // "EST" as written, upper case; empty when not stated
    std::optional<int> UtcOffsetMinutes;  // of Zone; absent when not stated or not known
};

enum class EDateReading { Read, NoDate, Ambiguous };

// Result is written only when the answer is Read. An Order that the numbers contradict gives way to the numbers.
EDateReading ReadChainDate(std::string_view Text, EDateOrder Order, TChainDate& Result);

// The date alone, as in the expiry column ("Fri Feb 17 2023"); nothing when it is no date or ambiguous.
std::optional<std::chrono::sys_days> ReadDayOnly(std::string_view Text, EDateOrder Order);

}  // namespace ws
