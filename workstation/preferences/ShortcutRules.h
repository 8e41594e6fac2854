// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace ws {

inline constexpr char kShortcutSection[] = "Shortcuts";  // key: the command's id

// Keys in portable text ("Ctrl+Shift+S"); several of one command apart by "; ".
struct TShortcutCommand {
    std::string Id;
    std::string Shipped;
};

// Why what is stored for a command does not hold.
struct TShortcutProblem {
    std::string Id;
    std::string Stored;
    std::string Other;  // the command that has these keys; "": they are no keys

    bool operator==(const TShortcutProblem&) const = default;
};

struct TShortcuts {
    std::map<std::string, std::string> KeysOf;  // by id of each command
    std::vector<TShortcutProblem> Problems;
};

// One stored text to the same keys in their one spelling, several apart by "; ". "": no keys, or keys that are for
// typing ("a") or for moving about ("Tab") in every form.
using TNormalKeys = std::function<std::string(const std::string& Keys)>;

// The keys that hold. A stored text that is no keys, or keys of another command, leaves the shipped ones; of two stored
// ones that are the same the earlier command's holds.
TShortcuts ResolveShortcuts(const std::vector<TShortcutCommand>& Commands,
                            const std::function<std::optional<std::string>(const std::string& Id)>& Stored,
                            const TNormalKeys& Normal);

// The command other than Id to which one of the keys belongs; "": none.
std::string OwnerOfKeys(const std::map<std::string, std::string>& KeysOf, const std::string& Id,
                        const std::string& Keys);

}  // namespace ws
