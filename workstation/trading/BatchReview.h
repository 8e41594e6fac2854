// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>

#include "framework/data/DataControl.h"
#include "framework/trading/ClientOrder.h"
#include "workstation/trading/OrderChecks.h"

namespace ws {

// A batch that went out, for telling an equal one that follows it.
struct TSentBatch {
    std::vector<TOrderTicket> Orders;
    int64_t Time = 0;  // milliseconds since 1970
};

struct TReviewRow {
    int64_t LineId = 0;  // of the order; 0: nobody knows the order behind the row, it can never be sent
    TOrderTicket Order;
    bool Ticked = false;
    bool Blocked = false;            // cannot be ticked
    bool UntickedByMarket = false;   // was ticked until it became blocked
    std::vector<TFinding> Findings;  // in the order of the rules
    bool Warns() const;              // a warning, or a block
};

struct TBatchTotals {
    int Rows = 0, Ticked = 0;
    double BuyQty = 0.0, SellQty = 0.0;
    std::map<std::string, double> NetPremium;  // by currency: above 0 received, below 0 paid; options only
    int WithoutPremium = 0;                    // options whose multiplier nobody states: they are not in NetPremium
};

// The confirmation without its window: rows of a batch table, what is ticked and what is to be said about each. Only
// what can be ticked can be sent.
class TBatchReview {
public:
    using TFindOrder = std::function<const fw::TCustomClientOrder*(int64_t LineId)>;

    // All borrowed; they outlive the review. The table may be of any class; whatever it throws leaves the constructor.
    TBatchReview(fw::TCustomDataControl& Table, const TFindOrder& FindOrder, IOrderFacts& Facts,
                 std::optional<TSentBatch> LastSent);

    const std::vector<TReviewRow>& Rows() const { return FRows; }
    std::set<std::string> Symbols() const;  // of the orders that are known

    // Blocked rows stay unticked; rows out of range are passed over. Every row is judged anew with the facts of the
    // last Judge: what is ticked above a row counts for it.
    void SetTicked(const std::vector<int>& Rows, bool Ticked);
    // Judges with the facts of this moment. Ticks stay, except of rows that are blocked now.
    void Judge();

    TBatchTotals Totals() const;
    std::optional<TReason> BatchWarning() const;
    bool CanSend() const;  // a row is ticked
    // A ticked row warns, a row is blocked, or the batch as a whole warns.
    bool HasWarning() const;
    // What is said about the ticked rows, by row, and (row -1) of the batch: for telling whether there is more of it.
    std::set<std::pair<int, ERule>> Said() const;
    // First finding of the order's row; none for other orders and for rows without.
    std::optional<TReason> RemarkOf(int64_t LineId) const;

private:
    void ReadRows(fw::TCustomDataControl& Table, const TFindOrder& FindOrder);
    void JudgeRows();

    IOrderFacts& FFacts;
    std::optional<TSentBatch> FLastSent;
    std::vector<TReviewRow> FRows;
    std::map<int64_t, size_t> FRowOf;  // by line id
    TTradingLimits FLimits;
    TTraderFacts FTrader;
    std::map<std::string, TContractFacts> FContracts;  // by symbol
    std::map<std::string, THeldQuantities> FHeld;      // by account
};

// The order without its place in a batch.
TOrderTicket TicketOf(const fw::TCustomClientOrder& Order);
// The same order to the last bit, wherever it stands in a batch.
bool IsSameOrder(const TOrderTicket& A, const TOrderTicket& B);

}  // namespace ws
