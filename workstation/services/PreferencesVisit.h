// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "workstation/preferences/PreferenceTable.h"
#include "workstation/services/ConfigService.h"

namespace ws {

// One visit to the preferences: every choice is stored and holds at once, and all of them can be undone together. The
// preferences of a user and of a skin are those of whoever is logged in and of the skin that is shown at the moment.
// What cannot be written raises EStoreError, and nothing has changed then.
class TPreferencesVisit {
public:
    explicit TPreferencesVisit(TConfigService& Config) : FConfig(Config) {}

    std::string Value(const TPreference& Preference) const;
    std::string Shipped(const TPreference& Preference) const;
    // False, and nothing changes, for what the preference cannot be.
    bool Choose(const TPreference& Preference, const std::string& Value);
    void Reset(const TPreference& Preference);

    // Any other option, a command's keys for one; none: what is stored is removed.
    void Write(const std::string& Section, const std::string& Key, const std::optional<std::string>& Value);

    bool HasChanges() const;
    // Everything that this visit wrote is as it was stored before, nonsense included.
    void Undo();

private:
    std::string Section(const TPreference& Preference) const;

    TConfigService& FConfig;  // borrowed
    std::map<std::pair<std::string, std::string>, std::optional<std::string>> FBefore;
};

}  // namespace ws
