// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/script/RandomUser.h"
#include "workstation/script/ViewDraft.h"

namespace ws {

inline void PrintTo(const TViewInputs& Inputs, std::ostream* Out) {
    TViewState State;
    static_cast<TViewInputs&>(State) = Inputs;
    *Out << TextOfState(State);
}
inline void PrintTo(const TViewState& State, std::ostream* Out) { *Out << TextOfState(State); }

// A trader whose view is followed by a draft; the test drives the clock of both.
class TDraftFixture : public TRandomUser {
protected:
    std::unique_ptr<TViewDraft> Draft;
    std::vector<fw::TRefusal> Problems;  // of the restores that ended
    std::vector<TViewRestore::EState> Ended;
    TViewDraft::TWait Now{0};

    ~TDraftFixture() override { Draft.reset(); }

    void Follow(TStateJournal Journal = {}) {
        Draft = std::make_unique<TViewDraft>(Frame(), Station->Market(), Station->Subscriptions(), std::move(Journal));
        Draft->OnRestored = [this](auto State, const auto& Refused) {
            Ended.push_back(State);
            Problems.insert(Problems.end(), Refused.begin(), Refused.end());
        };
    }
    void OpenDraft(const std::string& User = {}) {
        Draft.reset();
        OpenView(User);
        Follow();
        Wait(1);
    }
    // A view of its own beside the same store: what a restart is.
    void Reopen(TStateJournal Journal) {
        Draft.reset();
        View.CloseInstance(std::exchange(Handle, 0));
        Handle = View.OpenNewInstance();
        Follow(std::move(Journal));
    }
    void Wait(int Ticks) {
        for (int i = 0; i < Ticks; ++i) {
            Station->Pump();
            Station->Tick();
            Now += TViewDraft::TWait(kTimerPeriodMs);
            Draft->Poll(Now);
        }
    }
    // Until what was changed is a state.
    void Settle() { Wait(6); }
    void WaitRestored() {
        for (int i = 0; i < 200 && Draft->IsRestoring(); ++i) Wait(1);
        ASSERT_FALSE(Draft->IsRestoring());
    }
    bool Undo() {
        const bool Done = Draft->Undo();
        WaitRestored();
        return Done;
    }
    bool Redo() {
        const bool Done = Draft->Redo();
        WaitRestored();
        return Done;
    }
    TViewState State() { return CaptureView(Frame()).value(); }
    TViewInputs Inputs() { return State(); }
    std::vector<std::string> Symbols() {
        std::vector<std::string> Result;
        for (const auto& Row : State().Rows) Result.push_back(Row.Symbol);
        return Result;
    }
    std::vector<std::string> ProblemKeys() const {
        std::vector<std::string> Result;
        for (const auto& Problem : Problems) Result.push_back(Problem.Key);
        return Result;
    }
    bool ChooseDecember() { return Choose("HKFE", "HSI", "2026-12"); }
    bool SetRange(double Down, double Up, double Interval) {
        return Play(TStep::EnterNumber("edtDown", Down)) && Play(TStep::EnterNumber("edtUp", Up)) &&
               Play(TStep::EnterNumber("edtInterval", Interval));
    }
    // What a store hands back of a journal.
    static TStateJournal Stored(const TStateJournal& Journal) {
        TJournalRows Rows;
        Rows.First = 7;
        Rows.Current = 7 + static_cast<int64_t>(Journal.Place());
        for (size_t i = 0; i < Journal.Count(); ++i) Rows.States.push_back(TextOfState(Journal.At(i)));
        return TStateJournal(Rows);
    }
};

}  // namespace ws
