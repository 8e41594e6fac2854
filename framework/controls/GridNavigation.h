// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/controls/GridTableView.h"

namespace fw {

// What the keys of a table do: the focus walks over visible, focusable cells, and each edit opens the cell's editor, so
// that the form decides whether the cell may be edited and sees a key as a key. Functions that move answer whether the
// focus now stands where it was sent: an editor that refuses to be left keeps it.

// A number of visible cells away, stopping at the edges. Without a focus: from the first cell.
FRAMEWORK_API bool MoveCell(TGridTableView& View, int Records, int Columns);
// The next or previous cell of an editable column, row by row; false past the last one, too.
FRAMEWORK_API bool MoveToEditable(TGridTableView& View, bool Forward);
// The first editable cell of the last record, where new entries are typed.
FRAMEWORK_API bool MoveToInputRow(TGridTableView& View);

// What became of an entry into the focused cell.
enum class ECellEntry {
    Locked,  // the form does not let the cell be edited
    Kept,    // the editor refuses to be left and stays open with the entry
    Posted,  // the editor is closed; what it did not take stands in the log
};
// Key: the key that the user pressed, as TCellEditor::KeyDown counts them.
FRAMEWORK_API ECellEntry EnterText(TGridTableView& View, const Text& Typed, int Key);
// Fixed lists become null, other texts "", numbers null.
FRAMEWORK_API ECellEntry EmptyCell(TGridTableView& View, int Key);
// Enters what stands in the cell above; the first record has none above it and stays as it is.
FRAMEWORK_API ECellEntry FillDown(TGridTableView& View, int Key);

}  // namespace fw
