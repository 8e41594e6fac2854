// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/script/ViewStateJournal.h"

#include <algorithm>

namespace ws {

TStateJournal::TStateJournal(const TJournalRows& Stored) : FFirst(Stored.First) {
    for (const auto& Text : Stored.States) FEntries.push_back({StateOfText(Text), true});
    const auto Place = std::clamp<int64_t>(Stored.Current - FFirst, 0, std::max<int64_t>(0, std::ssize(FEntries) - 1));
    FPlace = static_cast<std::size_t>(Place);
}

void TStateJournal::Push(TViewState State) {
    if (Current() && Current()->Inputs() == State.Inputs()) return Replace(std::move(State));
    if (!IsEmpty()) FEntries.resize(FPlace + 1);
    FEntries.push_back({std::move(State)});
    if (FEntries.size() > kMostStates) {
        FEntries.erase(FEntries.begin());
        ++FFirst;
    }
    FPlace = FEntries.size() - 1;
    FChanged = true;
}

void TStateJournal::Replace(TViewState State) {
    if (IsEmpty()) return Push(std::move(State));
    if (State == At(FPlace)) return;
    FEntries[FPlace] = {std::move(State)};
    FChanged = true;
}

void TStateJournal::MoveTo(std::size_t Place) {
    if (Place >= FEntries.size() || Place == FPlace) return;
    FPlace = Place;
    FChanged = true;
}

TJournalChange TStateJournal::Changes() const {
    TJournalChange Change;
    Change.First = FFirst;
    Change.Last = FFirst + static_cast<int64_t>(FEntries.size()) - 1;
    Change.Current = FFirst + static_cast<int64_t>(FPlace);
    for (std::size_t i = 0; i < FEntries.size(); ++i)
        if (!FEntries[i].Written) Change.States[FFirst + static_cast<int64_t>(i)] = TextOfState(FEntries[i].State);
    return Change;
}

void TStateJournal::Mark(bool Written) {
    for (TEntry& Entry : FEntries) Entry.Written = Written;
    FChanged = !Written && !IsEmpty();
}

}  // namespace ws
