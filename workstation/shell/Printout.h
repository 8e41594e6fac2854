// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "framework/view/Frame.h"
#include "workstation/renderers/RenderContext.h"

class QPrinter;

namespace ws {

// A view on paper: its caption and what is chosen in its fields, its tables and its chart, in that order. Tables of the
// results (those over a data control) only WithRows. Several pages carry their numbers.
void PrintView(fw::TFrame& Frame, const QString& Caption, TRenderContext& Paper, bool WithRows, QPrinter& Printer);

}  // namespace ws
