// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/GridTableView.h"

#include "framework/base/FlagGuard.h"
#include "framework/base/NumberFormat.h"

namespace fw {

TGridTableView::TGridTableView() : FData(*this), FSelection(*this) {
    FFormatLinks += NumberFormatChanging().Connect([this] { PostEditor(); });
    FFormatLinks += NumberFormatChanged().Connect([this] {
        if (FEditor) FEditor->Doubt();
        Repaint();
    });
}
TGridTableView::~TGridTableView() = default;
TGridLevel::~TGridLevel() = default;
TGrid::~TGrid() = default;

void TGridTableView::EndUpdate() {
    if (FUpdating == 0 || --FUpdating > 0) return;
    if (std::exchange(FColumnsDirty, false)) OnColumnsChanged();
    if (std::exchange(FRecordsDirty, false)) OnRecordsChanged();
}

void TGridTableView::ClearColumns() {
    CancelEdit();
    FSortedBy = nullptr;
    FOrder.Clear();
    FColumns.clear();
    for (auto& Row : FData.FCells) Row.clear();
    MoveFocus(FFocusedRecord, -1);
    ColumnsChanged();
}

TGridColumn& TGridTableView::CreateColumn() {
    FColumns.push_back(std::make_unique<TGridColumn>(*this));
    TGridColumn& Result = *FColumns.back();
    ColumnsChanged();
    return Result;
}

TGridColumn* TGridTableView::GetColumn(int Index) const {
    return Index >= 0 && Index < GetColumnCount() ? FColumns[static_cast<size_t>(Index)].get() : nullptr;
}

void TGridTableView::MoveColumn(int From, int To) {
    PostEditor();
    if (!GetColumn(From) || !GetColumn(To) || From == To) return;
    const TGridColumn* Focused = GetColumn(FFocusedColumn);
    const auto Rotate = [From, To](auto& List) {
        const auto First = List.begin() + std::min(From, To);
        const auto Last = List.begin() + std::max(From, To) + 1;
        std::rotate(First, From < To ? First + 1 : Last - 1, Last);
    };
    Rotate(FColumns);
    for (auto& Row : FData.FCells) {
        Row.resize(std::max(Row.size(), FColumns.size()));
        Rotate(Row);
    }
    if (Focused) MoveFocus(FFocusedRecord, Focused->GetIndex());
    ColumnsChanged();
}

void TGridTableView::SetCustomDataSource(TCustomGridDataSource* Source) {
    if (Source == FSource) return;
    CancelEdit();
    FSourceLinks.Clear();
    FSource = Source;
    if (FSource) FSourceLinks += FSource->OnDestroyed.Connect([this] { SetCustomDataSource(nullptr); });
    if (TCustomDataControl* Control = GetDataControl())
        FSourceLinks += Control->OnChanged.Connect([this] { SourceChanged(); });
    MoveFocus(-1, FFocusedColumn);
    FSelection.Clear();
    SortRecords();
    RecordsChanged();
}

TCustomDataControl* TGridTableView::GetDataControl() const { return FSource ? FSource->GetDataControl() : nullptr; }

Text TGridTableView::GetCellText(int Record, int Column) {
    if (!HasCell(Record, Column)) return {};
    TGridColumn& Shown = *GetColumn(Column);
    Text Result;
    if (TCustomDataControl* Control = GetDataControl()) {
        Result = DispatchValue(EventName("GetDisplayValue"), Text(),
                               [&] { return Control->GetDisplayValue(GetDataRecord(Record), Shown.Tag); });
    } else if (const Variant Value = FData.GetValue(Record, Column); Value.IsNull()) {
        const TcxEditProperties* Properties = GetCellProperties(Record, Column);
        if (Properties) Result = Properties->NullText;
    } else {
        Result = Value.IsFloat() ? FormatShortest(Value.AsFloat()) : Value.AsText();
    }
    if (!Shown.OnGetDisplayText) return Result;
    Text Replaced = Result;
    const bool Done =
        Dispatch(ColumnEvent(Shown, "OnGetDisplayText"), [&] { Shown.OnGetDisplayText(Shown, Record, Replaced); });
    return Done ? Replaced : Result;
}

Text TGridTableView::GetPreviewText(int Record, int Column, const Variant& Value) {
    const TGridDataController::TPreview Preview(FData, Record, Column, Value);
    return GetCellText(Record, Column);
}

TStyle* TGridTableView::GetCellStyle(int Record, int Column) {
    if (!OnGetContentStyle || !HasCell(Record, Column)) return nullptr;
    return DispatchValue(EventName("OnGetContentStyle"), static_cast<TStyle*>(nullptr),
                         [&] { return OnGetContentStyle(Record, *GetColumn(Column)); });
}

TcxEditProperties* TGridTableView::GetCellProperties(int Record, int Column) {
    if (!HasCell(Record, Column)) return nullptr;
    TGridColumn& Asked = *GetColumn(Column);
    TcxEditProperties* const Own = Asked.GetProperties();
    if (!Asked.OnGetProperties) return Own;
    TcxEditProperties* Chosen = Own;
    const bool Done =
        Dispatch(ColumnEvent(Asked, "OnGetProperties"), [&] { Asked.OnGetProperties(Asked, Record, Chosen); });
    return Done ? Chosen : Own;
}

void TGridTableView::SetFocusedCell(int Record, int Column) {
    if (!HasCell(Record, Column) || !GetColumn(Column)->Focusing) return;
    if (Record == FFocusedRecord && Column == FFocusedColumn) return;
    if (!FPosting) {
        PostEditor();
        if (FEditor || !HasCell(Record, Column)) return;
    }
    MoveFocus(Record, Column);
}

void TGridTableView::MoveFocus(int Record, int Column) {
    if (Record == FFocusedRecord && Column == FFocusedColumn) return;
    FFocusedRecord = Record;
    FFocusedColumn = Column;
    OnFocusChanged();
}

bool TGridTableView::HasCell(int Record, int Column) const {
    return GetColumn(Column) && Record >= 0 && Record < FData.GetRecordCount();
}

void TGridTableView::ColumnsChanged() {
    if (FUpdating > 0)
        FColumnsDirty = true;
    else
        OnColumnsChanged();
}

void TGridTableView::RecordsChanged() {
    if (FUpdating > 0)
        FRecordsDirty = true;
    else
        OnRecordsChanged();
}

void TGridTableView::CellChanged(int Record, int Column) {
    if (FUpdating > 0)
        FRecordsDirty = true;
    else
        OnCellChanged(Record, Column);
}

void TGridTableView::CellWritten(int Record, int Column, const Variant& Value) {
    if (!FPosting && HasEditorAt(Record, Column)) FEditor->CellWritten(Value);
}

void TGridTableView::RecordDeleted(int Record) {
    if (FEditor && FEditor->FRecord == Record) CancelEdit();
    if (FEditor && FEditor->FRecord > Record) --FEditor->FRecord;
    RecordsChanged();
    const bool Gone = FFocusedRecord == Record && Record >= FData.GetRecordCount();
    if (FFocusedRecord > Record || Gone) MoveFocus(FFocusedRecord - 1, FFocusedColumn);
}

void TGridTableView::RecordCountChanged(int Count) {
    if (FEditor && FEditor->FRecord >= Count) CancelEdit();
    RecordsChanged();
    if (FFocusedRecord >= Count) MoveFocus(Count - 1, FFocusedColumn);
}

void TGridTableView::SourceChanged() {
    SortRecords();
    FSelection.Follow();
    RecordsChanged();
    const int Count = FData.GetRecordCount();
    if (FFocusedRecord >= Count) MoveFocus(Count - 1, FFocusedColumn);
}

Text TGridTableView::ColumnEvent(const TGridColumn& Column, std::string_view What) const {
    return EventName(std::to_string(Column.Tag) + "." + Text(What));
}

}  // namespace fw
