// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ws {

// The text of a workspace file, line by line:
//
//   ventiq-workspace=1          what the file is, and its format
//   [view]                      a section; many may have one name
//   key=620-1                   a field of it
//   end=5f3c0d6e1b2a4978        the last line: a checksum of all lines above
//
// In a value a backslash is \\, a line break \n or \r, a zero byte \0; in the name of a section or field also \e is =
// and \b is [. Names depend on no language, version or title. Sections and fields that this version does not know
// keep their place and are written back. Lines may end in CR LF.
struct TWorkspaceSection {
    std::string Name;
    std::vector<std::pair<std::string, std::string>> Fields;  // in the order of the file

    std::string Get(std::string_view Key) const;        // of the first of that name; "" without any
    void Set(std::string_view Key, std::string Value);  // at its place, else behind the others
    bool operator==(const TWorkspaceSection&) const = default;
};
using TWorkspaceSections = std::vector<TWorkspaceSection>;

inline constexpr int kWorkspaceFormat = 1;

enum class EWorkspaceState {
    Whole,
    Newer,    // of a later format; Sections hold what could be read of it
    Damaged,  // cut, changed, or no workspace at all; without sections
};

struct TWorkspaceRead {
    EWorkspaceState State = EWorkspaceState::Damaged;
    TWorkspaceSections Sections;
};

// Every text reads, no matter what stands in it; what was written reads as the same sections.
std::string WriteWorkspace(const TWorkspaceSections& Sections);
TWorkspaceRead ReadWorkspace(std::string_view Text);

}  // namespace ws
