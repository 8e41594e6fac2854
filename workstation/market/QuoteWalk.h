// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The simulated market: one seeded random walk for every underlying, and every contract's quote repriced from it.
//   - An underlying is what series of one exchange share that have the same last price and the same volatility: a
//     standard and a small contract on one index move together.
//   - Futures (and everything else that is no option) are quoted around the underlying, options by the Black formula
//     with a smile, each on its price-step grid. Bid <= value <= ask, so call and put agree within their spreads;
//     the last price lies between bid and ask.
//   - Quotes stand still, as the store has them: those of imported series, expired contracts, contracts whose expiry or
//     strike cannot be read, series without an underlying price.
//   - A silent contract never has data; one with a delay has none until that long after it was first watched.
// Deterministic: seed, market, start and the steps decide everything; who watches what changes no price.
// Time to expiry is counted from the exchange's market day, or from the day on its own clock where it has none.
// A contract that nobody watches costs nothing; it is priced when somebody asks.

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "workstation/market/MarketRows.h"
#include "workstation/market/SpreadTable.h"

namespace ws {

class TQuoteWalk {
public:
    using TTimePoint = std::chrono::system_clock::time_point;

    TQuoteWalk(const TMarketSet& Market, std::uint64_t Seed, TTimePoint StartUtc);
    TQuoteWalk(const TQuoteWalk&) = delete;  // its contracts point into its own lists
    TQuoteWalk& operator=(const TQuoteWalk&) = delete;

    // Another market in place of the old one, e.g. after an import: underlyings that it shares with the old one go on
    // where they stand, watched symbols stay watched.
    void Replace(const TMarketSet& Market);

    // The quote as it stands now; null for a symbol that the market does not list. A row with an empty Time has no data
    // (silent, not yet arrived, or never quoted). Valid until the next call that is not const.
    const TQuoteRow* QuoteOf(const std::string& Symbol);

    // Counted: as many Unwatch as Watch. Symbols that the market does not list may be watched and are silent.
    void Watch(const std::string& Symbol);
    void Unwatch(const std::string& Symbol);

    // Time goes on by Seconds (0 or less: it stands). The watched symbols whose bid, ask or last changed or whose first
    // data have come, ascending.
    std::vector<std::string> Step(double Seconds);

    TTimePoint Now() const { return FNow; }
    std::string MarketDay(const std::string& Exchange) const;  // "yyyy/MM/dd"; of UTC for an unknown exchange
    // Where the walk of a series stands (an imported one: its last price); nothing without an underlying price.
    std::optional<double> UnderlyingOf(const std::string& Exchange, const std::string& Series) const;

private:
    struct TWalk {
        double Price;
        double Volatility;
        std::mt19937_64 Random;
    };
    struct TSeries {
        TWalk* Walk = nullptr;  // owned by FWalks; null = stands
        TExchangeRow Exchange;
        TSeriesRow Row;
    };
    enum class EPricing { Stands, Silent, Linear, Call, Put };
    struct TContract {
        EPricing Pricing = EPricing::Stands;
        const TSeries* Series = nullptr;      // owned by FSeries; null when the market lacks it
        const TSpreadTable* Steps = nullptr;  // owned by FTables or FDecimalSteps
        std::chrono::sys_days Expiry{};
        double Strike = 0.0;
        int DelaySeconds = 0;
        std::optional<double> DueAt;  // FElapsed at which the first data come, once watched
        std::uint64_t PricedAt = 0;   // FVersion of Quote; 0 = never
        bool Arrived = false;         // its first data have been reported
        TQuoteRow Quote;              // as it stands, also while its data are still on their way
    };

    void BuildSeries(const TMarketSet& Market);
    void BuildContracts(const TMarketSet& Market);
    void Prepare(TContract& Contract, const TProductRow& Product) const;
    TWalk* WalkOf(const TSeriesRow& Row);
    bool HasData(const TContract& Contract) const;
    bool Reprice(TContract& Contract);
    double ValueOf(const TContract& Contract) const;
    std::chrono::sys_days DayAt(const TExchangeRow& Exchange) const;
    static double Normal(std::mt19937_64& Random);

    std::uint64_t FSeed;
    TTimePoint FNow;
    double FElapsed = 0.0;       // seconds since the start
    std::uint64_t FVersion = 1;  // of all prices: grows with every step
    TSpreadTables FTables{std::vector<TSpreadBandRow>{}};
    std::map<int, TSpreadTable> FDecimalSteps;
    std::map<std::string, TExchangeRow> FExchanges;
    std::map<std::string, TWalk> FWalks;                             // by exchange, price and volatility; never removed
    std::map<std::pair<std::string, std::string>, TSeries> FSeries;  // by exchange and code
    std::unordered_map<std::string, TContract> FContracts;
    std::map<std::string, int> FWatched;  // symbol -> how often
    TQuoteRow FWithoutData;               // given out in place of a quote that has not come
};

}  // namespace ws
