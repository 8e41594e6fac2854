// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "framework/controls/GridTableView.h"
#include "workstation/renderers/RenderContext.h"

namespace ws {

// Pixels of each column of a view, 0 for a hidden one: the columns' own widths at the font's scale; with auto width
// they share Room by those widths, none below its minimum.
std::vector<int> ColumnWidths(const fw::TGridTableView& View, const TRenderContext& Context, int Room);

}  // namespace ws
