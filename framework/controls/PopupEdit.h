// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

#include "framework/controls/Control.h"

namespace fw {

struct TPopupChoice {
    Text Code;   // goes to Hint
    Text Shown;  // goes to Text
};

// Editor with a drop-down of choices that the host serves. Text is what is shown, Hint carries the code behind it,
// Placeholder is shown while Text is empty; the three are separate.
class FRAMEWORK_API TPopupEdit : public TControl {
public:
    ~TPopupEdit() override;

    const Text& GetText() const { return FText; }
    void SetText(Text Value);
    const Text& GetHint() const { return FHint; }
    void SetHint(Text Value);
    const Text& GetPlaceholder() const { return FPlaceholder; }
    void SetPlaceholder(Text Value);

    const std::vector<TPopupChoice>& GetChoices() const { return FChoices; }
    void SetChoices(std::vector<TPopupChoice> Value);
    // The user takes a choice: text and hint, then the exit notification. Out of range: nothing.
    void Choose(int Index);

    void KeyPress(char Key);  // fires OnKeyPress
    void Exit();              // fires OnExit, as leaving the control does

    TNotifyEvent OnExit;
    std::function<void(TObject* Sender, char& Key)> OnKeyPress;

protected:
    void DoExit() override;

private:
    Text FText, FHint, FPlaceholder;
    std::vector<TPopupChoice> FChoices;
};

}  // namespace fw
