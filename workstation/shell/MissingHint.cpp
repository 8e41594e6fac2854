// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/MissingHint.h"

#include <algorithm>

#include "framework/controls/Chart.h"
#include "framework/controls/ComboBox.h"
#include "framework/controls/GridTableView.h"
#include "framework/data/ColumnIds.h"

namespace ws {

namespace {

template <class T, class TTest>
bool Any(fw::TFrame& Frame, TTest Test) {
    const auto& Controls = Frame.Controls().Controls();
    return std::any_of(Controls.begin(), Controls.end(), [&](fw::TControl* Control) {
        auto* Typed = dynamic_cast<T*>(Control);
        return Typed && Test(*Typed);
    });
}

bool LacksChoice(fw::TFrame& Frame) {
    return Any<fw::TComboBox>(
        Frame, [](fw::TComboBox& Combo) { return Combo.IsVisible() && Combo.IsEnabled() && Combo.GetItemIndex() < 0; });
}

int SymbolColumn(const fw::TGridTableView& Grid) {
    for (int i = 0; i < Grid.GetColumnCount(); ++i)
        if (Grid.GetColumn(i)->Tag == fw::kColumnSymbol && Grid.GetColumn(i)->Editing) return i;
    return -1;
}

bool IsWithoutSymbols(fw::TGridTableView& Grid) {
    const int Column = Grid.GetDataControl() ? -1 : SymbolColumn(Grid);
    if (Column < 0) return false;
    for (int Row = 0; Row < Grid.GetDataController().GetRecordCount(); ++Row)
        if (!fw::Trim(Grid.GetDataController().GetValue(Row, Column).AsText()).empty()) return false;
    return true;
}

bool IsWithoutLine(fw::TChart& Chart) {
    return std::all_of(Chart.Series().begin(), Chart.Series().end(),
                       [](const fw::TLineSeries* Line) { return Line->GetCount() == 0; });
}

}  // namespace

const char* MissingHint(fw::TFrame& Frame) {
    if (LacksChoice(Frame)) return "Res_HintChooseMarket";
    if (Any<fw::TGridTableView>(Frame, IsWithoutSymbols)) return "Res_HintTypeSymbol";
    if (Any<fw::TChart>(Frame, IsWithoutLine)) return "Res_HintCalculate";
    return nullptr;
}

const char* RefusedHint(fw::TFrame& Frame, const fw::TGridTableView& Grid) {
    const bool Last = Grid.GetFocusedRecord() == Grid.GetDataController().GetRecordCount() - 1;
    return Last || LacksChoice(Frame) ? "Res_HintChooseMarket" : "Res_HintRowFixed";
}

}  // namespace ws
