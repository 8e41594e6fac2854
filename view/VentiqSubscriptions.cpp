// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqSubscriptions.h"

#include <utility>
#include <vector>

#include "engine/VentiqMarketData.h"
#include "framework/base/Dispatch.h"
#include "framework/services/MarketAdapter.h"
#include "framework/services/SubscribeAdapter.h"

namespace ventiq {

namespace {

// The result of the request is of no interest: whatever becomes available arrives as market data.
void RequestRelatedSymbol(const Text& Symbol, const TCustomSubItem& Item) {
    Text Related;
    if (const auto* Product = ListedProduct(Symbol)) Related = Product->GetRelatedSymbol();
    if (Related.empty()) Related = Item.GetFieldText(kFieldSpreadCode);
    if (!Related.empty()) TCustomMarketAdapter::GetInstance().RequestSymbol(Related);
}

}  // namespace

bool TVentiqSubscriptions::CheckSymbolState(const Text& Symbol) {
    auto* Item = PriceDataItem(Symbol);
    const bool Ready = Item->GetState() == kItemReady;
    if (!Ready && FSubscribedList.emplace(Symbol, Item).second)
        TCustomSubscribeAdapter::GetInstance().Subscribe(
            Item, [this](TObject* Sender, TObject* Update) { SymbolUpdate(Sender, Update); }, &FOwner);
    RequestRelatedSymbol(Symbol, *Item);
    return Ready;
}

void TVentiqSubscriptions::SymbolUpdate(TObject*, TObject* Update) {
    const auto* Changes = dynamic_cast<const TCustomUpdate*>(Update);
    if (!Changes || Changes->GetCount() == 0) return;

    std::vector<Text> Keys;  // a snapshot: entries leave while the walk goes on
    for (const auto& [Symbol, Item] : FSubscribedList) Keys.push_back(Symbol);
    for (const auto& Key : Keys) {
        const auto Entry = FSubscribedList.find(Key);
        if (Entry == FSubscribedList.end()) continue;
        auto* Item = Entry->second;
        if (Item->GetState() == kItemReady) {
            FSubscribedList.erase(Entry);
            TCustomSubscribeAdapter::GetInstance().Unsubscribe(Item, &FOwner);
        }
        if (OnReCheckSymbol) OnReCheckSymbol(Item->GetSymbol());
    }
}

void TVentiqSubscriptions::ClearSubscribeList() {
    // Each on its own: a subscription that stayed would call a frame that is gone.
    for (const auto& Entry : std::exchange(FSubscribedList, {}))
        Dispatch("ClearSubscribeList",
                 [&] { TCustomSubscribeAdapter::GetInstance().Unsubscribe(Entry.second, &FOwner); });
}

}  // namespace ventiq
