// SPDX-License-Identifier: Apache-2.0
#include "framework/base/Numbers.h"

#include <gtest/gtest.h>

#include <limits>
#include <locale>

namespace fw {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kSmallest = std::numeric_limits<double>::denorm_min();

TEST(TextToInt, ReadsSignAndDigitsOnly) {
    struct TCase {
        std::string_view Given;
        std::optional<int32_t> Expected;
    };
    const TCase Cases[] = {
        {"0", 0},
        {"7", 7},
        {"+7", 7},
        {"-7", -7},
        {"007", 7},
        {"-0", 0},
        {"2147483647", 2147483647},
        {"-2147483648", std::numeric_limits<int32_t>::min()},
        {"+2147483647", 2147483647},
        {"2147483648", {}},
        {"-2147483649", {}},
        {"99999999999999999999", {}},
        {"", {}},
        {"+", {}},
        {"-", {}},
        {"+-7", {}},
        {"-+7", {}},
        {"--7", {}},
        {"++7", {}},
        {" 3", {}},
        {"3 ", {}},
        {"3.0", {}},
        {"3.", {}},
        {"0x3", {}},
        {"1e3", {}},
        {"1,000", {}},
        {"three", {}},
        {"３", {}},
    };
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Given);
        EXPECT_EQ(TextToInt(C.Given), C.Expected);
        EXPECT_EQ(TextToIntDef(C.Given, -99), C.Expected.value_or(-99));
    }
}

TEST(TextToFloat, ReadsFiniteDecimalNumbers) {
    struct TCase {
        std::string_view Given;
        std::optional<double> Expected;
    };
    const TCase Cases[] = {
        {"0", 0.0},
        {"1.5", 1.5},
        {"+1.5", 1.5},
        {"-1.5", -1.5},
        {".5", 0.5},
        {"5.", 5.0},
        {"1e3", 1000.0},
        {"1E-2", 0.01},
        {"0.1", 0.1},
        {"00012.50", 12.5},
        {"1.7976931348623157e308", std::numeric_limits<double>::max()},
        {"5e-324", kSmallest},
        {"1e999", {}},
        {"-1e999", {}},
        {"1e-999", {}},
        {"nan", {}},
        {"-nan", {}},
        {"NAN", {}},
        {"nan(1)", {}},
        {"inf", {}},
        {"-inf", {}},
        {"infinity", {}},
        {"", {}},
        {"+", {}},
        {"-", {}},
        {".", {}},
        {"e3", {}},
        {"1e", {}},
        {"+-1", {}},
        {"++1", {}},
        {" 1", {}},
        {"1 ", {}},
        {"1,5", {}},
        {"1,000", {}},
        {"0x1p3", {}},
        {"1.5.2", {}},
        {"1.5x", {}},
        {"words", {}},
    };
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Given);
        EXPECT_EQ(TextToFloat(C.Given), C.Expected);
        EXPECT_EQ(TextToFloatDef(C.Given, -99.5), C.Expected.value_or(-99.5));
    }
}

TEST(FloatToText, WritesTheExactValueRoundedHalfAwayFromZero) {
    struct TCase {
        const char* Why;
        double Value;
        int Decimals;
        const char* Expected;
    };
    const TCase Cases[] = {
        {"a whole number has no point", 20000.0, 8, "20000"},
        {"trailing zeros go", 1.5, 8, "1.5"},
        {"zeros of the whole part stay", 100.0, 0, "100"},
        {"zero", 0.0, 8, "0"},
        {"minus zero", -0.0, 8, "0"},
        {"rounds to zero from above", 0.000000001, 8, "0"},
        {"rounds to zero from below", -0.000000001, 8, "0"},
        {"smallest number", kSmallest, 8, "0"},
        {"smallest negative number", -kSmallest, 8, "0"},
        {"half of the last place in decimal, above it in binary", 0.000000005, 8, "0.00000001"},
        {"a decimal tie that lies below in binary", 1.005, 2, "1"},
        {"another of them", 1.115, 2, "1.11"},
        {"a tie goes up", 0.001953125, 8, "0.00195313"},
        {"a tie goes down when negative", -0.001953125, 8, "-0.00195313"},
        {"a tie behind an odd place", 0.005859375, 8, "0.00585938"},
        {"a tie behind a large whole part", 123456.001953125, 8, "123456.00195313"},
        {"half", 0.5, 0, "1"},
        {"minus half", -0.5, 0, "-1"},
        {"one and a half", 1.5, 0, "2"},
        {"two and a half", 2.5, 0, "3"},
        {"a tie that carries through", 9.5, 0, "10"},
        {"a tie that carries over the point", 99.96875, 4, "99.9688"},
        {"a carry over the point", 0.999999999, 8, "1"},
        {"a carry into a new digit", 999.9999999999, 8, "1000"},
        {"the eighth decimal stays", 0.12345678, 8, "0.12345678"},
        {"the ninth goes", 0.123456789, 8, "0.12345679"},
        {"more decimals show the binary value", 0.1, 20, "0.10000000000000000555"},
        {"twenty digits, no exponent", 1e20, 8, "100000000000000000000"},
        {"the value of the double, not of its shortest text", 1e23, 8, "99999999999999991611392"},
        {"the last whole step with halves", 4503599627370495.5, 0, "4503599627370496"},
        {"decimals below none count as none", 2.5, -3, "3"},
        {"not a number", kNaN, 8, "nan"},
        {"infinity", kInfinity, 8, "inf"},
        {"minus infinity", -kInfinity, 8, "-inf"},
    };
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Why);
        EXPECT_EQ(FloatToText(C.Value, C.Decimals), C.Expected);
        if (C.Decimals == 8) {
            EXPECT_EQ(PriceKey(C.Value), C.Expected);
        }
    }
}

TEST(FloatToText, WritesTheLargestNumberInFull) {
    const Text Digits = PriceKey(std::numeric_limits<double>::max());
    EXPECT_EQ(Digits.size(), 309u);
    EXPECT_EQ(Digits.substr(0, 20), "17976931348623157081");
    EXPECT_EQ(Digits.substr(309 - 20), "50404026184124858368");
    EXPECT_EQ(PriceKey(1e308).substr(0, 18), "100000000000000001");
}

TEST(FloatToText, WritesTheSmallestNumberInFull) {
    const Text Digits = FloatToText(kSmallest, 5000);
    EXPECT_EQ(Digits.size(), 2u + 1074u);
    EXPECT_EQ(Digits.substr(0, 2 + 323), "0." + Text(323, '0'));
    EXPECT_EQ(Digits.substr(2 + 323, 6), "494065");
    EXPECT_EQ(Digits.back(), '5');
    EXPECT_EQ(FloatToText(kSmallest, 1073), "0." + Text(323, '0') + Digits.substr(2 + 323, 749) + "3")
        << "a tie at the last place";
}

TEST(FloatToText, KeepsTheDecimalsAskedFor) {
    EXPECT_EQ(FloatToText(1.0, 4, false, 2), "1.00");
    EXPECT_EQ(FloatToText(1.2345, 4, false, 2), "1.2345");
    EXPECT_EQ(FloatToText(1.23, 4, false, 3), "1.230");
    EXPECT_EQ(FloatToText(-0.0001, 2, false, 2), "0.00") << "no sign on zero";
    EXPECT_EQ(FloatToText(1.25, 1, false, 5), "1.3") << "never more than the most";
    EXPECT_EQ(FloatToText(1.0, 0, false, 0), "1");
    EXPECT_EQ(FloatToText(1.0, 2, false, -1), "1");
}

TEST(FloatToText, GroupsThousands) {
    const std::pair<double, const char*> Cases[] = {
        {0.0, "0"},
        {999.0, "999"},
        {1000.0, "1,000"},
        {-999.0, "-999"},
        {-1000.0, "-1,000"},
        {123456.0, "123,456"},
        {1234567.25, "1,234,567.25"},
        {-1234567.12345678, "-1,234,567.12345678"},
        {999.999999999, "1,000"},
        {0.12345678, "0.12345678"},
        {1e15, "1,000,000,000,000,000"},
    };
    for (const auto& [Value, Expected] : Cases) EXPECT_EQ(FloatToText(Value, 8, true), Expected);
    EXPECT_EQ(FloatToText(1234.5, 2, true, 2), "1,234.50");
    EXPECT_EQ(FloatToText(kNaN, 8, true), "nan");
}

TEST(GroupedTextToFloat, ReadsGroupsOfThree) {
    struct TCase {
        std::string_view Given;
        std::optional<double> Expected;
    };
    const TCase Cases[] = {
        {"1,234,567.25", 1234567.25},
        {"1234567.25", 1234567.25},
        {"-1,000", -1000.0},
        {"+1,000", 1000.0},
        {"  12  ", 12.0},
        {"999", 999.0},
        {"0.5", 0.5},
        {".5", 0.5},
        {"12,345", 12345.0},
        {"000,001", 1.0},
        {"1,000e2", 100000.0},
        {"1,23", {}},
        {"1,2345", {}},
        {"1234,567", {}},
        {",123", {}},
        {"1,", {}},
        {"1,000,", {}},
        {"1,,000", {}},
        {",", {}},
        {"1,000,00", {}},
        {"1.000,5", {}},
        {"1,000.5,5", {}},
        {"1.234,567", {}},
        {"1e1,000", {}},
        {"1,000e1,000", {}},
        {"", {}},
        {"  ", {}},
        {"1 000", {}},
        {"- 1", {}},
        {"nan", {}},
        {"inf", {}},
        {"1e999", {}},
        {"1,000x", {}},
        {"words", {}},
        {"-,123", {}},
        {"--1,000", {}},
        {"+-1,000", {}},
    };
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Given);
        EXPECT_EQ(GroupedTextToFloat(C.Given), C.Expected);
    }
}

TEST(FloatToShortestText, AvoidsTheExponentInTheUsualRange) {
    const std::pair<double, const char*> Cases[] = {
        {0.0, "0"},
        {-0.0, "0"},
        {0.1, "0.1"},
        {-12.5, "-12.5"},
        {100.0, "100"},
        {1e16, "10000000000000000"},
        {99999999999999984.0, "99999999999999984"},
        {1e17, "1e+17"},
        {0.000001, "0.000001"},
        {9.99e-7, "9.99e-07"},
        {5e-324, "5e-324"},
        {1.0 / 3.0, "0.3333333333333333"},
        {kNaN, "nan"},
        {kInfinity, "inf"},
        {-kInfinity, "-inf"},
    };
    for (const auto& [Value, Expected] : Cases) EXPECT_EQ(FloatToShortestText(Value), Expected);
}

// A point where the C locale has a comma, and the other way round.
class TContinental : public std::numpunct<char> {
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\003"; }
};

TEST(Numbers, CareForNoLocale) {
    const std::locale Former = std::locale::global(std::locale(std::locale(), new TContinental));
    EXPECT_EQ(PriceKey(1234.5), "1234.5");
    EXPECT_EQ(FloatToText(1234.5, 8, true), "1,234.5");
    EXPECT_EQ(FloatToShortestText(1234.5), "1234.5");
    EXPECT_EQ(TextToFloat("1234.5"), 1234.5);
    EXPECT_EQ(TextToFloat("1234,5"), std::nullopt);
    std::locale::global(Former);
}

}  // namespace
}  // namespace fw
