// SPDX-License-Identifier: Apache-2.0
// Opening, posting and closing the editor of a grid's cell.
#include "framework/base/FlagGuard.h"
#include "framework/base/Log.h"
#include "framework/controls/GridTableView.h"

namespace fw {

namespace {

void LogRefused(const TCellEditor& Editor) { TLog::Warning(Editor.GetRefusal()->Key, Editor.GetRefusal()->Args); }

}  // namespace

TCellEditor* TGridTableView::StartEdit(int Record, int Column) {
    if (FPosting || !IsEnabled() || !HasCell(Record, Column)) return nullptr;
    if (!EnsureFocus()) return nullptr;
    if (HasEditorAt(Record, Column)) return FEditor.get();
    PostEditor();
    SetFocusedCell(Record, Column);
    if (FEditor || FFocusedRecord != Record || FFocusedColumn != Column) return nullptr;
    TGridColumn* const Edited = GetColumn(Column);
    if (!Edited || !AskEditing(*Edited)) return nullptr;
    TcxEditProperties* const Properties = GetCellProperties(Record, Column);
    // The form's handlers may have opened another editor or taken the cell away.
    if (FEditor || GetColumn(Column) != Edited || !HasCell(Record, Column)) return nullptr;
    FErrorText.clear();
    FEditor = std::make_shared<TCellEditor>(*this, *Edited, Record, Properties, FData.GetValue(Record, Column));
    OnEditorChanged();
    return FEditor.get();
}

bool TGridTableView::CanEdit(int Record, int Column) {
    return IsEnabled() && HasCell(Record, Column) && GetColumn(Column)->Focusing && AskEditing(*GetColumn(Column));
}

bool TGridTableView::AskEditing(TGridColumn& Column) {
    if (FSource) return false;
    if (!OnEditing) return Column.Editing;
    const auto Running = OnEditing;
    bool Allow = false;
    const bool Done = Dispatch(EventName("OnEditing"), [&] { Running(*this, Column, Allow); });
    return Done && Allow;
}

bool TGridTableView::HasEditorAt(int Record, int Column) const {
    return FEditor && FEditor->FRecord == Record && &FEditor->FColumn == GetColumn(Column);
}

void TGridTableView::PostEditor() {
    if (!FEditor || FPosting) return;
    const auto Editor = FEditor;
    if (Editor->IsAmbiguous()) Editor->Read();  // the cell may show another text by now
    if (FEditor != Editor) return;
    if (Editor->IsAmbiguous()) return Hold(*Editor);
    if (!Editor->IsModified() || Editor->IsRefused()) {
        if (Editor->IsRefused()) LogRefused(*Editor);
        CloseEditor();
        return;
    }
    const Variant Typed = Editor->GetValue();
    Variant Value = Typed;
    EValidation Result = EValidation::Accepted;
    {
        const TFlagGuard Posting(FPosting, EGuardEnd::Clear);
        Result = Validate(*Editor, Value);
        if (FEditor != Editor) return;  // cancelled meanwhile, its cell is gone
        if (Result == EValidation::Accepted) FData.SetValue(Editor->FRecord, Editor->FColumn.GetIndex(), Value);
    }
    if (Result == EValidation::Refused) {
        Editor->FHeld = true;
        Editor->OnChanged();
        return;
    }
    const int Record = Editor->FRecord, Column = Editor->FColumn.GetIndex();
    CloseEditor();
    if (Result == EValidation::Accepted) OnEdited(Record, Column, Typed, FData.GetValue(Record, Column));
}

void TGridTableView::Hold(TCellEditor& Editor) {
    if (std::exchange(Editor.FHeld, true)) return;
    LogRefused(Editor);
    Editor.OnChanged();
}

bool TGridTableView::KeepsFocus() const { return FEditor && FEditor->FHeld; }

std::optional<TRefusal> TGridTableView::GetRefusal() const {
    return KeepsFocus() ? FEditor->GetRefusal() : std::nullopt;
}

void TGridTableView::CancelEdit() {
    if (FEditor) CloseEditor();
}

TGridTableView::EValidation TGridTableView::Validate(TCellEditor& Editor, Variant& Value) {
    const auto* Popup = dynamic_cast<const TcxPopupEditProperties*>(Editor.GetProperties());
    FErrorText.clear();
    if (!Popup || !Popup->OnValidate) return EValidation::Accepted;
    const auto Running = Popup->OnValidate;
    Text ErrorText;
    bool Error = false;
    if (!Dispatch(Editor.EventName("OnValidate"), [&] { Running(&Editor, Value, ErrorText, Error); }))
        return EValidation::Threw;
    if (!Error) return EValidation::Accepted;
    FErrorText = std::move(ErrorText);
    return EValidation::Refused;
}

void TGridTableView::CloseEditor() {
    const auto Closed = std::exchange(FEditor, nullptr);
    FErrorText.clear();
    Closed->FClosed = true;
    Closed->HidePopup();
    OnEditorChanged();
}

}  // namespace fw
