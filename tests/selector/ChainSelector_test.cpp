// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/selector/ChainFixture.h"

namespace ws {

class ChainSelector : public TChainFixture {
protected:
    std::optional<double> Underlying = 26480;
    TChainSelector S{[this](const fw::TSelectedMarket&) { return Underlying; }};
};

TEST_F(ChainSelector, OpensOnTheCallAtTheMoney) {
    S.SetMarket(December);
    EXPECT_EQ(Under(S), "HSI26400L6");
    EXPECT_EQ(S.MoneyRow(), 2);
    EXPECT_EQ(S.State(), EChainState::Rows);
}

TEST_F(ChainSelector, TheFutureSaysWhatIsAtTheMoneyAsSoonAsItIsQuoted) {
    S.SetMarket(December);
    S.Look(0, 5);
    Quote("HSIZ6", 26600, 26620);
    Host.Subscriptions.Deliver("HSIZ6");
    EXPECT_EQ(S.MoneyRow(), 3);
    EXPECT_EQ(Under(S), "HSI26400L6") << "the mark moves, the cursor stays";
    Host.Subscriptions.Item("HSIZ6").Forget(fw::kFieldAsk).Set(fw::kFieldLast, 26010.0);
    Host.Subscriptions.Deliver("HSIZ6");
    EXPECT_EQ(S.MoneyRow(), 0) << "without both sides the last price";
}

TEST_F(ChainSelector, APriceThatComesLateBringsTheCursorToTheMoneyUnlessItWasMoved) {
    Underlying.reset();
    S.SetMarket(December);
    EXPECT_EQ(S.MoneyRow(), std::nullopt);
    EXPECT_EQ(Under(S), "HSI26000L6");
    TChainSelector Moved;
    Moved.SetMarket(December);
    Moved.MoveRow(1);
    S.Look(0, 5);
    Moved.Look(0, 5);
    Quote("HSIZ6", 26600, 26620);
    Host.Subscriptions.Deliver("HSIZ6");
    EXPECT_EQ(Under(S), "HSI26600L6");
    EXPECT_EQ(Under(Moved), "HSI26200L6");
    EXPECT_EQ(Moved.MoneyRow(), 3);
}

TEST_F(ChainSelector, OfTwoStrikesEquallyNearTheLowerIsAtTheMoney) {
    Underlying = 26500;
    S.SetMarket(December);
    EXPECT_EQ(S.MoneyRow(), 2);
}

TEST_F(ChainSelector, TypingBringsTheCursorToWhatWasMeant) {
    S.SetMarket(December);
    const struct {
        const char *Typed, *Symbol;
        int Rows;
    } Cases[] = {{"26200p", "HSI26200X6", 1}, {"26", "HSI26400X6", 5}, {"c", "HSI26400L6", 5}, {"hsiz6", "HSIZ6", 0},
                 {"26800", "HSI26800L6", 1},  {"x6", "HSI26400X6", 5}, {"nosuch", "", 0},      {"", "HSI26400L6", 5}};
    for (const auto& Case : Cases) {
        S.SetFilter(Case.Typed);
        EXPECT_EQ(Under(S), Case.Symbol) << Case.Typed;
        EXPECT_EQ(S.StrikeCount(), Case.Rows) << Case.Typed;
        EXPECT_EQ(S.State(), *Case.Symbol ? EChainState::Rows : EChainState::NoMatch) << Case.Typed;
    }
}

TEST_F(ChainSelector, AStrikeTypedInFullComesBeforeLongerOnes) {
    for (const char* Strike : {"260", "2600"}) AddPair(Strike, "L6", "X6", "2026/12/30");
    S.SetMarket(December);
    S.SetFilter("2600");
    EXPECT_EQ(S.StrikeCount(), 2);
    EXPECT_EQ(Under(S), "HSI2600L6");
    S.SetFilter("260");
    EXPECT_EQ(Under(S), "HSI260L6");
}

TEST_F(ChainSelector, TheFilterNeverAsksTheMarket) {
    S.SetMarket(December);
    S.Look(0, 5);
    const int LookUps = Host.Subscriptions.LookUpCount, Subscribed = Host.Subscriptions.SubscribeCount;
    Host.Market.Clear();
    for (const char* Typed : {"2", "26", "264", "264c", "p", ""}) S.SetFilter(Typed);
    EXPECT_EQ(S.StrikeCount(), 5);
    EXPECT_EQ(Host.Subscriptions.LookUpCount, LookUps);
    EXPECT_EQ(Host.Subscriptions.SubscribeCount, Subscribed);
}

TEST_F(ChainSelector, AsksForTheRowsOnTheScreenAndTheFuture) {
    S.SetMarket(December);
    EXPECT_TRUE(Host.Subscriptions.Subscribed().empty());
    S.Look(1, 2);
    EXPECT_EQ(Host.Subscriptions.Subscribed(),
              (std::vector<fw::Text>{"HSI26200L6", "HSI26200X6", "HSI26400L6", "HSI26400X6", "HSIZ6"}));
    S.Look(4, 20);
    EXPECT_EQ(S.Quotes().WatchedCount(), 3u);
    S.LookAway();
    EXPECT_TRUE(Host.Subscriptions.Subscribed().empty());
}

TEST_F(ChainSelector, TheCursorStaysOnWhatCanBeChosen) {
    Host.Market.AddProduct("HKFE", "HSI", "HSI27000X6", kOption, "2026/12/30", "27000", "P");
    S.SetMarket(December);
    S.MoveRow(100);
    EXPECT_EQ(Under(S), "HSI27000X6") << "the side that is listed";
    S.MoveSide(ECallPut::Call);
    EXPECT_EQ(Under(S), "HSI27000X6");
    S.MoveRow(1);
    EXPECT_EQ(Under(S), "HSI27000X6");
    S.MoveRow(-100);
    EXPECT_EQ(Under(S), "HSIZ6");
    S.MoveSide(ECallPut::Call);
    EXPECT_EQ(Under(S), "HSIZ6");
    S.SetCurrent({99, ECallPut::Call});
    S.SetCurrent({-99, ECallPut::Call});
    EXPECT_EQ(Under(S), "HSIZ6");
    S.SetFilter("c");
    S.SetCurrent({0, ECallPut::Put});
    EXPECT_EQ(Under(S), "HSI26400L6");
    S.MoveRow(-100);
    EXPECT_EQ(Under(S), "HSI26000L6") << "the future does not fit the filter";
}

TEST_F(ChainSelector, AFutureOfAnotherMonthIsSeenAndNotChosen) {
    S.SetMarket({"HKFE", "HSI", "2026-12-W2"});
    ASSERT_EQ(S.FutureCount(), 1);
    S.MoveRow(-100);
    EXPECT_EQ(Under(S), "HSI26200L6W11");
    S.SetCurrent({-1, ECallPut::Call});
    EXPECT_EQ(Under(S), "HSI26200L6W11");
}

TEST_F(ChainSelector, WithoutRowsNothingMoves) {
    for (const auto& [Market, State] : {std::pair{fw::TSelectedMarket{}, EChainState::NoMarket},
                                        {fw::TSelectedMarket{"HKFE", "HSI", ""}, EChainState::NoMarket},
                                        {fw::TSelectedMarket{"HKFE", "HSI", "2030-01"}, EChainState::NothingListed}}) {
        S.SetMarket(Market);
        EXPECT_EQ(S.State(), State);
        S.MoveRow(1);
        S.MoveSide(ECallPut::Put);
        S.Look(0, 10);
        EXPECT_EQ(Under(S), "");
    }
}

TEST_F(ChainSelector, AnotherMarketReplacesRowsMoneyAndCursor) {
    S.SetMarket(December);
    Underlying.reset();
    S.SetMarket({"HKFE", "HSI", "2026-12-W2"});
    EXPECT_EQ(S.MoneyRow(), std::nullopt);
    EXPECT_EQ(Under(S), "HSI26200L6W11");
    S.SetMarket({"HKFE", "HSI", "2027-01"});
    EXPECT_EQ(Under(S), "HSIF7");
}

TEST_F(ChainSelector, ListsThatChangeAreReadAgain) {
    S.SetMarket(December);
    AddPair("26500", "L6", "X6", "2026/12/30");
    Host.Market.FireExchangeUpdate();
    EXPECT_EQ(S.StrikeCount(), 6);
    EXPECT_EQ(Under(S), "HSI26500L6") << "nearer to the money";
}

TEST_F(ChainSelector, EveryExpiryOfAMonthHasItsStrikeAtTheMoney) {
    for (const char* Strike : {"26000", "27000"}) AddPair(Strike, "L6B", "X6B", "2026/12/31");
    S.SetMarket(December);
    EXPECT_EQ(Under(S), "HSI26400L6");
    ASSERT_EQ(S.Strike(5).Expiry, "2026/12/31");
    EXPECT_TRUE(S.IsAtTheMoney(S.Strike(5)));
    EXPECT_FALSE(S.IsAtTheMoney(S.Strike(6)));
}

}  // namespace ws
