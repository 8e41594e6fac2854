// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/Button.h"

namespace fw {

TButton::~TButton() = default;

void TButton::SetCaption(Text Value) {
    if (Value == FCaption) return;
    FCaption = std::move(Value);
    OnModelChanged();
}

void TButton::Click() {
    if (!CanClick()) return;
    if (HasFocus())
        PostFrameEditors();
    else
        SetFocus();
    if (CanClick() && !IsHeldElsewhere()) FireNotify(OnClick, "OnClick");  // posting may have disabled it
}

}  // namespace fw
