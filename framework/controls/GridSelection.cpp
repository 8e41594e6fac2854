// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/GridSelection.h"

#include <algorithm>

#include "framework/controls/GridTableView.h"

namespace fw {

bool TGridSelection::Contains(int Record) const {
    if (Record < FFirst || Record > FLast || IsEmpty()) return false;
    return FRows.empty() || FRows.contains(RowOf(Record));
}

void TGridSelection::Select(int Record, bool Extend) {
    const int Count = FView.GetDataController().GetRecordCount();
    if (Count == 0) return Clear();
    const int Current = std::clamp(Record, 0, Count - 1);
    Take(Extend && FAnchor >= 0 ? FAnchor : Current, Current);
}

void TGridSelection::SelectAll() {
    if (const int Count = FView.GetDataController().GetRecordCount(); Count > 0) Take(0, Count - 1);
}

void TGridSelection::Clear() {
    if (!IsEmpty()) Take(-1, -1);
}

void TGridSelection::Take(int Anchor, int Current) {
    FAnchor = Anchor;
    FCurrent = Current;
    FFirst = std::min(Anchor, Current);
    FLast = std::max(Anchor, Current);
    FRows.clear();
    FCurrentRow = RowOf(Current);
    FAnchorRow = RowOf(Anchor);
    for (int Record = FFirst; FCurrentRow && Record <= FLast; ++Record) FRows.insert(RowOf(Record));
    OnChanged();
}

void TGridSelection::Follow() {
    if (IsEmpty()) return;
    const int Count = FView.GetDataController().GetRecordCount();
    if (FRows.empty()) {
        if (FLast >= Count) Clear();
        return;
    }
    std::set<const void*> Left;
    int First = -1, Last = -1, Current = -1, Anchor = -1;
    for (int Record = 0; Record < Count; ++Record) {
        const void* Row = RowOf(Record);
        if (!FRows.contains(Row)) continue;
        Left.insert(Row);
        if (First < 0) First = Record;
        Last = Record;
        if (Row == FCurrentRow) Current = Record;
        if (Row == FAnchorRow) Anchor = Record;
    }
    if (Left.empty()) return Clear();
    FFirst = First;
    FLast = Last;
    FCurrent = Current < 0 ? First : Current;
    FAnchor = Anchor < 0 ? FCurrent : Anchor;
    FRows = std::move(Left);
    FCurrentRow = RowOf(FCurrent);
    FAnchorRow = RowOf(FAnchor);
    OnChanged();
}

const void* TGridSelection::RowOf(int Record) const {
    TCustomDataControl* Data = Record < 0 ? nullptr : FView.GetDataControl();
    void* Row = nullptr;
    return Data && Data->GetRowValue(FView.GetDataRecord(Record), Row) ? Row : nullptr;
}

}  // namespace fw
