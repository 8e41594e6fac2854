// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <span>
#include <string_view>

#include "bench/LeanMarket.h"
#include "engine/VentiqDataControl.h"
#include "tests/support/FakeHost.h"

namespace bench {

enum class ELegs { IronCondor, Mixed };

// A strategy, and what of its result somebody looks at.
struct TWorkload {
    std::string_view Name;
    std::string_view What;
    ELegs Kind;
    int Legs;
    double Interval;    // the range is kDown..kUp
    bool HasTable;      // else key prices only
    bool EditsPremium;  // one premium is another before each calculation; the legs are entered anew, as the view does
    bool FitsInMemory;  // as texts and numbers row by row
};

inline constexpr double kDown = 15000.0, kUp = 25000.0;
inline constexpr int kStrikes = 500;
inline constexpr int32_t kPageRows = 50;

// Where the page begins that is read: in the middle, and of every table at the same place in the blocks in which the
// engine computes rows, whatever power of two they have up to 128.
int32_t PageBegin(int64_t Rows);

// W1 to W6.
std::span<const TWorkload> Workloads();
const TWorkload* FindWorkload(std::string_view Name);

// A workload in the engine, on a host of its own.
class TPayoff {
public:
    explicit TPayoff(const TWorkload& Workload);

    const TWorkload& Workload;
    void EnterLegs(double Extra);  // Extra is added to the first premium
    // What the user does before a calculation: nothing, or a premium other than the one that stands.
    void Edit();
    int64_t GetRowCount();  // of the table, or of the key prices

private:
    support::TFakeHost FHost;  // first: outlives what it serves
    fw::TScopedService<fw::TCustomSubscribeAdapter> FMarketScope;
    struct TEntry {
        fw::Text Symbol;
        int Side;
        double Premium, Qty;
    };
    std::vector<TEntry> FEntries;
    int FEdits = 0;

public:
    ventiq::TCustomVentiqDetailDataControl Detail;
    ventiq::TCustomVentiqDataControl Control;
};

// One round of a workload: what the user did, the calculation, and what is then read. The sum of every P/L read, so
// that two ways can be held against each other.
double CalculateAndReadPage(TPayoff& Payoff);   // kPageRows rows in the middle, texts and P/L; of key prices: all
double CalculateAndReadTexts(TPayoff& Payoff);  // every row, text and P/L
double CalculateAndReadSums(TPayoff& Payoff);   // every P/L

}  // namespace bench
