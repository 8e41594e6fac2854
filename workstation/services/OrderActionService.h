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
    struct TRoute {
        // Records the orders together, then sends them; throws EStoreError when they could not be recorded and none
        // was sent.
        std::function<void(const std::vector<TOrderTicket>& Orders)> Place;
        std::function<void(std::function<void()> Task)> Later;  // runs the task from the loop
    };
    TOrderActionService(IOrderFacts& Facts, const TLanguageService& Language, TRoute Route);

    // False when a refusing rule forbids the order or the check itself fails; with Flag the user is told why.
    bool CheckOrder(fw::TCustomClientOrder& Order, int Action, bool Flag) override;
    // The orders of a batch go out together with its last one; when that does not come, from the loop. When they
    // cannot be recorded, one message names what went out and what did not.
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
        bool Taken = false;    // asked for once
        bool Waiting = false;  // taken and free to be sent
        bool Sent = false;
    };
    // The user and the limits are read once for each round of checks: they come from the store.
    struct TRound {
        TTraderFacts Trader;
        TTradingLimits Limits;
    };
    std::optional<TReason> RefusalOf(const TOrderTicket& Order);
    void Send();  // what was taken and waits
    void Stop(const TReason& Reason);
    std::string Names(const std::function<bool(const TShownOrder& Order)>& Wanted) const;
    void Tell(const char* Key, std::vector<std::string> Args);

    IOrderFacts& FFacts;  // both borrowed
    const TLanguageService& FLanguage;
    TRoute FRoute;
    std::map<int64_t, TShownOrder> FShown;  // of the last confirmation, by line id
    std::optional<TSentBatch> FLastSent;
    std::string FBatchId;
    int FBatches = 0;
    bool FStopped = false;      // the store failed in this batch
    bool FPosted = false;       // Send waits in the loop
    int FOpen = 0;              // ticked and not taken yet
    int64_t FLastChecked = -1;  // line ids of a batch follow each other
    int FCheckedPlace = 0;
    std::optional<TRound> FRound;  // none: the next check begins one
};

}  // namespace ws
