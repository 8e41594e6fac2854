// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/MarketDay.h"

#include <gtest/gtest.h>

namespace {

using namespace std::chrono;

constexpr sys_days kDay{year{2024} / February / 29};

TEST(MarketDay, ReadsOnlyItsOwnForm) {
    EXPECT_EQ(ws::MarketDayOf("2024/02/29"), kDay);
    for (const char* Text : {"", "2024-02-29", "20240229", "2024/2/29", "29/02/2024", "2024/02/30", "2023/02/29",
                             "2024/02/29 ", "2024/13/01", "2024/00/10", "+024/02/29", "2024/02/29 10:00:00"})
        EXPECT_FALSE(ws::MarketDayOf(Text)) << Text;
}

TEST(MarketDay, WritesWhatItReads) {
    for (int I = -400; I < 400; I += 7) {
        const sys_days Day = kDay + days{I};
        EXPECT_EQ(ws::MarketDayOf(ws::MarketDayText(Day)), Day);
    }
    EXPECT_EQ(ws::MarketDayText(kDay), "2024/02/29");
}

TEST(MarketDay, WallClockIsEastOfUtc) {
    const system_clock::time_point Utc = kDay + hours{2} + minutes{5} + seconds{9} + milliseconds{700};
    EXPECT_EQ(ws::MarketTimeText(Utc, 0), "2024/02/29 02:05:09");
    EXPECT_EQ(ws::MarketTimeText(Utc, 480), "2024/02/29 10:05:09");
    EXPECT_EQ(ws::MarketTimeText(Utc, -300), "2024/02/28 21:05:09");
    EXPECT_EQ(ws::MarketDayAt(Utc, -300), kDay - days{1});
    EXPECT_EQ(ws::MarketDayAt(Utc, 22 * 60), kDay + days{1});
}

TEST(MarketDay, ATimeIsReadBackAsItWasWritten) {
    for (const int Offset : {0, 480, -360, 330})
        for (const auto At : {kDay + seconds(0), kDay + seconds(86399)})
            EXPECT_EQ(ws::MarketTimeOf(ws::MarketTimeText(At, Offset), Offset), At) << Offset;
    for (const char* Text : {"", "2026/12/01", "2026/12/01 24:00:00", "2026/12/01 10:60:00", "2026/12/01 10:00:60",
                             "2026/02/30 10:00:00", "2026/12/01T10:00:00", "2026/12/01 1a:00:00"})
        EXPECT_FALSE(ws::MarketTimeOf(Text, 0)) << Text;
}

}  // namespace
