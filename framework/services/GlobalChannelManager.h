// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/base/Const.h"
#include "framework/base/Object.h"

namespace fw {

class TPopupControl;

// Asks the listener of kChannelSymbolPopup for a symbol-selection popup. The listener fills Control (borrowed from the
// listener; it forgets OnSelected when Owner asks it to, or when Owner is unsubscribed).
class FRAMEWORK_API TPopupRequestRecord : public TObject {
public:
    TPopupRequestRecord();
    ~TPopupRequestRecord() override;
    TObject* Owner = nullptr;
    TDataEvent OnSelected;             // (Sender, Data): Data is a TCustomMarketData
    TPopupControl* Control = nullptr;  // out
};

// Numbered broadcast channels between the host and its views.
class FRAMEWORK_API TCustomGlobalChannelManager : public TObject {
public:
    ~TCustomGlobalChannelManager() override;
    static TCustomGlobalChannelManager& GetInstance();
    static TCustomGlobalChannelManager* SetInstance(TCustomGlobalChannelManager* Service);

    virtual void Subscribe(int Channel, TDataEvent Handler, TObject* Owner) = 0;
    virtual void Unsubscribe(int Channel, TObject* Owner) = 0;
    // Delivers synchronously to every subscriber; nobody there: nothing happens.
    virtual void SendData(int Channel, TObject* Record) = 0;
};

}  // namespace fw
