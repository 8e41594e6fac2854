// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/preferences/PreferenceTable.h"

#include <algorithm>
#include <cmath>

#include "framework/base/NumberFormat.h"
#include "framework/base/Numbers.h"
#include "workstation/resources/Skins.h"
#include "workstation/trading/TradingLimits.h"

namespace ws {

namespace {

using enum EPreferencePage;
using enum EPreferenceKind;

std::vector<TPreferenceValue> NumberFormats() {
    std::vector<TPreferenceValue> Result{{"", "Res_PreferenceAsEnvironment"}};
    for (const auto& Name : fw::NumberFormatNames()) Result.push_back({Name, ""});
    return Result;
}

std::vector<TPreferenceValue> Skins() {
    std::vector<TPreferenceValue> Result;
    for (const auto& Name : TSkinTable::Embedded().Skins()) Result.push_back({Name, "Res_Skin" + Name});
    return Result;
}

std::vector<TPreferenceValue> Palettes() {
    std::vector<TPreferenceValue> Result;
    for (const auto& Name : TSkinTable::Embedded().Palettes()) Result.push_back({Name, "Res_Palette" + Name});
    return Result;
}

std::vector<TPreference> Make() {
    std::vector<TPreference> All{
        {.Section = kWorkstationSection,
         .Key = kPreferenceLanguage,
         .CaptionKey = "Res_PreferenceLanguage",
         .Page = General,
         .Kind = Choice,
         .Default = "0",
         .Values = {{"0", "Res_LanguageEnglish"}, {"1", "Res_LanguageTraditional"}, {"2", "Res_LanguageSimplified"}},
         .HintKey = ""},
        {.Section = kWorkstationSection,
         .Key = kPreferenceNumberFormat,
         .CaptionKey = "Res_PreferenceNumberFormat",
         .Page = General,
         .Kind = Choice,
         .Default = "",
         .Values = NumberFormats(),
         .HintKey = "Res_PreferenceNumberFormatHint"},
        {.Section = kWorkstationSection,
         .Key = kPreferenceRestoreDrafts,
         .CaptionKey = "Res_PreferenceRestoreDrafts",
         .Page = General,
         .Kind = Flag,
         .Default = "1",
         .Values = {},
         .HintKey = "Res_PreferenceRestoreDraftsHint"},
        {.Section = kWorkstationSection,
         .Key = kPreferenceKeepColumns,
         .CaptionKey = "Res_PreferenceKeepColumns",
         .Page = General,
         .Kind = Flag,
         .Default = "1",
         .Values = {},
         .HintKey = "Res_PreferenceKeepColumnsHint"},
        {.Section = kWorkstationSection,
         .Key = kPreferenceSkin,
         .CaptionKey = "Res_PreferenceSkin",
         .Page = Appearance,
         .Kind = Choice,
         .Default = TSkinTable::Embedded().Skins().front(),
         .Values = Skins(),
         .HintKey = ""},
        {.Section = kPlatformSection,
         .Key = kPreferenceScale,
         .CaptionKey = "Res_PreferenceScale",
         .Page = Appearance,
         .Kind = Choice,
         .Default = "100",
         .Values = {{"100", "Res_Scale100"},
                    {"115", "Res_Scale115"},
                    {"125", "Res_Scale125"},
                    {"135", "Res_Scale135"},
                    {"150", "Res_Scale150"}},
         .HintKey = ""},
        {.Section = kWorkstationSection,
         .Key = kPreferencePalette,
         .CaptionKey = "Res_PreferencePalette",
         .Page = Appearance,
         .Kind = Choice,
         .Default = TSkinTable::Embedded().Palettes().front(),
         .Values = Palettes(),
         .HintKey = "Res_PreferencePaletteHint"},
        {.Section = "",
         .Key = kPreferenceAlertColor,
         .CaptionKey = "Res_PreferenceAlertColor",
         .Page = Appearance,
         .Kind = Color,
         .Owner = EPreferenceOwner::Skin,
         .Default = "",
         .Values = {},
         .HintKey = "Res_PreferenceAlertColorHint"},
        {.Section = "",
         .Key = kPreferenceInputRowColor,
         .CaptionKey = "Res_PreferenceInputRowColor",
         .Page = Appearance,
         .Kind = Color,
         .Owner = EPreferenceOwner::Skin,
         .Default = "",
         .Values = {},
         .HintKey = "Res_PreferenceInputRowColorHint"},
        {.Section = "",
         .Key = kPreferenceAveragePrice,
         .CaptionKey = "Res_PreferenceAveragePrice",
         .Page = Trading,
         .Kind = Choice,
         .Owner = EPreferenceOwner::User,
         .Default = "0",
         .Values = {{"0", "Res_AveragePrice0"}, {"1", "Res_AveragePrice1"}, {"2", "Res_AveragePrice2"}},
         .HintKey = "Res_PreferenceAveragePriceHint"}};
    for (const TNamedLimit& Limit : NamedLimits())
        All.push_back({.Section = kTradingSection,
                       .Key = Limit.Name,
                       .CaptionKey = "Res_Limit" + std::string(Limit.Name),
                       .Page = Trading,
                       .Kind = Amount,
                       .Default = fw::FloatToShortestText(TTradingLimits().*Limit.Field),
                       .Values = {},
                       .HintKey = ""});
    All.back().HintKey = "Res_PreferenceLimitsHint";
    return All;
}

EPreferenceOwner OwnerOf(std::string_view Section) {
    const auto& Skins = TSkinTable::Embedded().Skins();
    if (std::find(Skins.begin(), Skins.end(), Section) != Skins.end()) return EPreferenceOwner::Skin;
    return Section.starts_with(kUserSectionPrefix) ? EPreferenceOwner::User : EPreferenceOwner::Workstation;
}

}  // namespace

const std::vector<TPreference>& Preferences() {
    static const std::vector<TPreference> All = Make();
    return All;
}

const TPreference* FindPreference(std::string_view Section, std::string_view Key) {
    const EPreferenceOwner Owner = OwnerOf(Section);
    for (const TPreference& Each : Preferences())
        if (Each.Key == Key && Each.Owner == Owner && (Each.Section.empty() || Each.Section == Section)) return &Each;
    return nullptr;
}

std::string SectionOf(const TPreference& Preference, const std::string& UserSection, const std::string& Skin) {
    switch (Preference.Owner) {
        case EPreferenceOwner::User: return UserSection;
        case EPreferenceOwner::Skin: return Skin;
        case EPreferenceOwner::Workstation: break;
    }
    return Preference.Section;
}

bool IsAllowed(const TPreference& Preference, std::string_view Stored) {
    switch (Preference.Kind) {
        case Choice:
            return std::any_of(Preference.Values.begin(), Preference.Values.end(),
                               [&](const auto& Each) { return Each.Text == Stored; });
        case Flag: return Stored == "0" || Stored == "1";
        case Amount: {
            const auto Value = fw::TextToFloat(Stored);
            return Value && std::isfinite(*Value) && *Value >= 0;
        }
        case Color: return ParseRgb(Stored).has_value();
    }
    return false;
}

std::string DefaultOf(const TPreference& Preference, std::string_view Section) {
    if (Preference.Kind != Color) return Preference.Default;
    const auto Own = TSkinTable::Embedded().Color(Section, Preference.Key);
    return Own ? FormatRgb(*Own) : std::string();
}

std::string CaptionOf(const TPreference& Preference, const std::string& Value) {
    if (Preference.Kind == Flag) return Value == "1" ? "Res_PreferenceOn" : "Res_PreferenceOff";
    for (const TPreferenceValue& Each : Preference.Values)
        if (Each.Text == Value && !Each.CaptionKey.empty()) return Each.CaptionKey;
    return Value;
}

}  // namespace ws
