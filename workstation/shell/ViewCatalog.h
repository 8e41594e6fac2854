// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <iosfwd>
#include <memory>
#include <vector>

#include "framework/view/BaseView.h"

namespace ws {

// The descriptors of every view that packages have registered, in order of registration; one object each. Destroying
// the catalog closes what is still open.
class TViewCatalog {
public:
    // Adds descriptors of classes that were registered since. Classes that are no views, or fail, are passed over; a
    // failure is logged.
    void Reload();
    const std::vector<std::unique_ptr<fw::TIBaseView>>& Views() const { return FViews; }

private:
    std::vector<fw::Text> FKnown;
    std::vector<std::unique_ptr<fw::TIBaseView>> FViews;
};

// A menu or entry that the descriptors ask for. Entries have a view and no children.
struct TMenuNode {
    int Id = 0;
    int Index = 0;
    int Group = 0;
    fw::Text Caption;
    fw::TIBaseView* View = nullptr;
    std::vector<TMenuNode> Children;
};

// The visible views by their menu levels: nodes with one id on one level are one menu; by index, then by order of
// registration. A view that throws is left out, with one line in the log.
std::vector<TMenuNode> MenuOf(const TViewCatalog& Catalog);

// A line for each entry: view id, name, and the captions on the way to it.
void PrintViews(const std::vector<TMenuNode>& Menu, std::ostream& Out, const fw::Text& Path = {});

}  // namespace ws
