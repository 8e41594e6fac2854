// SPDX-License-Identifier: Apache-2.0
#include "framework/base/StringList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "framework/base/Errors.h"
#include "framework/base/Numbers.h"

namespace fw {
namespace {

using testing::ElementsAre;

TStringList FromCommaText(std::string_view S) {
    TStringList List{"former item"};
    List.SetCommaText(S);
    return List;
}

TEST(StringList, ReadsByIndexAndRaisesBeyond) {
    const TStringList List{"a", "b"};
    EXPECT_EQ(List.GetCount(), 2);
    EXPECT_EQ(List.At(0), "a");
    EXPECT_EQ(List.At(1), "b");
    EXPECT_THROW(List.At(2), EListError);
    EXPECT_THROW(List.At(-1), EListError);
    EXPECT_THROW(TStringList().At(0), std::out_of_range);
}

TEST(StringList, FindsExactly) {
    const TStringList List{"HSI", "hsi", "HSI"};
    EXPECT_EQ(List.IndexOf("HSI"), 0);
    EXPECT_EQ(List.IndexOf("hsi"), 1);
    EXPECT_EQ(List.IndexOf("Hsi"), -1);
    EXPECT_TRUE(List.Contains("hsi"));
    EXPECT_FALSE(List.Contains(""));
}

TEST(StringList, InsertsWithinBounds) {
    TStringList List{"b"};
    List.Insert(0, "a");
    List.Insert(2, "c");
    List.Insert(99, "d");
    List.Insert(-5, "0");
    EXPECT_THAT(List.Items(), ElementsAre("0", "a", "b", "c", "d"));
    List.Clear();
    EXPECT_TRUE(List.IsEmpty());
    List.Insert(1, "x");
    EXPECT_THAT(List.Items(), ElementsAre("x"));
}

// ---- sorting

const TCustomComparer ByFirstLetter([](const Text& A, const Text& B) { return A[0] - B[0]; });

TEST(StringListSort, KeepsTheOrderOfEqualItems) {
    TStringList List{"b1", "a1", "b2", "c1", "a2", "b3", "a3"};
    List.Sort(ByFirstLetter);
    EXPECT_THAT(List.Items(), ElementsAre("a1", "a2", "a3", "b1", "b2", "b3", "c1"));
}

TEST(StringListSort, TakesEmptyAndSingleLists) {
    TStringList List;
    List.Sort(ByFirstLetter);
    EXPECT_TRUE(List.IsEmpty());
    List.Add("a");
    List.Sort(ByFirstLetter);
    EXPECT_THAT(List.Items(), ElementsAre("a"));
}

TEST(StringListSort, ErrorOfTheComparerLeavesTheListAsItWas) {
    TStringList List{"c", "b", "a"};
    int Calls = 0;
    const TCustomComparer Raises([&](const Text& A, const Text& B) {
        if (++Calls == 2) throw EConvertError("second");
        return A.compare(B);
    });
    EXPECT_THROW(List.Sort(Raises), EConvertError);
    EXPECT_THAT(List.Items(), ElementsAre("c", "b", "a"));
}

RC_GTEST_PROP(StringListSortProperty, EqualsTheLibrarysStableSort, (std::vector<int> Numbers)) {
    const TCustomComparer ByTens([](const Text& A, const Text& B) { return *TextToInt(A) / 10 - *TextToInt(B) / 10; });
    TStringList List;
    for (const int N : Numbers) List.Add(std::to_string(N % 1000));
    auto Expected = List.Items();
    std::stable_sort(Expected.begin(), Expected.end(),
                     [&](const Text& A, const Text& B) { return ByTens.Compare(A, B) < 0; });
    List.Sort(ByTens);
    RC_ASSERT(List.Items() == Expected);
}

RC_GTEST_PROP(StringListSortProperty, KeepsEveryItemUnderAComparerWithoutOrder,
              (std::vector<uint8_t> Bytes, uint32_t Seed)) {
    uint32_t State = Seed;
    const TCustomComparer Dice([&](const Text&, const Text&) {
        State = State * 1664525u + 1013904223u;
        return static_cast<int32_t>(State >> 16) % 3 - 1;
    });
    TStringList List;
    for (const auto B : Bytes) List.Add(std::to_string(B));
    auto Before = List.Items();
    List.Sort(Dice);
    auto After = List.Items();
    std::sort(Before.begin(), Before.end());
    std::sort(After.begin(), After.end());
    RC_ASSERT(After == Before);
}

// Prices a tolerance apart: 1.00000000 = 1.00000006 = 1.00000012, but 1.00000000 < 1.00000012.
TEST(StringListSort, StaysInBoundsWithPricesThatAreEqualWithinATolerance) {
    const TCustomComparer Tolerant([](const Text& A, const Text& B) {
        const double Difference = *TextToFloat(A) - *TextToFloat(B);
        return std::fabs(Difference) <= 1e-7 ? 0 : Difference < 0 ? -1 : 1;
    });
    TStringList List;
    for (int I = 0; I < 500; ++I) List.Add(PriceKey(1.0 + (I * 7919 % 500) * 6e-8));
    List.Sort(Tolerant);
    EXPECT_EQ(List.GetCount(), 500);
    auto Items = List.Items();
    std::sort(Items.begin(), Items.end());
    EXPECT_EQ(std::unique(Items.begin(), Items.end()), Items.end());
}

// ---- comma text

TEST(CommaText, QuotesWhatNeedsIt) {
    const std::pair<TStringList, const char*> Cases[] = {
        {{}, ""},
        {{""}, "\"\""},
        {{"a"}, "a"},
        {{"a", "b"}, "a,b"},
        {{"", ""}, ","},
        {{"a", "", "b"}, "a,,b"},
        {{"ColList=0,100"}, "\"ColList=0,100\""},
        {{"a b", "c"}, "\"a b\",c"},
        {{"say \"x\""}, "\"say \"\"x\"\"\""},
        {{"two\nlines", "tab\t"}, "\"two\nlines\",\"tab\t\""},
        {{"恒生", "a=b"}, "恒生,a=b"},
    };
    for (const auto& [List, Expected] : Cases) EXPECT_EQ(List.GetCommaText(), Expected);
}

TEST(CommaText, ReadsItems) {
    struct TCase {
        const char* Why;
        std::string_view Given;
        std::vector<Text> Expected;
    };
    const TCase Cases[] = {
        {"nothing", "", {}},
        {"blanks alone", "  \n ", {}},
        {"commas", "a,b,c", {"a", "b", "c"}},
        {"blanks separate too", "a b\tc\nd", {"a", "b", "c", "d"}},
        {"blanks around commas", " a , b ", {"a", "b"}},
        {"empty items between commas", "a,,b", {"a", "", "b"}},
        {"blanks between commas", "a, ,b", {"a", "", "b"}},
        {"an empty item in front", ",a", {"", "a"}},
        {"an empty item at the end", "a,", {"a", ""}},
        {"an empty item at the end behind blanks", "a, ", {"a", ""}},
        {"a lone comma", ",", {"", ""}},
        {"a quoted empty item", "\"\"", {""}},
        {"quoted commas, blanks and line breaks", "\"a, b\nc\",d", {"a, b\nc", "d"}},
        {"doubled quotes", "\"say \"\"x\"\"\"", {"say \"x\""}},
        {"a quote within an item stands for itself", "a\"b,c", {"a\"b", "c"}},
        {"text behind a closing quote is an item of its own", "\"a\"b", {"a", "b"}},
        {"an unbalanced quote runs to the end", "a,\"b,c d", {"a", "b,c d"}},
        {"an unbalanced quote with doubled ones", "\"a\"\"b,c", {"a\"b,c"}},
        {"a quote alone", "\"", {""}},
        {"three quotes", "\"\"\"", {"\""}},
    };
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Why);
        EXPECT_EQ(FromCommaText(C.Given).Items(), C.Expected);
    }
}

RC_GTEST_PROP(CommaTextProperty, ReadingGivesBackWhatWasWritten, ()) {
    const auto Letter =
        rc::gen::oneOf(rc::gen::element<char>(',', '"', ' ', '\n', '\r', '\t', '=', '\0', '\x7F', 'a', 'Z', '7'),
                       rc::gen::arbitrary<char>());
    const auto Items = *rc::gen::container<std::vector<Text>>(rc::gen::container<Text>(Letter));
    TStringList List;
    for (const auto& Item : Items) List.Add(Item);
    RC_ASSERT(FromCommaText(List.GetCommaText()) == List);
}

RC_GTEST_PROP(CommaTextProperty, WhatWasReadStaysAsItIs, ()) {
    const auto Letter = rc::gen::element<char>(',', '"', ' ', '\n', '=', 'a', 'b');
    const TStringList List = FromCommaText(*rc::gen::container<Text>(Letter));
    RC_ASSERT(FromCommaText(List.GetCommaText()) == List);
}

// ---- pairs

TEST(StringListPairs, ReadByNameWithoutRegardToCase) {
    const TStringList List{"Month", "month=2024-03", "MONTH=2024-04", "=nameless", "Empty=", "Eq=a=b"};
    EXPECT_EQ(List.GetValue("Month"), "2024-03") << "an item without '=' is no pair, and the first pair wins";
    EXPECT_EQ(List.IndexOfName("MONTH"), 1);
    EXPECT_EQ(List.GetValue("Eq"), "a=b");
    EXPECT_EQ(List.GetValue("Empty"), "");
    EXPECT_EQ(List.IndexOfName("Empty"), 4);
    EXPECT_EQ(List.GetValue("Missing"), "");
    EXPECT_EQ(List.IndexOfName("Missing"), -1);
    EXPECT_EQ(List.GetValue(""), "nameless");
    EXPECT_EQ(List.IndexOfName("Mont"), -1);
}

TEST(StringListPairs, SettingReplacesTheFirstOfTheName) {
    TStringList List{"a=1", "b=2", "A=3"};
    List.SetValue("A", "x");
    EXPECT_THAT(List.Items(), ElementsAre("A=x", "b=2", "A=3"));
    List.SetValue("c", "y=z");
    List.SetValue("b", "");
    EXPECT_THAT(List.Items(), ElementsAre("A=x", "b=", "A=3", "c=y=z"));
}

TEST(StringListPairs, SurviveCommaText) {
    TStringList List;
    List.SetValue("ColList", "0,100\n1,\"60\"");
    List.SetValue("Exchange", "HKFE");
    EXPECT_EQ(FromCommaText(List.GetCommaText()).GetValue("collist"), "0,100\n1,\"60\"");
}

}  // namespace
}  // namespace fw
