// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "framework/trading/OrderTakeActionRecord.h"
#include "workstation/renderers/RenderContext.h"
#include "workstation/services/LanguageService.h"
#include "workstation/services/OrderActionService.h"
#include "workstation/services/OrderService.h"

namespace ws {

class TBatchDialog;

// Serves the requests for a confirmation: one dialog at a time, over Parent. The batch's table is deleted when the
// dialog has closed; the answer goes into the request and to the action service. Borrows everything.
class TBatchConfirmation : public fw::TObject {
public:
    struct TServices {
        IOrderFacts& Facts;
        TOrderService& Orders;
        TOrderActionService& Actions;
        const TLanguageService& Language;
    };
    TBatchConfirmation(const TServices& Services, TRenderContext& Context, QWidget* Parent);
    ~TBatchConfirmation() override;

    // No view may close meanwhile: one of them is in the middle of its submission.
    bool IsOpen() const { return FOpen; }
    void Retranslate();

private:
    void Serve(fw::TOrderTakeActionRecord& Request);
    bool Ask(fw::TCustomDataControl& Table);

    TServices FServices;
    TRenderContext& FContext;
    QWidget* FParent;
    TBatchDialog* FDialog = nullptr;
    bool FOpen = false;
};

}  // namespace ws
