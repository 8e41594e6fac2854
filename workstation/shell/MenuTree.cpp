// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/MenuTree.h"

#include <algorithm>

#include "framework/base/Dispatch.h"

namespace ws {

namespace {

TMenuEntry& EntryFor(std::vector<TMenuEntry>& Entries, fw::TIBaseView& View, int Level) {
    const int Id = View.GetMenuID(Level);
    const bool Last = Level == View.GetMenuLevel() - 1;
    const auto It = std::find_if(Entries.begin(), Entries.end(), [&](const TMenuEntry& E) { return E.Id == Id && !E.View; });
    if (!Last && It != Entries.end()) return *It;
    Entries.push_back({Id, View.GetMenuIndex(Level), View.GetMenuGroupIndex(Level), View.GetMenuCaption(Level), Last ? &View : nullptr, {}});
    return Entries.back();
}

void Sort(std::vector<TMenuEntry>& Entries) {
    std::stable_sort(Entries.begin(), Entries.end(), [](const TMenuEntry& A, const TMenuEntry& B) {
        return A.Group != B.Group ? A.Group < B.Group : A.Index < B.Index;
    });
    for (auto& Entry : Entries) Sort(Entry.Entries);
}

}  // namespace

std::vector<TMenuEntry> BuildMenuTree(const std::vector<std::unique_ptr<fw::TIBaseView>>& Views) {
    std::vector<TMenuEntry> Tree;
    for (const auto& View : Views)
        fw::Dispatch("menu", [&] {
            if (!View->GetIsVisible()) return;
            auto* Entries = &Tree;
            for (int Level = 0; Level < View->GetMenuLevel(); ++Level) Entries = &EntryFor(*Entries, *View, Level).Entries;
        });
    Sort(Tree);
    return Tree;
}

}  // namespace ws
