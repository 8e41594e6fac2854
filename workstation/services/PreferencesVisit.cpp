// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/PreferencesVisit.h"

#include <algorithm>

namespace ws {

std::string TPreferencesVisit::Section(const TPreference& Preference) const {
    return SectionOf(Preference, FConfig.GetUserSection(), FConfig.ReadString(kWorkstationSection, kPreferenceSkin));
}

std::string TPreferencesVisit::Value(const TPreference& Preference) const {
    return FConfig.ReadString(Section(Preference), Preference.Key);
}

std::string TPreferencesVisit::Shipped(const TPreference& Preference) const {
    return DefaultOf(Preference, Section(Preference));
}

bool TPreferencesVisit::Choose(const TPreference& Preference, const std::string& Value) {
    if (!IsAllowed(Preference, Value)) return false;
    Write(Section(Preference), Preference.Key, Value);
    return true;
}

void TPreferencesVisit::Reset(const TPreference& Preference) {
    Write(Section(Preference), Preference.Key, std::nullopt);
}

void TPreferencesVisit::Write(const std::string& Section, const std::string& Key,
                              const std::optional<std::string>& Value) {
    const auto Stored = FConfig.Stored(Section, Key);
    if (Stored == Value) return;
    FBefore.try_emplace({Section, Key}, Stored);
    FConfig.Write({{Section, Key, Value}});
}

bool TPreferencesVisit::HasChanges() const {
    return std::any_of(FBefore.begin(), FBefore.end(), [this](const auto& Each) {
        return FConfig.Stored(Each.first.first, Each.first.second) != Each.second;
    });
}

void TPreferencesVisit::Undo() {
    std::vector<TConfigChange> Changes;
    for (const auto& [Place, Before] : FBefore) Changes.push_back({Place.first, Place.second, Before});
    if (!Changes.empty()) FConfig.Write(Changes);
    FBefore.clear();
}

}  // namespace ws
