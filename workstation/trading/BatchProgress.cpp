// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/trading/BatchProgress.h"

#include <algorithm>
#include <array>

namespace ws {

namespace {

constexpr std::chrono::seconds kShownAfterAnswer{10};
constexpr std::chrono::seconds kPatience{60};
constexpr int kNamedLegs = 8;  // in one sentence; the rest stands row by row in Orders

bool IsTaken(const TOrderRow& Order) {
    constexpr std::array kTaken{EOrderState::Accepted, EOrderState::PartlyFilled, EOrderState::Filled,
                                EOrderState::Cancelled};
    return std::find(kTaken.begin(), kTaken.end(), Order.State) != kTaken.end();
}

}  // namespace

void TBatchProgress::Take(const TOrderRow& Order) {
    FLegs[Order.Place] = Order;
    FSize = std::max({FSize, Order.BatchSize, static_cast<int>(FLegs.size())});
}

bool TBatchProgress::IsAnswered() const {
    return static_cast<int>(FLegs.size()) == FSize && std::none_of(FLegs.begin(), FLegs.end(), [](const auto& Leg) {
               return Leg.second.State == EOrderState::New;
           });
}

bool TBatchProgress::HasProblem() const {
    return std::any_of(FLegs.begin(), FLegs.end(), [](const auto& Leg) {
        return Leg.second.State == EOrderState::Rejected || Leg.second.State == EOrderState::Unknown;
    });
}

TReason TBatchProgress::Sentence() const {
    struct TProblem {
        EOrderState State;
        const char* Key;
    };
    // Of both, the one that somebody has to do something about.
    constexpr std::array kProblems{TProblem{EOrderState::Unknown, "Res_BatchProgressUnknown"},
                                   TProblem{EOrderState::Rejected, "Res_BatchProgressRefused"}};
    int Taken = 0, Filled = 0;
    for (const auto& [Place, Leg] : FLegs) {
        Taken += IsTaken(Leg);
        Filled += Leg.State == EOrderState::Filled;
    }
    TReason Result{"Res_BatchProgress", {std::to_string(Taken), std::to_string(FSize), std::to_string(Filled)}};
    for (const TProblem& Problem : kProblems) {
        std::string Places;
        int Named = 0;
        const TReason* Reason = nullptr;
        for (const auto& [Place, Leg] : FLegs) {
            if (Leg.State != Problem.State) continue;
            if (++Named <= kNamedLegs) Places += (Places.empty() ? "" : ", ") + std::to_string(Place);
            if (!Reason) Reason = &Leg.Reason;
        }
        if (!Reason) continue;
        if (Named > kNamedLegs) Places += ", \u2026";
        Result.Key = Problem.Key;
        Result.Args.push_back(Places);
        Result.Args.push_back(Reason->Key.empty() ? "Res_OrderNoReason" : Reason->Key);
        Result.Args.insert(Result.Args.end(), Reason->Args.begin(), Reason->Args.end());
        break;
    }
    return Result;
}

TBatchProgress ProgressOf(const std::deque<TOrderRow>& Orders, const std::string& BatchId) {
    TBatchProgress Result;
    for (const TOrderRow& Order : Orders)
        if (Order.BatchId == BatchId) Result.Take(Order);
    return Result;
}

void TBatchWatch::Take(const TOrderRow& Order) {
    if (Order.BatchId.empty() || FOver.contains(Order.BatchId)) return;
    auto It = FRuns.find(Order.BatchId);
    if (It == FRuns.end()) {
        if (Order.State != EOrderState::New) return;  // of an earlier run of the program
        It = FRuns.try_emplace(Order.BatchId).first;
        FBegun.push_back(Order.BatchId);
    }
    It->second.Progress.Take(Order);
    It->second.Changed = fw::TClock::Now();
}

void TBatchWatch::Tick() {
    const auto Now = fw::TClock::Now();
    for (auto It = FRuns.begin(); It != FRuns.end();) {
        TRun& Run = It->second;
        const bool Answered = Run.Progress.IsAnswered();
        const bool Over = Now - Run.Changed >= (Answered ? kShownAfterAnswer : kPatience);
        if ((Answered || Over) && !std::exchange(Run.Told, true)) {
            const TReason Said = Run.Progress.Sentence();
            const bool Calm = Answered && !Run.Progress.HasProblem();
            fw::TLog::Write(Calm ? fw::ELogLevel::Info : fw::ELogLevel::Warning, Said.Key, Said.Args);
        }
        if (Over) {
            FOver.insert(It->first);
            std::erase(FBegun, It->first);
            It = FRuns.erase(It);
        } else {
            ++It;
        }
    }
}

TReason TBatchWatch::Sentence() const {
    return FBegun.empty() ? TReason() : FRuns.at(FBegun.back()).Progress.Sentence();
}

}  // namespace ws
