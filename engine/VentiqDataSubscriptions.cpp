// SPDX-License-Identifier: Apache-2.0
// The futures whose prices a default range waits for.
#include "engine/VentiqDataControl.h"
#include "framework/services/SubscribeAdapter.h"

namespace ventiq {

void TCustomVentiqDataControl::Subscribe(const Text& Symbol, TCustomSubItem* Item) {
    FSubscribedList[Symbol] = Item;
    TCustomSubscribeAdapter::GetInstance().Subscribe(
        Item, [this](TObject* Sender, TObject* Update) { SymbolUpdate(Sender, Update); }, this);
}

void TCustomVentiqDataControl::SymbolUpdate(TObject*, TObject* Update) {
    const auto* Counted = dynamic_cast<TCustomUpdate*>(Update);
    if (!Counted || Counted->GetCount() == 0) return;
    // What changed is not read: every pending entry is examined. A copy is walked, entries leave while it is.
    const auto Pending = FSubscribedList;
    for (const auto& [Symbol, Item] : Pending) {
        if (Item->GetState() != kItemReady || FSubscribedList.erase(Symbol) == 0) continue;
        TCustomSubscribeAdapter::GetInstance().Unsubscribe(Item, this);
        UpdateDefaultPrice(Item);
    }
}

}  // namespace ventiq
