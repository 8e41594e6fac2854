// SPDX-License-Identifier: Apache-2.0
#include "framework/base/FormatSettings.h"

#include <gtest/gtest.h>

#include <ostream>

namespace fw {

static void PrintTo(const TDateTime& D, std::ostream* Out) { *Out << D.Year << '/' << D.Month << '/' << D.Day; }

namespace {

class DateReading : public testing::Test {
protected:
    ~DateReading() override { FormatSettings() = TFormatSettings(); }
};

TEST_F(DateReading, StartsWithYearMonthDay) {
    EXPECT_EQ(FormatSettings().ShortDateFormat, "yyyy/MM/dd");
    EXPECT_EQ(FormatSettings().DateSeparator, "/");
}

TEST_F(DateReading, AcceptsDates) {
    struct TCase {
        const char* Given;
        TDateTime Expected;
    };
    const TCase Cases[] = {
        {"2024/03/28", {2024, 3, 28}},
        {"2024/3/8", {2024, 3, 8}},
        {"  2024/03/28  ", {2024, 3, 28}},
        {"\t2024/03/28\n", {2024, 3, 28}},
        {"2024/02/29", {2024, 2, 29}},
        {"2000/02/29", {2000, 2, 29}},
        {"0001/01/01", {1, 1, 1}},
        {"9999/12/31", {9999, 12, 31}},
        {"2024/03/28 10:30", {2024, 3, 28}},
        {"2024/03/28 9:30:15", {2024, 3, 28}},
        {"2024/03/28 23:59:59.999", {2024, 3, 28}},
        {"2024/03/28   4:15 pm", {2024, 3, 28}},
        {"2024/03/28 4:15:00PM", {2024, 3, 28}},
    };
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Given);
        EXPECT_EQ(StrToDateTime(C.Given), C.Expected);
    }
}

TEST_F(DateReading, RefusesEverythingElse) {
    const std::string_view Cases[] = {
        "",
        " ",
        "2024-03-28",
        "20240328",
        "28/03/2024",
        "2024/03",
        "2024/03/",
        "2024/03/28/",
        "2024/03/28/01",
        "2024//28",
        "/03/28",
        "24/03/28",
        "02024/03/28",
        "2024/003/28",
        "2024/03/028",
        "2024/00/28",
        "2024/13/28",
        "2024/03/00",
        "2024/03/32",
        "2024/04/31",
        "2024/02/30",
        "2023/02/29",
        "1900/02/29",
        "0000/01/01",
        "2024/-3/28",
        "2024/+3/28",
        "2024/ 3/28",
        "2024 /03/28",
        "2024/03/28x",
        "2024/03/28 x",
        "2024/03/28 10",
        "2024/03/28 24:00",
        "2024/03/28 10:60",
        "2024/03/28 10:30:60",
        "2024/03/28 10:30:",
        "2024/03/28 10:3",
        "2024/03/28 10:30:15.",
        "2024/03/28 PM",
        "2024/0x/28",
        "２０２４/03/28",
    };
    for (const auto C : Cases) {
        SCOPED_TRACE(C);
        EXPECT_THROW(StrToDateTime(C), EConvertError);
    }
}

TEST_F(DateReading, ErrorNamesTheText) {
    try {
        StrToDateTime("28 March");
        FAIL();
    } catch (const EConvertError& E) {
        EXPECT_NE(Text(E.what()).find("28 March"), Text::npos);
    }
}

TEST_F(DateReading, FollowsTheCurrentSettings) {
    struct TCase {
        const char* Why;
        TFormatSettings Settings;
        const char* Accepted;
        const char* Refused;
    };
    const TCase Cases[] = {
        {"another separator", {"yyyy-MM-dd", "-"}, "2024-03-28", "2024/03/28"},
        {"the separator counts, not the pattern's own", {"yyyy/MM/dd", "-"}, "2024-03-28", "2024/03/28"},
        {"day first", {"dd.MM.yyyy", "."}, "28.03.2024", "2024.03.28"},
        {"month first", {"M/d/yyyy", "/"}, "3/28/2024", "28/3/2024"},
        {"a pattern without a day: it comes last", {"yyyy-MM", "-"}, "2024-03-28", "2024-03"},
        {"a longer separator", {"yyyy MM dd", "--"}, "2024--03--28", "2024-03-28"},
        {"no separator", {"yyyyMMdd", ""}, nullptr, "20240328"},
    };
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Why);
        FormatSettings() = C.Settings;
        if (C.Accepted) {
            EXPECT_EQ(StrToDateTime(C.Accepted), (TDateTime{2024, 3, 28}));
        }
        if (C.Refused) {
            EXPECT_THROW(StrToDateTime(C.Refused), EConvertError);
        }
    }
}

TEST_F(DateReading, ReadingLeavesTheSettingsAlone) {
    FormatSettings() = {"yyyy-MM", "-"};
    EXPECT_THROW(StrToDateTime("nonsense"), EConvertError);
    EXPECT_EQ(FormatSettings().ShortDateFormat, "yyyy-MM");
    EXPECT_EQ(FormatSettings().DateSeparator, "-");
}

TEST(FormatDate, WritesThePattern) {
    const TDateTime Date{2024, 3, 8};
    EXPECT_EQ(FormatDate(Date, "yyyy-MM"), "2024-03");
    EXPECT_EQ(FormatDate(Date, "yyyy/MM/dd"), "2024/03/08");
    EXPECT_EQ(FormatDate(Date, "dd.MM.yyyy: y M d"), "08.03.2024: y M d");
    EXPECT_EQ(FormatDate(Date, "yyyyMMdd"), "20240308");
    EXPECT_EQ(FormatDate(Date, ""), "");
    EXPECT_EQ(FormatDate({7, 11, 30}, "yyyy-MM-dd"), "0007-11-30");
}

TEST(FormatDate, WritesNoSettings) {
    FormatDate({2024, 3, 8}, "dd-MM");
    EXPECT_EQ(FormatSettings().ShortDateFormat, "yyyy/MM/dd");
}

}  // namespace
}  // namespace fw
