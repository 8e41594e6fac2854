// SPDX-License-Identifier: Apache-2.0
#include "bench/Workload.h"

#include <algorithm>
#include <numeric>

#include "framework/base/Numbers.h"

namespace bench {

using namespace ventiq;

namespace {

constexpr double kMultiplier = 50.0;
constexpr int32_t kPlace = 128;
constexpr double kEdit = 0.25;  // what an edit adds to the premium

constexpr TWorkload kWorkloads[] = {
    {"W1", "iron condor, step 1", ELegs::IronCondor, 4, 1.0, true, false, true},
    {"W2", "iron condor, step 0.01", ELegs::IronCondor, 4, 0.01, true, false, true},
    {"W3", "1,000 mixed legs over 500 strikes, step 1", ELegs::Mixed, 1000, 1.0, true, false, true},
    {"W4", "10,000 mixed legs over 500 strikes, key prices only", ELegs::Mixed, 10000, 1.0, false, false, true},
    {"W5", "iron condor, step 1, one premium edited", ELegs::IronCondor, 4, 1.0, true, true, true},
    {"W6", "iron condor, step 0.00005", ELegs::IronCondor, 4, 0.00005, true, false, false},
};

struct TOption {
    double Strike;
    const char* Kind;
    int Side;
    double Premium;
};
constexpr TOption kCondor[] = {{18000, "P", kSideBuy, 42.5},
                               {19000, "P", kSideSell, 96.25},
                               {21000, "C", kSideSell, 104.75},
                               {22000, "C", kSideBuy, 51.0}};

fw::Text SymbolOf(double Strike, const fw::Text& Kind) { return "HSI" + PriceKey(Strike) + Kind + "9"; }

}  // namespace

std::span<const TWorkload> Workloads() { return kWorkloads; }

const TWorkload* FindWorkload(std::string_view Name) {
    const auto* Found = std::find_if(std::begin(kWorkloads), std::end(kWorkloads),
                                     [&](const TWorkload& Each) { return Each.Name == Name; });
    return Found == std::end(kWorkloads) ? nullptr : Found;
}

int32_t PageBegin(int64_t Rows) {
    const auto Middle = static_cast<int32_t>(Rows / 2);
    return Middle - Middle % kPlace + kPlace / 2;
}

TPayoff::TPayoff(const TWorkload& W) : Workload(W), FMarketScope(std::make_unique<TLeanMarket>()) {
    auto& Market = static_cast<TLeanMarket&>(fw::TCustomSubscribeAdapter::GetInstance());
    if (W.Kind == ELegs::IronCondor) {
        for (const auto& Each : kCondor) {
            Market.AddOption(SymbolOf(Each.Strike, Each.Kind), Each.Strike, Each.Kind, kMultiplier);
            FEntries.push_back({SymbolOf(Each.Strike, Each.Kind), Each.Side, Each.Premium, 1.0});
        }
    } else {
        for (int I = 0; I < kStrikes; ++I)
            for (const char* Kind : {"C", "P"}) {
                const double Strike = kDown + (kUp - kDown) / kStrikes * I;
                Market.AddOption(SymbolOf(Strike, Kind), Strike, Kind, kMultiplier);
            }
        Market.AddFuture("HSIZ9", kMultiplier);
        for (int I = 0; I < W.Legs; ++I) {
            const double Strike = kDown + (kUp - kDown) / kStrikes * (I % kStrikes);
            const bool Future = I % 11 == 10;
            FEntries.push_back({Future ? "HSIZ9" : SymbolOf(Strike, I % 3 == 0 ? "P" : "C"), I / 2 % 2,
                                Future ? 20000.0 + I % 7 : 12.25 + 0.5 * (I % 90), 1.0 + I % 5});
        }
    }
    if (W.HasTable) Control.SetDetailControl(&Detail);
    Control.SetDownLimit(kDown);
    Control.SetUpLimit(kUp);
    Control.SetInterval(W.Interval);
    EnterLegs(0.0);
}

void TPayoff::Edit() {
    if (Workload.EditsPremium) EnterLegs(++FEdits % 2 * kEdit);
}

void TPayoff::EnterLegs(double Extra) {
    Control.Reset();
    for (const auto& Each : FEntries) {
        Control.AddRecord(Each.Symbol, Each.Side, Each.Premium + Extra, Each.Qty);
        Extra = 0.0;
    }
}

int64_t TPayoff::GetRowCount() { return Workload.HasTable ? Detail.GetCount() : Control.GetCount(); }

namespace {

// The compiler takes the text for used.
void Keep(const fw::Text& Text) { asm volatile("" : : "r"(Text.data()) : "memory"); }

double ReadTexts(TPayoff& Payoff, int32_t First, int32_t Count) {
    double Sum = 0.0;
    for (int32_t Row = First; Row < First + Count; ++Row) {
        Keep(Payoff.Detail.GetDataList().At(Row));
        Sum += Payoff.Detail.GetRows().SumAt(Row);
    }
    return Sum;
}

double ReadKeyPrices(TPayoff& Payoff) {
    double Sum = 0.0, Price = 0.0, PL = 0.0;
    for (int32_t I = 0; Payoff.Control.GetPrice(I, Price) && Payoff.Control.GetPL(I, PL); ++I) Sum += PL;
    return Sum;
}

void Calculate(TPayoff& Payoff) {
    Payoff.Edit();
    Payoff.Control.Calculate();
}

}  // namespace

double CalculateAndReadPage(TPayoff& Payoff) {
    Calculate(Payoff);
    if (!Payoff.Workload.HasTable) return ReadKeyPrices(Payoff);
    return ReadTexts(Payoff, PageBegin(Payoff.Detail.GetCount()), kPageRows);
}

double CalculateAndReadTexts(TPayoff& Payoff) {
    Calculate(Payoff);
    return ReadTexts(Payoff, 0, Payoff.Detail.GetCount());
}

double CalculateAndReadSums(TPayoff& Payoff) {
    Calculate(Payoff);
    std::array<double, 4096> Sums;
    const int32_t Count = Payoff.Detail.GetCount();
    double Sum = 0.0;
    for (int32_t First = 0; First < Count;) {
        const auto Part = std::span(Sums).first(static_cast<size_t>(std::min(4096, Count - First)));
        Payoff.Detail.GetRows().SumsFrom(First, Part);
        Sum = std::accumulate(Part.begin(), Part.end(), Sum);
        First += static_cast<int32_t>(Part.size());
    }
    return Sum;
}

}  // namespace bench
