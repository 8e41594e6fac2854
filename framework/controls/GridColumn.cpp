// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/GridTableView.h"

namespace fw {

TGridColumn::~TGridColumn() = default;

int TGridColumn::GetIndex() const {
    for (int Index = 0; Index < FView.GetColumnCount(); ++Index)
        if (FView.GetColumn(Index) == this) return Index;
    return -1;
}

void TGridColumn::SetCaption(Text Value) {
    if (Value == FCaption) return;
    FCaption = std::move(Value);
    FView.ColumnsChanged();
}

void TGridColumn::SetWidth(int Value) {
    if (Value == FWidth) return;
    FWidth = Value;
    FView.ColumnsChanged();
}

void TGridColumn::SetVisible(bool Value) {
    if (Value == FVisible) return;
    FVisible = Value;
    FView.ColumnsChanged();
}

void TGridColumn::ReplaceProperties(std::unique_ptr<TcxEditProperties> Value) {
    if (const TCellEditor* Editor = FView.GetEditor(); Editor && &Editor->GetColumn() == this) FView.CancelEdit();
    FProperties = std::move(Value);
    FView.ColumnsChanged();
}

}  // namespace fw
