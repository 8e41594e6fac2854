// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/base/Object.h"
#include "framework/base/Signal.h"

namespace fw {

// The content of a popup editor (symbol selection). Served by the host; views only hide it.
class FRAMEWORK_API TPopupControl : public TObject {
public:
    TPopupControl();
    ~TPopupControl() override;

    bool IsShown() const { return FShown; }
    void Show();
    void Hide();
    TSignal<> OnShownChanged;

private:
    bool FShown = false;
};

}  // namespace fw
