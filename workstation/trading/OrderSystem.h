// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <map>
#include <set>

#include "framework/base/Signal.h"
#include "workstation/store/Store.h"
#include "workstation/trading/OrderGateway.h"

namespace ws {

// Every order and execution of the workstation, each change in the store before anybody hears of it. An order is
// written before it is sent and is never sent again; an execution counts once, and its order, the execution and the
// holding change in one transaction. User-interface thread only.
class TOrderSystem : public IOrderEvents {
public:
    // Reads the store. Orders that an earlier run left without an end become unknown: the exchange has to be asked.
    // Both are borrowed and outlive the system. Throws EStoreError.
    TOrderSystem(TStore& Store, IOrderGateway& Gateway);
    ~TOrderSystem() override;

    // Writes the order and sends it; its client order id. Throws EStoreError: not written and not sent.
    std::string Place(const TOrderTicket& Ticket);
    // Asks the exchange; nothing for unknown ids and final states.
    void Cancel(const std::string& OrderId);
    void CancelAll();

    const std::deque<TOrderRow>& Orders() const;                       // oldest first
    const TOrderRow* Find(const std::string& OrderId) const;           // null when unknown; valid until the next change
    std::vector<THolding> Holdings(const std::string& Account) const;  // ascending by symbol; no flat ones
    std::vector<THolding> AllHoldings() const;                         // ascending by account and symbol

    fw::TSignal<const TOrderRow&> OnOrderChanged;  // also for new ones
    fw::TSignal<> OnHoldingsChanged;

    // From the gateway.
    void OrderAccepted(const std::string& OrderId) override;
    void OrderRejected(const std::string& OrderId, const TReason& Reason) override;
    void OrderFilled(const std::string& OrderId, const std::string& ExecutionId, double Qty, double Price) override;
    void OrderCancelled(const std::string& OrderId) override;
};

}  // namespace ws
