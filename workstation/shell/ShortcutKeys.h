// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <set>
#include <string>

#include <QKeySequence>

#include "workstation/preferences/ShortcutRules.h"
#include "workstation/services/ConfigService.h"
#include "workstation/shell/Commands.h"

namespace ws {

// The keys of the commands as they are configured and can be. A stored text that cannot be is named in the messages
// once.
class TShortcutKeys {
public:
    explicit TShortcutKeys(TConfigService& Config) : FConfig(Config) {}

    // After a change of the configuration or of the commands.
    void Follow(TCommands& Commands);
    std::optional<std::string> KeysOf(const std::string& Id) const;  // none: before Follow has seen the command
    const std::map<std::string, std::string>& All() const { return FKeys.KeysOf; }

private:
    void TellProblems(const TCommands& Commands);

    TConfigService& FConfig;  // borrowed
    TShortcuts FKeys;
    std::set<std::string> FTold;
};

// The one spelling of some keys, several apart by "; "; "" for a text that is no keys, and for keys that are needed for
// typing and moving about.
std::string NormalKeys(const std::string& Portable);

}  // namespace ws
