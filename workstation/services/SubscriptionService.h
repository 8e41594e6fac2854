// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <deque>
#include <map>
#include <memory>
#include <set>
#include <unordered_set>

#include "framework/base/OwnerRegistrations.h"
#include "framework/services/SubscribeAdapter.h"
#include "workstation/services/LoopQueue.h"
#include "workstation/services/MarketService.h"

namespace ws {

class TSubscriptionItem;

// Where prices come from. QuoteOf answers null while there is none. Now is the market's own time, in which it states
// the times of its quotes.
struct TQuoteSource {
    std::function<void(const std::string& Symbol)> Watch;
    std::function<const TQuoteRow*(const std::string& Symbol)> QuoteOf;
    std::function<std::chrono::system_clock::time_point()> Now;
};

// Market-data items. An item knows nothing until somebody subscribed to it and the market answered from the loop: then
// its contract and its price are there (state 1), or the market lists no such contract (state 2). A listed contract
// that never trades stays at state 0. What was asked for once is kept up to date for the process.
class TSubscriptionService : public fw::TCustomSubscribeAdapter {
public:
    static constexpr size_t kSlice = 1000;

    TSubscriptionService(const TMarketService& Market, TLoopQueue& Queue, TQuoteSource Quotes);
    ~TSubscriptionService() override;

    fw::TCustomSubItem* GetSubItem(const fw::Text& Symbol, const fw::Text& DataKind, int Flags) override;
    void Subscribe(fw::TCustomSubItem* Item, fw::TDataEvent Handler, fw::TObject* Owner) override;
    void Unsubscribe(fw::TCustomSubItem* Item, fw::TObject* Owner) override;

    // Asks the market for a symbol's data without a listener of one's own.
    void Request(const fw::Text& Symbol);
    // The market has new prices. Items take them up in the next rounds of the loop, as they are then; who asks the
    // market itself has them at once.
    void QuotesChanged(const std::vector<std::string>& Symbols);
    // The listed market changed: everything that was asked for is asked again.
    void MarketChanged();
    // Symbols that were asked for and have no answer yet.
    std::vector<std::string> Pending() const;
    bool HasOwners() const;

private:
    using THandlers = fw::TOwnerRegistrations<fw::TObject*, fw::TObject*>;
    TSubscriptionItem& ItemOf(const std::string& Symbol);
    void AnswerLater(const std::string& Symbol);
    void AnswerSlice();
    bool TakeUp(const std::string& Symbol);
    void TellUntold();
    std::optional<std::chrono::system_clock::time_point> TimeOf(const TQuoteRow& Quote,
                                                                const std::string& Exchange) const;

    const TMarketService& FMarket;  // both borrowed
    TLoopQueue& FQueue;
    TQuoteSource FQuotes;
    std::map<std::string, std::unique_ptr<TSubscriptionItem>> FItems;
    std::map<std::string, THandlers> FHandlers;
    std::set<std::string> FRequested;
    std::deque<std::string> FWaiting;            // symbols to be brought up to date
    std::unordered_set<std::string> FIsWaiting;  // the same
    std::deque<std::string> FUntold;             // symbols that are, of which subscribers are to be told
};

}  // namespace ws
