// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "framework/base/Text.h"
#include "workstation/renderers/RenderContext.h"

namespace ws {

enum class ESymbolMark { None, Waiting, NoData };

// Whether the market has data for a typed symbol: it is waited for, or the market answered that it has nothing.
// Requests nothing. Blank symbols, and a program without market data, have no mark.
ESymbolMark SymbolMark(const fw::Text& Symbol);

// What a mark means, for the mouse; empty for None.
QString SymbolMarkHint(ESymbolMark Mark, const fw::Text& Symbol, const TRenderContext& Context);

}  // namespace ws
