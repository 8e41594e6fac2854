// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/SpinEdit.h"

#include "framework/base/Log.h"
#include "framework/controls/NumberInput.h"

namespace fw {

namespace {
constexpr std::string_view kGroupedPattern = "#,##0.########";
}

TSpinEdit::~TSpinEdit() = default;

void TSpinEdit::SetValue(const Variant& Value) {
    const auto Number = ToNumber(Value);
    if (!Number) return;
    const bool Typed = FModified;
    FModified = false;
    FEditText.clear();
    if (*Number == FValue) {
        if (Typed) OnValueChanged();
    } else {
        ChangeValue(*Number);
    }
}

void TSpinEdit::SetDisplayFormat(Text Pattern) {
    if (Pattern == FDisplayFormat) return;
    FDisplayFormat = std::move(Pattern);
    OnValueChanged();
}

Text TSpinEdit::GetText() const {
    if (FModified) return FEditText;
    if (FValue.IsNull()) return {};
    return FDisplayFormat == kGroupedPattern ? GroupedText(GetFloat()) : FloatToShortestText(GetFloat());
}

void TSpinEdit::SetEditText(Text Value) {
    EnsureFocus();
    if (Value == GetText()) return;
    FEditText = std::move(Value);
    FModified = true;
    OnValueChanged();
}

void TSpinEdit::PostEditor() {
    if (!FModified) return;
    FModified = false;  // first: a handler that posts again finds nothing
    const Text Typed = std::exchange(FEditText, {});
    if (Typed == GetText()) {  // typed back: the shown text may be shorter than the value
        OnValueChanged();
        return;
    }
    const auto Number = ReadNumber(Typed, FMinValue, FMaxValue);
    if (!Number) TLog::Warning("Res_LogNumberRefused", {Typed});
    if (Number && *Number != FValue)
        ChangeValue(*Number);
    else
        OnValueChanged();
}

void TSpinEdit::CancelEdit() {
    if (!FModified) return;
    FModified = false;
    FEditText.clear();
    OnValueChanged();
}

void TSpinEdit::KeyPress(char Key) {
    EnsureFocus();
    if (Key == kKeyEnter) PostEditor();
    if (!OnKeyPress) return;
    const auto Running = OnKeyPress;
    Dispatch(EventName("OnKeyPress"), [&] { Running(this, Key); });
}

void TSpinEdit::Spin(int Steps) {
    EnsureFocus();
    PostEditor();
    const Variant Stepped(StepNumber(GetFloat(), Steps, FIncrement, FMinValue, FMaxValue));
    if (Stepped != FValue) ChangeValue(Stepped);
}

void TSpinEdit::Exit() {
    PostEditor();
    FireNotify(OnExit, "OnExit");
}

void TSpinEdit::DoExit() { FireNotify(OnExit, "OnExit"); }

void TSpinEdit::ChangeValue(const Variant& Value) {
    FValue = Value;
    OnValueChanged();
    FireNotify(OnChange, "OnChange");
}

}  // namespace fw
