// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/HintController.h"

namespace fw {

THintController::THintController() = default;
THintController::~THintController() = default;

void THintController::ShowHint(int ScreenX, int ScreenY, const Text& Hint, const Text& Caption, int /*Reserved*/) {
    if (FShown && ScreenX == FX && ScreenY == FY && Hint == FText && Caption == FCaption) return;
    FShown = true;
    FX = ScreenX;
    FY = ScreenY;
    FText = Hint;
    FCaption = Caption;
    OnChanged();
}

void THintController::HideHint() {
    if (!FShown) return;
    FShown = false;
    OnChanged();
}

void THintController::SetFontSizes(int Caption, int TextSize) {
    if (Caption == FCaptionFontSize && TextSize == FTextFontSize) return;
    FCaptionFontSize = Caption;
    FTextFontSize = TextSize;
    OnChanged();
}

}  // namespace fw
