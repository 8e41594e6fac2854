// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

#include "workstation/script/ViewRestore.h"
#include "workstation/script/ViewStateJournal.h"

namespace ws {

// What an open view is like, followed through its control models into a journal, and brought back from there. Whoever
// runs the loop polls. Borrows frame and services.
class TViewDraft {
public:
    using TWait = TViewRestore::TWait;
    // How a restore ended, with what did not come back.
    using TOnRestored = std::function<void(TViewRestore::EState State, const std::vector<fw::TRefusal>& Problems)>;

    // Journal: what earlier sessions left. A view that does not call RestoreLast is a new one: its own first state
    // comes on top, so that undo brings the former ones back.
    TViewDraft(fw::TFrame& Frame, const TMarketService& Market, TSubscriptionService& Subscriptions,
               TStateJournal Journal);

    // Brings the current state of the journal back, results included, and the layout text unless a newer one is there.
    void RestoreLast(bool WithLayout = true);
    // One state back or forth. What was typed counts as a state of its own first. False: there is none, or what is
    // typed cannot be posted.
    bool Undo() { return Step(-1); }
    bool Redo() { return Step(1); }
    bool CanUndo() const;
    bool CanRedo() const;
    // Brings a state from elsewhere in, as a new step of the journal.
    void Open(TViewState State);
    bool IsNew() const { return !FSeen; }  // nothing was captured yet
    bool IsRestoring() const { return FRestore != nullptr; }
    bool MayPerform(TWait Now) const;  // Poll may type into the view

    // Now counts from any moment and never goes back. A change becomes a state once nothing has changed for a while.
    void Poll(TWait Now);
    // At once: what waits for quiet. Text that is not posted is no part of it.
    void Capture();

    TStateJournal& Journal() { return FJournal; }
    TOnRestored OnRestored;

    static constexpr TWait kQuiet{300};

private:
    bool Step(int By);
    void Begin(TViewState State, ERestore What, std::optional<size_t> Target, TWait Patience);
    void PollRestore(TWait Elapsed);
    void Take(TViewState Now);

    fw::TFrame& FFrame;
    const TMarketService& FMarket;
    TSubscriptionService& FSubscriptions;
    TStateJournal FJournal;
    std::unique_ptr<TViewRestore> FRestore;
    std::optional<TWait> FRestoreBegan;
    std::optional<size_t> FTarget;    // place in the journal that is being restored; none: a state from elsewhere
    std::optional<TViewState> FSeen;  // what was captured last
    bool FChanged = false, FWaiting = false;         // since it was captured: just now; some time ago
    bool FRangeTouched = false, FCellTyped = false;  // and that by the user
    bool FRangeTyped = false;                        // the range that was captured last is the user's
    TWait FChangedAt{};
    fw::TConnections FLinks;
};

}  // namespace ws
