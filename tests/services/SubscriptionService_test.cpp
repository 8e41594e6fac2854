// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/services/ServiceFixture.h"
#include "workstation/services/SubscriptionItem.h"

namespace ws {

class TSubscriptionServiceTest : public TServiceFixture {
protected:
    fw::TObject Owner;
    int Updates = 0;
    TSubscriptionServiceTest() { Open(); }
    void Subscribe(const std::string& Symbol) {
        Station->Subscriptions().Subscribe(
            &Item(Symbol),
            [this](fw::TObject*, fw::TObject* Update) {
                ASSERT_EQ(dynamic_cast<fw::TCustomUpdate&>(*Update).GetCount(), 1);
                ++Updates;
            },
            &Owner);
    }
};

TEST_F(TSubscriptionServiceTest, NothingIsKnownUntilSomebodySubscribesAndTheLoopRuns) {
    EXPECT_EQ(Item("HSI26400L6").GetState(), fw::kItemUnknown);
    EXPECT_EQ(Item("HSI26400L6").GetFieldText(fw::kFieldExchange), "");
    Subscribe("HSI26400L6");
    EXPECT_EQ(Updates, 0) << "never from inside the call";
    EXPECT_EQ(Item("HSI26400L6").GetState(), fw::kItemUnknown);
    Station->Pump();
    EXPECT_EQ(Updates, 1);
    auto& I = Item("HSI26400L6");
    EXPECT_EQ(I.GetState(), fw::kItemReady);
    EXPECT_EQ(I.GetFieldText(fw::kFieldExchange), "HKFE");
    EXPECT_EQ(I.GetFieldText(fw::kFieldProductType), "3");
    EXPECT_EQ(I.GetFieldText(fw::kFieldSeries), "HSI");
    EXPECT_EQ(I.GetFieldText(fw::kFieldCurrency), "HKD");
    EXPECT_EQ(I.GetFieldValue(fw::kFieldStrike), 26400.0);
    EXPECT_EQ(I.GetFieldText(fw::kFieldStrike), "26400");
    EXPECT_EQ(I.GetFieldValue(fw::kFieldMultiplier), 50.0);
    EXPECT_FALSE(I.HasField(fw::kFieldDisplayFactor));
    EXPECT_GT(I.GetFieldValue(fw::kFieldReferencePrice), 0.0);
}

TEST_F(TSubscriptionServiceTest, TheSameSymbolIsTheSameItem) { EXPECT_EQ(&Item("HSIZ6"), &Item("HSIZ6")); }

TEST_F(TSubscriptionServiceTest, AnUnlistedSymbolGetsTheAnswerThatThereIsNothing) {
    Subscribe("NOBODY");
    Station->Pump();
    EXPECT_EQ(Item("NOBODY").GetState(), fw::kItemNoData);
    EXPECT_EQ(Updates, 1);
    EXPECT_TRUE(Station->Subscriptions().Pending().empty());
}

TEST_F(TSubscriptionServiceTest, SomeContractsAnswerLateAndSomeNever) {
    Subscribe("HHI10400L6");
    Subscribe("HHI10500L6");
    Run(2);
    EXPECT_EQ(Item("HHI10400L6").GetState(), fw::kItemUnknown);
    EXPECT_EQ(Updates, 0);
    Run(4);
    EXPECT_EQ(Item("HHI10400L6").GetState(), fw::kItemReady);
    EXPECT_EQ(Item("HHI10500L6").GetState(), fw::kItemUnknown);
    EXPECT_EQ(Station->Subscriptions().Pending(), std::vector<std::string>{"HHI10500L6"});
}

TEST_F(TSubscriptionServiceTest, SubscribersHearOfNewPricesUntilTheyLeave) {
    Subscribe("HSIZ6");
    Station->Pump();
    const double First = Item("HSIZ6").GetFieldValue(fw::kFieldReferencePrice);
    Run(30);
    EXPECT_GT(Updates, 5);
    EXPECT_NE(Item("HSIZ6").GetFieldValue(fw::kFieldReferencePrice), First);
    Station->Subscriptions().Unsubscribe(&Item("HSIZ6"), &Owner);
    const int Before = Updates;
    Run(10);
    EXPECT_EQ(Updates, Before);
    EXPECT_EQ(Item("HSIZ6").GetState(), fw::kItemReady) << "its data stay";
    EXPECT_FALSE(Station->Subscriptions().HasOwners());
}

TEST_F(TSubscriptionServiceTest, OneWhoComesLaterIsToldToo) {
    Subscribe("HSIZ6");
    Station->Pump();
    fw::TObject Other;
    int Told = 0;
    Station->Subscriptions().Subscribe(
        &Item("HSIZ6"), [&](fw::TObject*, fw::TObject*) { ++Told; }, &Other);
    EXPECT_EQ(Told, 0);
    Station->Pump();
    EXPECT_EQ(Told, 1);
}

TEST_F(TSubscriptionServiceTest, TheDisplayFactorIsAField) {
    Subscribe("CPRZ26");
    Station->Pump();
    EXPECT_EQ(Item("CPRZ26").GetFieldValue(fw::kFieldDisplayFactor), 100.0);
}

TEST_F(TSubscriptionServiceTest, TheQuoteItselfIsThereWithItsTime) {
    Subscribe("HSIZ6");
    Station->Pump();
    auto& I = Item("HSIZ6");
    EXPECT_LE(I.GetFieldValue(fw::kFieldBid), I.GetFieldValue(fw::kFieldLast));
    EXPECT_LE(I.GetFieldValue(fw::kFieldLast), I.GetFieldValue(fw::kFieldAsk));
    EXPECT_GT(I.GetFieldValue(fw::kFieldBid), 0.0);
    const auto Clock = std::chrono::duration<double>(fw::TClock::Now().time_since_epoch()).count();
    EXPECT_EQ(I.GetFieldValue(fw::kFieldQuoteTime), Clock);
}

// The clock of the tests stands while the market goes on: an age counted between the two would be wrong.
TEST_F(TSubscriptionServiceTest, AQuotesAgeDoesNotDependOnHowFarTheMarketsTimeIsFromTheClock) {
    Subscribe("HSIZ6");
    Run(600);
    const auto Clock = std::chrono::duration<double>(fw::TClock::Now().time_since_epoch()).count();
    EXPECT_NEAR(Item("HSIZ6").GetFieldValue(fw::kFieldQuoteTime), Clock, 60.0);
}

TEST_F(TSubscriptionServiceTest, ASideThatNobodyQuotesHasNoValue) {
    TSubscriptionItem I("X");
    TQuoteRow Quote;
    Quote.Ask = 1.5;
    I.Take({}, std::nullopt);
    I.TakeQuote(Quote, std::nullopt);
    EXPECT_EQ(I.GetFieldText(fw::kFieldAsk), "1.5");
    for (const int Field : {fw::kFieldBid, fw::kFieldLast, fw::kFieldQuoteTime}) EXPECT_FALSE(I.HasField(Field));
    I.TakeQuote({}, At(1970, 1, 2, 0));
    EXPECT_EQ(I.GetFieldValue(fw::kFieldQuoteTime), 86400.0);
}

// A market of its own whose prices the test moves, with one subscriber to each contract.
class TManyQuotesTest : public testing::Test {
protected:
    static constexpr int kCount = int{TSubscriptionService::kSlice} * 5 / 2;
    TMarketService Market;
    TLoopQueue Queue;
    std::map<std::string, TQuoteRow> Quotes;
    TSubscriptionService Subscriptions{
        Market, Queue, {[](const auto&) {}, [this](const auto& Symbol) { return &Quotes[Symbol]; }, {}}};
    std::vector<std::string> Symbols, Told;
    fw::TObject Owner;

    TManyQuotesTest() {
        TMarketSet Set;
        Set.Exchanges.push_back({"X", "", "", "", true, "", 0, 0});
        for (int i = 0; i < kCount; ++i) {
            TProductRow Row;
            Row.Symbol = Symbols.emplace_back("C" + std::to_string(kCount - i));  // not in the order of their names
            Row.Exchange = Row.Series = "X";
            Set.Products.push_back(Row);
        }
        Market.Load(Set);
        for (const auto& Symbol : Symbols)
            Subscriptions.Subscribe(
                Subscriptions.GetSubItem(Symbol, fw::kPriceDataKind, 0),
                [this, Symbol](fw::TObject*, fw::TObject*) { Told.push_back(Symbol); }, &Owner);
        PumpAll();
        Told.clear();
    }
    void PumpAll() {
        while (!Queue.IsEmpty()) Queue.Pump();
    }
    void Move(double Last) {
        for (const auto& Symbol : Symbols) Quotes[Symbol].Last = Last;
        Subscriptions.QuotesChanged(Symbols);
    }
    double LastOf(const std::string& Symbol) {
        return Subscriptions.GetSubItem(Symbol, fw::kPriceDataKind, 0)->GetFieldValue(fw::kFieldLast);
    }
};

TEST_F(TManyQuotesTest, OneRoundOfTheLoopTellsSoManyAndNoMore) {
    Move(1);
    EXPECT_TRUE(Told.empty()) << "never from inside the call";
    for (const size_t After : {TSubscriptionService::kSlice, 2 * TSubscriptionService::kSlice, Symbols.size()}) {
        Queue.Pump();
        EXPECT_EQ(Told.size(), After);
    }
    EXPECT_EQ(Told, Symbols) << "in the order in which they came";
}

TEST_F(TManyQuotesTest, TheLastPriceArrivesOnceHoweverOftenItChangedMeanwhile) {
    for (int Price = 1; Price <= 5; ++Price) Move(Price);
    Queue.Pump();
    Move(6);
    PumpAll();
    for (const auto& Symbol : Symbols) EXPECT_EQ(LastOf(Symbol), 6) << Symbol;
    // Those of the first round were told of two prices, the others of one.
    EXPECT_EQ(Told.size(), Symbols.size() + TSubscriptionService::kSlice);
}

// Seen: a view with 1,000 symbols looked at all of them when each of them came, and stood still for seconds.
TEST_F(TManyQuotesTest, WhoIsToldOfOneSymbolFindsTheOthersOfTheRoundUpToDate) {
    fw::TObject Other;
    std::vector<double> Seen;
    Subscriptions.Subscribe(
        Subscriptions.GetSubItem(Symbols.front(), fw::kPriceDataKind, 0),
        [&](fw::TObject*, fw::TObject*) { Seen.push_back(LastOf(Symbols[TSubscriptionService::kSlice - 1])); }, &Other);
    PumpAll();
    Seen.clear();
    Move(3);
    PumpAll();
    EXPECT_EQ(Seen, std::vector<double>{3});
}

TEST_F(TManyQuotesTest, ASubscriberThatRunsALoopOfItsOwnDoesNotHoldBackTheOthers) {
    fw::TObject Other;
    size_t Meanwhile = 0;
    Subscriptions.Subscribe(
        Subscriptions.GetSubItem(Symbols.front(), fw::kPriceDataKind, 0),
        [&](fw::TObject*, fw::TObject*) {
            PumpAll();
            Meanwhile = Told.size();
        },
        &Other);
    PumpAll();
    Told.clear();
    Move(1);
    PumpAll();
    EXPECT_EQ(Meanwhile, Symbols.size());
    EXPECT_EQ(Told, Symbols);
}

// Seen: a price source that raised once for one symbol left every other symbol waiting for good.
TEST_F(TSubscriptionServiceTest, ASymbolWhoseDataCannotBeReadHoldsNobodyBack) {
    bool Raises = true;
    TQuoteRow Quote;
    Quote.Last = 5;
    const auto QuoteOf = [&](const std::string& Symbol) -> const TQuoteRow* {
        if (Raises && Symbol == "A") throw std::runtime_error("no price");
        return &Quote;
    };
    TMarketSet Set;
    Set.Exchanges.push_back({"X", "", "", "", true, "", 0, 0});
    for (const char* Symbol : {"A", "B"}) {
        TProductRow Row;
        Row.Symbol = Symbol;
        Row.Exchange = Row.Series = "X";
        Set.Products.push_back(Row);
    }
    TMarketService Listed;
    Listed.Load(Set);
    TLoopQueue Loop;
    TSubscriptionService Service{Listed, Loop, {[](const auto&) {}, QuoteOf, {}}};
    const auto StateOf = [&](const char* Symbol) {
        return Service.GetSubItem(Symbol, fw::kPriceDataKind, 0)->GetState();
    };
    Service.Request("A");
    Service.Request("B");
    while (!Loop.IsEmpty()) Loop.Pump();
    EXPECT_EQ(StateOf("A"), fw::kItemUnknown);
    EXPECT_EQ(StateOf("B"), fw::kItemReady);
    Raises = false;
    Service.QuotesChanged({"A"});
    while (!Loop.IsEmpty()) Loop.Pump();
    EXPECT_EQ(StateOf("A"), fw::kItemReady);
}

TEST_F(TManyQuotesTest, APriceThatComesWhileItsSubscriberIsToldIsToldAgain) {
    fw::TObject Other;
    int Heard = 0;
    auto* Item = Subscriptions.GetSubItem(Symbols.front(), fw::kPriceDataKind, 0);
    Subscriptions.Subscribe(
        Item,
        [&](fw::TObject*, fw::TObject*) {
            if (++Heard > 1) return;
            Quotes[Symbols.front()].Last = 7;
            Subscriptions.QuotesChanged({Symbols.front()});
        },
        &Other);
    PumpAll();
    EXPECT_EQ(Heard, 2);
    EXPECT_EQ(LastOf(Symbols.front()), 7);
}

}  // namespace ws
