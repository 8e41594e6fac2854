// SPDX-License-Identifier: GPL-3.0-or-later
// A trader without a plan, whose states are brought back: after a restart, and by undo and redo.
#include <algorithm>
#include <cstdlib>

#include "framework/controls/SpinEdit.h"
#include "tests/script/DraftFixture.h"

namespace ws {

namespace {

constexpr int kRestarts = 60;
constexpr int kSteps = 400;

uint64_t Seed() {
    const char* Chosen = std::getenv("VENTIQ_DRIVER_SEED");
    return Chosen ? std::strtoull(Chosen, nullptr, 10) : 20261122;
}

}  // namespace

class TRandomDraft : public TDraftFixture {
protected:
    std::vector<std::string> FDone;

    void SetUp() override {
        Random.seed(Seed());
        OpenDraft("trader");
    }
    std::string History() const {
        std::string Text = "seed " + std::to_string(Seed());
        for (size_t i = FDone.size() - std::min<size_t>(FDone.size(), 20); i < FDone.size(); ++i)
            Text += "\n  " + FDone[i];
        return Text;
    }
    bool IsNamed(const std::string& Key, const std::vector<std::string>& Args) const {
        return std::any_of(Problems.begin(), Problems.end(), [&](const auto& Problem) {
            return Problem.Key == Key && Problem.Args.size() >= Args.size() &&
                   std::equal(Args.begin(), Args.end(), Problem.Args.begin());
        });
    }
    // A value that is not the stored one is named. The market may have filled an empty cell.
    template <class TValue>
    void ExpectCell(const std::string& Symbol, const char* Caption, const TValue& Stored, const TValue& Found,
                    bool Fillable) {
        if (Found == Stored || (Fillable && Stored == TValue())) return;
        EXPECT_TRUE(IsNamed("Res_RestoreCellRefused", {Symbol.empty() ? "-" : Symbol, Caption}))
            << Caption << " of " << Symbol;
    }
    void ExpectBack(const TViewInputs& Stored) {
        const TViewInputs Found = Inputs();
        const bool MarketGone = std::any_of(Problems.begin(), Problems.end(),
                                            [](const auto& P) { return P.Key == "Res_RestoreMarketGone"; });
        if (!MarketGone) {
            EXPECT_EQ(Found.Exchange + "/" + Found.Series + "/" + Found.Month,
                      Stored.Exchange + "/" + Stored.Series + "/" + Stored.Month);
        }
        EXPECT_EQ(Found.Down, Stored.Down);
        EXPECT_EQ(Found.Up, Stored.Up);
        EXPECT_EQ(Found.Interval, Stored.Interval);
        auto Row = Found.Rows.begin();
        for (const TRowState& Old : Stored.Rows) {
            if (Row == Found.Rows.end() || Row->Symbol != Old.Symbol) {
                EXPECT_TRUE(IsNamed("Res_RestoreSymbolRefused", {Old.Symbol})) << Old.Symbol << " is lost";
                continue;
            }
            const bool Unfilled = Old.Premium == std::nullopt && Old.Qty == std::nullopt && Old.Side.empty();
            ExpectCell(Old.Symbol, "Res_Side", Old.Side, Row->Side, true);
            ExpectCell(Old.Symbol, "Res_PayOffPremium", Old.Premium, Row->Premium, Unfilled);
            ExpectCell(Old.Symbol, "Res_OrderQty", Old.Qty, Row->Qty, Unfilled);
            ExpectCell(Old.Symbol, "Res_OpenClose", Old.OpenClose, Row->OpenClose, false);
            ExpectCell(Old.Symbol, "Res_Principal", Old.Principal, Row->Principal, false);
            ++Row;
        }
        EXPECT_EQ(Found.Rows.end() - Row, 0) << "rows that nobody stored";
    }
    void DoSomething() { FDone.push_back(Rows() > 30 ? (Play(TStep::Click("btnClear")), "clear") : Step()); }
    void LeaveEditors() {
        if (IsTyping(Frame())) Frame().Controls().PostEditors();
        if (IsTyping(Frame())) {
            Legs().CancelEdit();
            for (const char* Name : kRangeEditors) Frame().FindControl<fw::TSpinEdit>(Name)->CancelEdit();
        }
    }
};

TEST_F(TRandomDraft, EveryStateComesBackExactlyOrIsNamed) {
    int Legs = 0, Refused = 0;
    for (int Restart = 0; Restart < kRestarts; ++Restart) {
        Draft.reset();
        for (uint64_t i = 10 + Random() % 40; i > 0; --i) DoSomething();
        LeaveEditors();
        Station->SetUser("trader");
        Station->Pump();
        Station->Tick();
        const TViewState Kept = State();
        ASSERT_EQ(StateOfText(TextOfState(Kept)), Kept) << History();
        SetLanguage(static_cast<int>(Random() % kLanguageCount));
        const auto Names = fw::NumberFormatNames();
        ASSERT_TRUE(Station->SetNumberFormat(Names[Random() % Names.size()]));
        TJournalRows Rows;
        Rows.States = {TextOfState(Kept)};
        Problems.clear();
        Reopen(TStateJournal(Rows));
        Draft->RestoreLast();
        WaitRestored();
        ExpectBack(Kept);
        ASSERT_FALSE(HasFailure()) << "restart " << Restart << ": " << TextOfState(Kept) << "\nbecame "
                                   << TextOfState(State()) << "\n"
                                   << History();
        Legs += static_cast<int>(Kept.Rows.size());
        Refused += static_cast<int>(Problems.size());
    }
    EXPECT_GT(Legs, kRestarts) << "the user typed hardly anything";
    EXPECT_LT(Refused, Legs) << "hardly anything came back";
    EXPECT_TRUE(Station->Orders().Orders().empty()) << "bringing back sends nothing";
}

TEST_F(TRandomDraft, UndoAndRedoGoThroughWhatWasThere) {
    Station->SetUser("trader");
    std::vector<TViewInputs> Model{Inputs()};
    size_t Place = 0;
    bool Whole = true;  // what is in the view is the state at Place
    int Undone = 0;
    for (int Number = 0; Number < kSteps; ++Number) {
        SCOPED_TRACE(Number);
        LeaveEditors();
        const int Kind = static_cast<int>(Random() % 10);
        Problems.clear();
        if (Kind < 4) {
            const bool Back = Kind > 0;
            Settle();
            const bool Possible = Back ? Draft->CanUndo() : Draft->CanRedo();
            ASSERT_EQ(Back ? Undo() : Redo(), Possible) << History();
            if (!Possible) continue;
            FDone.push_back(Back ? "undo" : "redo");
            Place = Back ? Place - 1 : Place + 1;
            ASSERT_EQ(Draft->Journal().Place(), Place) << History();
            ExpectBack(Model[Place]);
            Whole = Problems.empty();
            ++Undone;
        } else {
            const TViewInputs Before = Inputs();
            const auto Alive = Legs().GetLifetime();
            DoSomething();
            if (Alive.expired()) Follow(Stored(Draft->Journal()));  // the view was closed and opened again
            if (Random() % 30 == 0) Station->Market().NotifyListsChanged();
            LeaveEditors();
            Settle();
            if (Draft->Journal().Place() != Place || Draft->Journal().Count() < Model.size() ||
                (Draft->Journal().Count() == kMostStates && Inputs() != Before)) {
                Model.resize(std::min(Model.size(), Place + 1));
                Model.push_back(Inputs());
                if (Model.size() > kMostStates) Model.erase(Model.begin());
                Place = Model.size() - 1;
                Whole = true;
            } else if (Whole) {
                Model[Place] = Inputs();
            }
        }
        ASSERT_EQ(Draft->Journal().Count(), Model.size()) << History();
        ASSERT_EQ(Draft->Journal().Place(), Place) << History();
        if (Whole) {
            ASSERT_EQ(Draft->Journal().Current()->Inputs(), Model[Place]) << History();
        }
        ASSERT_FALSE(HasFailure()) << History();
    }
    EXPECT_GT(Undone, 30);
    EXPECT_TRUE(Station->Orders().Orders().empty());
}

}  // namespace ws
