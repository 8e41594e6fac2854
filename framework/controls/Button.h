// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/controls/Control.h"

namespace fw {

class FRAMEWORK_API TButton : public TControl {
public:
    ~TButton() override;

    const Text& GetCaption() const { return FCaption; }
    void SetCaption(Text Value);

    TNotifyEvent OnClick;

    // Enabled and with a handler. A button without one is shown disabled.
    bool CanClick() const { return IsEnabled() && OnClick != nullptr; }
    // Takes the focus, so that open editors are posted (also when it has the focus already), then runs OnClick; what it
    // throws is caught and logged. OnClick does not run when the button cannot be clicked, or when an editor of the
    // frame refuses what is typed into it.
    void Click();

private:
    Text FCaption;
};

}  // namespace fw
