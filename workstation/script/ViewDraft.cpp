// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/script/ViewDraft.h"

#include <algorithm>
#include <utility>

#include "framework/controls/ComboBox.h"
#include "framework/controls/GridTableView.h"
#include "framework/controls/PopupEdit.h"
#include "framework/controls/SpinEdit.h"

namespace ws {

namespace {

constexpr std::chrono::seconds kStartPatience{10};
constexpr std::chrono::seconds kStepPatience{2};  // the user waits for it

bool SameRange(const TViewInputs& A, const TViewInputs& B) {
    return A.Down == B.Down && A.Up == B.Up && A.Interval == B.Interval;
}

// What stood in the row stands there still; empty cells may have been filled.
bool IsFilled(const TRowState& Before, const TRowState& Now) {
    const auto Keeps = [](const auto& Old, const auto& New) {
        return Old == New || Old == std::remove_cvref_t<decltype(Old)>();
    };
    return Before.Symbol == Now.Symbol && Keeps(Before.Side, Now.Side) && Keeps(Before.OpenClose, Now.OpenClose) &&
           Keeps(Before.Principal, Now.Principal) && Keeps(Before.Premium, Now.Premium) && Keeps(Before.Qty, Now.Qty);
}

bool AreFilled(const std::vector<TRowState>& Before, const std::vector<TRowState>& Now) {
    return std::equal(Before.begin(), Before.end(), Now.begin(), Now.end(), IsFilled);
}

}  // namespace

TViewDraft::TViewDraft(fw::TFrame& Frame, const TMarketService& Market, TSubscriptionService& Subscriptions,
                       TStateJournal Journal)
    : FFrame(Frame), FMarket(Market), FSubscriptions(Subscriptions), FJournal(std::move(Journal)) {
    const auto Changed = [this] { FChanged = true; };
    for (const char* Name : kMarketCombos)
        if (auto* Combo = Frame.FindControl<fw::TComboBox>(Name)) FLinks += Combo->OnIndexChanged.Connect(Changed);
    for (const char* Name : kRangeEditors)
        if (auto* Editor = Frame.FindControl<fw::TSpinEdit>(Name))
            FLinks += Editor->OnValueChanged.Connect([this, Editor] {
                FChanged = true;
                if (Editor->HasFocus()) FRangeTouched = true;
            });
    if (auto* View = Frame.FindControl<fw::TGridTableView>(kLegsView)) {
        FLinks += View->OnRecordsChanged.Connect(Changed);
        FLinks += View->OnColumnsChanged.Connect(Changed);
        FLinks += View->OnEditorChanged.Connect(Changed);
        FLinks += View->OnCellChanged.Connect([Changed](int, int) { Changed(); });
        FLinks += View->OnEdited.Connect([this](int, int, const auto&, const auto&) { FCellTyped = true; });
    }
    if (auto* Account = Frame.FindControl<fw::TPopupEdit>(kAccountEditor))
        FLinks += Account->OnModelChanged.Connect(Changed);
    FLinks += Frame.OnStaleChanged.Connect(Changed);
    if (auto* Results = Frame.FindControl<fw::TGridTableView>(kResultsView))
        FLinks += Results->OnRecordsChanged.Connect(Changed);
}

void TViewDraft::RestoreLast(bool WithLayout) {
    if (!FJournal.Current()) return;
    TViewState Last = *FJournal.Current();
    if (!WithLayout) Last.Layout.clear();
    Begin(std::move(Last), ERestore::Everything, FJournal.Place(), kStartPatience);
}

void TViewDraft::Open(TViewState State) {
    FFrame.Controls().PostEditors();
    Capture();
    Begin(std::move(State), ERestore::Inputs, std::nullopt, kStepPatience);
}

bool TViewDraft::CanUndo() const {
    const size_t From = FTarget.value_or(FJournal.Place());
    return From > 0 && !FJournal.IsEmpty();
}

bool TViewDraft::CanRedo() const { return FTarget.value_or(FJournal.Place()) + 1 < FJournal.Count(); }

// While a step still waits for its market data, the next one goes on from there.
bool TViewDraft::Step(int By) {
    if (!FRestore) {
        FFrame.Controls().PostEditors();
        if (IsTyping(FFrame)) return false;
        Capture();
    }
    if (By < 0 ? !CanUndo() : !CanRedo()) return false;
    const size_t Target = FTarget.value_or(FJournal.Place()) + static_cast<size_t>(By);
    Begin(FJournal.At(Target), ERestore::Inputs, Target, kStepPatience);
    return true;
}

void TViewDraft::Begin(TViewState State, ERestore What, std::optional<size_t> Target, TWait Patience) {
    FTarget = Target;
    FRestoreBegan.reset();
    FRestore = std::make_unique<TViewRestore>(FFrame, FMarket, FSubscriptions, std::move(State), What, Patience);
    PollRestore(TWait(0));  // what needs no data is done at once
}

void TViewDraft::Poll(TWait Now) {
    if (FRestore) {
        if (!FRestoreBegan) FRestoreBegan = Now;
        return PollRestore(Now - *FRestoreBegan);
    }
    if (!FSeen) return Capture();
    if (std::exchange(FChanged, false)) {
        FChangedAt = Now;
        FWaiting = true;
    }
    if (FWaiting && Now - FChangedAt >= kQuiet && !IsTyping(FFrame)) Capture();
}

bool TViewDraft::MayPerform(TWait Now) const {
    return FRestore && FRestore->MayPerform(FRestoreBegan ? Now - *FRestoreBegan : TWait(0));
}

void TViewDraft::PollRestore(TWait Elapsed) {
    auto State = TViewRestore::EState::Waiting;
    try {
        State = FRestore->Poll(Elapsed);
    } catch (...) {  // not again and again
        FRestore.reset();
        FTarget.reset();
        throw;
    }
    if (State == TViewRestore::EState::Waiting) return;
    const auto Ended = std::exchange(FRestore, nullptr);
    const auto Target = std::exchange(FTarget, std::nullopt);
    FRangeTouched = FCellTyped = true;  // a strategy that was opened, or what the user did meanwhile
    if (State == TViewRestore::EState::Done && Target) {
        // What is in the view now counts as that state, also where something did not come back.
        FJournal.MoveTo(*Target);
        FSeen = CaptureView(FFrame);
        FChanged = FWaiting = FRangeTouched = FCellTyped = false;
        FRangeTyped = true;
    } else {
        Capture();
    }
    if (OnRestored) OnRestored(State, Ended->Problems());
}

void TViewDraft::Capture() {
    if (FRestore) return;
    FChanged = FWaiting = false;
    if (auto Now = CaptureView(FFrame)) Take(std::move(*Now));
}

// What the market did to the view goes into the state that is there; a user does not undo it.
void TViewDraft::Take(TViewState Now) {
    const bool RangeTouched = std::exchange(FRangeTouched, false), CellTyped = std::exchange(FCellTyped, false);
    if (FSeen && Now.Layout.empty()) Now.Layout = FSeen->Layout;
    if (!FSeen) {
        FJournal.Push(Now);
    } else if (Now == *FSeen) {
        return;
    } else {
        const bool RangeMoved = !SameRange(*FSeen, Now);
        TViewInputs Rest = Now;
        Rest.Down = FSeen->Down, Rest.Up = FSeen->Up, Rest.Interval = FSeen->Interval;
        if (!CellTyped && AreFilled(FSeen->Rows, Rest.Rows)) Rest.Rows = FSeen->Rows;
        const bool Users = Rest != FSeen->Inputs() || (RangeMoved && (RangeTouched || FRangeTyped));
        if (Users)
            FJournal.Push(Now);
        else if (FJournal.Current() && FJournal.Current()->Inputs() == FSeen->Inputs())
            FJournal.Replace(Now);
        if (RangeMoved) FRangeTyped = RangeTouched;
    }
    FSeen = std::move(Now);
}

}  // namespace ws
