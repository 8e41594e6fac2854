// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/SpinEdit.h"

#include "framework/base/Log.h"

namespace fw {

namespace {
constexpr std::string_view kGroupedPattern = "#,##0.########";
constexpr int kPatternDecimals = 8;
}  // namespace

TSpinEdit::TSpinEdit() {
    FFormatLinks += NumberFormatChanging().Connect([this] { PostEditor(); });
    FFormatLinks += NumberFormatChanged().Connect([this] {
        FRefusal.reset();
        OnValueChanged();
    });
}

TSpinEdit::~TSpinEdit() = default;

void TSpinEdit::SetValue(const Variant& Value) {
    const auto Number = ToNumber(Value);
    if (!Number) return;
    const bool Typed = FModified;
    DropEditText();
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

Text TSpinEdit::ShownText(double Value) const {
    return FDisplayFormat == kGroupedPattern ? FormatNumber(Value, kPatternDecimals, true) : FormatShortest(Value);
}

Text TSpinEdit::GetText() const {
    if (FModified) return FEditText;
    return FValue.IsNull() ? Text() : ShownText(GetFloat());
}

void TSpinEdit::SetEditText(Text Value) {
    if (!EnsureFocus()) return OnValueChanged();
    if (Value == GetText()) {
        if (!FModified) FRefusal.reset();
        return;
    }
    FEditText = std::move(Value);
    FModified = true;
    FRefusal.reset();
    OnValueChanged();
}

void TSpinEdit::PostEditor() {
    if (!FModified || FRefusal) return;
    const Text Typed = FEditText;
    DropEditText();            // first: a handler that posts again finds nothing
    if (Typed == GetText()) {  // typed back: the shown text may be shorter than the value
        OnValueChanged();
        return;
    }
    const auto Read = ReadNumber(Typed, FLimits, [this](double Value) { return ShownText(Value); });
    if (Read.Ambiguous) {
        FEditText = Typed;
        FModified = true;
    }
    FRefusal = Read.Refusal;
    if (Read.Refusal) TLog::Warning(Read.Refusal->Key, Read.Refusal->Args);
    if (Read.Value && *Read.Value != FValue)
        ChangeValue(*Read.Value);
    else
        OnValueChanged();
}

void TSpinEdit::DropEditText() {
    FModified = false;
    FEditText.clear();
    FRefusal.reset();
}

void TSpinEdit::CancelEdit() {
    if (!FModified) return;
    DropEditText();
    OnValueChanged();
}

std::optional<TRefusal> TSpinEdit::EnterNumber(double Number) {
    if (!std::isfinite(Number) || !FLimits.Allow(Number)) return NumberRefusal(FormatShortest(Number));
    SetValue(Number);
    return std::nullopt;
}

void TSpinEdit::KeyPress(char Key) {
    if (!EnsureFocus()) return;
    if (Key == kKeyEnter) {
        PostEditor();
        if (KeepsFocus()) return;
    }
    if (!OnKeyPress) return;
    const auto Running = OnKeyPress;
    Dispatch(EventName("OnKeyPress"), [&] { Running(this, Key); });
}

void TSpinEdit::Spin(int Steps) {
    if (!EnsureFocus()) return;
    PostEditor();
    if (KeepsFocus()) return;
    const Variant Stepped(StepNumber(GetFloat(), Steps, FIncrement, FLimits));
    if (Stepped != FValue) ChangeValue(Stepped);
}

void TSpinEdit::Exit() {
    PostEditor();
    if (!KeepsFocus()) FireNotify(OnExit, "OnExit");
}

void TSpinEdit::DoExit() { FireNotify(OnExit, "OnExit"); }

void TSpinEdit::ChangeValue(const Variant& Value) {
    FValue = Value;
    OnValueChanged();
    FireNotify(OnChange, "OnChange");
}

}  // namespace fw
