// SPDX-License-Identifier: Apache-2.0
// One workload, one JSON line, so that another program's result can be put beside it:
//   payoff_workload W1..W6 [engine|literal] [page|texts|sums]
//   payoff_workload check   holds the engine's rows against the literal ones, to the last bit; status 1 where they
//   differ
// A round calculates and then reads: page, 50 rows in the middle with their texts (of W4 all key prices); texts, every
// row with its text; sums, every P/L. checksum: the sum of every P/L that the first round reads. growth_kb: by how much
// the program's memory grew at most from before the first round on; what a round took and gave back counts.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>

#include "bench/LiteralPayoff.h"
#include "bench/ResidentMemory.h"

namespace {

using namespace bench;

constexpr double kMinSeconds = 1.0;
constexpr int kMinRounds = 5, kMaxRounds = 100'000;

struct TFigures {
    std::vector<double> Nanoseconds;
    double Checksum = 0.0;
    long GrowthKb = 0;

    double At(double Share) const { return Nanoseconds[static_cast<size_t>(Share * double(Nanoseconds.size() - 1))]; }
};

template <class TRound>
TFigures Measure(TRound Round) {
    TFigures Result;
    Result.Nanoseconds.reserve(kMaxRounds);
    const long Before = ResidentKb();
    double Seconds = 0.0;
    for (int I = 0; I < kMinRounds || (I < kMaxRounds && Seconds < kMinSeconds); ++I) {
        const auto Begin = std::chrono::steady_clock::now();
        const double Sum = Round();
        const std::chrono::duration<double> Took = std::chrono::steady_clock::now() - Begin;
        if (I == 0) Result.Checksum = Sum;
        Result.Nanoseconds.push_back(Took.count() * 1e9);
        Seconds += Took.count();
    }
    // Without the list of the times itself.
    Result.GrowthKb = MostResidentKb() - Before - static_cast<long>(Result.Nanoseconds.size() * sizeof(double) / 1024);
    std::sort(Result.Nanoseconds.begin(), Result.Nanoseconds.end());
    return Result;
}

// A way of reading, in the engine and, where there is one, by the letter.
struct TReading {
    std::string_view Name;
    double (*Engine)(TPayoff&);
    double (*Literal)(TPayoff&, TLiteralPayoff&);
};
constexpr TReading kReadings[] = {{"page", CalculateAndReadPage, CalculateAndReadPage},
                                  {"texts", CalculateAndReadTexts, CalculateAndReadTexts},
                                  {"sums", CalculateAndReadSums, nullptr}};

int Usage() {
    std::fputs("payoff_workload W1..W6 [engine|literal] [page|texts|sums]\npayoff_workload check\n", stderr);
    for (const auto& Each : Workloads()) std::fprintf(stderr, "  %s  %s\n", Each.Name.data(), Each.What.data());
    return 2;
}

int Check() {
    int64_t All = 0;
    for (const auto& Each : Workloads()) {
        TPayoff Payoff(Each);
        const int64_t Differences = CountDifferences(Payoff);
        std::printf("%s: %lld of %lld rows differ\n", Each.Name.data(), static_cast<long long>(Differences),
                    static_cast<long long>(Each.FitsInMemory ? Payoff.GetRowCount() : kSampleRows));
        All += Differences;
    }
    return All == 0 ? 0 : 1;
}

}  // namespace

int main(int Count, char** Arguments) {
    if (Count == 2 && std::string_view(Arguments[1]) == "check") return Check();
    const auto* Workload = Count > 1 ? FindWorkload(Arguments[1]) : nullptr;
    const std::string Way = Count > 2 ? Arguments[2] : "engine", Read = Count > 3 ? Arguments[3] : "page";
    const auto* Reading = std::find_if(std::begin(kReadings), std::end(kReadings),
                                       [&](const TReading& Each) { return Each.Name == Read; });
    const bool Literal = Way == "literal";
    if (!Workload || Count > 4 || (!Literal && Way != "engine") || Reading == std::end(kReadings) ||
        (Literal && !Reading->Literal) || (!Workload->HasTable && Read != "page"))
        return Usage();
    if (Literal && !Workload->FitsInMemory) {
        std::fprintf(stderr, "%s row by row needs more memory than a machine has.\n", Workload->Name.data());
        return 1;
    }

    TPayoff Payoff(*Workload);
    TLiteralPayoff ByTheLetter(Payoff);
    const TFigures Figures = Literal ? Measure([&] { return Reading->Literal(Payoff, ByTheLetter); })
                                     : Measure([&] { return Reading->Engine(Payoff); });
    const auto Rows = Literal ? static_cast<int64_t>(ByTheLetter.GetCount()) : Payoff.GetRowCount();
    std::printf(
        "{\"workload\":\"%s\",\"way\":\"%s\",\"read\":\"%s\",\"rows\":%lld,\"legs\":%d,\"median_ns\":%.0f,"
        "\"p99_ns\":%.0f,\"reps\":%zu,\"growth_kb\":%ld,\"checksum\":%.17g}\n",
        Workload->Name.data(), Way.c_str(), Read.c_str(), static_cast<long long>(Rows), Workload->Legs, Figures.At(0.5),
        Figures.At(0.99), Figures.Nanoseconds.size(), Figures.GrowthKb, Figures.Checksum);
    return 0;
}
