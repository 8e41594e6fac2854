// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/ConfigService.h"

#include "framework/base/Numbers.h"
#include "workstation/preferences/PreferenceTable.h"

namespace ws {

// Colours of a skin are its own, two preferences excepted.
fw::Text TConfigService::ReadString(const fw::Text& Section, const fw::Text& Key) {
    if (const TPreference* Preference = FindPreference(Section, Key)) {
        const auto Chosen = Stored(Section, Key);
        return Chosen && IsAllowed(*Preference, *Chosen) ? *Chosen : DefaultOf(*Preference, Section);
    }
    if (FSkins.Color(Section, Key))
        return FormatRgb(*FSkins.Color(Section, Key, ReadString(kWorkstationSection, kPreferencePalette)));
    return Stored(Section, Key).value_or("");
}

int TConfigService::ReadInteger(const fw::Text& Section, const fw::Text& Key) {
    return fw::TextToIntDef(ReadString(Section, Key), 0);
}

fw::Text TConfigService::GetUserSection() { return kUserSectionPrefix + FUser; }

bool TConfigService::GetKeepColumnLayout() { return ReadString(kWorkstationSection, kPreferenceKeepColumns) == "1"; }

std::optional<fw::Text> TConfigService::Stored(const fw::Text& Section, const fw::Text& Key) const {
    return FStore->ReadSetting(Section, Key);
}

void TConfigService::WriteString(const fw::Text& Section, const fw::Text& Key, const fw::Text& Value) {
    Write({{Section, Key, Value}});
}

// What is stored is what is shown, also where the store takes some of the changes only.
void TConfigService::Write(const std::vector<TConfigChange>& Changes) {
    try {
        for (const TConfigChange& Each : Changes) {
            if (Each.Value)
                FStore->WriteSetting(Each.Section, Each.Key, *Each.Value);
            else
                FStore->RemoveSetting(Each.Section, Each.Key);
        }
    } catch (const EStoreError&) {
        Notify();
        throw;
    }
    Notify();
}

void TConfigService::SetUser(fw::Text User) {
    FUser = std::move(User);
    Notify();
}

void TConfigService::Notify() {
    if (OnChanged) OnChanged();
    FEvents.Notify("configuration", this, nullptr);
}

}  // namespace ws
