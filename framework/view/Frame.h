// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/base/Clock.h"
#include "framework/controls/Control.h"
#include "framework/controls/HintController.h"
#include "framework/controls/ImageList.h"
#include "framework/controls/LayoutControl.h"
#include "framework/view/CaptionButton.h"

namespace fw {

// One open view. The host talks to it through its descriptor and shows its controls by form name; the address is the
// instance's handle.
class FRAMEWORK_API TFrame : public TObject {
public:
    TFrame();
    ~TFrame() override;

    int64_t GetHandle() const { return reinterpret_cast<int64_t>(this); }

    // The controls by form name ("cmbExchange", "PositionGridView", ...).
    TFocusScope& Controls() { return FControls; }
    template <class T>
    T* FindControl(std::string_view Name) const {
        return dynamic_cast<T*>(FControls.Find(Name));
    }

    // What is drawn: the root of the layout tree, and the frame's hint window. Null: nothing.
    virtual TLayoutGroup* GetLayout() { return nullptr; }
    virtual THintController* GetHintController() { return nullptr; }

    // Host calls; the defaults do nothing.
    virtual bool SetLanguage(int LanguageId);
    virtual bool SetGroupID(const Text& GroupId);
    virtual bool GetGroupID(Text& GroupId);
    virtual Text GetLayoutData();
    virtual bool SetLayoutData(const Text& Data);
    virtual bool SetCustomData(int Kind, TObject* Data);
    virtual TCaptionButtonList* GetViewCaptionButtons();
    virtual TImageList* GetViewCaptionButtonImageList();

    // When the results on show were calculated, while the inputs on show differ from theirs; none: they belong
    // together. The host says so in the title.
    std::optional<TClock::TTimePoint> GetStaleSince() const { return FStaleSince; }
    void SetStaleSince(std::optional<TClock::TTimePoint> Calculated);
    TSignal<> OnStaleChanged;

private:
    TFocusScope FControls;
    std::optional<TClock::TTimePoint> FStaleSince;
};

}  // namespace fw
