// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/GridDataController.h"

#include "framework/controls/GridTableView.h"

namespace fw {

TGridDataController::~TGridDataController() = default;

int TGridDataController::GetRecordCount() const {
    if (TCustomDataControl* Control = FView.GetDataControl())
        return std::max(0, DispatchValue(FView.EventName("GetCount"), 0, [&] { return Control->GetCount(); }));
    return FView.FSource ? 0 : static_cast<int>(FCells.size());
}

void TGridDataController::SetRecordCount(int Count) {
    if (Count < 0 || FView.FSource || static_cast<size_t>(Count) == FCells.size()) return;
    FCells.resize(static_cast<size_t>(Count));
    FView.RecordCountChanged(Count);
}

Variant TGridDataController::GetValue(int Record, int Column) const {
    if (!FView.HasCell(Record, Column)) return {};
    if (FPreview && FPreview->IsAt(Record, Column)) return FPreview->GetValue();
    if (TCustomDataControl* Control = FView.GetDataControl()) {
        const int Attribute = FView.GetColumn(Column)->Tag;
        return DispatchValue(FView.EventName("GetValue"), Variant(),
                             [&] { return Control->GetValue(FView.GetDataRecord(Record), Attribute); });
    }
    const auto& Row = FCells[static_cast<size_t>(Record)];
    return static_cast<size_t>(Column) < Row.size() ? Row[static_cast<size_t>(Column)] : Variant();
}

void TGridDataController::SetValue(int Record, int Column, const Variant& Value) {
    if (FView.FSource || !FView.HasCell(Record, Column)) return;
    const Variant Written = Value;  // the caller's may be the editor's own, which changes below
    auto& Row = FCells[static_cast<size_t>(Record)];
    if (Row.size() <= static_cast<size_t>(Column)) Row.resize(static_cast<size_t>(Column) + 1);
    if (Row[static_cast<size_t>(Column)] != Written) {
        Row[static_cast<size_t>(Column)] = Written;
        FView.CellChanged(Record, Column);
    }
    FView.CellWritten(Record, Column, Written);
}

void TGridDataController::DeleteRecord(int Record) {
    if (FView.FSource || Record < 0 || Record >= GetRecordCount()) return;
    FCells.erase(FCells.begin() + Record);
    FView.RecordDeleted(Record);
}

}  // namespace fw
