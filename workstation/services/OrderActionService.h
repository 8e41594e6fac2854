// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <map>
#include <optional>

#include "framework/services/OrderActionManager.h"
#include "workstation/services/LanguageService.h"
#include "workstation/trading/BatchReview.h"

namespace ws {

// The two ends of a submission: the refusing checks before the confirmation, and the sending of what was confirmed.
// An order goes out only when its line was shown and ticked, only as it was shown, and only once.
class TOrderActionService : public fw::TCustomOrderActionManager {
public:
    // Records and sends an order; throws EStoreError when it could not be recorded and was not sent.
    using TPlaceOrder = std::function<void(const TOrderTicket& Ticket)>;
    TOrderActionService(IOrderFacts& Facts, const TLanguageService& Language, TPlaceOrder Place);

    // False when a refusing rule forbids the order or the check itself fails; with Flag the user is told why.
    bool CheckOrder(fw::TCustomClientOrder& Order, int Action, bool Flag) override;
    // When an order cannot be recorded, it and the rest of its batch stay; one message names what went out and what did
    // not.
    void TakeAction(fw::TObject* Owner, fw::TCustomClientOrder& Order, int Action, bool Flag) override;

    // The trader's answer to a confirmation: the rows as they were shown. Replaces every earlier answer; no rows:
    // nothing may be sent.
    void Confirmed(const std::vector<TReviewRow>& Rows);
    const std::optional<TSentBatch>& LastSent() const { return FLastSent; }

private:
    struct TShownOrder {
        TOrderTicket Ticket;  // with its place among those that are sent
        int Row = 0;          // in the confirmation, from 1
        bool Ticked = false;
        bool Taken = false;  // asked for once
        bool Sent = false;
    };
    // The user and the limits are read once for each round of checks: they come from the store.
    struct TRound {
        TTraderFacts Trader;
        TTradingLimits Limits;
    };
    std::optional<TReason> RefusalOf(const TOrderTicket& Order);
    void Send(TShownOrder& Shown);
    void Stop(const TReason& Reason);
    std::string Names(const std::function<bool(const TShownOrder& Order)>& Wanted) const;
    void Tell(const char* Key, std::vector<std::string> Args);

    IOrderFacts& FFacts;  // both borrowed
    const TLanguageService& FLanguage;
    TPlaceOrder FPlace;
    std::map<int64_t, TShownOrder> FShown;  // of the last confirmation, by line id
    std::optional<TSentBatch> FLastSent;
    std::string FBatchId;
    int FBatches = 0;
    bool FStopped = false;      // the store failed in this batch
    int64_t FLastChecked = -1;  // line ids of a batch follow each other
    int FCheckedPlace = 0;
    std::optional<TRound> FRound;  // none: the next check begins one
};

}  // namespace ws
