// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "framework/trading/ClientOrder.h"
#include "workstation/services/LanguageService.h"
#include "workstation/trading/OrderSystem.h"

namespace ws {

// What the trading views ask of the workstation around them. Outlives them; the callbacks are never empty.
struct TTradingDesk {
    TOrderSystem& Orders;  // both borrowed
    const TLanguageService& Language;
    std::function<bool(const std::string& Account)> ShowsAccount;  // of the user who is logged in
    std::function<bool(const TReason& Question)> Ask;              // may run the loop until the user has answered
    std::function<void(const TReason& Sentence)> Say;
    // Hands the order to the view that legs are entered in, the one that was used last; false: none is open.
    std::function<bool(fw::TCustomClientOrder& Order)> Push;
};

}  // namespace ws
