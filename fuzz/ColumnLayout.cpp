// SPDX-License-Identifier: GPL-3.0-or-later
// Column layouts: whatever text is applied, a grid keeps its columns, each once, with a positive width; the layout that
// it then writes applies to a fresh grid and is written there again.
#include <algorithm>

#include "framework/controls/GridTableView.h"
#include "fuzz/FuzzTarget.h"
#include "workstation/services/EditorService.h"

namespace {

constexpr int kTags[] = {0, 3, 4, 11, 103, 607};

void AddColumns(fw::TGridTableView& View) {
    for (const int Tag : kTags) {
        auto& Column = View.CreateColumn();
        Column.Tag = Tag;
        Column.SetWidth(80);
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size) {
    const fw::Text Layout(fuzz::AsText(Data, Size));
    ws::TEditorService Service([](const fw::Text& Typed) { return Typed; }, [](const auto&) {});
    fw::TGridTableView View, Fresh;
    AddColumns(View);
    AddColumns(Fresh);

    Service.SetGridColumnLayout(&View, Layout, nullptr);
    fuzz::Require(View.GetColumnCount() == static_cast<int>(std::size(kTags)), "no column comes or goes");
    std::vector<int> Tags;
    for (int I = 0; I < View.GetColumnCount(); ++I) {
        Tags.push_back(View.GetColumn(I)->Tag);
        fuzz::Require(View.GetColumn(I)->GetWidth() > 0, "a column keeps a width");
    }
    std::sort(Tags.begin(), Tags.end());
    fuzz::Require(std::equal(Tags.begin(), Tags.end(), std::begin(kTags)), "each column stands once");

    const fw::Text Written = Service.GetGridColumnLayout(&View, nullptr);
    Service.SetGridColumnLayout(&Fresh, Written, nullptr);
    fuzz::Require(Service.GetGridColumnLayout(&Fresh, nullptr) == Written, "a written layout is applied as it was");
    return 0;
}
