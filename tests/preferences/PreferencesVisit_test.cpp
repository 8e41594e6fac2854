// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/PreferencesVisit.h"

#include <algorithm>

#include "tests/services/ServiceFixture.h"

namespace ws {
namespace {

class PreferencesVisitTest : public TServiceFixture {
protected:
    const TPreference& At(const char* Section, const char* Key) { return *FindPreference(Section, Key); }
    const TPreference& Scale = At(kPlatformSection, kPreferenceScale);
    const TPreference& Skin = At(kWorkstationSection, kPreferenceSkin);
    const TPreference& Alert = At("Light", kPreferenceAlertColor);
    const TPreference& Average = At("User.x", kPreferenceAveragePrice);
};

TEST_F(PreferencesVisitTest, AChoiceHoldsAtOnceAndIsRemembered) {
    Open();
    int Told = 0;
    fw::TObject Owner;
    Station->Config().AddConfigUpdateEvent([&](fw::TObject*, fw::TObject*) { ++Told; }, &Owner);
    TPreferencesVisit Visit(Station->Config());
    EXPECT_EQ(Visit.Value(Scale), "100");
    EXPECT_TRUE(Visit.Choose(Scale, "135"));
    EXPECT_EQ(Told, 1);
    EXPECT_EQ(Station->Config().ReadInteger("OMS_TRADEPLATFORM", "ScaleSize"), 135);
    EXPECT_TRUE(Visit.Choose(Skin, "HighContrast"));
    EXPECT_EQ(Station->LookAndFeel().GetSkinName(), "HighContrast");
    EXPECT_FALSE(Visit.Choose(Scale, "101"));
    EXPECT_EQ(Visit.Value(Scale), "135");
    Station->Config().RemoveConfigUpdateEvent(&Owner);
    Open();
    EXPECT_EQ(Station->Config().ReadInteger("OMS_TRADEPLATFORM", "ScaleSize"), 135);
    EXPECT_EQ(Station->LookAndFeel().GetSkinName(), "HighContrast");
}

TEST_F(PreferencesVisitTest, EachSkinHasItsOwnColoursAndEachUserTheirOwnMode) {
    Open();
    TPreferencesVisit Visit(Station->Config());
    const std::string Light = Visit.Value(Alert);
    EXPECT_TRUE(Visit.Choose(Alert, "#112233"));
    Visit.Choose(Skin, "Dark");
    EXPECT_NE(Visit.Value(Alert), "#112233");
    Visit.Choose(Skin, "Light");
    EXPECT_EQ(Station->LookAndFeel().GetSkinColor(0, kPreferenceAlertColor), fw::MakeColor(0x11, 0x22, 0x33));
    Visit.Reset(Alert);
    EXPECT_EQ(Visit.Value(Alert), Light);

    EXPECT_TRUE(Visit.Choose(Average, "2"));
    const auto& First = Station->User().Code;
    const auto Second = std::find_if(Station->Users().begin(), Station->Users().end(),
                                     [&](const auto& Each) { return Each.Code != First; });
    ASSERT_NE(Second, Station->Users().end());
    const std::string Before = First;
    Station->SetUser(Second->Code);
    EXPECT_EQ(Visit.Value(Average), "0");
    Station->SetUser(Before);
    EXPECT_EQ(Visit.Value(Average), "2");
}

TEST_F(PreferencesVisitTest, UndoPutsBackWhatWasStoredNonsenseIncluded) {
    Open();
    Station->Store().WriteSetting(kPlatformSection, kPreferenceScale, "9000");
    TPreferencesVisit Visit(Station->Config());
    EXPECT_FALSE(Visit.HasChanges());
    EXPECT_EQ(Visit.Value(Scale), "100");
    Visit.Choose(Scale, "115");
    Visit.Choose(Scale, "125");
    Visit.Choose(Skin, "Dark");
    Visit.Choose(Alert, "#112233");
    Visit.Write("Shortcuts", "view.load", "F5");
    EXPECT_TRUE(Visit.HasChanges());
    Visit.Undo();
    EXPECT_FALSE(Visit.HasChanges());
    EXPECT_EQ(Station->Store().ReadSetting(kPlatformSection, kPreferenceScale), "9000");
    EXPECT_EQ(Station->Store().ReadSetting("Shortcuts", "view.load"), std::nullopt);
    EXPECT_EQ(Station->Store().ReadSetting("Dark", kPreferenceAlertColor), std::nullopt);
    EXPECT_EQ(Station->LookAndFeel().GetSkinName(), "Light");
    EXPECT_EQ(Visit.Value(Scale), "100");
}

TEST_F(PreferencesVisitTest, AChoiceTakenBackByHandIsNoChange) {
    Open();
    TPreferencesVisit Visit(Station->Config());
    Visit.Write("Shortcuts", "view.load", "F5");
    Visit.Write("Shortcuts", "view.load", std::nullopt);
    EXPECT_FALSE(Visit.HasChanges());
}

// Seen by the trader: one warning a preference; everything else is as it was, and the stored text stays.
TEST_F(PreferencesVisitTest, NonsenseInTheStoreGivesTheDefaultsAndAMessageEach) {
    Open();
    const std::pair<const char*, std::pair<const char*, const char*>> Stored[] = {
        {"Workstation", {"Skin", "Pink"}},
        {"Workstation", {"Palette", "\x01\x02"}},
        {"Workstation", {"Language", "99"}},
        {"Workstation", {"NumberFormat", "xx"}},
        {"Workstation", {"RestoreDrafts", "oh"}},
        {"Workstation", {"KeepColumnLayout", "2"}},
        {"OMS_TRADEPLATFORM", {"ScaleSize", "-5"}},
        {"Light", {"coPayOffAlertSeriesColor", "red"}},
        {"Trading", {"HardQty", "-3"}}};
    for (const auto& [Section, Option] : Stored) Station->Store().WriteSetting(Section, Option.first, Option.second);
    Station->Store().WriteSetting("Trading", "SoftQty", "7");
    Open();
    int Warnings = 0;
    for (const auto& Notice : Station->Notices()) Warnings += Notice.Key == "Res_PreferenceNonsense";
    EXPECT_EQ(Warnings, static_cast<int>(std::size(Stored)));
    auto& Config = Station->Config();
    EXPECT_EQ(Station->LookAndFeel().GetSkinName(), "Light");
    EXPECT_EQ(Station->LookAndFeel().GetPaletteName(), "GreenUp");
    EXPECT_EQ(Station->Language().GetLanguage(), kLanguageEnglish);
    EXPECT_EQ(Config.ReadInteger("OMS_TRADEPLATFORM", "ScaleSize"), 100);
    EXPECT_TRUE(Config.GetKeepColumnLayout());
    EXPECT_EQ(Config.ReadString("Workstation", "RestoreDrafts"), "1");
    EXPECT_NE(Station->LookAndFeel().GetSkinColor(0, "coPayOffAlertSeriesColor"), fw::kColorRed);
    const TTradingLimits Limits = Station->OrderFacts().Limits();
    EXPECT_EQ(Limits.HardQty, TTradingLimits().HardQty);
    EXPECT_EQ(Limits.SoftQty, 7);
    EXPECT_EQ(std::count(Logged.begin(), Logged.end(), "Res_LogTradingLimit"), 0) << "said once, not at every check";
    for (const auto& [Section, Option] : Stored)
        EXPECT_EQ(Station->Store().ReadSetting(Section, Option.first), Option.second);
}

TEST_F(PreferencesVisitTest, ThePaletteDecidesTheColoursOfProfitAndLossForTheViews) {
    Open();
    TPreferencesVisit Visit(Station->Config());
    auto& Look = Station->LookAndFeel();
    int Announced = 0;
    fw::TObject View;
    Look.AddLookAndFeelChangedEvent([&](fw::TObject*, fw::TObject*) { ++Announced; }, &View);
    const auto Profit = Look.GetSkinColor(0, "coProfit"), Loss = Look.GetSkinColor(0, "coLoss");
    Visit.Choose(At(kWorkstationSection, kPreferencePalette), "RedUp");
    EXPECT_EQ(Announced, 1);
    EXPECT_EQ(Look.GetSkinColor(0, "coProfit"), Loss);
    EXPECT_EQ(Look.GetSkinColor(0, "coLoss"), Profit);
    Visit.Choose(At(kWorkstationSection, kPreferenceKeepColumns), "0");
    EXPECT_EQ(Announced, 1) << "the look is the same";
    Look.RemoveLookAndFeelChangedEvent(&View);
}

}  // namespace
}  // namespace ws
