// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "workstation/workspace/ScreenPlaces.h"
#include "workstation/workspace/WorkspaceText.h"

namespace ws {

// The sections that this version knows. Writing an entry leaves the other fields of its section alone.

inline constexpr char kWindowSection[] = "window";
inline constexpr char kViewSection[] = "view";

struct TWindowEntry {
    TRectangle Place;  // on the desktop, when not maximized; empty: not known
    bool Maximized = false;
    bool Locked = false;
    std::string Arrangement;  // the toolkit's own account of the docks, base64; "" or unreadable: the entries decide
    bool operator==(const TWindowEntry&) const = default;
};

// One open view. The last four say where it lies when the toolkit's account cannot be used.
struct TViewEntry {
    int ViewId = 0;      // of the descriptor
    std::string Key;     // of the instance, "620-1"
    std::string Group;   // link group
    std::string Layout;  // the view's layout data; as it gave them
    std::string Area;    // "left", "right", "top", "bottom"
    std::string With;    // key of the first of the views that lie on one another as tabs; "" without others
    bool Front = false;  // the one that is seen of them
    bool Floating = false;
    TRectangle Place;  // on the desktop when floating; else only its size counts
    bool operator==(const TViewEntry&) const = default;
};

// What is missing or no number is as in a new entry; a view without an id is none.
TWindowEntry ReadWindow(const TWorkspaceSections& Sections);
std::optional<TViewEntry> ReadView(const TWorkspaceSection& Section);

void WriteWindow(TWorkspaceSections& Sections, const TWindowEntry& Entry);  // in front when there was none
// An empty layout text leaves the stored one: a view whose market lists have not come has nothing to say yet.
void WriteView(TWorkspaceSection& Section, const TViewEntry& Entry);

}  // namespace ws
