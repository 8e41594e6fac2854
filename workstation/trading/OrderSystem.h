// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "framework/base/Log.h"
#include "framework/base/Signal.h"
#include "workstation/store/StoreTransaction.h"
#include "workstation/trading/OrderGateway.h"

namespace ws {

// What the order system asks of whoever runs it. Each may be left empty.
struct TOrderHost {
    // The exchange's today, "yyyy/MM/dd"; empty: UTC's.
    std::function<std::string(const std::string& Symbol)> MarketDay;
    // In real price units; empty: there is none.
    std::function<std::optional<double>(const std::string& Symbol)> PreviousSettlement;
    // Runs a task from the loop, never at once, and not after the system has gone: what the gateway tells in one round
    // is then written in one transaction. Empty: each event is written at once.
    std::function<void(std::function<void()>)> Post;
};

// Every order and execution of the workstation, each change in the store before anybody hears of it. An order is
// written before it is sent and is never sent again; an execution counts once, and its order, the execution and the
// holding change in one transaction. What the gateway tells while the store cannot be written is kept, in order, until
// it can. User-interface thread only.
class TOrderSystem : public IOrderEvents {
public:
    // Reads the store. Orders that an earlier run left without an end become unknown: the exchange has to be asked.
    // Both are borrowed and outlive the system. Throws EStoreError.
    TOrderSystem(TStore& Store, IOrderGateway& Gateway, TOrderHost Host = {});
    ~TOrderSystem() override;
    TOrderSystem(const TOrderSystem&) = delete;
    TOrderSystem& operator=(const TOrderSystem&) = delete;

    // Writes the order and sends it; its client order id. Throws EStoreError: not written and not sent. An order whose
    // sending throws is unknown.
    std::string Place(const TOrderTicket& Ticket);
    // The same for a batch: all of it is written in one transaction, then each is sent in turn. Throws EStoreError:
    // none is written and none is sent.
    std::vector<std::string> PlaceAll(const std::vector<TOrderTicket>& Tickets);
    // Asks the exchange; nothing for unknown ids and final states.
    void Cancel(const std::string& OrderId);
    void CancelAll();

    const std::deque<TOrderRow>& Orders() const { return FOrders; }    // oldest first
    const TOrderRow* Find(const std::string& OrderId) const;           // null when unknown; valid until the next change
    std::vector<THolding> Holdings(const std::string& Account) const;  // ascending by symbol; no flat ones
    std::vector<THolding> AllHoldings() const;                         // ascending by account and symbol

    // Takes up what the gateway told and could not be written yet. The loop calls it every now and then.
    void Retry();
    // Reads the store again, after somebody else wrote orders or executions into it. Throws EStoreError.
    void Reload();

    fw::TSignal<const TOrderRow&> OnOrderChanged;  // also for new ones; once for all that a round changed
    fw::TSignal<> OnHoldingsChanged;

    // From the gateway.
    void OrderAccepted(const std::string& OrderId) override;
    void OrderRejected(const std::string& OrderId, const TReason& Reason) override;
    void OrderFilled(const std::string& OrderId, const std::string& ExecutionId, double Qty, double Price) override;
    void OrderCancelled(const std::string& OrderId) override;

private:
    using TEvent = std::function<void()>;  // runs inside FRound
    struct TFill {
        std::string OrderId, ExecutionId;
        double Qty, Price;
        std::string Day;
        int64_t Time;
    };
    // The executions of one account and symbol, and what they add up to on a day.
    struct TBook {
        std::vector<TExecutionRow> Executions;
        mutable std::optional<THolding> Holding;  // as of the two below
        mutable std::string Day;
        mutable std::optional<double> Settlement;
    };
    using TBookKey = std::pair<std::string, std::string>;  // account, symbol

    // Events that are written together (OrderEvents.cpp), and what is to be heard once they are.
    struct TRound {
        explicit TRound(TStore& Store) : Transaction(Store) {}
        TStoreTransaction Transaction;
        std::vector<std::function<void()>> Undo;  // takes what memory shows back, last first
        std::set<std::size_t> Changed;            // of FOrders
        bool Holdings = false;
        bool Behind = false;  // the store holds an execution that memory does not know
        std::vector<fw::TLogEntry> Log;
    };

    void Load();
    void LeaveToTheExchange();
    void Take(TEvent Event);
    void Tell(const TRound& Round) const;
    void KeepWaiting();
    void Accept(const std::string& OrderId);
    void End(const std::string& OrderId, EOrderState State, const TReason& Reason);
    void Fill(const TFill& Told);
    bool Write(TOrderRow Changed, const TExecutionRow* Execution = nullptr);
    void Log(fw::ELogLevel Level, std::string Key, std::vector<std::string> Args);
    const TOrderRow* Known(const std::string& OrderId);  // null, and a log line, when unknown
    static int64_t NowMs();
    std::string DayOf(const std::string& Symbol) const;
    const THolding& HoldingIn(const TBookKey& Key, const TBook& Book) const;

    TStore& FStore;
    IOrderGateway& FGateway;
    TOrderHost FHost;
    std::deque<TOrderRow> FOrders;
    std::map<std::string, std::size_t> FPlaces;  // order id -> index in FOrders
    std::set<std::string> FExecutionIds;
    std::map<TBookKey, TBook> FBooks;
    std::deque<TEvent> FWaiting;   // told by the gateway and not written yet, oldest first
    std::optional<TRound> FRound;  // while events are written and told
    bool FPosted = false;          // the loop is asked to call Retry
    bool FStalled = false;         // the store refused FWaiting
};

}  // namespace ws
