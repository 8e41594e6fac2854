// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/script/ViewState.h"

#include <cmath>

#include "framework/controls/PopupEdit.h"
#include "tests/script/DraftFixture.h"
#include "workstation/store/StoreTransaction.h"

namespace ws {

class TViewStateTest : public TDraftFixture {};

TEST_F(TViewStateTest, AStateIsCodesAndNumbersInEveryLanguageAndNumberFormat) {
    OpenDraft();
    ASSERT_TRUE(ChooseDecember());
    ASSERT_TRUE(Type(0, ventiq::kColSymbol, "HSI26400L6"));
    Wait(20);
    ASSERT_TRUE(Play(TStep::CellItem(kLegs, 0, ventiq::kColSide, 1)));
    ASSERT_TRUE(Play(TStep::CellNumber(kLegs, 0, ventiq::kColPremium, 1234.0000000001)));
    ASSERT_TRUE(Play(TStep::CellNumber(kLegs, 0, ventiq::kColQty, 3)));
    ASSERT_TRUE(Play(TStep::CellItem(kLegs, 0, ventiq::kColOpenClose, 1)));
    ASSERT_TRUE(Play(TStep::CellItem(kLegs, 0, ventiq::kColPrincipal, 2)));
    ASSERT_TRUE(Play(TStep::CellNumber(kLegs, 1, ventiq::kColQty, 7)));
    ASSERT_TRUE(SetRange(24000.125, 29000, 0.1));
    ASSERT_TRUE(Play(TStep::Enter("edtUp", "")));
    const TViewState First = State();
    EXPECT_EQ(First.Exchange, "HKFE");
    EXPECT_EQ(First.Series, "HSI");
    EXPECT_EQ(First.Month, "2026-12");
    EXPECT_EQ(First.Down, 24000.125);
    EXPECT_EQ(First.Up, std::nullopt);
    EXPECT_EQ(First.Interval, 0.1);
    ASSERT_EQ(First.Rows.size(), 2u);
    EXPECT_EQ(First.Rows[0], (TRowState{"HSI26400L6", "sell", "open", "house", 1234.0000000001, 3.0}));
    EXPECT_EQ(First.Rows[1], (TRowState{"", "", "", "", std::nullopt, 7.0}));
    EXPECT_EQ(First.Account, Frame().FindControl<fw::TPopupEdit>("edtAccount")->GetHint());
    EXPECT_FALSE(First.Calculated);
    EXPECT_EQ(StateOfText(TextOfState(First)), First);
    for (int Language = 0; Language < kLanguageCount; ++Language)
        for (const auto& Format : fw::NumberFormatNames()) {
            SetLanguage(Language);
            ASSERT_TRUE(Station->SetNumberFormat(Format));
            EXPECT_EQ(State(), First) << Language << " " << Format;
        }
}

TEST_F(TViewStateTest, ResultsCountWhileTheyAreThoseOfTheInputs) {
    OpenDraft();
    ASSERT_TRUE(ChooseDecember());
    ASSERT_TRUE(Type(0, ventiq::kColSymbol, "HSI26400L6"));
    ASSERT_TRUE(SetRange(24000, 29000, 100));
    Wait(20);
    EXPECT_FALSE(State().Calculated);
    ASSERT_TRUE(Play(TStep::Click("btnCalc")));
    EXPECT_TRUE(State().Calculated);
    ASSERT_TRUE(Play(TStep::EnterNumber("edtUp", 29001)));
    Wait(1);
    EXPECT_FALSE(State().Calculated);
}

TEST_F(TViewStateTest, ATextWithUnknownNamesAndNoNumbersIsReadAsFarAsItGoes) {
    const TViewState State = StateOfText(
        "Exchange=HKFE,Later=x,\"Row=Symbol=HSIZ6,Side=buy,Premium=abc,Qty=1e2,Colour=red\",Down=1e400,Up=5,novalue,"
        "Calculated=2");
    EXPECT_EQ(State.Exchange, "HKFE");
    EXPECT_EQ(State.Down, std::nullopt);
    EXPECT_EQ(State.Up, 5);
    EXPECT_FALSE(State.Calculated);
    ASSERT_EQ(State.Rows.size(), 1u);
    EXPECT_EQ(State.Rows[0], (TRowState{"HSIZ6", "buy", "", "", std::nullopt, 100.0}));
    EXPECT_EQ(StateOfText(""), TViewState());
    EXPECT_EQ(StateOfText(std::string("\0\xFF\"\"=,\"Row", 11)), TViewState());
}

TEST_F(TViewStateTest, TextGoesThereAndBackWhateverStandsInIt) {
    Random.seed(20261121);
    const auto Any = [this](size_t Most) {
        std::string Text;
        for (size_t i = Random() % Most; i > 0; --i) Text += "a,=\"\n \xE6\x9C\x88"[Random() % 9];
        return Text;
    };
    const auto Number = [this]() -> std::optional<double> {
        if (Random() % 4 == 0) return std::nullopt;
        return std::ldexp(static_cast<double>(static_cast<int64_t>(Random())), static_cast<int>(Random() % 200) - 140);
    };
    for (int Round = 0; Round < 2000; ++Round) {
        TViewState State;
        State.Layout = Any(60), State.Account = Any(5), State.Exchange = Any(5), State.Series = Any(5);
        State.Month = Any(5), State.Calculated = Random() % 2;
        State.Down = Number(), State.Up = Number(), State.Interval = Number();
        for (size_t i = Random() % 6; i > 0; --i)
            State.Rows.push_back({"S" + Any(9), Any(5), Any(5), Any(5), Number(), Number()});
        ASSERT_EQ(StateOfText(TextOfState(State)), State);
    }
}

// --- the journal, without a view

TViewState Numbered(int Number) {
    TViewState State;
    State.Down = Number;
    return State;
}

TEST(StateJournal, KeepsFiftyAndDropsWhatWasUndone) {
    TStateJournal Journal;
    EXPECT_EQ(Journal.Current(), nullptr);
    for (int i = 1; i <= 53; ++i) Journal.Push(Numbered(i));
    ASSERT_EQ(Journal.Count(), kMostStates);
    EXPECT_EQ(Journal.At(0).Down, 4);
    EXPECT_EQ(Journal.Changes().First, 4);
    EXPECT_EQ(Journal.Changes().Last, 53);
    Journal.MoveTo(10);
    Journal.Push(Numbered(100));
    EXPECT_EQ(Journal.Count(), 12u);
    EXPECT_EQ(Journal.Current()->Down, 100);
    Journal.MoveTo(99);
    EXPECT_EQ(Journal.Place(), 11u);
}

TEST(StateJournal, EqualInputsAreOneStateAndTheRestGoesAlong) {
    TStateJournal Journal;
    Journal.Push(Numbered(1));
    Journal.Push(Numbered(2));
    Journal.MoveTo(0);
    TViewState Same = Numbered(1);
    Same.Layout = "wider";
    Journal.Push(Same);
    EXPECT_EQ(Journal.Count(), 2u) << "what was undone can still come back";
    EXPECT_EQ(Journal.Current()->Layout, "wider");
}

// Whatever happens to the journal, the store has it when the changes were written; some of them are written twice.
TEST(StateJournal, TheStoreFollowsByItsChanges) {
    std::mt19937_64 Random(7);
    const auto Store = TStore::CreateInMemory();
    const TJournalKey Key{"Day", "620-1"};
    TStateJournal Journal;
    for (int Round = 0; Round < 1500; ++Round) {
        switch (Random() % 5) {
            case 0: Journal.MoveTo(Random() % kMostStates); break;
            case 1: Journal.Replace(Numbered(Round)); break;
            default: Journal.Push(Numbered(Round)); break;
        }
        if (Random() % 3 == 0) continue;
        for (auto Times = 1 + Random() % 2; Times > 0; --Times) {
            TStoreTransaction Write(*Store);
            Write.ChangeJournal(Key, Journal.Changes());
            if (Random() % 4 == 0) continue;  // the disk was full
            Write.Commit();
            Journal.Written();
            EXPECT_FALSE(Journal.HasChanges());
        }
        if (Journal.HasChanges()) continue;
        const TStateJournal Read(Store->LoadJournal(Key));
        ASSERT_EQ(Read.Count(), Journal.Count());
        ASSERT_EQ(Read.Place(), Journal.Place());
        for (size_t i = 0; i < Read.Count(); ++i) ASSERT_EQ(Read.At(i), Journal.At(i));
    }
}

}  // namespace ws
