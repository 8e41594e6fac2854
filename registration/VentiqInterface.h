// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/view/BaseView.h"

namespace ventiq {

using namespace fw;

// Descriptor of the payoff view: where it stands in the host's menu, what it is called, and the door to new instances.
// Holds no state of its own.
class TIVentiq : public TIBaseView {
public:
    TIVentiq();
    ~TIVentiq() override;

    Text GetName() override;
    int GetViewID() override;
    int GetMenuLevel() override;
    // Levels: 0 the menu, 1 the view's own entry; of other levels there is none (-1, 0, "").
    int GetMenuIndex(int Level) override;
    int GetMenuID(int Level) override;
    Text GetMenuCaption(int Level) override;
    int GetMenuGroupIndex(int Level) override;
    bool GetIsVisible() override;
    // Handle of a new frame. An error of its construction reaches the caller; nothing is recorded then.
    int64_t OpenNewInstance() override;
    bool GetDefaultSize(int& Width, int& Height) override;
    bool GetDefaultCaption(Text& Caption) override;
};

// Registers the descriptor's class with the host, once however often the unit is initialised. Finalising undoes the
// count only: the host keeps the class.
void InitializeVentiqInterface();
void FinalizeVentiqInterface();

}  // namespace ventiq
