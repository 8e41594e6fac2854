// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "workstation/trading/OrderTypes.h"

namespace ws {

// What a route to an exchange tells about orders. Told from the loop, never from inside Send or Cancel; may come late,
// twice, out of order and for orders that nobody knows. Whoever listens copes with that.
class IOrderEvents {
public:
    virtual ~IOrderEvents() = default;
    virtual void OrderAccepted(const std::string& OrderId) = 0;
    virtual void OrderRejected(const std::string& OrderId, const TReason& Reason) = 0;
    // ExecutionId tells a repeated fill from a new one. Qty is above 0; the side is the order's.
    virtual void OrderFilled(const std::string& OrderId, const std::string& ExecutionId, double Qty, double Price) = 0;
    virtual void OrderCancelled(const std::string& OrderId) = 0;
};

// The one door to an exchange. The embedded paper exchange stands behind it by default, a real route later.
class IOrderGateway {
public:
    virtual ~IOrderGateway() = default;
    virtual void SetEvents(IOrderEvents* Events) = 0;  // borrowed; null: nobody listens
    // Called once an order, after the order is safe in the store.
    virtual void Send(const TOrderRow& Order) = 0;
    virtual void Cancel(const std::string& OrderId) = 0;
};

}  // namespace ws
