// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/script/ViewDraft.h"

#include "framework/controls/PopupEdit.h"
#include "framework/controls/SpinEdit.h"
#include "tests/script/DraftFixture.h"

namespace ws {

using ventiq::kColOpenClose;
using ventiq::kColPremium;
using ventiq::kColPrincipal;
using ventiq::kColQty;
using ventiq::kColSide;
using ventiq::kColSymbol;
using TSymbols = std::vector<std::string>;
using TKeys = std::vector<std::string>;

class TViewDraftTest : public TDraftFixture {
protected:
    // Two legs whose premium, quantity and choices are the trader's, and a range of his own.
    void TypeTwoLegs() {
        ASSERT_TRUE(ChooseDecember());
        ASSERT_TRUE(Type(0, kColSymbol, "HSI26400L6"));
        ASSERT_TRUE(Type(1, kColSymbol, "HSI27000L6"));
        Wait(20);
        for (const int Row : {0, 1}) {
            ASSERT_TRUE(Play(TStep::CellNumber(kLegs, Row, kColPremium, 650.1230001 + Row)));
            ASSERT_TRUE(Play(TStep::CellNumber(kLegs, Row, kColQty, 3)));
            ASSERT_TRUE(Play(TStep::CellItem(kLegs, Row, kColOpenClose, 1)));
            ASSERT_TRUE(Play(TStep::CellItem(kLegs, Row, kColPrincipal, 2)));
        }
        ASSERT_TRUE(Play(TStep::CellItem(kLegs, 1, kColSide, 1)));
        ASSERT_TRUE(SetRange(24000.5, 29000, 125));
        Settle();
    }
};

TEST_F(TViewDraftTest, UndoBringsBackWhatClearWiped) {
    OpenDraft();
    TypeTwoLegs();
    const TViewInputs Before = Inputs();
    const TGridCells Grid = Cells();
    ASSERT_TRUE(Play(TStep::Click("btnClear")));
    const TViewInputs Cleared = Inputs();
    Settle();
    EXPECT_TRUE(Symbols().empty());
    ASSERT_TRUE(Undo());
    EXPECT_EQ(Inputs(), Before);
    EXPECT_EQ(Cells(), Grid);
    EXPECT_TRUE(Problems.empty());
    ASSERT_TRUE(Redo());
    EXPECT_EQ(Inputs(), Cleared);
    EXPECT_FALSE(Redo());
}

TEST_F(TViewDraftTest, UndoBringsBackWhatLoadWiped) {
    OpenDraft();
    TypeTwoLegs();
    const TViewInputs Before = Inputs();
    const size_t Count = Draft->Journal().Count();
    ASSERT_TRUE(Play(TStep::Click("btnLoad")));
    Settle();
    ASSERT_NE(Inputs(), Before) << "positions were loaded";
    EXPECT_EQ(Draft->Journal().Count(), Count + 1) << "loading is one state";
    const TViewInputs Loaded = Inputs();
    ASSERT_TRUE(Undo());
    EXPECT_EQ(Inputs(), Before);
    ASSERT_TRUE(Redo());
    EXPECT_EQ(Inputs(), Loaded) << "loaded legs come back as typed ones";
}

// What waits for quiet is a state before anything is undone, and Undo goes to the one before it.
TEST_F(TViewDraftTest, UndoRightAfterAChangeUndoesThatChange) {
    OpenDraft();
    TypeTwoLegs();
    const TViewInputs Before = Inputs();
    ASSERT_TRUE(Play(TStep::CellNumber(kLegs, 0, kColQty, 9)));
    const TViewInputs Changed = Inputs();
    ASSERT_TRUE(Undo());
    EXPECT_EQ(Inputs(), Before);
    ASSERT_TRUE(Redo());
    EXPECT_EQ(Inputs(), Changed);
}

TEST_F(TViewDraftTest, NothingIsCapturedWhileACellIsTypedInto) {
    OpenDraft();
    TypeTwoLegs();
    const size_t Count = Draft->Journal().Count();
    ASSERT_TRUE(Edit(0, kColPremium, "1"));
    Wait(50);
    EXPECT_EQ(Draft->Journal().Count(), Count);
    Legs().PostEditor();
    Settle();
    EXPECT_EQ(Draft->Journal().Count(), Count + 1);
    ASSERT_TRUE(Edit(0, kColPremium, "77"));
    ASSERT_TRUE(Undo()) << "what is typed is posted first, and undone";
    EXPECT_EQ(State().Rows[0].Premium, 1);
}

TEST_F(TViewDraftTest, AnAmbiguousNumberKeepsItsEditorAndNothingIsUndone) {
    OpenDraft();
    TypeTwoLegs();
    ASSERT_TRUE(Station->SetNumberFormat("de_DE"));
    ASSERT_TRUE(Edit(0, kColPremium, "1,250"));
    const TViewInputs Before = Inputs();
    EXPECT_FALSE(Undo());
    EXPECT_EQ(Inputs(), Before);
    EXPECT_TRUE(Legs().GetEditor());
    Legs().CancelEdit();
    EXPECT_TRUE(Undo());
}

TEST_F(TViewDraftTest, AStepIsOneStateAndWhatTheMarketAddsIsNone) {
    OpenDraft();
    ASSERT_TRUE(Choose("HKFE", "HHI", "2026-12"));
    Settle();
    const size_t Count = Draft->Journal().Count();
    ASSERT_TRUE(Type(0, kColSymbol, "HHI10400L6"));  // its data come after four seconds
    Settle();
    EXPECT_EQ(Draft->Journal().Count(), Count + 1);
    EXPECT_EQ(Draft->Journal().Current()->Rows[0].Premium, std::nullopt);
    Wait(60);
    EXPECT_EQ(Draft->Journal().Count(), Count + 1);
    EXPECT_NE(Draft->Journal().Current()->Rows[0].Premium, std::nullopt);
    SetLanguage(2);
    Settle();
    EXPECT_EQ(Draft->Journal().Count(), Count + 1) << "a language is no change";
}

TEST_F(TViewDraftTest, ARestartBringsTheLastStateBack) {
    OpenDraft("trader");
    TypeTwoLegs();
    ASSERT_TRUE(Play(TStep::Click("btnCalc")));
    Frame().FindControl<fw::TPopupEdit>("edtAccount")->Choose(1);
    Settle();
    const TViewState Before = State();
    ASSERT_TRUE(Before.Calculated);
    for (int Language = 0; Language < kLanguageCount; ++Language)
        for (const auto& Format : fw::NumberFormatNames()) {
            SCOPED_TRACE(std::to_string(Language) + " " + Format);
            const TStateJournal Journal = Stored(Draft->Journal());
            SetLanguage(Language);
            ASSERT_TRUE(Station->SetNumberFormat(Format));
            Reopen(Journal);
            Draft->RestoreLast();
            WaitRestored();
            EXPECT_EQ(State(), Before) << "account, columns and results too";
            EXPECT_TRUE(Problems.empty());
            Wait(60);
            EXPECT_EQ(State(), Before) << "no default range comes late";
            EXPECT_EQ(Draft->Journal().Count(), Journal.Count());
        }
    const TViewInputs Last = Inputs();
    ASSERT_TRUE(Undo());
    EXPECT_NE(Inputs(), Last) << "the steps before the restart can be undone";
}

// A month without options takes its range from its future, whose data come through the loop.
TEST_F(TViewDraftTest, TheRangeOfAMonthWithoutOptionsIsTheStoredOne) {
    OpenDraft();
    ASSERT_TRUE(Choose("HKFE", "MHI", "2026-12"));
    Wait(30);
    ASSERT_TRUE(SetRange(20000, 21000, 50));
    Settle();
    const TStateJournal Journal = Stored(Draft->Journal());
    CloseView();
    OpenView();  // a workstation that has asked for nothing yet
    Follow(Journal);
    Draft->RestoreLast();
    WaitRestored();
    Wait(60);
    EXPECT_EQ(State().Month, "2026-12");
    EXPECT_EQ(State().Series, "MHI");
    EXPECT_EQ(State().Down, 20000);
    EXPECT_EQ(State().Up, 21000);
    EXPECT_EQ(State().Interval, 50);
}

TEST_F(TViewDraftTest, ANewViewStartsEmptyAndUndoFetchesTheFormerLegs) {
    OpenDraft();
    TypeTwoLegs();
    const TViewInputs Before = Inputs();
    Reopen(Stored(Draft->Journal()));
    Settle();
    EXPECT_TRUE(Symbols().empty());
    ASSERT_TRUE(Undo());
    EXPECT_EQ(Inputs(), Before);
}

TEST_F(TViewDraftTest, TheUsersInputWinsOverARestoreThatWaits) {
    OpenDraft();
    ASSERT_TRUE(Choose("HKFE", "HHI", "2026-12"));
    ASSERT_TRUE(Type(0, kColSymbol, "HHI10400L6"));
    Wait(60);
    const TViewInputs Before = Inputs();
    const TStateJournal Journal = Stored(Draft->Journal());
    CloseView();
    OpenView();
    Follow(Journal);
    Draft->RestoreLast();
    Wait(5);
    ASSERT_TRUE(Draft->IsRestoring()) << "the data take four seconds";
    ASSERT_TRUE(ChooseDecember());
    ASSERT_TRUE(Type(0, kColSymbol, "HSI26400L6"));
    WaitRestored();
    EXPECT_EQ(Ended, std::vector{TViewRestore::EState::Stopped});
    EXPECT_EQ(ProblemKeys(), TKeys{"Res_RestoreStopped"});
    EXPECT_EQ(Symbols(), TSymbols{"HSI26400L6"});
    Settle();
    ASSERT_TRUE(Undo());
    EXPECT_EQ(Inputs(), Before) << "and undo brings back what it did not";
}

TEST_F(TViewDraftTest, WhatIsGoneIsNamedAndTheRestComesBack) {
    OpenDraft("trader");
    TypeTwoLegs();
    Settle();
    TViewState Kept = State();
    Kept.Account = "GONE";
    Kept.Rows[0].Symbol = "HSI99999L6";
    Kept.Rows[1].OpenClose = "unheard of";
    Kept.Rows[1].Qty = -5;
    Kept.Interval = -1;
    const auto Interval = State().Interval;
    TJournalRows Rows;
    Rows.States = {TextOfState(Kept)};
    Reopen(TStateJournal(Rows));
    Draft->RestoreLast();
    WaitRestored();
    EXPECT_EQ(ProblemKeys(), (TKeys{"Res_RestoreRangeRefused", "Res_RestoreSymbolRefused", "Res_RestoreCellRefused",
                                    "Res_RestoreCellRefused", "Res_RestoreAccountGone"}));
    EXPECT_EQ(Symbols(), TSymbols{"HSI27000L6"});
    EXPECT_EQ(State().Rows[0].Premium, 651.1230001);
    EXPECT_EQ(State().Rows[0].Side, "sell");
    EXPECT_EQ(State().Rows[0].Qty, 1) << "what the market proposes stays";
    EXPECT_EQ(State().Down, 24000.5);
    EXPECT_NE(State().Interval, -1);
    EXPECT_NE(Interval, -1);
    EXPECT_FALSE(State().Calculated) << "what did not come back whole is not calculated";
    for (const auto& Problem : Problems) {
        std::vector<std::string> Args{"Payoff"};
        Args.insert(Args.end(), Problem.Args.begin(), Problem.Args.end());
        const auto Sentence = Station->Language().Resource(Problem.Key, Args);
        EXPECT_EQ(Sentence.find('%'), std::string::npos) << Sentence;
        EXPECT_EQ(Sentence.find("Res_"), std::string::npos) << Sentence;
    }
    // The journal keeps the state as it was: what is gone may be there again.
    EXPECT_EQ(Draft->Journal().Current()->Rows[0].Symbol, "HSI99999L6");
    Settle();
    EXPECT_EQ(Draft->Journal().Count(), 1u);
}

TEST_F(TViewDraftTest, AMarketThatIsGoneIsNamedOnceAndItsLegsAreNamed) {
    OpenDraft();
    TypeTwoLegs();
    TViewState Kept = State();
    const struct {
        const char* Why;
        std::string TViewInputs::*Field;
        const char* Code;
    } Cases[] = {{"exchange", &TViewInputs::Exchange, "NYSE"},
                 {"series", &TViewInputs::Series, "ABC"},
                 {"month", &TViewInputs::Month, "2019-01"}};
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        TViewState Gone = Kept;
        Gone.*Case.Field = Case.Code;
        TJournalRows Rows;
        Rows.States = {TextOfState(Gone)};
        Problems.clear();
        Reopen(TStateJournal(Rows));
        Draft->RestoreLast();
        WaitRestored();
        ASSERT_FALSE(Problems.empty());
        EXPECT_EQ(Problems[0].Key, "Res_RestoreMarketGone");
        EXPECT_EQ(Problems[0].Args[0], Case.Code);
        EXPECT_EQ(State().Down, 24000.5);
        for (size_t i = 1; i < Problems.size(); ++i) EXPECT_EQ(Problems[i].Key, "Res_RestoreSymbolRefused");
        EXPECT_EQ(Symbols().size() + Problems.size() - 1, 2u) << "each leg is there or named";
    }
}

// Two months later the contracts have expired: each is named, the range is there.
TEST_F(TViewDraftTest, ExpiredContractsAreNamed) {
    OpenDraft();
    TypeTwoLegs();
    const TStateJournal Journal = Stored(Draft->Journal());
    Draft.reset();
    CloseView();
    fw::TClock::Fix(At(2027, 2, 10));
    OpenView();
    Follow(Journal);
    Draft->RestoreLast();
    WaitRestored();
    EXPECT_EQ(ProblemKeys(), (TKeys{"Res_RestoreMarketGone", "Res_RestoreSymbolRefused", "Res_RestoreSymbolRefused"}));
    EXPECT_EQ(Problems[0].Args[0], "2026-12");
    EXPECT_TRUE(Symbols().empty());
    EXPECT_EQ(State().Down, 24000.5);
    EXPECT_EQ(State().Up, 29000);
    EXPECT_EQ(State().Interval, 125);
    EXPECT_EQ(Draft->Journal().Current()->Rows.size(), 2u) << "the journal keeps them";
}

TEST_F(TViewDraftTest, ALegWithoutDataComesBackWithItsCellsAndIsNamed) {
    OpenDraft();
    ASSERT_TRUE(Choose("HKFE", "HHI", "2026-12"));
    ASSERT_TRUE(Type(0, kColSymbol, "HHI10500L6"));  // never answers
    ASSERT_TRUE(Play(TStep::CellNumber(kLegs, 0, kColQty, 4)));
    ASSERT_TRUE(Play(TStep::CellNumber(kLegs, 0, kColPremium, 12.5)));
    Settle();
    const TViewInputs Before = Inputs();
    ASSERT_TRUE(Play(TStep::Click("btnClear")));
    Settle();
    ASSERT_TRUE(Undo());
    EXPECT_EQ(Inputs(), Before);
    EXPECT_EQ(ProblemKeys(), TKeys{"Res_RestoreNoData"});
}

// One step that loses a leg does not end the way back.
TEST_F(TViewDraftTest, UndoGoesOnPastAStateThatDidNotComeBackWhole) {
    OpenDraft();
    TypeTwoLegs();
    TViewState First = State(), Second = First, Third = First;
    Second.Rows[0].Symbol = "HSI99999L6";
    Third.Rows[0].Qty = 8;
    TJournalRows Rows;
    Rows.States = {TextOfState(First), TextOfState(Second), TextOfState(Third)};
    Rows.Current = 3;
    Reopen(TStateJournal(Rows));
    Draft->RestoreLast();
    WaitRestored();
    EXPECT_EQ(Inputs(), Third.Inputs());
    ASSERT_TRUE(Undo());
    EXPECT_EQ(Symbols(), TSymbols{"HSI27000L6"});
    Settle();
    ASSERT_TRUE(Undo());
    EXPECT_EQ(Inputs(), First.Inputs());
    Settle();
    ASSERT_TRUE(Redo());
    ASSERT_TRUE(Redo());
    EXPECT_EQ(Inputs(), Third.Inputs());
}

TEST_F(TViewDraftTest, AnOpenedStrategyIsOneStep) {
    OpenDraft();
    TypeTwoLegs();
    const TViewState Strategy = State();
    ASSERT_TRUE(Play(TStep::Click("btnClear")));
    ASSERT_TRUE(Choose("HKFE", "HHI", "2026-12"));
    Settle();
    const TViewInputs Before = Inputs();
    const size_t Count = Draft->Journal().Count();
    Draft->Open(Strategy);
    WaitRestored();
    EXPECT_EQ(Inputs(), Strategy.Inputs());
    EXPECT_EQ(Draft->Journal().Count(), Count + 1);
    ASSERT_TRUE(Undo());
    EXPECT_EQ(Inputs(), Before);
}

TEST_F(TViewDraftTest, AnotherStepWhileOneWaitsGoesOnFromThere) {
    OpenDraft();
    TypeTwoLegs();
    std::vector<std::string> States{TextOfState(State())};
    for (const char* Symbol : {"HHI10400L6", "HHI10400X6"}) {
        TViewState Slow = State();
        Slow.Series = "HHI";
        Slow.Rows[0].Symbol = Symbol;
        Slow.Rows.resize(1);
        States.push_back(TextOfState(Slow));
    }
    TJournalRows Rows;
    Rows.States = States;
    Rows.Current = 3;
    Reopen(TStateJournal(Rows));
    Wait(1);
    Problems.clear();
    ASSERT_EQ(Draft->Journal().Count(), 4u) << "a new view, with its own state on top";
    ASSERT_TRUE(Draft->Undo());
    ASSERT_TRUE(Draft->Undo());
    ASSERT_TRUE(Draft->Undo());
    WaitRestored();
    EXPECT_EQ(TextOfState(State()).substr(0, 40), States[0].substr(0, 40));
    EXPECT_EQ(Draft->Journal().Place(), 0u);
    EXPECT_FALSE(Draft->Undo());
}

// The market's default lays itself over whatever stands in the editors; the trader's own range can be fetched back.
TEST_F(TViewDraftTest, ARangeThatTheMarketReplacedIsOneStepBack) {
    OpenDraft();
    TypeTwoLegs();
    const TViewInputs Before = Inputs();
    const size_t Count = Draft->Journal().Count();
    Legs().SetFocus();
    for (const double Down : {100.0, 200.0}) {
        Frame().FindControl<fw::TSpinEdit>("edtDown")->SetValue(Down);
        Settle();
        EXPECT_EQ(Draft->Journal().Count(), Count + 1) << "the second one was not the trader's either";
    }
    ASSERT_TRUE(Undo());
    EXPECT_EQ(Inputs(), Before);
}

TEST_F(TViewDraftTest, APremiumTypedIntoAnEmptyCellIsAStep) {
    OpenDraft();
    TypeTwoLegs();
    ASSERT_TRUE(Play(TStep::Cell(kLegs, 0, kColPremium, "")));
    Settle();
    const TViewInputs Emptied = Inputs();
    ASSERT_EQ(State().Rows[0].Premium, std::nullopt);
    ASSERT_TRUE(Play(TStep::CellNumber(kLegs, 0, kColPremium, 5)));
    Settle();
    ASSERT_TRUE(Undo());
    EXPECT_EQ(Inputs(), Emptied);
}

}  // namespace ws
