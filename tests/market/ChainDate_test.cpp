// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/ChainDate.h"

#include <gtest/gtest.h>

#include "workstation/market/MarketDay.h"

namespace {

using ws::EDateOrder;
using ws::EDateReading;

struct TDateCase {
    const char* Text;
    EDateOrder Order;
    EDateReading Reading;
    const char* Time;
    const char* Zone;
};
constexpr auto kNone = EDateOrder::Unstated;
constexpr auto kDayFirst = EDateOrder::DayFirst;
constexpr auto kMonthFirst = EDateOrder::MonthFirst;
constexpr auto kRead = EDateReading::Read;

TEST(ChainDate, SpellingsOfTheFiles) {
    const TDateCase Cases[] = {
        {"February 3, 2023 at 11:24 PM EST", kNone, kRead, "2023/02/03 23:24:00", "EST"},
        {"February 5 2022, 8:09 PM EST", kNone, kRead, "2022/02/05 20:09:00", "EST"},
        {"June 11, 2022, 8:47 PM EDT", kNone, kRead, "2022/06/11 20:47:00", "EDT"},
        {"September 25, 2025 at 9:05 PM EDT", kNone, kRead, "2025/09/25 21:05:00", "EDT"},
        {"Fri, Feb 17 2023", kNone, kRead, "2023/02/17 00:00:00", ""},
        {"11 june 2022 20:47", kNone, kRead, "2022/06/11 20:47:00", ""},
        {"May 1st, 2022 12:05 am", kNone, kRead, "2022/05/01 00:05:00", ""},
        {"May 1, 2022 12:05 PM", kNone, kRead, "2022/05/01 12:05:00", ""},
        {"2022-06-11T20:47:30Z", kNone, kRead, "2022/06/11 20:47:30", "Z"},
        {"2022/06/11", kDayFirst, kRead, "2022/06/11 00:00:00", ""},
        {"25/09/2025 9:05 PM", kNone, kRead, "2025/09/25 21:05:00", ""},
        {"09/25/2025", kNone, kRead, "2025/09/25 00:00:00", ""},
        {"09/25/2025", kDayFirst, kRead, "2025/09/25 00:00:00", ""},
        {"06.06.2022", kNone, kRead, "2022/06/06 00:00:00", ""},
        {"11/06/2022 8:47 PM EDT", kDayFirst, kRead, "2022/06/11 20:47:00", "EDT"},
        {"11/06/2022 8:47 PM EDT", kMonthFirst, kRead, "2022/11/06 20:47:00", "EDT"},
        {"5-6-2022", kDayFirst, kRead, "2022/06/05 00:00:00", ""},
    };
    for (const TDateCase& C : Cases) {
        SCOPED_TRACE(C.Text);
        ws::TChainDate Date;
        ASSERT_EQ(ws::ReadChainDate(C.Text, C.Order, Date), C.Reading);
        EXPECT_EQ(Date.Time, C.Time);
        EXPECT_EQ(Date.Day, std::string(C.Time).substr(0, 10));
        EXPECT_EQ(Date.Zone, C.Zone);
    }
}

TEST(ChainDate, AmbiguousWithoutAnOrder) {
    ws::TChainDate Date;
    for (const char* Text : {"11/06/2022 8:47 PM EDT", "1/2/2023", "06-11-2022", "12.11.2025 10:00"}) {
        SCOPED_TRACE(Text);
        EXPECT_EQ(ws::ReadChainDate(Text, kNone, Date), EDateReading::Ambiguous);
        EXPECT_TRUE(Date.Time.empty());
    }
}

TEST(ChainDate, WhatIsNoDate) {
    ws::TChainDate Date;
    for (const char* Text :
         {"", "yesterday", "February 30, 2023", "February 2023", "Febr 3", "13/13/2022", "32/01/2022", "11/06/22",
          "June 11, 2022, 13:47 PM", "June 11, 2022, 8:75", "June 11, 2022 25:00", "June July 11 2022",
          "11 2022 06 2023", "2022/13/01", "June 11 2022 (late)", "1012.5"}) {
        SCOPED_TRACE(Text);
        EXPECT_EQ(ws::ReadChainDate(Text, kNone, Date), EDateReading::NoDate);
    }
}

TEST(ChainDate, ZonesGiveTheOffset) {
    const std::pair<const char*, std::optional<int>> Cases[] = {
        {"EST", -300}, {"EDT", -240}, {"CST", -360}, {"UTC", 0}, {"XYZ", std::nullopt}, {"", std::nullopt}};
    for (const auto& [Zone, Minutes] : Cases) {
        SCOPED_TRACE(Zone);
        ws::TChainDate Date;
        ASSERT_EQ(ws::ReadChainDate(std::string("June 11, 2022, 8:47 PM ") + Zone, kNone, Date), kRead);
        EXPECT_EQ(Date.UtcOffsetMinutes, Minutes);
    }
}

TEST(ChainDate, OrdersOfTheCommandLine) {
    EXPECT_EQ(ws::DateOrderOf("day-first"), kDayFirst);
    EXPECT_EQ(ws::DateOrderOf("DMY"), kDayFirst);
    EXPECT_EQ(ws::DateOrderOf("month-first"), kMonthFirst);
    EXPECT_EQ(ws::DateOrderOf("mdy"), kMonthFirst);
    EXPECT_FALSE(ws::DateOrderOf("ymd"));
    EXPECT_FALSE(ws::DateOrderOf(""));
}

TEST(ChainDate, ExpiryColumn) {
    EXPECT_EQ(ws::ReadDayOnly("Fri Feb 17 2023", kNone), ws::MarketDayOf("2023/02/17"));
    EXPECT_EQ(ws::ReadDayOnly("2/17/2023", kNone), ws::MarketDayOf("2023/02/17"));
    EXPECT_FALSE(ws::ReadDayOnly("2/3/2023", kNone));
    EXPECT_FALSE(ws::ReadDayOnly("soon", kNone));
}

}  // namespace
