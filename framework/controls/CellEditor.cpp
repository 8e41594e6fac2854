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

Text PlainText(const Variant& Value) { return Value.IsFloat() ? FormatShortest(Value.AsFloat()) : Value.AsText(); }

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
    Replace(*Replacement);
}

std::optional<TRefusal> TCellEditor::EnterNumber(double Number) {
    if (FClosed || !IsNumeric() || !std::isfinite(Number) || !GetLimits().Allow(Number))
        return NumberRefusal(FormatShortest(Number));
    Replace(Number);
    return std::nullopt;
}

void TCellEditor::Replace(const Variant& Value) {
    const auto Alive = weak_from_this().lock();
    ForgetTyping();
    FModified = true;
    FItemIndex = IndexOfItem(Value.AsText());
    ChangeValue(Value);
    OnChanged();
}

void TCellEditor::ForgetTyping() {
    FTyping = FAmbiguous = FHeld = false;
    FRefusal.reset();
}

Text TCellEditor::GetText() const { return FTyping ? FEditText : PlainText(FValue); }

void TCellEditor::SetItems(std::vector<Text> Items) {
    FItems = std::move(Items);
    FItemIndex = IndexOfItem(FValue.AsText());
    OnChanged();
}

void TCellEditor::SelectItem(int Index) {
    if (FClosed || Index < 0 || Index >= static_cast<int>(FItems.size())) return;
    const Text Item = FItems[static_cast<size_t>(Index)];
    const auto Read = ReadTyped(Item);
    if (!Read.Value) return;  // a word in the list of a numeric column
    const auto Alive = weak_from_this().lock();
    ForgetTyping();
    FItemIndex = Index;
    FModified = true;
    ChangeValue(*Read.Value);
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
    if (!FTyping) FTypedOver = FValue;
    FCaretAtEnd = FHeld = false;
    FModified = FTyping = true;
    FEditText = std::move(Value);
    Read();
    OnChanged();
}

void TCellEditor::Read() {
    auto Typed = ReadTyped(FEditText);
    FRefusal = std::move(Typed.Refusal);
    FAmbiguous = Typed.Ambiguous;
    if (!Typed.Value) return;
    FItemIndex = IndexOfItem(Typed.Value->AsText());
    ChangeValue(*Typed.Value);
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
    const Variant Stepped(StepNumber(FValue.AsFloat(0.0), Steps, Properties->Increment, GetLimits()));
    if (Stepped == FValue && !FTyping) return;
    Replace(Stepped);
}

TNumberLimits TCellEditor::GetLimits() const {
    const auto* Spin = As<TcxSpinEditProperties>(FProperties);
    return Spin ? TNumberLimits{Spin->MinValue, Spin->MaxValue, !Spin->FloatValues} : TNumberLimits{};
}

TTypedValue TCellEditor::ReadTyped(const Text& Typed) const {
    Text Word = Typed;
    if (const auto* Combo = As<TcxComboBoxProperties>(FProperties); Combo && Combo->FixedList) {
        int Index = IndexOfItem(Typed);
        if (Index < 0) Index = IndexOfItem(Typed, true);
        if (Index < 0) return {{}, TRefusal{"Res_LogChoiceRefused", {Typed}}};
        Word = FItems[static_cast<size_t>(Index)];
    }
    if (!IsNumeric()) return {Variant(Word), {}};
    if (FTyping && Word == PlainText(FTypedOver)) return {FTypedOver, {}};  // what was shown is not doubted
    return ReadNumber(Word, GetLimits(),
                      [this](double Value) { return FView.GetPreviewText(FRecord, FColumn.GetIndex(), Value); });
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

void TCellEditor::Doubt() {
    FHeld = false;
    OnChanged();
}

void TCellEditor::CellWritten(const Variant& Value) {
    if (FModified && !IsPopupShown()) return;
    if (!FModified && Value == FValue) return;
    ForgetTyping();
    FModified = false;
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
