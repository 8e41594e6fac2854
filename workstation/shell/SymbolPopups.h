// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <vector>

#include "framework/controls/PopupControl.h"
#include "framework/services/GlobalChannelManager.h"
#include "framework/view/Frame.h"
#include "workstation/renderers/RenderContext.h"
#include "workstation/selector/ChainSelector.h"

namespace ws {

// Serves the views' requests for a symbol-selection popup: one popup for each request, the option chain of the market
// that the view stands on when it opens. What is chosen goes to the view that asked.
class TSymbolPopups : public fw::TObject {
public:
    TSymbolPopups(TRenderContext& Context, TChainSelector::TUnderlying Underlying);
    ~TSymbolPopups() override;

    // The widget of one of its popups, for one opening; null for somebody else's.
    QWidget* MakeContent(fw::TPopupControl& Popup, QWidget* Parent);
    // The owner's requests are over: nothing is called back any more.
    void Forget(const fw::TObject& Owner);
    // After a change of the language.
    void Retranslate() { FOnRetranslate(); }

private:
    struct TPopup : fw::TPopupControl {
        fw::TObject* Owner = nullptr;
        fw::TDataEvent OnSelected;
        std::function<fw::TSelectedMarket()> OnGetMarket;
    };
    void Serve(fw::TObject* Record);

    TRenderContext& FContext;
    TChainSelector::TUnderlying FUnderlying;
    fw::TSignal<> FOnRetranslate;
    std::vector<std::unique_ptr<TPopup>> FPopups;  // kept until the end: views hold on to them
};

}  // namespace ws
