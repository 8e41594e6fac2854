// SPDX-License-Identifier: Apache-2.0
#include "framework/base/Text.h"

#include <gtest/gtest.h>

namespace fw {
namespace {

TEST(Trim, RemovesBlanksAndControlCharactersFromBothEnds) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\t\r\n\x01x\x1F "), "x");
    EXPECT_EQ(Trim(std::string_view("\0x\0", 3)), "x");
    EXPECT_EQ(Trim(""), "");
    EXPECT_EQ(Trim(" \n "), "");
    EXPECT_EQ(Trim("x"), "x");
    EXPECT_EQ(Trim(" 恒生 "), "恒生") << "bytes above 0x7F are no blanks";
    EXPECT_EQ(Trim("\xC2\xA0x"), "\xC2\xA0x") << "a no-break space is above U+0020";
}

TEST(SameText, IgnoresTheCaseOfAsciiLettersOnly) {
    EXPECT_TRUE(SameText("HKFE", "hkfe"));
    EXPECT_TRUE(SameText("", ""));
    EXPECT_TRUE(SameText("恒a", "恒A"));
    EXPECT_FALSE(SameText("HKFE", "HKF"));
    EXPECT_FALSE(SameText("HKF", "HKFE"));
    EXPECT_FALSE(SameText("a", "b"));
    EXPECT_FALSE(SameText("é", "É"));
    EXPECT_FALSE(SameText("[", "{")) << "32 apart, but no letters";
}

TEST(UpperCase, ChangesAsciiLettersOnly) {
    EXPECT_EQ(UpperCase("hsi27000a9w25"), "HSI27000A9W25");
    EXPECT_EQ(UpperCase("é恒z{"), "é恒Z{");
    EXPECT_EQ(UpperCase(""), "");
}

TEST(FormatText, FillsPlaceholdersInOrder) {
    EXPECT_EQ(FormatText("%s(%s)", {"HSI", "Hang Seng"}), "HSI(Hang Seng)");
    EXPECT_EQ(FormatText("%s-%s", {"2024-03"}), "2024-03-") << "a surplus placeholder is empty";
    EXPECT_EQ(FormatText("%s", {"a", "b"}), "a") << "a surplus argument is left out";
    EXPECT_EQ(FormatText("%s", {"%s%%"}), "%s%%") << "arguments stand as they are";
    EXPECT_EQ(FormatText("100%% %s", {"x"}), "100% x");
    EXPECT_EQ(FormatText("%%s", {"x"}), "%s");
    EXPECT_EQ(FormatText("%d %", {"x"}), "%d %");
    EXPECT_EQ(FormatText("", {"x"}), "");
}

}  // namespace
}  // namespace fw
