// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/base/Object.h"

namespace fw {

// One shared periodic tick (about ten a second), delivered on the user-interface thread.
class FRAMEWORK_API TCustomTimerControl : public TObject {
public:
    ~TCustomTimerControl() override;
    static TCustomTimerControl& GetInstance();
    static TCustomTimerControl* SetInstance(TCustomTimerControl* Service);

    virtual void AddTimerEvent(TObject* Owner, TNotifyEvent Handler) = 0;
    virtual void RemoveTimerEvent(TObject* Owner) = 0;
};

}  // namespace fw
