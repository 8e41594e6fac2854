// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/preferences/ShortcutRules.h"

#include <algorithm>

namespace ws {

namespace {

std::vector<std::string> Split(const std::string& Keys) {
    std::vector<std::string> Result;
    for (size_t From = 0; From < Keys.size();) {
        const size_t To = std::min(Keys.find("; ", From), Keys.size());
        Result.push_back(Keys.substr(From, To - From));
        From = To + 2;
    }
    return Result;
}

bool ShareKeys(const std::string& A, const std::string& B) {
    const auto Others = Split(B);
    const auto Own = Split(A);
    return std::any_of(Own.begin(), Own.end(), [&](const std::string& Each) {
        return std::find(Others.begin(), Others.end(), Each) != Others.end();
    });
}

}  // namespace

std::string OwnerOfKeys(const std::map<std::string, std::string>& KeysOf, const std::string& Id,
                        const std::string& Keys) {
    for (const auto& [Other, Theirs] : KeysOf)
        if (Other != Id && ShareKeys(Keys, Theirs)) return Other;
    return {};
}

// Going back to the shipped keys may collide with another command's stored ones, so those are looked at again; every
// round gives up one stored text, and shipped keys never collide.
TShortcuts ResolveShortcuts(const std::vector<TShortcutCommand>& Commands,
                            const std::function<std::optional<std::string>(const std::string& Id)>& Stored,
                            const TNormalKeys& Normal) {
    TShortcuts Result;
    std::map<std::string, std::string> Given;  // what the user has chosen and can be
    for (const TShortcutCommand& Each : Commands) {
        Result.KeysOf[Each.Id] = Normal(Each.Shipped);
        const auto Text = Stored(Each.Id);
        if (!Text) continue;
        if (const std::string Keys = Normal(*Text); !Keys.empty())
            Result.KeysOf[Each.Id] = Given[Each.Id] = Keys;
        else
            Result.Problems.push_back({Each.Id, *Text, ""});
    }
    for (bool Again = true; Again;) {
        Again = false;
        for (auto Each = Commands.rbegin(); Each != Commands.rend() && !Again; ++Each) {
            if (!Given.count(Each->Id)) continue;
            const std::string Other = OwnerOfKeys(Result.KeysOf, Each->Id, Given[Each->Id]);
            if (Other.empty()) continue;
            Result.Problems.push_back({Each->Id, *Stored(Each->Id), Other});
            Result.KeysOf[Each->Id] = Normal(Each->Shipped);
            Given.erase(Each->Id);
            Again = true;
        }
    }
    return Result;
}

}  // namespace ws
