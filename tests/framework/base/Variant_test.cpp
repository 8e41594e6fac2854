// SPDX-License-Identifier: Apache-2.0
#include "framework/base/Variant.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace fw {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(Variant, KnowsItsKind) {
    EXPECT_TRUE(Variant().IsNull());
    EXPECT_TRUE(Variant(1).IsInteger());
    EXPECT_TRUE(Variant(int64_t{1}).IsInteger());
    EXPECT_TRUE(Variant(1.0).IsFloat());
    EXPECT_TRUE(Variant("1").IsText());
    EXPECT_TRUE(Variant(Text()).IsText());
    EXPECT_FALSE(Variant(Text()).IsNull()) << "an empty text is no missing value";
    EXPECT_FALSE(Variant(0).IsNull());
}

TEST(Variant, ReadsAsText) {
    EXPECT_EQ(Variant().AsText(), "");
    EXPECT_EQ(Variant(-12).AsText(), "-12");
    EXPECT_EQ(Variant(std::numeric_limits<int64_t>::min()).AsText(), "-9223372036854775808");
    EXPECT_EQ(Variant(0.1).AsText(), "0.1");
    EXPECT_EQ(Variant(5.0).AsText(), "5");
    EXPECT_EQ(Variant(" as it stands ").AsText(), " as it stands ");
}

TEST(Variant, ReadsAsFloat) {
    EXPECT_EQ(Variant().AsFloat(7.5), 7.5);
    EXPECT_EQ(Variant(3).AsFloat(7.5), 3.0);
    EXPECT_EQ(Variant(3.25).AsFloat(7.5), 3.25);
    EXPECT_EQ(Variant("3.25").AsFloat(7.5), 3.25);
    for (const char* Words : {"", "words", "nan", "inf", "1e999", " 1"})
        EXPECT_EQ(Variant(Words).AsFloat(7.5), 7.5) << Words;
    EXPECT_TRUE(std::isnan(Variant(kNaN).AsFloat(7.5)));
}

TEST(Variant, ReadsAsInteger) {
    EXPECT_EQ(Variant().AsInteger(7), 7);
    EXPECT_EQ(Variant(int64_t{9007199254740993}).AsInteger(), 9007199254740993);
    EXPECT_EQ(Variant("9007199254740993").AsInteger(), 9007199254740993) << "not by way of a double";
    EXPECT_EQ(Variant(3.99).AsInteger(7), 3);
    EXPECT_EQ(Variant(-3.99).AsInteger(7), -3);
    EXPECT_EQ(Variant("3.99").AsInteger(7), 3);
    EXPECT_EQ(Variant("words").AsInteger(7), 7);
    EXPECT_EQ(Variant(kNaN).AsInteger(7), 7);
    EXPECT_EQ(Variant(9223372036854775808.0).AsInteger(7), 7);
    EXPECT_EQ(Variant(-9223372036854775808.0).AsInteger(7), std::numeric_limits<int64_t>::min());
    EXPECT_EQ(Variant("1e30").AsInteger(7), 7);
}

TEST(Variant, ComparesKindAndValue) {
    EXPECT_EQ(Variant(), Variant());
    EXPECT_EQ(Variant(1), Variant(int64_t{1}));
    EXPECT_EQ(Variant("a"), Variant(Text("a")));
    EXPECT_NE(Variant(1), Variant(1.0));
    EXPECT_NE(Variant(1), Variant("1"));
    EXPECT_NE(Variant(), Variant(""));
    EXPECT_NE(Variant(1.0), Variant(2.0));
}

}  // namespace
}  // namespace fw
