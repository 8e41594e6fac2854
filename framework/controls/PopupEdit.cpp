// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/PopupEdit.h"

namespace fw {

TPopupEdit::~TPopupEdit() = default;

void TPopupEdit::SetText(Text Value) {
    if (Value == FText) return;
    FText = std::move(Value);
    OnModelChanged();
}

void TPopupEdit::SetHint(Text Value) {
    if (Value == FHint) return;
    FHint = std::move(Value);
    OnModelChanged();
}

void TPopupEdit::SetPlaceholder(Text Value) {
    if (Value == FPlaceholder) return;
    FPlaceholder = std::move(Value);
    OnModelChanged();
}

void TPopupEdit::SetChoices(std::vector<TPopupChoice> Value) {
    FChoices = std::move(Value);
    OnModelChanged();
}

void TPopupEdit::Choose(int Index) {
    if (Index < 0 || Index >= static_cast<int>(FChoices.size()) || !EnsureFocus()) return;
    const TPopupChoice Choice = FChoices[static_cast<size_t>(Index)];  // a listener may replace the choices
    FHint = Choice.Code;
    FText = Choice.Shown;
    OnModelChanged();
    Exit();
}

void TPopupEdit::KeyPress(char Key) {
    if (!OnKeyPress) return;
    const auto Running = OnKeyPress;
    Dispatch(EventName("OnKeyPress"), [&] { Running(this, Key); });
}

void TPopupEdit::Exit() { FireNotify(OnExit, "OnExit"); }

void TPopupEdit::DoExit() { Exit(); }

}  // namespace fw
