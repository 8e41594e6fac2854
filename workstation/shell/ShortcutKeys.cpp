// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/ShortcutKeys.h"

#include <algorithm>
#include <array>

#include "framework/base/Log.h"
#include "workstation/preferences/StoredPreferences.h"
#include "workstation/renderers/QtText.h"

namespace ws {

namespace {

// Keys with which tables and lines are worked; a command that took one would take it away from them.
constexpr std::array kEditingKeys{"F2", "F4", "Ctrl+D", "Ctrl+A", "Ctrl+X", "Ctrl+Home", "Ctrl+End", "Alt+Down"};

bool IsForACommand(const QKeySequence& Keys) {
    if (Keys.count() != 1 || Keys[0].key() == Qt::Key_unknown || Keys[0].key() == 0) return false;
    const QString Text = Keys.toString(QKeySequence::PortableText);
    if (std::any_of(kEditingKeys.begin(), kEditingKeys.end(),
                    [&](const char* Each) { return Text == QLatin1String(Each); }))
        return false;
    const bool Function = Keys[0].key() >= Qt::Key_F1 && Keys[0].key() <= Qt::Key_F35;
    return Function || Keys[0].keyboardModifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
}

}  // namespace

std::string NormalKeys(const std::string& Portable) {
    if (Portable.empty()) return {};
    const auto Listed = QKeySequence::listFromString(ToQt(Portable), QKeySequence::PortableText);
    if (Listed.isEmpty() || !std::all_of(Listed.begin(), Listed.end(), IsForACommand)) return {};
    return FromQt(QKeySequence::listToString(Listed, QKeySequence::PortableText));
}

std::optional<std::string> TShortcutKeys::KeysOf(const std::string& Id) const {
    const auto Found = FKeys.KeysOf.find(Id);
    return Found == FKeys.KeysOf.end() ? std::nullopt : std::optional(Found->second);
}

void TShortcutKeys::Follow(TCommands& Commands) {
    std::vector<TShortcutCommand> Known;
    for (const auto& Each : Commands.All()) Known.push_back({Each.Id, Each.ShippedKeys});
    auto Before = std::move(FKeys.KeysOf);
    FKeys = ResolveShortcuts(
        Known, [this](const std::string& Id) { return FConfig.Stored(kShortcutSection, Id); }, NormalKeys);
    TellProblems(Commands);
    if (FKeys.KeysOf != Before) Commands.ReloadKeys();
}

void TShortcutKeys::TellProblems(const TCommands& Commands) {
    if (FKeys.Problems.empty()) return;
    std::map<std::string, fw::Text> Captions;
    for (const auto& Each : Commands.All()) Captions[Each.Id] = FromQt(Each.Caption);
    for (const TShortcutProblem& Each : FKeys.Problems) {
        if (!FTold.insert(Each.Id + '\n' + Each.Stored).second) continue;
        const std::string Shown = ShownStoredText(Each.Stored);
        if (Each.Other.empty())
            fw::TLog::Warning("Res_ShortcutNonsense", {Captions[Each.Id], Shown});
        else
            fw::TLog::Warning("Res_ShortcutCollides", {Captions[Each.Id], Shown, Captions[Each.Other]});
    }
}

}  // namespace ws
