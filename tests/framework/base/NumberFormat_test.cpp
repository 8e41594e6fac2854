// SPDX-License-Identifier: Apache-2.0
#include "framework/base/NumberFormat.h"

#include <gtest/gtest.h>

#include "framework/base/Numbers.h"
#include "tests/support/NumberFormatGuard.h"

namespace fw {
namespace {

using enum ENumberText;

constexpr const char* kNames[] = {"C", "en_US", "de_DE", "fr_FR", "zh_HK"};

// Shows what the range editors show.
Text Grouped(double Value) { return FormatNumber(Value, 8, true); }
// Shows what an amount does.
Text TwoDecimals(double Value) { return FormatNumber(Value, 8, true, 2); }

struct TReadCase {
    const char* Typed;
    ENumberText Kind;
    double Value = 0.0, Other = 0.0;
};

void Check(const TReadCase& Case, const std::function<Text(double)>& Shows) {
    SCOPED_TRACE(Case.Typed);
    const auto Reading = ReadNumberText(Case.Typed, Shows);
    EXPECT_EQ(Reading.Kind, Case.Kind);
    EXPECT_EQ(Reading.Value, Case.Value);
    EXPECT_EQ(Reading.Other, Case.Other);
}

TEST(NumberFormat, WritesTheSeparatorsOfTheFormat) {
    const struct {
        const char* Name;
        const char* Large;
        const char* Small;
        const char* Shortest;
    } Cases[] = {
        {"C", "-1,234,567.50", "0.125", "1.5e-09"},
        {"en_US", "-1,234,567.50", "0.125", "1.5e-09"},
        {"zh_HK", "-1,234,567.50", "0.125", "1.5e-09"},
        {"de_DE", "-1.234.567,50", "0,125", "1,5e-09"},
        {"fr_FR", "-1\u202F234\u202F567,50", "0,125", "1,5e-09"},
    };
    for (const auto& Case : Cases) {
        const TScopedNumberFormat Format(Case.Name);
        EXPECT_EQ(FormatNumber(-1234567.5, 8, true, 2), Case.Large);
        EXPECT_EQ(FormatNumber(0.125, 8), Case.Small);
        EXPECT_EQ(FormatShortest(1.5e-9), Case.Shortest);
        EXPECT_EQ(FloatToText(1234.5, 2, true), "1,234.5") << "keys and files know no format";
    }
}

TEST(NumberFormat, WithoutASeparatorThousandsAreNotGrouped) {
    const TScopedNumberFormat Format(TNumberFormat{",", ""});
    EXPECT_EQ(FormatNumber(1234567.5, 2, true), "1234567,5");
}

// One reading only: the same in every format.
TEST(ReadNumberText, TakesATextThatMakesSenseInOneWay) {
    const TReadCase Cases[] = {
        {"", Empty},
        {" \u00A0 ", Empty},
        {"0", Number, 0},
        {"1234567", Number, 1234567},
        {" -12 ", Number, -12},
        {"+7", Number, 7},
        {"\u22127", Number, -7},
        {"1.5", Number, 1.5},
        {"1,5", Number, 1.5},
        {"12,34", Number, 12.34},
        {"1,2345", Number, 1.2345},
        {"1.2345", Number, 1.2345},
        {".5", Number, 0.5},
        {",125", Number, 0.125},
        {"5,", Number, 5},
        {"1234.567", Number, 1234.567},
        {"1234,567", Number, 1234.567},
        {"0.125", Number, 0.125},
        {"0,500", Number, 0.5},
        {"1,234.5", Number, 1234.5},
        {"1.234,5", Number, 1234.5},
        {"1,234.567", Number, 1234.567},
        {"1.234,567", Number, 1234.567},
        {"1.234.567", Number, 1234567},
        {"-1,234,567", Number, -1234567},
        {"1.234.567,125", Number, 1234567.125},
        {"1 234", Number, 1234},
        {"1\u00A0234,5", Number, 1234.5},
        {"12\u202F345\u202F678.125", Number, 12345678.125},
        {"1 234,567", Number, 1234.567},
        {"1'234", Number, 1234},
        {"1\u2019234\u2019567.5", Number, 1234567.5},
        {"1e3", Number, 1000},
        {"1.5E-2", Number, 0.015},
        {"1,5e2", Number, 150},
    };
    for (const char* Name : kNames) {
        SCOPED_TRACE(Name);
        const TScopedNumberFormat Format(Name);
        for (const auto& Case : Cases) Check(Case, Grouped);
    }
}

TEST(ReadNumberText, RefusesWhatIsNoNumber) {
    const char* const Cases[] = {
        "abc",  "nan",       "inf",      "-infinity", "1e999",   "1e",        "e5",        ".",       ",",
        "-",    "+-1",       "--1",      "- 1",       "0x10",    "1..5",      "1,,000",    "12 34",   "1234 567",
        "1 23", "1.23.4",    "1,234,56", "1.234,5,6", "1,2.3,4", "1,234 567", "1.234 567", "0,123.5", "01,234,567",
        "1'23", "1 234'567", "1,000x",   "$5",        "5%",      "1\t234",    "1e1,000",   "\xE2",
    };
    for (const char* Name : kNames) {
        SCOPED_TRACE(Name);
        const TScopedNumberFormat Format(Name);
        for (const char* Typed : Cases) Check({Typed, NoNumber}, Grouped);
    }
}

TEST(ReadNumberText, NamesBothReadingsOfOneSeparatorWithThreeDigits) {
    const struct {
        const char* Name;
        TReadCase Case;
    } Cases[] = {
        {"C", {"1.234", Ambiguous, 1.234, 1234}},           {"C", {"1,234", Ambiguous, 1234, 1.234}},
        {"en_US", {"1.234", Ambiguous, 1.234, 1234}},       {"en_US", {"-12,345", Ambiguous, -12345, -12.345}},
        {"zh_HK", {"123,456", Ambiguous, 123456, 123.456}}, {"zh_HK", {"1.500", Ambiguous, 1.5, 1500}},
        {"de_DE", {"1.234", Ambiguous, 1234, 1.234}},       {"de_DE", {"1,234", Ambiguous, 1.234, 1234}},
        {"fr_FR", {"1,234", Ambiguous, 1.234, 1234}},       {"fr_FR", {"1.234", Ambiguous, 1.234, 1234}},
        {"en_US", {"1,234e2", Ambiguous, 123400, 123.4}},   {"de_DE", {"1.234e2", Ambiguous, 123400, 123.4}},
    };
    for (const auto& [Name, Case] : Cases) {
        SCOPED_TRACE(Name);
        const TScopedNumberFormat Format(Name);
        Check(Case, [](double) { return Text("something else"); });
        Check(Case, nullptr);
    }
}

TEST(ReadNumberText, TakesTheTextThatTheCellWouldShow) {
    const struct {
        const char* Name;
        TReadCase Case;
    } Cases[] = {
        {"en_US", {"1,234", Number, 1234}},           {"en_US", {" +1,234 ", Number, 1234}},
        {"en_US", {"-1,234", Number, -1234}},         {"en_US", {"1.234", Number, 1.234}},
        {"en_US", {"1.230", Ambiguous, 1.23, 1230}},  {"zh_HK", {"25,000", Number, 25000}},
        {"de_DE", {"25.000", Number, 25000}},         {"de_DE", {"1,234", Number, 1.234}},
        {"de_DE", {"1,200", Ambiguous, 1.2, 1200}},   {"fr_FR", {"1,234", Number, 1.234}},
        {"fr_FR", {"1.234", Ambiguous, 1.234, 1234}}, {"en_US", {"1.234e2", Number, 123.4}},
        {"de_DE", {"1,234e2", Number, 123.4}},
    };
    for (const auto& [Name, Case] : Cases) {
        SCOPED_TRACE(Name);
        const TScopedNumberFormat Format(Name);
        Check(Case, Grouped);
    }
    const TScopedNumberFormat Format("en_US");
    Check({"1,234", Ambiguous, 1234, 1.234}, TwoDecimals);
    Check({"1.234", Number, 1.234}, TwoDecimals);
}

TEST(ReadNumberText, ReadsWhatEveryFormatWrites) {
    for (const char* Name : kNames) {
        SCOPED_TRACE(Name);
        const TScopedNumberFormat Format(Name);
        for (const double Value : {0.0, 1.0, -1.5, 999.0, 1000.0, 1.125, 1234.125, -1234567.0, 1e15, 0.00000001})
            for (const auto& Text : {Grouped(Value), FormatNumber(Value, 8), FormatShortest(Value)}) {
                SCOPED_TRACE(Text);
                Check({Text.c_str(), Number, Value}, [&](double) { return Text; });
            }
    }
}

TEST(FormatUnmistakably, WritesATextWithOneReading) {
    for (const char* Name : kNames) {
        const TScopedNumberFormat Format(Name);
        for (const double Value : {1234.0, 1.234, -12345.0, -12.345, 1.5, 1500.0, 0.125, 1e-9, 1e20})
            Check({FormatUnmistakably(Value).c_str(), Number, Value}, nullptr);
    }
    const TScopedNumberFormat Format("de_DE");
    EXPECT_EQ(FormatUnmistakably(1234.0), "1234");
    EXPECT_EQ(FormatUnmistakably(1.234), "1,2340");
}

TEST(SetNumberFormat, TellsBeforeAndAfterAndOnlyOfAChange) {
    const TScopedNumberFormat Former("C");
    std::vector<Text> Told;
    const auto Changing = NumberFormatChanging().Connect([&] { Told.push_back("before " + FormatNumber(1.5, 1)); });
    const auto Changed = NumberFormatChanged().Connect([&] { Told.push_back("after " + FormatNumber(1.5, 1)); });
    EXPECT_TRUE(SetNumberFormat({",", "."}));
    EXPECT_TRUE(SetNumberFormat({",", "."}));
    EXPECT_EQ(Told, (std::vector<Text>{"before 1.5", "after 1,5"}));
}

TEST(SetNumberFormat, RefusesSeparatorsThatCannotBeReadBack) {
    const TScopedNumberFormat Former("C");
    const TNumberFormat Cases[] = {{"", ","},  {";", ","}, {" ", ","}, {"..", ","}, {"\u066B", ","},
                                   {".", "."}, {",", ","}, {".", "x"}, {".", "--"}, {".", "1"}};
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Decimal + " and " + Case.Group);
        EXPECT_FALSE(SetNumberFormat(Case));
        EXPECT_EQ(NumberFormat(), TNumberFormat());
    }
    for (const auto& Case : {TNumberFormat{".", "'"}, TNumberFormat{",", " "}, TNumberFormat{",", "\u00A0"},
                             TNumberFormat{".", "\u2019"}, TNumberFormat{",", ""}})
        EXPECT_TRUE(SetNumberFormat(Case)) << Case.Group;
}

TEST(FindNumberFormat, KnowsItsNames) {
    EXPECT_EQ(FindNumberFormat("C"), TNumberFormat());
    EXPECT_EQ(FindNumberFormat("de_DE"), (TNumberFormat{",", "."}));
    for (const auto& Name : NumberFormatNames()) EXPECT_TRUE(FindNumberFormat(Name)) << Name;
    for (const char* Name : {"", "de", "DE_de", "xx_YY"}) EXPECT_FALSE(FindNumberFormat(Name)) << Name;
}

}  // namespace
}  // namespace fw
