// SPDX-License-Identifier: GPL-3.0-or-later
// 10,000 quote updates a second while ten payoff views, a symbol selector and the positions are open: how long the
// window's thread is away from its loop.
#include <QTimer>

#include "bench/WindowDesk.h"
#include "bench/WindowMeasures.h"
#include "workstation/selector/SymbolSelector.h"

namespace bench {

namespace {

constexpr int kStrikes = 5000, kViews = 10;
constexpr size_t kShownSymbols = 1000;
constexpr int kUpdatesPerSecond = 10'000, kBatchMs = 10, kBurstMs = 1000;
constexpr char kOpenPositions[] = "open.702";

// Hears of every update of its symbols while it lives.
class TSubscriber {
public:
    TSubscriber(TDesk& Desk, const std::vector<std::string>& Symbols) : FDesk(Desk), FSymbols(Symbols) {
        for (const auto& Symbol : FSymbols)
            Service().Subscribe(
                &Item(Symbol), [this](fw::TObject*, fw::TObject*) { ++Told; }, &FOwner);
    }
    ~TSubscriber() {
        for (const auto& Symbol : FSymbols) Service().Unsubscribe(&Item(Symbol), &FOwner);
    }
    TSubscriber(const TSubscriber&) = delete;
    TSubscriber& operator=(const TSubscriber&) = delete;

    size_t Told = 0;

private:
    ws::TSubscriptionService& Service() { return FDesk.Workstation->Subscriptions(); }
    fw::TCustomSubItem& Item(const std::string& Symbol) { return *Service().GetSubItem(Symbol, fw::kPriceDataKind, 0); }

    TDesk& FDesk;
    std::vector<std::string> FSymbols;
    fw::TObject FOwner;
};

// Hands updates to the subscriptions as a market does: from the loop, so many each time, round and round.
class TUpdates {
public:
    TUpdates(TDesk& Desk, std::vector<std::string> Symbols, int EveryMs) : FDesk(Desk), FSymbols(std::move(Symbols)) {
        FTimer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&FTimer, &QTimer::timeout, [this] { Deliver(); });
        FBegan = TMoment::Now().Wall;
        FTimer.start(EveryMs);
    }

    size_t Delivered() const { return FDelivered; }

private:
    void Deliver() {
        const auto Due = static_cast<size_t>((TMoment::Now().Wall - FBegan) / 1000 * kUpdatesPerSecond);
        std::vector<std::string> Changed;
        for (; FDelivered < Due; ++FDelivered) Changed.push_back(FSymbols[FDelivered % FSymbols.size()]);
        FDesk.Workstation->Subscriptions().QuotesChanged(Changed);
    }

    TDesk& FDesk;
    std::vector<std::string> FSymbols;
    QTimer FTimer;
    double FBegan = 0.0;
    size_t FDelivered = 0;
};

// What the views show: the condor's legs, and the strikes around the middle, which the selector shows.
std::vector<std::string> ShownSymbols(const TBenchMarket& Market) {
    std::vector<std::string> Result{Market.Future()};
    for (const auto& Leg : Market.IronCondor(1).Legs) Result.push_back(Leg.Symbol);
    for (int I = (kStrikes - static_cast<int>(kShownSymbols) / 2) / 2; Result.size() < kShownSymbols; ++I)
        for (const char Side : {'C', 'P'}) Result.push_back(Market.Option(I, Side));
    return Result;
}

}  // namespace

void MeasureQuotes() {
    TDesk Desk{TBenchMarket(kStrikes)};
    for (int i = 0; i < kViews; ++i) Desk.Enter(Desk.OpenPayoff(), Desk.Market.IronCondor(1));
    Desk.Window->Commands().Run(kOpenPositions);
    Desk.Window->Docks().Docks().back()->setFloating(true);
    ws::TSymbolSelector Selector(
        Desk.Context, [&](const auto& M) { return Desk.Workstation->UnderlyingOf(M.Exchange, M.Series); }, nullptr,
        nullptr);
    Selector.Model().SetMarket({TBenchMarket::kExchange, TBenchMarket::kSeries, Desk.Market.Month()});
    Selector.resize(400, 400);
    Selector.show();
    Desk.Idle(1000);
    auto Figure = TDesk::Turns("quotes", "without updates");
    Figure.Limit = {};
    Figure.Print();

    const auto All = Desk.Market.Symbols();
    const auto Measure = [&](const std::vector<std::string>& Symbols, std::optional<int> EveryMs, const char* Case) {
        const TSubscriber Subscriber(Desk, Symbols);
        Desk.Idle(2000);
        std::optional<TUpdates> Updates;
        if (EveryMs) Updates.emplace(Desk, Symbols, *EveryMs);
        const size_t Before = Subscriber.Told;
        auto Measured = TDesk::Turns("quotes", Case);
        Measured.Updates = Subscriber.Told - Before;
        if (*Measured.Updates == 0 || (Updates && *Measured.Updates < Updates->Delivered() / 2))
            throw std::runtime_error("most updates did not arrive");
        Measured.Print();
    };
    Measure(ShownSymbols(Desk.Market), kBatchMs, "10,000 a second, every 10 ms");
    Measure(All, kBurstMs, "10,000 at once, every second");
    Measure(All, {}, "the simulated market of 10,001 contracts");
}

}  // namespace bench
