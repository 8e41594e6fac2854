// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <memory>

#include "framework/controls/PopupControl.h"
#include "framework/services/GlobalChannelManager.h"
#include "framework/view/Frame.h"
#include "workstation/renderers/RenderContext.h"

namespace ws {

// Serves the views' requests for a symbol-selection popup: one popup for each request, a searchable list of everything
// that is listed. What is chosen goes to the view that asked.
class TSymbolPopups : public fw::TObject {
public:
    explicit TSymbolPopups(TRenderContext& Context);
    ~TSymbolPopups() override;

    // The widget of one of its popups; null for somebody else's.
    QWidget* MakeContent(fw::TPopupControl& Popup, QWidget* Parent);
    // The owner's requests are over: nothing is called back any more.
    void Forget(const fw::TObject& Owner);

private:
    struct TPopup : fw::TPopupControl {
        fw::TObject* Owner = nullptr;
        fw::TDataEvent OnSelected;
    };
    void Serve(fw::TObject* Record);

    TRenderContext& FContext;
    std::vector<std::unique_ptr<TPopup>> FPopups;  // kept until the end: views hold on to them
};

}  // namespace ws
