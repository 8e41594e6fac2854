// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/base/Object.h"
#include "framework/base/Signal.h"
#include "framework/base/Text.h"

namespace fw {

// One hint window of a frame. Screen coordinates.
class FRAMEWORK_API THintController : public TObject {
public:
    THintController();
    ~THintController() override;

    void ShowHint(int ScreenX, int ScreenY, const Text& Hint, const Text& Caption = {}, int Reserved = 0);
    void HideHint();

    bool IsShown() const { return FShown; }
    int GetX() const { return FX; }
    int GetY() const { return FY; }
    const Text& GetText() const { return FText; }
    const Text& GetCaption() const { return FCaption; }

    void SetFontSizes(int Caption, int TextSize);  // points
    int GetCaptionFontSize() const { return FCaptionFontSize; }
    int GetTextFontSize() const { return FTextFontSize; }

    TSignal<> OnChanged;

private:
    bool FShown = false;
    int FX = 0, FY = 0;
    Text FText, FCaption;
    int FCaptionFontSize = 8, FTextFontSize = 8;
};

}  // namespace fw
