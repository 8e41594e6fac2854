// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "framework/controls/GridTableView.h"
#include "workstation/renderers/RenderContext.h"

namespace ws {

// What a table without a caption is called: by its first columns, in the current language.
QString NameOfTable(const fw::TGridTableView& View, const TRenderContext& Context);

}  // namespace ws
