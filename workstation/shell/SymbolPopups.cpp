// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/SymbolPopups.h"

#include <algorithm>

#include "framework/base/Dispatch.h"
#include "framework/market/Product.h"
#include "workstation/selector/SymbolSelector.h"

namespace ws {

namespace {

class TChosenSymbol : public fw::TCustomMarketData {
public:
    explicit TChosenSymbol(fw::Text Symbol) : FSymbol(std::move(Symbol)) {}
    fw::Text GetSymbol() const override { return FSymbol; }

private:
    fw::Text FSymbol;
};

// A selector that hears of the language for as long as it lives.
class TPopupSelector : public TSymbolSelector {
public:
    using TSymbolSelector::TSymbolSelector;
    fw::TConnection Link;
};

}  // namespace

TSymbolPopups::TSymbolPopups(TRenderContext& Context, TChainSelector::TUnderlying Underlying)
    : FContext(Context), FUnderlying(std::move(Underlying)) {
    fw::TCustomGlobalChannelManager::GetInstance().Subscribe(
        fw::kChannelSymbolPopup, [this](fw::TObject*, fw::TObject* Record) { Serve(Record); }, this);
}

TSymbolPopups::~TSymbolPopups() {
    fw::TCustomGlobalChannelManager::GetInstance().Unsubscribe(fw::kChannelSymbolPopup, this);
}

void TSymbolPopups::Serve(fw::TObject* Record) {
    auto* Request = dynamic_cast<fw::TPopupRequestRecord*>(Record);
    if (!Request) return;
    auto& Popup = *FPopups.emplace_back(std::make_unique<TPopup>());
    Popup.Owner = Request->Owner;
    Popup.OnSelected = Request->OnSelected;
    Popup.OnGetMarket = Request->OnGetMarket;
    Request->Control = &Popup;
}

QWidget* TSymbolPopups::MakeContent(fw::TPopupControl& Popup, QWidget* Parent) {
    const auto Found = std::find_if(FPopups.begin(), FPopups.end(), [&](const auto& P) { return P.get() == &Popup; });
    if (Found == FPopups.end()) return nullptr;
    TPopup* Known = Found->get();
    const auto Chosen = [this, Known](const fw::Text& Symbol) {
        TChosenSymbol Data(Symbol);
        const auto Receiver = Known->OnSelected;
        if (Receiver) fw::Dispatch("symbol popup", [&] { Receiver(this, &Data); });
        Known->Hide();
    };
    auto* Selector = new TPopupSelector(FContext, FUnderlying, Chosen, Parent);
    Selector->Link = FOnRetranslate.Connect([Selector] { Selector->Retranslate(); });
    if (Known->OnGetMarket)
        Selector->Model().SetMarket(
            fw::DispatchValue("market of the popup", fw::TSelectedMarket(), [&] { return Known->OnGetMarket(); }));
    return Selector;
}

void TSymbolPopups::Forget(const fw::TObject& Owner) {
    for (const auto& Each : FPopups)
        if (Each->Owner == &Owner) Each->OnSelected = nullptr, Each->OnGetMarket = nullptr;
}

}  // namespace ws
