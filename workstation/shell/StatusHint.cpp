// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/StatusHint.h"

#include "framework/controls/ComboBox.h"
#include "framework/controls/GridTableView.h"

namespace ws {

namespace {

constexpr const char* kSelectors[] = {"cmbExchange", "cmbSeries", "cmbMonth"};

bool MarketIsChosen(const fw::TFrame& Frame) {
    for (const char* Name : kSelectors)
        if (const auto* Combo = Frame.FindControl<fw::TComboBox>(Name); Combo && Combo->GetItemIndex() < 0) return false;
    return true;
}

}  // namespace

const char* StatusHintOf(const fw::TFrame& Frame) {
    if (!MarketIsChosen(Frame)) return "Res_HintChooseMarket";
    const auto* Legs = Frame.FindControl<fw::TGridTableView>("PositionGridView");
    if (Legs && Legs->GetDataController().GetRecordCount() <= 1) return "Res_HintTypeSymbol";
    const auto* Table = Frame.FindControl<fw::TGridTableView>("DetailGridView");
    if (Legs && Table && Table->GetDataController().GetRecordCount() == 0) return "Res_HintCalculate";
    return "";
}

const char* EditRefusedHintOf(const fw::TFrame& Frame) { return MarketIsChosen(Frame) ? "Res_HintLoadedRow" : "Res_HintChooseMarket"; }

}  // namespace ws
