// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/workspace/WorkspaceEntries.h"

#include <algorithm>
#include <array>

#include "framework/base/Numbers.h"

namespace ws {

namespace {

constexpr char kPlace[] = "place", kMaximized[] = "maximized", kLocked[] = "locked", kArrangement[] = "arrangement";
constexpr char kId[] = "id", kKey[] = "key", kGroup[] = "group", kLayout[] = "layout", kArea[] = "area",
               kWith[] = "with", kFront[] = "front", kFloating[] = "floating";

std::string YesNo(bool Yes) { return Yes ? "1" : "0"; }

std::string PlaceText(const TRectangle& Place) {
    return std::to_string(Place.X) + ',' + std::to_string(Place.Y) + ',' + std::to_string(Place.Width) + ',' +
           std::to_string(Place.Height);
}

TRectangle PlaceOf(const std::string& Text) {
    std::array<int, 4> Numbers{};
    size_t Begin = 0;
    for (size_t i = 0; i < Numbers.size(); ++i) {
        const size_t End = i + 1 < Numbers.size() ? Text.find(',', Begin) : Text.size();
        if (End == std::string::npos) return {};
        const auto Number = fw::TextToInt(Text.substr(Begin, End - Begin));
        if (!Number) return {};
        Numbers[i] = *Number;
        Begin = End + 1;
    }
    const TRectangle Place{Numbers[0], Numbers[1], Numbers[2], Numbers[3]};
    return Place.IsEmpty() ? TRectangle() : Place;
}

}  // namespace

TWindowEntry ReadWindow(const TWorkspaceSections& Sections) {
    const auto At = std::find_if(Sections.begin(), Sections.end(),
                                 [](const TWorkspaceSection& Each) { return Each.Name == kWindowSection; });
    if (At == Sections.end()) return {};
    return {PlaceOf(At->Get(kPlace)), At->Get(kMaximized) == "1", At->Get(kLocked) == "1", At->Get(kArrangement)};
}

std::optional<TViewEntry> ReadView(const TWorkspaceSection& Section) {
    const auto Id = Section.Name == kViewSection ? fw::TextToInt(Section.Get(kId)) : std::nullopt;
    if (!Id) return std::nullopt;
    return TViewEntry{*Id,
                      Section.Get(kKey),
                      Section.Get(kGroup),
                      Section.Get(kLayout),
                      Section.Get(kArea),
                      Section.Get(kWith),
                      Section.Get(kFront) == "1",
                      Section.Get(kFloating) == "1",
                      PlaceOf(Section.Get(kPlace))};
}

void WriteWindow(TWorkspaceSections& Sections, const TWindowEntry& Entry) {
    auto At = std::find_if(Sections.begin(), Sections.end(),
                           [](const TWorkspaceSection& Each) { return Each.Name == kWindowSection; });
    if (At == Sections.end()) At = Sections.insert(Sections.begin(), TWorkspaceSection{kWindowSection, {}});
    At->Set(kPlace, PlaceText(Entry.Place));
    At->Set(kMaximized, YesNo(Entry.Maximized));
    At->Set(kLocked, YesNo(Entry.Locked));
    At->Set(kArrangement, Entry.Arrangement);
}

void WriteView(TWorkspaceSection& Section, const TViewEntry& Entry) {
    Section.Name = kViewSection;
    Section.Set(kId, std::to_string(Entry.ViewId));
    Section.Set(kKey, Entry.Key);
    Section.Set(kGroup, Entry.Group);
    if (!Entry.Layout.empty()) Section.Set(kLayout, Entry.Layout);
    Section.Set(kArea, Entry.Area);
    Section.Set(kWith, Entry.With);
    Section.Set(kFront, YesNo(Entry.Front));
    Section.Set(kFloating, YesNo(Entry.Floating));
    Section.Set(kPlace, PlaceText(Entry.Place));
}

}  // namespace ws
