// SPDX-License-Identifier: Apache-2.0
// The data control's way from order legs to sent orders.
#include <algorithm>

#include "engine/VentiqDataControl.h"
#include "framework/base/Const.h"
#include "framework/base/Dispatch.h"
#include "framework/services/GlobalChannelManager.h"
#include "framework/services/LanguageManager.h"
#include "framework/services/MessageBoxCtrl.h"
#include "framework/services/OrderActionManager.h"
#include "framework/services/OrderAdapter.h"
#include "framework/trading/OrderTakeActionRecord.h"
#include "orders/VentiqBatchSubmitOrderDataControl.h"

namespace ventiq {

namespace {

bool PassChecks(const TClientOrderList& Orders) {
    return std::all_of(Orders.begin(), Orders.end(), [](const auto& Order) {
        return TCustomOrderActionManager::GetInstance().CheckOrder(*Order, kOrderAction, true);
    });
}

// Returns when the trader has answered. The table belongs to the listener of the channel from then on; with nobody
// there the answer is no.
bool Confirm(const TClientOrderList& Orders) {
    auto Table = std::make_unique<TCustomBatchSubmitOrderDataControl>(nullptr);
    Table->InitData(Orders);
    TOrderTakeActionRecord Request;
    Request.DataControl = Table.release();
    Request.Action = kOrderAction;
    Request.ViewId = kViewId;
    TCustomGlobalChannelManager::GetInstance().SendData(kChannelBatchConfirm, &Request);
    return Request.Result;
}

// One order that fails does not keep the confirmed others back.
void Send(const TClientOrderList& Orders) {
    for (const auto& Order : Orders) {
        Order->SetExtValue(kExtAllCheckFlag, kExtAllCheckValue);
        Dispatch("TakeAction", [&] {
            TCustomOrderActionManager::GetInstance().TakeAction(nullptr, *Order, kOrderAction, true);
        });
    }
}

}  // namespace

void TCustomVentiqDataControl::SubmitOrder() {
    auto& Messages = TCustomMessageBoxCtrl::GetInstance();
    if (FAccount.empty()) return Messages.ShowMessageCode(nullptr, kMessageNoAccount, nullptr, nullptr, nullptr);
    if (FPayOffOrderDataList.empty()) {
        Text Message;
        TCustomLanguageManager::GetInstance().GetResourceString(Message, Const::ResourceStringTag, "Res_NoOrderAdd");
        return Messages.ShowMessageText(nullptr, Message, 0, 0, 0);
    }
    // Whatever happens from here on, also an error in a check or in the dialog: nothing is left to be sent later.
    struct TFinally {
        TCustomVentiqDataControl& Control;
        ~TFinally() {
            Control.ClearOMSOrder();
            Control.ClearPayOffOrderData();
        }
    } Finally{*this};
    PrepareOMSOrder();
    if (!FOrderList.empty() && PassChecks(FOrderList) && Confirm(FOrderList)) Send(FOrderList);
}

void TCustomVentiqDataControl::PrepareOMSOrder() {
    ClearOMSOrder();
    for (const auto& Leg : FPayOffOrderDataList) {
        auto Order = TCustomOrderAdapter::GetInstance().CreateClientOrder();
        Order->SetAccount(FAccount);
        Order->SetSymbol(Leg->FSymbol);
        Order->SetSide(Leg->FSide);
        Order->SetPrice(Leg->FPremium);
        Order->SetQty(Leg->FQty);
        Order->SetOpenClose(Leg->FOpenClose);
        Order->SetPrincipal(Leg->FPrincipal);
        FOrderList.push_back(std::move(Order));
    }
}

}  // namespace ventiq
