// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/CellEditor.h"

#include "framework/controls/GridTableView.h"
#include "framework/controls/NumberInput.h"

namespace fw {

namespace {

template <class T>
T* As(TcxEditProperties* Properties) {
    return dynamic_cast<T*>(Properties);
}

}  // namespace

TCellEditor::TCellEditor(TGridTableView& View, TGridColumn& Column, int Record, TcxEditProperties* Properties,
                         Variant Value)
    : FView(View), FColumn(Column), FRecord(Record), FProperties(Properties), FValue(std::move(Value)) {
    if (IsNumeric()) FValue = ToNumber(FValue).value_or(FValue);
    if (const auto* Combo = As<TcxComboBoxProperties>(FProperties)) FItems = Combo->Items;
    FItemIndex = IndexOfItem(FValue.AsText());
}

TCellEditor::~TCellEditor() = default;

EEditorKind TCellEditor::GetKind() const { return FProperties ? FProperties->GetKind() : EEditorKind::Plain; }

bool TCellEditor::IsNumeric() const { return IsSpin() || FColumn.ValueType == EValueType::Float; }

void TCellEditor::SetValue(const Variant& Value) {
    const auto Replacement = IsNumeric() ? ToNumber(Value) : std::optional<Variant>(Value);
    if (FClosed || !Replacement || (*Replacement == FValue && !FTyping)) return;
    const auto Alive = weak_from_this().lock();
    FModified = true;
    FTyping = FRefused = false;
    FItemIndex = IndexOfItem(Replacement->AsText());
    ChangeValue(*Replacement);
    OnChanged();
}

Text TCellEditor::GetText() const {
    if (FTyping) return FEditText;
    return FValue.IsFloat() ? FloatToShortestText(FValue.AsFloat()) : FValue.AsText();
}

void TCellEditor::SetItems(std::vector<Text> Items) {
    FItems = std::move(Items);
    FItemIndex = IndexOfItem(FValue.AsText());
    OnChanged();
}

void TCellEditor::SelectItem(int Index) {
    if (FClosed || Index < 0 || Index >= static_cast<int>(FItems.size())) return;
    const Text Item = FItems[static_cast<size_t>(Index)];
    const auto Read = ReadTyped(Item);
    if (!Read) return;  // a word in the list of a numeric column
    const auto Alive = weak_from_this().lock();
    FItemIndex = Index;
    FModified = true;
    FTyping = FRefused = false;
    ChangeValue(*Read);
    OnChanged();
}

void TCellEditor::OpenList() {
    if (FClosed) return;
    const auto Alive = weak_from_this().lock();
    if (const auto* Combo = As<TcxComboBoxProperties>(FProperties)) {
        if (const auto Running = Combo->OnPopup) Dispatch(EventName("OnPopup"), [&] { Running(this); });
    } else if (const auto* Popup = As<TcxPopupEditProperties>(FProperties)) {
        if (const auto Running = Popup->OnInitPopup) Dispatch(EventName("OnInitPopup"), [&] { Running(this); });
        if (!FClosed && Popup->PopupControl) Popup->PopupControl->Show();
    }
}

void TCellEditor::SetEditText(Text Value) {
    if (FClosed) return;
    const auto Alive = weak_from_this().lock();
    FCaretAtEnd = false;
    FModified = FTyping = true;
    FEditText = std::move(Value);
    const auto Read = ReadTyped(FEditText);
    FRefused = !Read;
    if (Read) {
        FItemIndex = IndexOfItem(Read->AsText());
        ChangeValue(*Read);
    }
    OnChanged();
}

void TCellEditor::KeyDown(int Key, int Shift) {
    if (FClosed) return;
    const auto Alive = weak_from_this().lock();
    if (const auto Running = FView.OnEditKeyDown)
        Dispatch(FView.EventName("OnEditKeyDown"), [&] { Running(FView, FColumn, *this, Key, Shift); });
    if (Key == kKeyUp) Spin(1);
    if (Key == kKeyDown) Spin(-1);
}

void TCellEditor::Spin(int Steps) {
    const auto* Properties = As<TcxSpinEditProperties>(FProperties);
    if (FClosed || !Properties) return;
    const auto Alive = weak_from_this().lock();
    const Variant Stepped(
        StepNumber(FValue.AsFloat(0.0), Steps, Properties->Increment, Properties->MinValue, Properties->MaxValue));
    if (Stepped == FValue && !FTyping) return;
    FModified = true;
    FTyping = FRefused = false;
    ChangeValue(Stepped);
    OnChanged();
}

std::optional<Variant> TCellEditor::ReadTyped(const Text& Typed) const {
    Text Read = Typed;
    if (const auto* Combo = As<TcxComboBoxProperties>(FProperties); Combo && Combo->FixedList) {
        int Index = IndexOfItem(Typed);
        if (Index < 0) Index = IndexOfItem(Typed, true);
        if (Index < 0) return std::nullopt;
        Read = FItems[static_cast<size_t>(Index)];
    }
    if (!IsNumeric()) return Variant(Read);
    const auto* Properties = As<TcxSpinEditProperties>(FProperties);
    if (!Properties) return ReadNumber(Read, {}, {});
    const auto Number = ReadNumber(Read, Properties->MinValue, Properties->MaxValue);
    const bool Whole = !Number || Number->IsNull() || std::trunc(Number->AsFloat()) == Number->AsFloat();
    return Properties->FloatValues || Whole ? Number : std::nullopt;
}

int TCellEditor::IndexOfItem(std::string_view Item, bool IgnoreCase) const {
    for (size_t Index = 0; Index < FItems.size(); ++Index)
        if (FItems[Index] == Item || (IgnoreCase && SameText(FItems[Index], Item))) return static_cast<int>(Index);
    return -1;
}

void TCellEditor::ChangeValue(const Variant& Value) {
    if (Value == FValue) return;
    FValue = Value;
    if (!FProperties || !FProperties->OnChange) return;
    const TNotifyEvent Running = FProperties->OnChange;  // the handler may close the editor
    Dispatch(EventName("OnChange"), [&] { Running(this); });
}

void TCellEditor::CellWritten(const Variant& Value) {
    if (FModified && !IsPopupShown()) return;
    if (!FModified && Value == FValue) return;
    FModified = FTyping = FRefused = false;
    FValue = Value;
    FItemIndex = IndexOfItem(FValue.AsText());
    OnChanged();
}

bool TCellEditor::IsPopupShown() const {
    const auto* Popup = As<TcxPopupEditProperties>(FProperties);
    return Popup && Popup->PopupControl && Popup->PopupControl->IsShown();
}

void TCellEditor::HidePopup() {
    if (IsPopupShown()) As<TcxPopupEditProperties>(FProperties)->PopupControl->Hide();
}

Text TCellEditor::EventName(std::string_view What) const { return FView.ColumnEvent(FColumn, What); }

}  // namespace fw
