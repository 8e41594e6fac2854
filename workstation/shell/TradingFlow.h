// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "workstation/services/Workstation.h"
#include "workstation/shell/Dialogs.h"
#include "workstation/shell/StatusLine.h"
#include "workstation/shell/ViewDocks.h"
#include "workstation/trading/BatchProgress.h"
#include "workstation/views/TradingDesk.h"

namespace ws {

// The window's side of the trading views: their questions, orders handed from one view to another, and the progress of
// a batch in the status bar. Borrows everything; outlives the catalog of views.
class TTradingFlow {
public:
    TTradingFlow(TWorkstation& Workstation, const TRenderContext& Context, TDialogs& Dialogs, QWidget& Window);
    ~TTradingFlow();

    TTradingDesk& Desk() { return FDesk; }
    // Where things are shown; null before the window has built them.
    void SetPlaces(TStatusLine* Status, TViewDocks* Docks);
    void Tick();

private:
    bool Push(fw::TCustomClientOrder& Order);

    TWorkstation& FWorkstation;
    TStatusLine* FStatus = nullptr;
    TViewDocks* FDocks = nullptr;
    TTradingDesk FDesk;
    TBatchWatch FBatches;
    fw::TConnection FLink;
};

}  // namespace ws
