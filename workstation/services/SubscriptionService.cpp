// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/SubscriptionService.h"

#include <algorithm>

#include "framework/base/Clock.h"
#include "framework/base/Dispatch.h"
#include "workstation/market/MarketDay.h"
#include "workstation/market/QuotePrice.h"
#include "workstation/services/SubscriptionItem.h"

namespace ws {

TSubscriptionService::TSubscriptionService(const TMarketService& Market, TLoopQueue& Queue, TQuoteSource Quotes)
    : FMarket(Market), FQueue(Queue), FQuotes(std::move(Quotes)) {}
TSubscriptionService::~TSubscriptionService() = default;

TSubscriptionItem& TSubscriptionService::ItemOf(const std::string& Symbol) {
    auto& Item = FItems[Symbol];
    if (!Item) Item = std::make_unique<TSubscriptionItem>(Symbol);
    return *Item;
}

fw::TCustomSubItem* TSubscriptionService::GetSubItem(const fw::Text& Symbol, const fw::Text&, int) {
    return &ItemOf(Symbol);
}

void TSubscriptionService::Subscribe(fw::TCustomSubItem* Item, fw::TDataEvent Handler, fw::TObject* Owner) {
    const auto Symbol = Item->GetSymbol();
    FHandlers[Symbol].Add(Owner, std::move(Handler));
    // Somebody may come after the first answer: he is told too, from the loop.
    if (FRequested.count(Symbol))
        AnswerLater(Symbol);
    else
        Request(Symbol);
}

void TSubscriptionService::Unsubscribe(fw::TCustomSubItem* Item, fw::TObject* Owner) {
    if (const auto It = FHandlers.find(Item->GetSymbol()); It != FHandlers.end()) It->second.Remove(Owner);
}

void TSubscriptionService::Request(const fw::Text& Symbol) {
    ItemOf(Symbol);
    if (!FRequested.insert(Symbol).second) return;
    if (FMarket.FindProduct(Symbol)) FQuotes.Watch(Symbol);
    AnswerLater(Symbol);
}

void TSubscriptionService::AnswerLater(const std::string& Symbol) {
    if (!FIsWaiting.insert(Symbol).second) return;
    FWaiting.push_back(Symbol);
    if (FWaiting.size() == 1) FQueue.Post([this] { AnswerSlice(); });
}

// A view looks at everything it waits for whenever one symbol of it is told: it finds all of them up to date.
void TSubscriptionService::AnswerSlice() {
    for (size_t Taken = 0; Taken < kSlice && !FWaiting.empty(); ++Taken) {
        auto Symbol = std::move(FWaiting.front());
        FWaiting.pop_front();
        FIsWaiting.erase(Symbol);
        // A symbol whose data cannot be read costs nobody else his.
        if (fw::DispatchValue<bool>("market data of " + Symbol, false, [&] { return TakeUp(Symbol); }))
            FUntold.push_back(std::move(Symbol));
    }
    if (!FWaiting.empty()) FQueue.Post([this] { AnswerSlice(); });
    // A subscriber that runs a loop of its own (a message box) does not hold back the others.
    if (FUntold.size() > 1) FQueue.Post([this] { TellUntold(); });
    TellUntold();
}

// True: its subscribers are to be told.
bool TSubscriptionService::TakeUp(const std::string& Symbol) {
    auto& Item = ItemOf(Symbol);
    const auto* Product = FMarket.FindProduct(Symbol);
    if (!Product) return Item.TakeNothing(), true;
    const auto* Quote = FQuotes.QuoteOf(Symbol);
    if (!Quote) return false;  // comes later, or never
    const auto* Series = FMarket.FindSeries(Product->Exchange, Product->Series);
    Item.Take(*Product, ReferencePrice(*Quote, Series && Series->Imported));
    Item.TakeQuote(*Quote, TimeOf(*Quote, Product->Exchange));
    return true;
}

// The simulated market's time falls behind the process's clock, by every pause of the loop; a quote's age does not.
std::optional<std::chrono::system_clock::time_point> TSubscriptionService::TimeOf(const TQuoteRow& Quote,
                                                                                  const std::string& Exchange) const {
    const auto& Exchanges = FMarket.Market().Exchanges;
    const auto Row =
        std::find_if(Exchanges.begin(), Exchanges.end(), [&](const auto& E) { return E.Code == Exchange; });
    const auto At = MarketTimeOf(Quote.Time, Row == Exchanges.end() ? 0 : Row->UtcOffsetMinutes);
    if (!At || !FQuotes.Now) return At;
    return *At + (fw::TClock::Now() - FQuotes.Now());
}

void TSubscriptionService::TellUntold() {
    while (!FUntold.empty()) {
        const auto Symbol = std::move(FUntold.front());
        FUntold.pop_front();
        const auto It = FHandlers.find(Symbol);
        if (It == FHandlers.end()) continue;
        fw::TCustomUpdate Update(1);
        It->second.Notify("market data of " + Symbol, this, &Update);
    }
}

void TSubscriptionService::QuotesChanged(const std::vector<std::string>& Symbols) {
    for (const auto& Symbol : Symbols)
        if (FRequested.count(Symbol)) AnswerLater(Symbol);
}

void TSubscriptionService::MarketChanged() {
    for (const auto& Symbol : FRequested) {
        if (FMarket.FindProduct(Symbol)) FQuotes.Watch(Symbol);
        AnswerLater(Symbol);
    }
}

std::vector<std::string> TSubscriptionService::Pending() const {
    std::vector<std::string> Result;
    for (const auto& Symbol : FRequested)
        if (FItems.at(Symbol)->GetState() == fw::kItemUnknown) Result.push_back(Symbol);
    return Result;
}

bool TSubscriptionService::HasOwners() const {
    return std::any_of(FHandlers.begin(), FHandlers.end(), [](const auto& Entry) { return !Entry.second.IsEmpty(); });
}

}  // namespace ws
