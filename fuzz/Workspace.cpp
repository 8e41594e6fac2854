// SPDX-License-Identifier: GPL-3.0-or-later
// Workspace files: any text reads; what was read writes a text that reads as the same; and so do sections made of the
// input's lines, whose text is told from every cut of it.
#include "fuzz/FuzzTarget.h"
#include "workstation/workspace/WorkspaceEntries.h"

namespace {

void CheckRoundTrip(const ws::TWorkspaceSections& Sections) {
    const ws::TWorkspaceRead Again = ws::ReadWorkspace(ws::WriteWorkspace(Sections));
    fuzz::Require(Again.State == ws::EWorkspaceState::Whole, "a written text is whole");
    fuzz::Require(Again.Sections == Sections, "and reads as the same sections");
}

}  // namespace

int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size) {
    const std::string_view Input = fuzz::AsText(Data, Size);
    const ws::TWorkspaceRead Read = ws::ReadWorkspace(Input);
    CheckRoundTrip(Read.Sections);
    ws::TWorkspaceSections Changed = Read.Sections;
    for (ws::TWorkspaceSection& Section : Changed)
        if (const auto View = ws::ReadView(Section)) {
            ws::WriteView(Section, *View);
            fuzz::Require(ws::ReadView(Section) == View, "an entry is read as it was written");
        }
    ws::WriteWindow(Changed, ws::ReadWindow(Read.Sections));
    fuzz::Require(ws::ReadWindow(Changed) == ws::ReadWindow(Read.Sections), "and so is the window");

    ws::TWorkspaceSections Made{{}};
    for (std::string_view Rest = Input; !Rest.empty();) {
        const std::string_view Line = fuzz::TakeLine(Rest), Next = fuzz::TakeLine(Rest);
        if (Line.starts_with('#'))
            Made.push_back({std::string(Line), {}});
        else
            Made.back().Fields.emplace_back(Line, Next);
    }
    CheckRoundTrip(Made);
    const std::string Text = ws::WriteWorkspace(Made);
    const size_t Cut = Size % (Text.size() - 1);
    fuzz::Require(ws::ReadWorkspace(std::string_view(Text).substr(0, Cut)).State == ws::EWorkspaceState::Damaged,
                  "a cut text is not whole");
    return 0;
}
