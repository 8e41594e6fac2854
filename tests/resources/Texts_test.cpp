// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/resources/Texts.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <stdexcept>

#include "tests/resources/PayoffViewKeys.h"

namespace ws {
namespace {

const char* const kHead = "tag,key,en,zh-Hant,zh-Hans\n";

std::string Embedded(const char* Key, int Language) {
    return TTextTable::Embedded().Lookup(kTagResource, Key, Language);
}

TEST(Texts, LookupGoesByTagKeyAndLanguage) {
    const TTextTable Table =
        TTextTable::Parse(std::string(kHead) + "Resource,K,one,two,three\nExchange,K,four,five,six\n", "t.csv");
    EXPECT_EQ(Table.Lookup("Resource", "K", kLanguageEnglish), "one");
    EXPECT_EQ(Table.Lookup("Resource", "K", kLanguageTraditional), "two");
    EXPECT_EQ(Table.Lookup("Resource", "K", kLanguageSimplified), "three");
    EXPECT_EQ(Table.Lookup("Exchange", "K", kLanguageSimplified), "six");
}

TEST(Texts, AnUnknownKeyIsItsOwnTextAndAnUnknownLanguageIsEnglish) {
    const TTextTable Table = TTextTable::Parse(std::string(kHead) + "Resource,K,one,two,three\n", "t.csv");
    EXPECT_EQ(Table.Lookup("Resource", "L", 0), "L");
    EXPECT_EQ(Table.Lookup("Currency", "K", 0), "K");
    EXPECT_EQ(Table.Lookup("Resource", "K", 7), "one");
    EXPECT_EQ(Table.Lookup("Resource", "K", -1), "one");
    EXPECT_TRUE(Table.Contains("Resource", "K"));
    EXPECT_FALSE(Table.Contains("Currency", "K"));
}

TEST(Texts, PutOverwritesAndKeysAreListedPerTag) {
    TTextTable Table =
        TTextTable::Parse(std::string(kHead) + "Exchange,B,b,b,b\nExchange,A,a,a,a\nResource,R,r,r,r\n", "t.csv");
    Table.Put("Exchange", "B", {"new", "neu", "nov"});
    Table.Put("Exchange", "C", {"c", "c", "c"});
    EXPECT_EQ(Table.Lookup("Exchange", "B", 1), "neu");
    EXPECT_EQ(Table.Keys("Exchange"), (std::vector<std::string>{"A", "B", "C"}));
    EXPECT_EQ(Table.Keys("Nothing"), std::vector<std::string>{});
}

TEST(Texts, AMistakeInTheTableNamesItsLine) {
    const struct {
        const char* Why;
        std::string Csv;
        const char* Line;
    } Cases[] = {{"another header", "tag,key,en\n", "line 1"},
                 {"a field short", std::string(kHead) + "Resource,K,one,two\n", "line 2"},
                 {"no key", std::string(kHead) + "Resource,,one,two,three\n", "line 2"},
                 {"a key twice", std::string(kHead) + "Resource,K,1,2,3\nResource,K,1,2,3\n", "line 3"}};
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        try {
            TTextTable::Parse(Case.Csv, "t.csv");
            ADD_FAILURE() << "was read";
        } catch (const std::runtime_error& Error) {
            EXPECT_NE(std::string(Error.what()).find(Case.Line), std::string::npos) << Error.what();
        }
    }
    EXPECT_THROW(TTextTable::Parse("", "t.csv"), std::runtime_error);
}

TEST(Texts, LoadReadsAFileAndNamesAMissingOne) {
    const auto File = std::filesystem::path(testing::TempDir()) / "ventiq_texts_test.csv";
    std::ofstream(File) << kHead << "Resource,K,one,\"two, too\",three\n";
    EXPECT_EQ(TTextTable::Load(File).Lookup("Resource", "K", 1), "two, too");
    std::filesystem::remove(File);
    try {
        TTextTable::Load(File);
        FAIL() << "was read";
    } catch (const std::runtime_error& Error) {
        EXPECT_NE(std::string(Error.what()).find("ventiq_texts_test.csv"), std::string::npos);
    }
}

TEST(Texts, FillPutsArgumentsInOnePass) {
    EXPECT_EQ(Fill("%2 of %1, %2", {"a", "b"}), "b of a, b");
    EXPECT_EQ(Fill("%1 and %2", {"%2", "x"}), "%2 and x");  // a typed "%2" stays as typed
    EXPECT_EQ(Fill("%1, %3, 100%, %", {"a", "b"}), "a, %3, 100%, %");
    EXPECT_EQ(Fill("%0 %1", {"a"}), "%0 a");
    EXPECT_EQ(Fill("%12", {"a"}), "a2");
    EXPECT_EQ(Fill("", {"a"}), "");
}

TEST(Texts, AReasonInsideASentenceIsTranslatedWithIt) {
    const TTextTable Table = TTextTable::Parse(std::string(kHead) +
                                                   "ResourceString,Res_Line,\"%1, line %2: %3\",第 %2 行：%3,-\n"
                                                   "ResourceString,Res_NoNumber,%1 is no number: %2,%1 並非數字：%2,-\n"
                                                   "ResourceString,Res_Why,because: %1,因為：%1,-\n",
                                               "t.csv");
    EXPECT_EQ(Table.Sentence("Res_Line", {"a.csv", "7", "Res_NoNumber", "Price", "x"}, kLanguageEnglish),
              "a.csv, line 7: Price is no number: x");
    EXPECT_EQ(Table.Sentence("Res_Line", {"a.csv", "7", "Res_NoNumber", "Price", "x"}, kLanguageTraditional),
              "第 7 行：Price 並非數字：x");
    EXPECT_EQ(Table.Sentence("Res_Line", {"a.csv", "7", "Res_Why", "Res_Why", "x"}, 0),
              "a.csv, line 7: because: because: x");
    EXPECT_EQ(Table.Sentence("Res_Line", {"%2", "7", "plain"}, 0), "%2, line 7: plain");
    EXPECT_EQ(Table.Sentence("Res_Unknown", {"a"}, 0), "Res_Unknown");
}

TEST(Texts, EveryKeyOfThePayoffViewHasATextInEveryLanguage) {
    for (const char* Key : kPayoffViewKeys) {
        for (int Language = 0; Language < kLanguageCount; ++Language) {
            const std::string Text = Embedded(Key, Language);
            EXPECT_NE(Text, Key) << Language;
            EXPECT_NE(Text.find_first_not_of(' '), std::string::npos) << Key << ' ' << Language;
        }
    }
}

TEST(Texts, EveryTextOfTheTableIsThereInEveryLanguage) {
    const TTextTable& Table = TTextTable::Embedded();
    for (const std::string_view Tag : {kTagResource, kTagMessage, kTagExchange, kTagCurrency}) {
        const auto Keys = Table.Keys(Tag);
        EXPECT_FALSE(Keys.empty()) << Tag;
        for (const std::string& Key : Keys) {
            for (int Language = 0; Language < kLanguageCount; ++Language) {
                EXPECT_NE(Table.Lookup(Tag, Key, Language).find_first_not_of(" \n"), std::string::npos)
                    << Key << ' ' << Language;
            }
        }
    }
    EXPECT_TRUE(Table.Contains(kTagMessage, "DC10013001"));
}

// The grid reads a choice back from its text: two texts of one column may not be the same in any language.
TEST(Texts, ChoicesOfOneColumnAreToldApartInEveryLanguage) {
    const std::vector<std::vector<const char*>> kColumns = {
        {"Res_Side_Buy", "Res_Side_Sell"},
        {"Res_Call", "Res_Put"},
        {"Res_OpenClose_N", "Res_OrderOpen", "Res_OrderClose"},
        {"Res_Principal_N", "Res_Principal_C", "Res_Principal_H", "Res_Principal_RT"}};
    for (const auto& Column : kColumns) {
        for (int Language = 0; Language < kLanguageCount; ++Language) {
            std::set<std::string> Texts;
            for (const char* Key : Column) Texts.insert(Embedded(Key, Language));
            EXPECT_EQ(Texts.size(), Column.size()) << Column.front() << ' ' << Language;
        }
    }
}

TEST(Texts, ARejectedRangeIsToldBothRules) {
    const char* const kWords[kLanguageCount][3] = {
        {"Down", "Up", "Interval"}, {"下限", "上限", "間距"}, {"下限", "上限", "间距"}};
    for (int Language = 0; Language < kLanguageCount; ++Language) {
        const std::string Text = Embedded("Res_CalculateInputInvalid", Language);
        for (const char* Word : kWords[Language]) EXPECT_NE(Text.find(Word), std::string::npos) << Text;
        EXPECT_NE(Text.find('0'), std::string::npos) << Text;
    }
}

}  // namespace
}  // namespace ws
