// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqCaptionButtons.h"

#include "framework/base/Const.h"
#include "framework/base/KeepList.h"
#include "framework/view/BaseView.h"
#include "view/VentiqTexts.h"

namespace ventiq {

namespace {

// What a button shows in one of its two states; the index is that of the form's caption images.
struct TButtonFace {
    int ImageIndex;
    const char* Hint;
};

constexpr TButtonFace kLess{0, "Res_Less"}, kMore{1, "Res_More"}, kShowHint{2, "Res_ShowHint"},
    kHideHint{3, "Res_HideHint"};

void Show(TCaptionButton& Button, const TButtonFace& Face) {
    Button.ImageIndex = Face.ImageIndex;
    Button.Hint = GetResourceHeader(Face.Hint);
}

}  // namespace

TVentiqCaptionButtons::~TVentiqCaptionButtons() {
    // The buttons outlive the frame, their handlers may not.
    for (auto* Button : {FShowHideButton, FHintButton})
        if (Button) Button->OnClick = nullptr;
}

void TVentiqCaptionButtons::CreateList() { FList = Keep(std::make_unique<TCaptionButtonList>()); }

void TVentiqCaptionButtons::CreateButtons() {
    FShowHideButton = Keep(std::make_unique<TCaptionButton>());
    FShowHideButton->OnClick = [this](TObject* Sender) { btnShowHideClick(Sender); };
    FList->push_back(FShowHideButton);
    FHintButton = Keep(std::make_unique<TCaptionButton>());
    FHintButton->OnClick = [this](TObject* Sender) { btnShowHideHintClick(Sender); };
    FList->push_back(FHintButton);
}

// Called for clicks and restored layouts only. Deliberate: a language switch leaves the hints as they are until then.
void TVentiqCaptionButtons::UpdateCaptionButtons() {
    const bool Collapsed = FShowHideButton->State != 0;
    Show(*FShowHideButton, Collapsed ? kMore : kLess);
    FForm.PositionGroup.SetVisible(!Collapsed);
    FForm.liDetailGrid.SetVisible(!Collapsed);
    Show(*FHintButton, FHintButton->State != 0 ? kHideHint : kShowHint);
}

void TVentiqCaptionButtons::btnShowHideClick(TObject*) { Toggle(*FShowHideButton); }
void TVentiqCaptionButtons::btnShowHideHintClick(TObject*) { Toggle(*FHintButton); }

void TVentiqCaptionButtons::Toggle(TCaptionButton& Button) {
    Button.State = Button.State != 0 ? 0 : 1;
    UpdateCaptionButtons();
    Baseview::SendViewNotify(&FView, kViewNotifyCaptionButtons);
}

}  // namespace ventiq
