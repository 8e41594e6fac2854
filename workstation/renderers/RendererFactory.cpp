// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/RendererFactory.h"

#include <array>

#include "framework/controls/Button.h"
#include "framework/controls/Chart.h"
#include "framework/controls/ComboBox.h"
#include "framework/controls/GridTableView.h"
#include "framework/controls/LayoutControl.h"
#include "framework/controls/PopupEdit.h"
#include "framework/controls/SpinEdit.h"
#include "workstation/renderers/ButtonRenderer.h"
#include "workstation/renderers/ChartRenderer.h"
#include "workstation/renderers/ComboRenderer.h"
#include "workstation/renderers/GridRenderer.h"
#include "workstation/renderers/LayoutRenderer.h"
#include "workstation/renderers/PopupEditRenderer.h"
#include "workstation/renderers/SpinEditRenderer.h"
#include "workstation/renderers/WindowedGridRenderer.h"

namespace ws {

namespace {

using TMaker = QWidget* (*)(fw::TControl& Model, TRenderContext& Context, QWidget* Parent);

template <class TModel, class TWidget>
QWidget* MakeOf(fw::TControl& Model, TRenderContext& Context, QWidget* Parent) {
    auto* Typed = dynamic_cast<TModel*>(&Model);
    return Typed ? new TWidget(*Typed, Context, Parent) : nullptr;
}

// Bound views may have any number of rows: only the visible ones exist. Unbound ones are edited in place.
QWidget* MakeOfView(fw::TGridTableView& View, TRenderContext& Context, QWidget* Parent) {
    if (View.GetDataControl()) return new TWindowedGridRenderer(View, Context, Parent);
    return new TGridRenderer(View, Context, Parent);
}

QWidget* MakeOfTableView(fw::TControl& Model, TRenderContext& Context, QWidget* Parent) {
    auto* View = dynamic_cast<fw::TGridTableView*>(&Model);
    return View ? MakeOfView(*View, Context, Parent) : nullptr;
}

QWidget* MakeOfLevel(fw::TControl& Model, TRenderContext& Context, QWidget* Parent) {
    auto* Level = dynamic_cast<fw::TGridLevel*>(&Model);
    return Level ? MakeOfView(Level->GetGridView(), Context, Parent) : nullptr;
}

QWidget* MakeOfGrid(fw::TControl& Model, TRenderContext& Context, QWidget* Parent) {
    auto* Grid = dynamic_cast<fw::TGrid*>(&Model);
    return Grid ? MakeOfView(Grid->GetLevel().GetGridView(), Context, Parent) : nullptr;
}

constexpr std::array<TMaker, 10> kMakers{
    &MakeOf<fw::TButton, TButtonRenderer>,
    &MakeOf<fw::TComboBox, TComboRenderer>,
    &MakeOf<fw::TSpinEdit, TSpinEditRenderer>,
    &MakeOf<fw::TPopupEdit, TPopupEditRenderer>,
    &MakeOf<fw::TChart, TChartRenderer>,
    &MakeOf<fw::TLayoutGroup, TLayoutGroupRenderer>,
    &MakeOf<fw::TLayoutItem, TLayoutItemRenderer>,
    &MakeOfGrid,
    &MakeOfLevel,
    &MakeOfTableView,
};

}  // namespace

QWidget* MakeRenderer(fw::TControl& Model, TRenderContext& Context, QWidget* Parent) {
    for (const TMaker Maker : kMakers)
        if (QWidget* Made = Maker(Model, Context, Parent)) return Made;
    return nullptr;
}

}  // namespace ws
