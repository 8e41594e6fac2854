// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/ViewCatalog.h"

#include <algorithm>
#include <ostream>

#include "framework/base/ClassRegistry.h"
#include "framework/base/Dispatch.h"

namespace ws {

namespace {

void Insert(std::vector<TMenuNode>& Nodes, fw::TIBaseView& View, int Level, int Levels) {
    const int Id = View.GetMenuID(Level);
    const bool IsEntry = Level + 1 >= Levels;
    auto At =
        std::find_if(Nodes.begin(), Nodes.end(), [&](const TMenuNode& N) { return N.Id == Id && !N.View && !IsEntry; });
    if (At == Nodes.end()) {
        TMenuNode Node{Id,
                       View.GetMenuIndex(Level),
                       View.GetMenuGroupIndex(Level),
                       View.GetMenuCaption(Level),
                       IsEntry ? &View : nullptr,
                       {}};
        const auto After =
            std::find_if(Nodes.begin(), Nodes.end(), [&](const TMenuNode& N) { return N.Index > Node.Index; });
        At = Nodes.insert(After, std::move(Node));
    }
    if (!IsEntry) Insert(At->Children, View, Level + 1, Levels);
}

}  // namespace

void TViewCatalog::Reload() {
    for (const fw::Text& Name : fw::TClassRegistry::ClassNames()) {
        if (std::find(FKnown.begin(), FKnown.end(), Name) != FKnown.end()) continue;
        FKnown.push_back(Name);
        fw::Dispatch(Name, [&] {
            auto Made = fw::TClassRegistry::Create(Name);
            if (!dynamic_cast<fw::TIBaseView*>(Made.get())) return;
            FViews.emplace_back(dynamic_cast<fw::TIBaseView*>(Made.release()));
        });
    }
}

std::vector<TMenuNode> MenuOf(const TViewCatalog& Catalog) {
    std::vector<TMenuNode> Result;
    for (const auto& View : Catalog.Views()) {
        fw::Dispatch("menu", [&] {
            if (!View->GetIsVisible() || View->GetMenuLevel() <= 0) return;
            auto Changed = Result;
            Insert(Changed, *View, 0, View->GetMenuLevel());
            Result = std::move(Changed);
        });
    }
    return Result;
}

void PrintViews(const std::vector<TMenuNode>& Menu, std::ostream& Out, const fw::Text& Path) {
    for (const TMenuNode& Node : Menu) {
        const fw::Text Here = Path.empty() ? Node.Caption : Path + " > " + Node.Caption;
        if (Node.View) Out << Node.View->GetViewID() << '\t' << Node.View->GetName() << '\t' << Here << '\n';
        PrintViews(Node.Children, Out, Here);
    }
}

}  // namespace ws
