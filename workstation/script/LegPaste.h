// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "framework/base/Log.h"
#include "framework/controls/GridTableView.h"
#include "workstation/script/Player.h"

namespace ws {

// Lines of cells as spreadsheets put them on the clipboard: tabs between cells, CR LF or LF after lines; a cell in
// quotes may hold tabs, line breaks (blanks here) and doubled quotes. Blank lines are lines without cells.
std::vector<std::vector<std::string>> ReadPastedCells(std::string_view Pasted);

// A cell that a view did not take. Line counts the pasted lines from 1.
struct TPasteRefusal {
    int Line = 0;
    std::string Caption;  // resource key of the column's caption
    std::string Typed;    // shortened
    std::string Reason;   // resource key and its arguments
    std::vector<std::string> ReasonArgs;

    // Arguments of the sentence "Res_PasteCellRefused".
    std::vector<std::string> Args() const;
};

struct TPasteReport {
    int Rows = 0;   // lines with legs
    int Taken = 0;  // legs that stand in the table now
    std::vector<TPasteRefusal> Refused;
    bool Locked = false;  // the view takes no leg at all; nothing was typed
};

inline constexpr int kMostPastedLegs = 1000;  // further ones are refused by name

// Types pasted legs into a table of legs, cell by cell, as a user would: from the focused input row on, else from the
// last row. Columns are symbol, side, premium, quantity, open/close, principal, in this order and as many as there are;
// a first line of captions in any language is passed over, and decides which column is which where it names the table's
// columns only. Empty cells are not typed. A symbol that is not taken refuses its line, and the row keeps its former
// symbol; another cell that is not taken is left to its row. The focus ends behind the last leg.
TPasteReport PasteLegs(fw::TFrame& Frame, fw::TGridTableView& View, std::string_view Pasted);

}  // namespace ws
