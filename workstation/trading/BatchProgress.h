// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>

#include "framework/base/Clock.h"
#include "framework/base/Log.h"
#include "workstation/trading/OrderTypes.h"

namespace ws {

// How far the orders of one batch are, leg by leg.
class TBatchProgress {
public:
    // An order of the batch, new or changed.
    void Take(const TOrderRow& Order);
    // The exchange has answered every leg, or it is not known what became of it.
    bool IsAnswered() const;
    bool HasProblem() const;  // a leg is refused or unknown
    // "%1 of %2 accepted, %3 filled", and which legs were refused or are unknown, with the first one's reason.
    TReason Sentence() const;

private:
    std::map<int, TOrderRow> FLegs;  // by place
    int FSize = 0;
};

TBatchProgress ProgressOf(const std::deque<TOrderRow>& Orders, const std::string& BatchId);

// The batches under way, as the status bar and the messages tell them: from the first order until ten seconds after the
// last answer. A batch whose answers do not come is told for a minute.
class TBatchWatch {
public:
    void Take(const TOrderRow& Order);
    // Lets go of what is over. Called every now and then. What a batch came to goes to the log, once.
    void Tick();
    // Of the batch that began last; an empty key: none is under way.
    TReason Sentence() const;

private:
    struct TRun {
        TBatchProgress Progress;
        fw::TClock::TTimePoint Changed;
        bool Told = false;
    };
    std::map<std::string, TRun> FRuns;
    std::deque<std::string> FBegun;  // ids of FRuns, oldest first
    std::set<std::string> FOver;
};

}  // namespace ws
