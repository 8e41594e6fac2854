// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ws {

enum class EPreferencePage { General, Appearance, Trading };

enum class EPreferenceKind {
    Choice,  // one of the preference's values
    Flag,    // "1" or "0"
    Amount,  // a finite number from 0 up, in C form
    Color,   // "#RRGGBB"
};

// Who has a choice of their own.
enum class EPreferenceOwner {
    Workstation,
    User,  // section "User.<code>"
    Skin,  // the section is the skin's name
};

struct TPreferenceValue {
    std::string Text;        // as it is stored
    std::string CaptionKey;  // "": the text itself is shown
};

// One thing that a user may choose: where it is stored, what it may be, and what holds where nothing is stored, or
// nothing that it may be.
struct TPreference {
    std::string Section;  // of a preference of the workstation; "" for the others
    std::string Key;
    std::string CaptionKey;
    EPreferencePage Page;
    EPreferenceKind Kind;
    EPreferenceOwner Owner = EPreferenceOwner::Workstation;
    std::string Default;                   // of a colour "": the skin's own
    std::vector<TPreferenceValue> Values;  // of a choice
    std::string HintKey;                   // one more sentence; "": none
};

inline constexpr char kWorkstationSection[] = "Workstation";
inline constexpr char kPlatformSection[] = "OMS_TRADEPLATFORM";
inline constexpr char kUserSectionPrefix[] = "User.";

inline constexpr char kPreferenceLanguage[] = "Language";  // its index
inline constexpr char kPreferenceNumberFormat[] = "NumberFormat";
inline constexpr char kPreferenceSkin[] = "Skin";
inline constexpr char kPreferencePalette[] = "Palette";  // of profit and loss
inline constexpr char kPreferenceScale[] = "ScaleSize";  // per cent; section kPlatformSection
inline constexpr char kPreferenceKeepColumns[] = "KeepColumnLayout";
inline constexpr char kPreferenceRestoreDrafts[] = "RestoreDrafts";
inline constexpr char kPreferenceAveragePrice[] = "PVAvgPriceMode";  // of the user
inline constexpr char kPreferenceAlertColor[] = "coPayOffAlertSeriesColor";
inline constexpr char kPreferenceInputRowColor[] = "coPayOffInputRowBgColor";

// All of them, page by page, in the order in which they are shown.
const std::vector<TPreference>& Preferences();

// The preference that stands at a section and key; null when none does.
const TPreference* FindPreference(std::string_view Section, std::string_view Key);

// The section in which a preference stands, given those of the user and of the skin.
std::string SectionOf(const TPreference& Preference, const std::string& UserSection, const std::string& Skin);

bool IsAllowed(const TPreference& Preference, std::string_view Stored);

// What holds at that section where nothing allowed is stored.
std::string DefaultOf(const TPreference& Preference, std::string_view Section);

// The value as it is shown: a resource key, or the text itself.
std::string CaptionOf(const TPreference& Preference, const std::string& Value);

}  // namespace ws
