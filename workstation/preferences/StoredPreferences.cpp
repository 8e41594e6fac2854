// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/preferences/StoredPreferences.h"

#include "workstation/preferences/PreferenceTable.h"

namespace ws {

namespace {
constexpr size_t kShownBytes = 40;

bool ContinuesCharacter(char C) { return (static_cast<unsigned char>(C) & 0xC0) == 0x80; }
}  // namespace

std::string ShownStoredText(const std::string& Stored) {
    size_t Length = std::min(Stored.size(), kShownBytes);
    while (Length > 0 && Length < Stored.size() && ContinuesCharacter(Stored[Length])) --Length;
    std::string Result = Stored.substr(0, Length);
    for (char& C : Result)
        if (static_cast<unsigned char>(C) < ' ' || C == 0x7F) C = ' ';
    return Length < Stored.size() ? Result + "…" : Result;
}

std::vector<TStoreNotice> CheckStoredPreferences(const TSettings& Stored) {
    std::vector<TStoreNotice> Notices;
    for (const auto& [Place, Text] : Stored) {
        const auto& [Section, Key] = Place;
        const TPreference* Preference = FindPreference(Section, Key);
        if (!Preference || IsAllowed(*Preference, Text)) continue;
        Notices.push_back(
            {"Res_PreferenceNonsense",
             {Preference->CaptionKey, ShownStoredText(Text), CaptionOf(*Preference, DefaultOf(*Preference, Section))},
             true});
    }
    return Notices;
}

}  // namespace ws
