// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/preferences/PreferenceTable.h"

#include <gtest/gtest.h>

#include <set>

#include "workstation/preferences/StoredPreferences.h"
#include "workstation/resources/Skins.h"
#include "workstation/resources/Texts.h"

namespace ws {
namespace {

const TPreference& At(const char* Section, const char* Key) {
    const TPreference* Found = FindPreference(Section, Key);
    if (!Found) throw std::runtime_error(std::string(Key) + " is no preference");
    return *Found;
}

TEST(PreferenceTable, EveryPreferenceIsFoundWhereItStandsAndItsDefaultIsAllowed) {
    std::set<std::pair<std::string, std::string>> Places;
    for (const TPreference& Each : Preferences()) {
        SCOPED_TRACE(Each.Key);
        const std::string Section = SectionOf(Each, "User.u1", "Dark");
        EXPECT_EQ(FindPreference(Section, Each.Key), &Each);
        EXPECT_TRUE(IsAllowed(Each, DefaultOf(Each, Section))) << DefaultOf(Each, Section);
        EXPECT_TRUE(Places.insert({Section, Each.Key}).second) << "stands twice";
        EXPECT_EQ(Each.Kind == EPreferenceKind::Choice, !Each.Values.empty());
    }
    EXPECT_EQ(FindPreference("Workstation", "User"), nullptr);
    EXPECT_EQ(FindPreference("Light", "coText"), nullptr) << "the skin's own business";
    EXPECT_EQ(FindPreference("User.u1", "Skin"), nullptr);
    EXPECT_EQ(FindPreference("OMS_TRADEPLATFORM", "Skin"), nullptr);
}

TEST(PreferenceTable, EveryTextOfItIsThere) {
    const auto& Texts = TTextTable::Embedded();
    for (const TPreference& Each : Preferences()) {
        EXPECT_TRUE(Texts.Contains(kTagResource, Each.CaptionKey)) << Each.CaptionKey;
        EXPECT_TRUE(Each.HintKey.empty() || Texts.Contains(kTagResource, Each.HintKey)) << Each.HintKey;
        for (const TPreferenceValue& Value : Each.Values)
            EXPECT_TRUE(Value.CaptionKey.empty() || Texts.Contains(kTagResource, Value.CaptionKey)) << Value.CaptionKey;
    }
}

TEST(PreferenceTable, OnlyWhatAPreferenceCanBeIsAllowed) {
    const struct {
        const char* Section;
        const char* Key;
        std::vector<const char*> Allowed, Refused;
    } Cases[] = {{"OMS_TRADEPLATFORM",
                  "ScaleSize",
                  {"100", "115", "125", "135", "150"},
                  {"", "0", "101", "1e2", "-100", " 100"}},
                 {"Workstation", "Skin", {"Light", "Dark", "HighContrast"}, {"", "dark", "Pink"}},
                 {"Workstation", "Palette", {"GreenUp", "RedUp", "BlueOrange"}, {"", "Grey"}},
                 {"Workstation", "Language", {"0", "1", "2"}, {"3", "-1", "en", ""}},
                 {"Workstation", "NumberFormat", {"", "C", "de_DE"}, {"xx_YY", "c"}},
                 {"Workstation", "KeepColumnLayout", {"0", "1"}, {"", "2", "true"}},
                 {"Workstation", "RestoreDrafts", {"0", "1"}, {"yes"}},
                 {"User.trader", "PVAvgPriceMode", {"0", "1", "2"}, {"3", "-1", "x", ""}},
                 {"Dark", "coPayOffAlertSeriesColor", {"#12abEF"}, {"", "red", "#12", "#1234567"}},
                 {"Trading", "SoftQty", {"0", "12.5", "1e3"}, {"", "-1", "nan", "inf", "1,000", "five"}}};
    for (const auto& Case : Cases) {
        for (const char* Text : Case.Allowed) EXPECT_TRUE(IsAllowed(At(Case.Section, Case.Key), Text)) << Text;
        for (const char* Text : Case.Refused) EXPECT_FALSE(IsAllowed(At(Case.Section, Case.Key), Text)) << Text;
    }
}

TEST(PreferenceTable, AColourFallsBackToTheSkinsOwn) {
    for (const std::string& Skin : TSkinTable::Embedded().Skins()) {
        const auto& Alert = At(Skin.c_str(), kPreferenceAlertColor);
        EXPECT_EQ(ParseRgb(DefaultOf(Alert, Skin)), TSkinTable::Embedded().Color(Skin, kPreferenceAlertColor)) << Skin;
    }
}

TEST(StoredPreferences, OneMessageNamesEachThatCannotBe) {
    const TSettings Stored{{{"Dark", "coPayOffInputRowBgColor"}, "blue"},
                           {{"Light", "coPayOffInputRowBgColor"}, "#010203"},
                           {{"OMS_TRADEPLATFORM", "ScaleSize"}, "9000"},
                           {{"Shell", "whatever"}, "9000"},
                           {{"Trading", "SoftQty"}, "many\nlines" + std::string(500, 'x')},
                           {{"User.a", "PVAvgPriceMode"}, "7"},
                           {{"User.b", "PVAvgPriceMode"}, "2"}};
    const auto Notices = CheckStoredPreferences(Stored);
    ASSERT_EQ(Notices.size(), 4u);
    EXPECT_EQ(Notices[0].Args[0], "Res_PreferenceInputRowColor");
    EXPECT_EQ(Notices[0].Args[1], "blue");
    EXPECT_EQ(Notices[1].Args, (std::vector<std::string>{"Res_PreferenceScale", "9000", "Res_Scale100"}));
    EXPECT_LT(Notices[2].Args[1].size(), 60u);
    EXPECT_EQ(Notices[2].Args[1].find('\n'), std::string::npos);
    EXPECT_EQ(Notices[3].Args[0], "Res_PreferenceAveragePrice");
    for (const auto& Notice : Notices) EXPECT_TRUE(Notice.Warning);
    const auto English = TTextTable::Embedded().Sentence(Notices[1].Key, Notices[1].Args, kLanguageEnglish);
    EXPECT_NE(English.find("9000"), std::string::npos);
    EXPECT_EQ(English.find("Res_"), std::string::npos) << English;
    EXPECT_EQ(English.find('&'), std::string::npos) << English;
}

TEST(StoredPreferences, ALongTextIsCutBetweenCharacters) {
    std::string Long;
    for (int i = 0; i < 30; ++i) Long += "期";
    const std::string Shown = ShownStoredText(Long);
    EXPECT_EQ(Shown, Long.substr(0, 39) + "…");
    EXPECT_EQ(ShownStoredText("short"), "short");
    EXPECT_EQ(ShownStoredText(""), "");
}

}  // namespace
}  // namespace ws
