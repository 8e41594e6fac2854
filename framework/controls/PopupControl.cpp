// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/PopupControl.h"

namespace fw {

TPopupControl::TPopupControl() = default;
TPopupControl::~TPopupControl() = default;

void TPopupControl::Show() {
    if (FShown) return;
    FShown = true;
    OnShownChanged();
}

void TPopupControl::Hide() {
    if (!FShown) return;
    FShown = false;
    OnShownChanged();
}

}  // namespace fw
