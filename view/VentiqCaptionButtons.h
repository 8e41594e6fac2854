// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/view/CaptionButton.h"
#include "view/VentiqForm.h"

namespace fw {
class TFrame;
}

namespace ventiq {

// The two buttons in the view's title bar: show/hide (state other than 0: position group and detail grid hidden) and
// hint (state 1: the chart tells the values under the mouse).
class TVentiqCaptionButtons {
public:
    // View is what the host is told about; borrowed like the form.
    TVentiqCaptionButtons(TVentiqForm& Form, TFrame& View) : FForm(Form), FView(View) {}
    ~TVentiqCaptionButtons();
    TVentiqCaptionButtons(const TVentiqCaptionButtons&) = delete;
    TVentiqCaptionButtons& operator=(const TVentiqCaptionButtons&) = delete;

    // List and buttons go to the host for good: the process keeps them, nobody frees them.
    void CreateList();
    void CreateButtons();
    TCaptionButtonList* GetList() const { return FList; }  // null before CreateList

    TCaptionButton* GetShowHideButton() const { return FShowHideButton; }  // null before CreateButtons
    TCaptionButton* GetHintButton() const { return FHintButton; }
    // Exactly 1: another state, as a restored layout may bring, draws the button as pressed but shows no hint.
    bool IsHintOn() const { return FHintButton && FHintButton->State == 1; }

    // Images, hints and the hidden panels, by the buttons' states.
    void UpdateCaptionButtons();
    void btnShowHideClick(TObject* Sender);
    void btnShowHideHintClick(TObject* Sender);

private:
    void Toggle(TCaptionButton& Button);
    TVentiqForm& FForm;
    TFrame& FView;
    TCaptionButtonList* FList = nullptr;  // the three are kept by the process
    TCaptionButton* FShowHideButton = nullptr;
    TCaptionButton* FHintButton = nullptr;
};

}  // namespace ventiq
