// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/script/FirstStart.h"

namespace ws {

namespace {

// Contracts by their symbols in the sample's base month.
struct TBaseLeg {
    const char* Symbol;
    ELegSide Side;
};

constexpr TBaseLeg kIronCondor[] = {
    {"HSI25000X6", ELegSide::Buy},
    {"HSI25600X6", ELegSide::Sell},
    {"HSI27400L6", ELegSide::Sell},
    {"HSI28000L6", ELegSide::Buy},
};

constexpr double kDown = 24000;
constexpr double kUp = 29000;
constexpr double kInterval = 100;

}  // namespace

TStrategy FirstStartStrategy(const TStore& Store) {
    TStrategy Strategy;
    for (const auto& Leg : kIronCondor) {
        const auto Symbol = Store.CurrentSampleSymbol(Leg.Symbol);
        if (Symbol.empty()) return {};
        Strategy.Legs.push_back({Symbol, Leg.Side, {}, 1.0});
    }
    Strategy.Down = kDown;
    Strategy.Up = kUp;
    Strategy.Interval = kInterval;
    return Strategy;
}

}  // namespace ws
