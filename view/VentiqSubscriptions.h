// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <map>

#include "framework/market/SubItem.h"

namespace ventiq {

using namespace fw;

// The symbols of the position grid whose market data the frame waits for. An item is subscribed until it is ready.
class TVentiqSubscriptions {
public:
    // Owner is the identity under which the host knows the subscriptions.
    explicit TVentiqSubscriptions(TObject& Owner) : FOwner(Owner) {}

    // Symbol as handed in to the host's item; items are the host's.
    std::map<Text, TCustomSubItem*> FSubscribedList;

    // Called for every pending symbol on every update.
    std::function<void(const Text& Symbol)> OnReCheckSymbol;

    // Whether the symbol's data are there; subscribes when they are not. Asks the market in both cases to make the
    // symbol behind it available (the product's related symbol, else field 73).
    bool CheckSymbolState(const Text& Symbol);
    void SymbolUpdate(TObject* Sender, TObject* Update);
    // Lets go of every subscription, also when one fails (a log line); only when the frame ends.
    void ClearSubscribeList();

private:
    TObject& FOwner;  // borrowed, outlives the part
};

}  // namespace ventiq
