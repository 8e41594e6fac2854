// SPDX-License-Identifier: Apache-2.0
#include "tests/engine/EngineFixture.h"

namespace ventiq {

namespace {

constexpr const char* kMarch = "2024/03/28";
constexpr const char* kMonth = "2024-03";

class TRangeTest : public TEngineTest {
protected:
    support::TFakeSubItem& AddPendingFuture() {
        Host.Market.AddProduct("XDER", "FUTS", "FUT", kProductFuture, kMarch);
        Select("XDER", "FUTS");
        return Host.Subscriptions.Item("FUT");
    }
};

}  // namespace

TEST_F(TRangeTest, TheRangeOfAMonthsStrikes) {
    struct {
        const char* Why;
        std::vector<Text> Strikes;  // one option each
        const char* Expected;       // down up interval
    } const Cases[] = {
        {"a call and a put on three strikes", {"100", "100", "110", "110", "120", "120"}, "100 120 10"},
        {"two strikes", {"100", "115", "115", "100"}, "100 115 15"},
        {"the interval is cut to a whole number", {"100", "100", "107.5", "107.5"}, "100 107.5 7"},
        {"107 and 100", {"107", "107", "100", "100"}, "100 107 7"},
        {"one strike", {"100", "100"}, "100 100 0"},
        {"one option", {"100"}, "100 100 0"},
        {"an odd number of options", {"100", "100", "110"}, "100 110 0"},
        {"a strike that is no number drags the range to 0", {"abc", "110"}, "0 110 0"},
        {"negative strikes", {"-20", "-20", "0", "0", "20", "20"}, "-20 20 20"},
        {"an interval below 1 is 0", {"1.1", "1.1", "1.2", "1.2"}, "1.1 1.2 0"},
    };
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Why);
        Host.Market.Clear();
        for (const auto& Strike : C.Strikes)
            Host.Market.AddProduct("XDER", "OPT", "O" + Strike, kProductOption, kMarch, Strike, "C");
        Host.Market.AddProduct("XDER", "OPT", "OTHER", kProductOption, "2024/04/25", "900", "C");
        Host.Market.AddProduct("XDER", "OPT", "STOCK", 1, kMarch, "5");
        Host.Market.AddProduct("XDER", "OPT", "FUT", kProductFuture, kMarch);
        Control->SetExchange("");
        Select("XDER", "OPT");
        Control->SetMonth(kMonth);
        EXPECT_EQ(Defaults(), C.Expected);
        EXPECT_EQ(Host.Subscriptions.SubscribeCount, 0) << "no future is asked where options are listed";
        EXPECT_EQ(RangeUpdates, 0);
    }
}

TEST_F(TRangeTest, TheRangeOfAFuturesPrice) {
    struct {
        double Price;
        const char* Expected;
    } const Cases[] = {
        {23456.7, "18765 28148 938"}, {12.3, "9 14 1"}, {50.5, "40 60 2"}, {0.5, "0 0 1"}, {-10, "0 0 1"}};
    auto& Item = AddPendingFuture().Ready();
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Price);
        Item.Set(kFieldReferencePrice, C.Price);
        Control->SetMonth("");
        RangeUpdates = 0;
        Control->SetMonth(kMonth);
        EXPECT_EQ(Defaults(), C.Expected);
        EXPECT_EQ(RangeUpdates, 1);
        EXPECT_TRUE(Control->GetSubscribedList().empty());
    }
    EXPECT_EQ(Host.Subscriptions.SubscribeCount, 0);
}

TEST_F(TRangeTest, AMonthWithoutOptionsAndFuturesHasNoRange) {
    Host.Market.AddProduct("XDER", "OPT", "STOCK", 1, kMarch);
    Select("XDER", "OPT");
    Control->SetMonth(kMonth);
    EXPECT_EQ(Defaults(), "0 0 0");
    EXPECT_EQ(Host.Subscriptions.LookUpCount, 0);
}

TEST_F(TRangeTest, TheFirstFutureOfTheMonthIsTheUnderlying) {
    Host.Market.AddProduct("XDER", "FUTS", "APRIL", kProductFuture, "2024/04/25");
    Host.Market.AddProduct("XDER", "FUTS", "FIRST", kProductFuture, kMarch);
    Host.Market.AddProduct("XDER", "FUTS", "SECOND", kProductFuture, "2024/03/15");
    Select("XDER", "FUTS");
    Control->SetMonth(kMonth);
    EXPECT_EQ(Host.Subscriptions.Subscribed(), (std::vector<Text>{"FIRST"}));
}

TEST_F(TRangeTest, TheStandingMonthIsNotScannedAgain) {
    Host.Market.AddOptions("XDER", "OPT", "O", kMarch, {"100", "110", "120"});
    Select("XDER", "OPT");
    Control->SetMonth(kMonth);
    SetRange(1, 2, 3);
    Control->SetMonth(kMonth);
    EXPECT_EQ(Defaults(), "1 2 3");
    Control->SetMonth("");
    EXPECT_EQ(Defaults(), "0 0 0") << "any other month, also none, starts from nothing";
}

TEST_F(TRangeTest, APriceThatArrivesLaterFillsTheRangeOnce) {
    auto& Item = AddPendingFuture();
    Control->SetMonth(kMonth);
    EXPECT_EQ(Defaults(), "0 0 0");
    EXPECT_EQ(RangeUpdates, 0);
    Item.Ready().Set(kFieldReferencePrice, 50.5);
    Host.Subscriptions.Deliver();
    EXPECT_EQ(Defaults(), "40 60 2");
    EXPECT_EQ(RangeUpdates, 1);
    Item.Set(kFieldReferencePrice, 100);
    Control->UpdateDefaultPrice(&Item);
    EXPECT_EQ(Defaults(), "40 60 2");
    EXPECT_EQ(RangeUpdates, 1);
}

TEST_F(TRangeTest, AnAppliedLimitStopsALatePrice) {
    auto& Item = AddPendingFuture();
    Control->SetMonth(kMonth);
    Control->SetDownLimit(20000);
    Item.Ready().Set(kFieldReferencePrice, 23456.7);
    Host.Subscriptions.Deliver();
    EXPECT_EQ(Defaults(), "20000 0 0");
    EXPECT_EQ(RangeUpdates, 0);
}

TEST_F(TRangeTest, ALimitWithinTheToleranceOfZeroStopsNothing) {
    auto& Item = AddPendingFuture();
    Control->SetMonth(kMonth);
    Control->SetDownLimit(5e-8);
    Item.Ready().Set(kFieldReferencePrice, 50.5);
    Host.Subscriptions.Deliver();
    EXPECT_EQ(Defaults(), "40 60 2");
}

TEST_F(TRangeTest, APriceForAnotherSelectionIsIgnored) {
    struct {
        const char* Why;
        const char *Exchange, *Series, *Month;
    } const Cases[] = {{"another exchange", "xder", "FUTS", kMonth},
                       {"another series", "XDER", "futs", kMonth},
                       {"another month", "XDER", "FUTS", "2024-04"}};
    auto& Item = AddPendingFuture().Ready().Set(kFieldReferencePrice, 50.5);
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Why);
        Select(C.Exchange, C.Series);
        Control->SetMonth(C.Month);
        Control->UpdateDefaultPrice(&Item);
        EXPECT_EQ(Defaults(), "0 0 0");
    }
    EXPECT_EQ(RangeUpdates, 0);
}

TEST_F(TRangeTest, AnItemThatIsNotReadyFillsNothing) {
    auto& Item = AddPendingFuture().Set(kFieldReferencePrice, 50.5);
    Control->SetMonth(kMonth);
    for (const int State : {kItemUnknown, kItemNoData}) {
        Item.State = State;
        Control->UpdateDefaultPrice(&Item);
        EXPECT_EQ(Defaults(), "0 0 0");
    }
}

TEST_F(TRangeTest, AnUnlistedUnderlyingIsPlacedByItsOwnFields) {
    struct {
        const char* Why;
        const char *Symbol, *Series, *Expected;
    } const Cases[] = {{"field 141", "ANY", "HSI", "40 60 2"},
                       {"else the symbol's first three characters", "HSIH4", "", "40 60 2"},
                       {"a short symbol is the series", "HS", "", "0 0 0"}};
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Why);
        Control->SetExchange("");
        Select("HKFE", "HSI");
        Control->SetMonth(kMonth);
        auto& Item = Host.Subscriptions.Item(C.Symbol).Ready().Set(kFieldReferencePrice, 50.5);
        Item.Set(kFieldExchange, "HKFE").Set(kFieldExpiry, kMarch);
        if (*C.Series) Item.Set(kFieldSeries, C.Series);
        Control->UpdateDefaultPrice(&Item);
        EXPECT_EQ(Defaults(), C.Expected);
    }
}

TEST_F(TRangeTest, AWeeklyUnderlyingCarriesItsTagAtAnyExchange) {
    Host.Market.AddProduct("XDER", "FUTS", "FUT", kProductFuture, kMarch).With(kWeeklyAttribute, " W4 ");
    auto& Item = Host.Subscriptions.Item("FUT").Ready().Set(kFieldReferencePrice, 50.5);
    Select("XDER", "FUTS");
    Control->SetMonth("2024-03-W4");
    EXPECT_EQ(Defaults(), "0 0 0") << "the scan knows no tag outside the weekly exchange";
    Control->UpdateDefaultPrice(&Item);
    EXPECT_EQ(Defaults(), "40 60 2");
}

TEST_F(TRangeTest, AnUnderlyingWithoutExpiryRaises) {
    Select("XDER", "FUT");
    auto& Item = Host.Subscriptions.Item("FUTX").Ready().Set(kFieldExchange, "XDER").Set(kFieldReferencePrice, 50.5);
    EXPECT_THROW(Control->UpdateDefaultPrice(&Item), EConvertError);
    EXPECT_EQ(Defaults(), "0 0 0");
}

TEST_F(TRangeTest, ANewExchangeKeepsTheDefaultRange) {
    Host.Market.AddOptions("XDER", "OPT", "O", kMarch, {"100", "110", "120"});
    Select("XDER", "OPT");
    Control->SetMonth(kMonth);
    Control->SetExchange("HKFE");
    EXPECT_EQ(Defaults(), "100 120 10");
}

}  // namespace ventiq
