// SPDX-License-Identifier: Apache-2.0
// Order, selection and activation of a bound table view.
#include "framework/base/Log.h"
#include "framework/base/NumberFormat.h"
#include "framework/controls/GridTableView.h"

namespace fw {

namespace {

ESortOrder Next(ESortOrder Order) {
    return Order == ESortOrder::None        ? ESortOrder::Ascending
           : Order == ESortOrder::Ascending ? ESortOrder::Descending
                                            : ESortOrder::None;
}

}  // namespace

void TGridTableView::SortBy(int Column) {
    const TGridColumn* Asked = GetColumn(Column);
    if (!Asked || !Asked->Sorting || !GetDataControl()) return;
    FSortOrder = Asked == FSortedBy ? Next(FSortOrder) : ESortOrder::Ascending;
    FSortedBy = FSortOrder == ESortOrder::None ? nullptr : Asked;
    SortRecords();
    FSelection.Follow();
    RecordsChanged();
}

int TGridTableView::GetSortedColumn() const { return FSortedBy ? FSortedBy->GetIndex() : -1; }

void TGridTableView::SortRecords() {
    FOrder.Clear();
    TCustomDataControl* Control = GetDataControl();
    if (!Control || !FSortedBy) return;
    if (const int Count = FData.GetRecordCount(); Count > kMostSorted) {
        TLog::Warning("Res_LogNotSorted", {FormatNumber(Count, 0, true), FormatNumber(kMostSorted, 0, true)});
        FSortedBy = nullptr;
        FSortOrder = ESortOrder::None;
        return;
    }
    Dispatch(EventName("Sort"), [&] { FOrder.Sort(*Control, FSortedBy->Tag, FSortOrder); });
}

void TGridTableView::Activate() {
    const int Record = FSelection.GetCurrent();
    if (Record < 0 || !OnActivate || IsHeldElsewhere()) return;
    Dispatch(EventName("OnActivate"), [&] { OnActivate(*this, Record); });
}

Text TGridTableView::GetCellHint(int Record, int Column) {
    if (!HasCell(Record, Column)) return {};
    TGridColumn& Asked = *GetColumn(Column);
    Text Hint = Options.CellHints ? GetCellText(Record, Column) : Text();
    if (Asked.OnGetHint) Dispatch(ColumnEvent(Asked, "OnGetHint"), [&] { Asked.OnGetHint(Asked, Record, Hint); });
    return Hint;
}

}  // namespace fw
