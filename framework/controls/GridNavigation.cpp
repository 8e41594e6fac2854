// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/GridNavigation.h"

#include <algorithm>
#include <cstdlib>

#include "framework/base/Log.h"

namespace fw {

namespace {

bool IsStop(const TGridColumn& Column, bool Editable) {
    return Column.IsVisible() && Column.Focusing && (Column.Editing || !Editable);
}

// The nearest column to stop at, From included; -1 none.
int StopFrom(const TGridTableView& View, int From, int Way, bool Editable) {
    for (int Column = From; Column >= 0 && Column < View.GetColumnCount(); Column += Way)
        if (IsStop(*View.GetColumn(Column), Editable)) return Column;
    return -1;
}

bool Focus(TGridTableView& View, int Record, int Column) {
    View.SetFocusedCell(Record, Column);
    return View.GetFocusedRecord() == Record && View.GetFocusedColumn() == Column;
}

TCellEditor* OpenFocused(TGridTableView& View) {
    return View.StartEdit(View.GetFocusedRecord(), View.GetFocusedColumn());
}

// Fill enters something into the editor, which is told of the key before.
template <class TFill>
ECellEntry Enter(TGridTableView& View, int Key, TFill Fill) {
    TCellEditor* Editor = OpenFocused(View);
    if (!Editor) return ECellEntry::Locked;
    Editor->KeyDown(Key);
    if (View.GetEditor() == Editor) Fill(*Editor);
    View.PostEditor();
    return View.GetEditor() ? ECellEntry::Kept : ECellEntry::Posted;
}

bool IsFixedList(const TCellEditor& Editor) {
    const auto* Combo = dynamic_cast<const TcxComboBoxProperties*>(Editor.GetProperties());
    return Combo && Combo->FixedList;
}

void Clear(TCellEditor& Editor) {
    if (IsFixedList(Editor))
        Editor.SetValue({});  // nothing is no item that could be typed
    else
        Editor.SetEditText("");
}

}  // namespace

bool MoveCell(TGridTableView& View, int Records, int Columns) {
    const int Count = View.GetDataController().GetRecordCount();
    const int First = StopFrom(View, std::max(0, View.GetFocusedColumn()), 1, false);
    if (Count == 0 || First < 0) return false;
    const int64_t Wanted = static_cast<int64_t>(std::max(0, View.GetFocusedRecord())) + Records;
    const int Record = static_cast<int>(std::clamp<int64_t>(Wanted, 0, Count - 1));
    const int Way = Columns < 0 ? -1 : 1;
    int Column = First;
    for (int Left = std::abs(Columns); Left > 0; --Left) {
        const int Next = StopFrom(View, Column + Way, Way, false);
        if (Next < 0) break;
        Column = Next;
    }
    return Focus(View, Record, Column);
}

bool MoveToEditable(TGridTableView& View, bool Forward) {
    const int Count = View.GetDataController().GetRecordCount(), Columns = View.GetColumnCount();
    const int Way = Forward ? 1 : -1, Start = Forward ? 0 : Columns - 1;
    const bool Focused = View.GetFocusedRecord() >= 0 && View.GetFocusedColumn() >= 0;
    int Record = Focused ? View.GetFocusedRecord() : Forward ? 0 : Count - 1;
    int Column = StopFrom(View, Focused ? View.GetFocusedColumn() + Way : Start, Way, true);
    if (Column < 0) Record += Way, Column = StopFrom(View, Start, Way, true);
    return Column >= 0 && Record >= 0 && Record < Count && Focus(View, Record, Column);
}

bool MoveToInputRow(TGridTableView& View) {
    const int Column = StopFrom(View, 0, 1, true);
    return Column >= 0 && Focus(View, View.GetDataController().GetRecordCount() - 1, Column);
}

ECellEntry EnterText(TGridTableView& View, const Text& Typed, int Key) {
    return Enter(View, Key, [&](TCellEditor& Editor) { Editor.SetEditText(Typed); });
}

ECellEntry EmptyCell(TGridTableView& View, int Key) { return Enter(View, Key, Clear); }

ECellEntry FillDown(TGridTableView& View, int Key) {
    const int Record = View.GetFocusedRecord() - 1;
    const Variant Above = View.GetDataController().GetValue(Record, View.GetFocusedColumn());
    if (Record < 0) return ECellEntry::Posted;
    if (Above.IsNull()) return EmptyCell(View, Key);
    return Enter(View, Key, [&](TCellEditor& Editor) {
        if (Above.IsText()) return Editor.SetEditText(Above.AsText());
        if (const auto Refusal = Editor.EnterNumber(Above.AsFloat())) TLog::Warning(Refusal->Key, Refusal->Args);
    });
}

}  // namespace fw
