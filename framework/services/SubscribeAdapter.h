// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/market/SubItem.h"

namespace fw {

// Market data by symbol. Only Subscribe requests data; updates come from the host's loop, never from inside a call.
class FRAMEWORK_API TCustomSubscribeAdapter : public TObject {
public:
    ~TCustomSubscribeAdapter() override;
    static TCustomSubscribeAdapter& GetInstance();
    static TCustomSubscribeAdapter* SetInstance(TCustomSubscribeAdapter* Service);

    // Always an item, also for an unknown or empty symbol (state 0, no fields). Flags 1: do not begin to request
    // anything.
    virtual TCustomSubItem* GetSubItem(const Text& Symbol, const Text& DataKind, int Flags) = 0;
    // Handler gets (Sender, Update); Update is a TCustomUpdate.
    virtual void Subscribe(TCustomSubItem* Item, TDataEvent Handler, TObject* Owner) = 0;
    virtual void Unsubscribe(TCustomSubItem* Item, TObject* Owner) = 0;
};

}  // namespace fw
