// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <vector>

#include "workstation/script/ViewState.h"
#include "workstation/store/Store.h"

namespace ws {

inline constexpr std::size_t kMostStates = 50;  // of a journal; the oldest goes first

// The states of one view in the order in which they came, and which of them the view shows: going back and forth moves
// the place, a new state drops those behind it. Remembers what the store does not have yet.
class TStateJournal {
public:
    TStateJournal() = default;
    explicit TStateJournal(const TJournalRows& Stored);

    bool IsEmpty() const { return FEntries.empty(); }
    std::size_t Count() const { return FEntries.size(); }
    std::size_t Place() const { return FPlace; }
    const TViewState& At(std::size_t Place) const { return FEntries[Place].State; }
    const TViewState* Current() const { return IsEmpty() ? nullptr : &At(FPlace); }

    // Behind the current state; one with the inputs of the current state replaces it.
    void Push(TViewState State);
    // The current state with something more in it; those behind it stay.
    void Replace(TViewState State);
    void MoveTo(std::size_t Place);

    // What the store does not have, until Written says that it has; Forgotten: it has nothing any more.
    bool HasChanges() const { return FChanged; }
    TJournalChange Changes() const;
    void Written() { Mark(true); }
    void Forgotten() { Mark(false); }

private:
    struct TEntry {
        TViewState State;
        bool Written = false;
    };
    void Mark(bool Written);
    std::vector<TEntry> FEntries;
    int64_t FFirst = 1;  // number of the first entry in the store
    std::size_t FPlace = 0;
    bool FChanged = false;
};

}  // namespace ws
