// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

#include "framework/base/Const.h"
#include "framework/base/Object.h"
#include "framework/base/Text.h"

namespace fw {

class TPopupControl;

// The market that a view stands on; an empty text: not chosen yet.
struct TSelectedMarket {
    Text Exchange, Series;
    Text Month;  // "yyyy-MM", "-" and the week behind it for weekly contracts
    bool IsChosen() const { return !Exchange.empty() && !Series.empty() && !Month.empty(); }
    bool operator==(const TSelectedMarket&) const = default;
};

// Asks the listener of kChannelSymbolPopup for a symbol-selection popup. The listener fills Control (borrowed from the
// listener; it forgets both callbacks when Owner asks it to, or when Owner is unsubscribed).
class FRAMEWORK_API TPopupRequestRecord : public TObject {
public:
    TPopupRequestRecord();
    ~TPopupRequestRecord() override;
    TObject* Owner = nullptr;
    TDataEvent OnSelected;  // (Sender, Data): Data is a TCustomMarketData
    // Asked whenever the popup opens. Left out, or while nothing is chosen: the popup has nothing to offer.
    std::function<TSelectedMarket()> OnGetMarket;
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
