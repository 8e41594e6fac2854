// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

#include "workstation/script/Strategy.h"
#include "workstation/store/Store.h"

namespace bench {

// A series of the measures' own beside the sample's: one future, and a call and a put on so many strikes around the
// underlying, all in one month. Its quotes move with the simulated market.
struct TBenchMarket {
    static constexpr char kExchange[] = "HKFE";
    static constexpr char kSeries[] = "BNC";
    static constexpr double kLowest = 15000, kHighest = 25000;

    explicit TBenchMarket(int StrikeCount) : Strikes(StrikeCount) {}

    int Strikes;

    void Put(ws::TStore& Store) const;
    std::string Month() const;
    double Strike(int Number) const { return kLowest + Number * Step(); }
    std::string Option(int Number, char Side) const;
    std::string Future() const { return std::string(kSeries) + "F"; }
    std::vector<std::string> Symbols() const;  // every contract

    // Four legs on strikes 18,000 to 22,000, from the lowest strike to the highest; Interval decides the rows.
    ws::TStrategy IronCondor(double Interval) const;
    // Two legs on each strike, every tenth leg a future; bought and sold in turns.
    ws::TStrategy Mixed(int Legs, double Interval) const;

private:
    double Step() const { return (kHighest - kLowest) / Strikes; }
    ws::TStrategy Empty(double Interval) const;
};

inline constexpr int kChainLines = 20'000, kChainExpiries = 10;

// An option-chain file with so many lines below its header, over so many expiries.
void WriteChainFile(const std::filesystem::path& File, int Lines, int Expiries);

}  // namespace bench
