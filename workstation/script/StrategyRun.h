// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

#include "workstation/script/Player.h"
#include "workstation/script/Strategy.h"
#include "workstation/services/MarketService.h"

namespace ws {

// Something that kept a strategy from being calculated; a resource key and its arguments.
struct TStrategyProblem {
    std::string Key;
    std::vector<std::string> Args;
};

// Types a strategy into a payoff view and calculates it: selects the market, types the symbols, waits for their market
// data, types the rest and presses Calculate. Market data arrive through the host's loop, so whoever runs the loop asks
// Poll again and again until the run is over.
class TStrategyRun {
public:
    enum class EState { Waiting, Done, Failed };
    using TWait = std::chrono::milliseconds;

    // Borrows view and market for the time of the run. Patience: how long the symbols may take to get their data.
    TStrategyRun(fw::TFrame& Frame, const TMarketService& Market, TStrategy Strategy, TWait Patience);

    // Goes as far as it can without waiting; Elapsed is the time since the run began.
    EState Poll(TWait Elapsed);

    // Why the run failed: every leg that is in its way is named.
    const std::vector<TStrategyProblem>& Problems() const { return FProblems; }

private:
    bool SelectMarket();
    void TypeSymbols();
    bool DataArrived() const;
    void NameLegsWithoutRow();
    void TypeLegs();
    void TypeRange();
    void Calculate();
    void Report(std::string Key, std::vector<std::string> Args) {
        FProblems.push_back({std::move(Key), std::move(Args)});
    }

    fw::TFrame& FFrame;
    const TMarketService& FMarket;
    TStrategy FStrategy;
    TWait FPatience;
    TPlayer FPlayer;
    bool FTyped = false;
    std::vector<std::string> FSymbols;  // as the view took them; "" where it refused
    std::vector<TStrategyProblem> FProblems;
};

}  // namespace ws
