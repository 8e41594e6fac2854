// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <vector>

#include "workstation/shell/ViewRegistry.h"

namespace ws {

// One entry of the menus that views ask for. An entry with View opens it, one without is a submenu.
struct TMenuEntry {
    int Id = 0;
    int Index = 0;       // order within its menu
    int Group = 0;       // a line is drawn between groups
    fw::Text Caption;
    fw::TIBaseView* View = nullptr;  // borrowed
    std::vector<TMenuEntry> Entries;
};

// The menus of all visible views: levels with the same id are one menu; entries are ordered by group, then index, then
// registration. A view whose menu questions fail, or whose levels are none, has no entry.
std::vector<TMenuEntry> BuildMenuTree(const std::vector<std::unique_ptr<fw::TIBaseView>>& Views);

}  // namespace ws
