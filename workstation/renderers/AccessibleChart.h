// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "framework/controls/Chart.h"
#include "workstation/renderers/RenderContext.h"

class QWidget;

namespace ws {

// What a chart is called, and in sentences what it shows: range, highest and lowest value, where it is zero.
QString NameOfChart(const fw::TChart& Chart, const TRenderContext& Context);
QString DescriptionOfChart(const fw::TChart& Chart, const TRenderContext& Context);

// Gives a widget that draws a chart its name and description; screen readers hear of those that are new.
void DescribeChart(QWidget& Widget, const fw::TChart& Chart, const TRenderContext& Context);

}  // namespace ws
