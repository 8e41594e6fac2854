// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <set>

#include "framework/base/Refusal.h"
#include "workstation/script/Player.h"
#include "workstation/script/ViewState.h"
#include "workstation/services/MarketService.h"
#include "workstation/services/SubscriptionService.h"

namespace ws {

// Inputs: market, range and legs, as undo and opening a strategy need them. Everything: layout text and account too,
// and a calculation where the results were on show and everything else came back; what a start needs.
enum class ERestore { Inputs, Everything };

// Brings a state back into a view: clears it, selects the market, enters the range, types the legs. Market data are
// asked for first and waited for; then all is done in one go, so that neither a leg nor a default range comes late.
// Whoever runs the loop asks Poll again and again until it is over. Presses Clear and Calculate and nothing else.
class TViewRestore {
public:
    // Stopped: the user changed the view meanwhile, or is typing; his input stays and nothing was restored.
    enum class EState { Waiting, Done, Stopped };
    using TWait = std::chrono::milliseconds;

    // Borrows frame and services for the time of the run. Patience: how long market lists and data may take.
    TViewRestore(fw::TFrame& Frame, const TMarketService& Market, TSubscriptionService& Subscriptions, TViewState State,
                 ERestore What, TWait Patience);

    // Goes as far as it can without waiting; Elapsed is the time since the run began.
    EState Poll(TWait Elapsed);
    // False: Poll would only go on waiting for data.
    bool MayPerform(TWait Elapsed) const { return !FBefore || DataArrived() || Elapsed >= FPatience; }

    // What did not come back, each a sentence whose first argument (%1), the view's caption, is left to the caller.
    const std::vector<fw::TRefusal>& Problems() const { return FProblems; }

private:
    void Begin();
    void AskForData(const TViewInputs& Before);
    bool DataArrived() const;
    bool UserWasHere();
    void Perform();
    void SelectMarket();
    void EnterRange();
    void TypeRows();
    bool TypeSymbol(int Row, const std::string& Symbol);
    void TypeCells(int Row, const TRowState& Cells);
    void TypeNumber(int Row, const TRowState& Cells, int Column, const char* Caption, std::optional<double> Number);
    void TypeChoice(int Row, const TRowState& Cells, int Column, const char* Caption, const std::string& Code);
    void TypeCell(const TStep& Step, const TRowState& Cells, const char* Caption, const std::string& Shown);
    void CheckAccount();
    void Report(std::string Key, std::vector<std::string> Args, fw::TRefusal Reason = {});

    fw::TFrame& FFrame;
    const TMarketService& FMarket;
    TSubscriptionService& FSubscriptions;
    TViewState FState;
    ERestore FWhat;
    TWait FPatience;
    TPlayer FPlayer;
    std::optional<TViewInputs> FBefore;  // what was in the view when its lists were there
    std::set<std::string> FAwaited;      // symbols
    std::vector<fw::TRefusal> FProblems;
};

}  // namespace ws
