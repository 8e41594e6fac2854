// SPDX-License-Identifier: Apache-2.0
#include "engine/VentiqDataControl.h"

#include "tests/engine/EngineFixture.h"

namespace ventiq {

using TTexts = std::vector<Text>;

TEST_F(TEngineTest, KeyPricesAreTheRangeEndsAndTheStrikes) {
    Host.Subscriptions.AddOption("C100", 100, "C");
    Host.Subscriptions.AddOption("P110", 110, "P");
    SetRange(90, 110, 5);
    Control->AddRecord("P110", 0, 3, 1);
    Control->AddRecord("C100", 0, 5, 1);
    Control->Calculate();
    EXPECT_EQ(KeyPrices(), (TTexts{"90", "100", "110"})) << "110 once, although it is limit and strike";
    EXPECT_EQ(Control->GetCount(), 3);
}

TEST_F(TEngineTest, StrikesOutsideTheRangeAreKeyPrices) {
    Host.Subscriptions.AddOption("C120", 120, "C");
    SetRange(90, 105, 5);
    Control->AddRecord("C120", 0, 5, 1);
    Control->Calculate();
    EXPECT_EQ(KeyPrices(), (TTexts{"90", "105", "120"}));
}

TEST_F(TEngineTest, FuturesAndLegsWithoutReadableStrikeAddNoKeyPrice) {
    Host.Subscriptions.AddFuture("FUT");
    Host.Subscriptions.AddOption("BAD", 0, "C").Set(kFieldStrike, "nan");
    SetRange(90, 110, 5);
    Control->AddRecord("FUT", 0, 100, 1);
    Control->AddRecord("BAD", 0, 5, 1);
    Control->Calculate();
    EXPECT_EQ(KeyPrices(), (TTexts{"90", "110"}));
    double PL = 0.0;
    ASSERT_TRUE(Control->GetPL(0, PL));
    EXPECT_EQ(PL, -10.0 + (90.0 - 0.0 - 5.0)) << "the leg is still summed, its strike counts as 0";
}

TEST_F(TEngineTest, KeyPricesAreCalculatedFromTheirTexts) {
    Host.Subscriptions.AddOption("C", 1.123456789, "C");
    Host.Subscriptions.AddFuture("FUT");
    SetRange(0, 2, 1);
    Control->AddRecord("C", 0, 0, 1);
    Control->AddRecord("FUT", 0, 0, 1e9);
    Control->Calculate();
    ASSERT_EQ(KeyPrices(), (TTexts{"0", "1.12345679", "2"}));
    double PL = 0.0;
    ASSERT_TRUE(Control->GetPL(1, PL));
    EXPECT_EQ(PL, 1.12345679 * 1e9);
    EXPECT_NE(PL, 1.123456789 * 1e9);
}

TEST_F(TEngineTest, KeyPricesAreSummedOverAllLegs) {
    Host.Subscriptions.AddOption("C100", 100, "C", 50);
    Host.Subscriptions.AddOption("C110", 110, "C", 50);
    SetRange(90, 120, 5);
    Control->AddRecord("C100", 0, 5, 2);
    Control->AddRecord("C110", 1, 2, 2);
    Control->Calculate();
    const double Expected[] = {-300, -300, 700, 700};
    for (int32_t I = 0; I < 4; ++I) {
        double PL = 0.0;
        ASSERT_TRUE(Control->GetPL(I, PL));
        EXPECT_EQ(PL, Expected[I]) << I;
    }
    EXPECT_TRUE(Control->GetShowAlertLine());
}

TEST_F(TEngineTest, TheAlertLineNeedsAGainAndALossAtTheKeyPrices) {
    Host.Subscriptions.AddFuture("FUT");
    Host.Subscriptions.AddOption("C120", 120, "C");
    Host.Subscriptions.AddOption("C105", 105, "C");
    struct {
        const char* Why;
        const char* Symbol;
        double Premium, Down, Up;
        bool Expected;
    } const Cases[] = {
        {"only gains, from 100 to 300", "FUT", 0, 100, 300, false},
        {"only losses", "FUT", 400, 100, 300, false},
        {"both", "FUT", 200, 100, 300, true},
        {"a gain of exactly 0 at the end is none", "FUT", 300, 100, 300, false},
        {"the strike lies above the range", "C120", 5, 90, 110, false},
        {"a gain at the up limit", "C105", 1, 90, 110, true},
        {"a gain within the tolerance is none", "FUT", 110 - 5e-8, 90, 110, false},
    };
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Why);
        Control->Reset();
        SetRange(C.Down, C.Up, 5);
        Control->AddRecord(C.Symbol, 0, C.Premium, 1);
        Control->Calculate();
        EXPECT_EQ(Control->GetShowAlertLine(), C.Expected);
    }
}

TEST_F(TEngineTest, TheFirstLegWithACurrencyDecidesIt) {
    Host.Subscriptions.AddFuture("NONE");
    Host.Subscriptions.AddFuture("HK").Set(kFieldCurrency, "HKD");
    Host.Subscriptions.AddFuture("US").Set(kFieldCurrency, "USD");
    SetRange(90, 110, 5);
    for (const auto* Symbol : {"NONE", "HK", "US"}) Control->AddRecord(Symbol, 0, 100, 1);
    Control->Calculate();
    EXPECT_EQ(Control->GetCurrency(), "HKD");
    Control->Reset();
    EXPECT_EQ(Control->GetCurrency(), "HKD") << "a reset keeps it";
    Control->Calculate();
    EXPECT_EQ(Control->GetCurrency(), "");
}

TEST_F(TEngineTest, WithoutLegsACalculationEmptiesAndStillTellsSo) {
    Host.Subscriptions.AddFuture("FUT");
    SetRange(90, 110, 5);
    Control->AddRecord("FUT", 0, 100, 1);
    Control->Calculate();
    ASSERT_TRUE(Control->GetShowAlertLine());
    Control->ClearPayOffData();
    DataUpdates = 0;
    Control->Calculate();
    EXPECT_EQ(Control->GetCount(), 0);
    EXPECT_EQ(Detail.GetCount(), 0);
    EXPECT_FALSE(Control->GetShowAlertLine());
    EXPECT_EQ(DataUpdates, 1);
}

TEST_F(TEngineTest, TheTableIsCalculatedBeforeTheKeyPrices) {
    Host.Subscriptions.AddFuture("FUT");
    SetRange(90, 110, 5);
    Control->AddRecord("FUT", 0, 100, 1);
    std::vector<Text> Order;
    int32_t KeyPricesThen = -1;
    const auto Link = Detail.OnChanged.Connect([&] {
        Order.push_back("table");
        KeyPricesThen = Control->GetCount();
    });
    Control->SetOnDataUpdate([&](TObject*) { Order.push_back("update"); });
    Control->Calculate();
    EXPECT_EQ(Order, (TTexts{"table", "update"}));
    EXPECT_EQ(KeyPricesThen, 0);
}

TEST_F(TEngineTest, ResetDropsLegsAndKeyPricesOnly) {
    Host.Subscriptions.AddFuture("FUT").Set(kFieldCurrency, "HKD");
    SetRange(90, 110, 5);
    Control->AddRecord("FUT", 0, 100, 1);
    Control->AddOrderRecord("FUT", 0, 100, 1, 1, 11);
    Control->Calculate();
    Control->Reset();
    EXPECT_TRUE(Control->GetPayOffData().empty());
    EXPECT_EQ(Control->GetCount(), 0);
    EXPECT_EQ(Detail.GetCount(), 5);
    EXPECT_EQ(RowPL(4), 10.0);
    EXPECT_TRUE(Control->GetShowAlertLine());
    EXPECT_EQ(Control->GetUpLimit(), 110.0);
    EXPECT_EQ(Control->GetPayOffOrderData().size(), 1u);
}

TEST_F(TEngineTest, ALimitIsAlsoTheDefaultAndTheTablesLimit) {
    Control->SetUpLimit(130);
    Control->SetDownLimit(80);
    Control->SetInterval(2.5);
    EXPECT_EQ(Defaults(), "80 130 2.5");
    EXPECT_EQ(Control->GetUpLimit(), 130);
    EXPECT_EQ(Control->GetDownLimit(), 80);
    EXPECT_EQ(Control->GetInterval(), 2.5);
    EXPECT_EQ(Detail.GetUpLimit(), 130);
    EXPECT_EQ(Detail.GetDownLimit(), 80);
    EXPECT_EQ(Detail.GetInterval(), 2.5);
}

TEST_F(TEngineTest, ADetailControlIsTakenAndLetGo) {
    EXPECT_EQ(Detail.GetMasterControl(), Control.get());
    Control->SetDetailControl(nullptr);
    EXPECT_EQ(Control->GetDetailControl(), nullptr);
    Host.Subscriptions.AddFuture("FUT");
    SetRange(90, 110, 5);
    Control->AddRecord("FUT", 0, 100, 1);
    Control->Calculate();
    EXPECT_EQ(Control->GetCount(), 2);
    EXPECT_EQ(Detail.GetCount(), 0);
}

TEST_F(TEngineTest, TheDetailControlMayDieFirst) {
    auto Table = std::make_unique<TCustomVentiqDetailDataControl>();
    Control->SetDetailControl(Table.get());
    Table.reset();
    Control.reset();
    EXPECT_EQ(Host.Market.HandlerCount(), 0);
}

TEST_F(TEngineTest, PricesWithinTheToleranceCompareEqual) {
    struct {
        const char *A, *B;
        int32_t Expected;
    } const Cases[] = {{"1.00000001", "1", 0}, {"1", "1.0000002", -1}, {"1.0000002", "1", 1}, {"9", "10", -1},
                       {"abc", "0", 0},        {"abc", "-1", 1},       {"-5", "5", -1}};
    for (const auto& C : Cases) EXPECT_EQ(Control->ComparePrice(C.A, C.B), C.Expected) << C.A << " and " << C.B;
}

TEST_F(TEngineTest, ReadsOutOfRangeLeaveTheirArguments) {
    double Value = 42.0;
    EXPECT_FALSE(Control->GetPrice(0, Value));
    EXPECT_FALSE(Control->GetPL(0, Value));
    Host.Subscriptions.AddFuture("FUT");
    SetRange(90, 110, 5);
    Control->AddRecord("FUT", 0, 100, 1);
    Control->Calculate();
    EXPECT_FALSE(Control->GetPrice(-1, Value));
    EXPECT_FALSE(Control->GetPrice(2, Value));
    EXPECT_FALSE(Control->GetPL(-1, Value));
    EXPECT_FALSE(Control->GetPL(2, Value));
    EXPECT_EQ(Value, 42.0);
}

TEST_F(TEngineTest, TheMasterShowsNoCells) {
    Host.Subscriptions.AddFuture("FUT");
    SetRange(90, 110, 5);
    Control->AddRecord("FUT", 0, 100, 1);
    Control->Calculate();
    int Mark = 0;
    void* Value = &Mark;
    EXPECT_EQ(Control->GetValue(0, kColPrice), Variant(Text()));
    EXPECT_EQ(Control->GetDisplayValue(0, kColPrice), "");
    EXPECT_FALSE(Control->GetRowValue(0, Value));
    EXPECT_FALSE(Control->GetColValue(0, Value));
    EXPECT_EQ(Value, &Mark);
    EXPECT_EQ(Control->GetColList(), nullptr);
}

TEST_F(TEngineTest, TwoLegsOnOneSymbolAreTwoLegs) {
    Host.Subscriptions.AddFuture("FUT");
    SetRange(90, 110, 5);
    Control->AddRecord("FUT", 0, 100, 1);
    Control->AddRecord("FUT", 0, 100, 1);
    Control->Calculate();
    ASSERT_EQ(Control->GetPayOffData().size(), 2u);
    double PL = 0.0;
    ASSERT_TRUE(Control->GetPL(1, PL));
    EXPECT_EQ(PL, 20.0);
}

TEST_F(TEngineTest, OrderLegsCarryTheirFlags) {
    Control->AddRecord("LEG", 1, 5, 2);
    Control->AddOrderRecord("ORDER", 1, 5.5, 2, 2, 13);
    const auto& Leg = *Control->GetPayOffData()[0];
    EXPECT_EQ(Leg.FOpenClose, 0);
    EXPECT_EQ(Leg.FPrincipal, 0);
    const auto& Order = *Control->GetPayOffOrderData().at(0);
    EXPECT_EQ(Order.FSymbol, "ORDER");
    EXPECT_EQ(Order.FSide, 1);
    EXPECT_EQ(Order.FPremium, 5.5);
    EXPECT_EQ(Order.FQty, 2);
    EXPECT_EQ(Order.FOpenClose, 2);
    EXPECT_EQ(Order.FPrincipal, 13);
    Control->ResetOrderList();
    EXPECT_TRUE(Control->GetPayOffOrderData().empty());
    EXPECT_EQ(Control->GetPayOffData().size(), 1u);
    Control->ClearOMSOrder();
    EXPECT_TRUE(Control->GetOrderList().empty());
}

TEST_F(TEngineTest, MarketDataAreReadOnceForACalculation) {
    Host.Subscriptions.AddOption("C100", 100, "C");
    Host.Subscriptions.AddOption("P100", 100, "P");
    SetRange(0, 99999, 1);
    Control->AddRecord("C100", 0, 5, 1);
    Control->AddRecord("P100", 0, 5, 1);
    const int Before = Host.Subscriptions.LookUpCount;
    Control->Calculate();
    EXPECT_EQ(Host.Subscriptions.LookUpCount - Before, 2);
    RowPL(50000);
    EXPECT_EQ(Host.Subscriptions.LookUpCount - Before, 2);
}

TEST_F(TEngineTest, EachSymbolThatCannotCountIsNamedOnce) {
    Host.Subscriptions.AddFuture("FUT");
    Host.Subscriptions.AddOption("ODD", 100, "X");
    SetRange(90, 110, 5);
    for (const auto* Symbol : {"LATE", "FUT", "LATE", "ODD"}) Control->AddRecord(Symbol, 0, 100, 1);
    Control->Calculate();
    EXPECT_EQ(Host.TakeLog(), (TTexts{"Res_LogLegWithoutData(LATE)", "Res_LogLegWithoutData(ODD)"}));
    Control->Calculate();
    EXPECT_EQ(Host.TakeLog().size(), 2u);
}

TEST_F(TEngineTest, ARangeBeyondAnyTableLeavesTheKeyPrices) {
    Host.Subscriptions.AddFuture("FUT");
    SetRange(0, 1e6, 0.0000002);
    Control->AddRecord("FUT", 0, 100, 1);
    Control->Calculate();
    EXPECT_EQ(Detail.GetCount(), 0);
    EXPECT_EQ(KeyPrices(), (TTexts{"0", "1000000"}));
    EXPECT_EQ(DataUpdates, 1);
    const auto Log = Host.TakeLog();
    ASSERT_EQ(Log.size(), 1u);
    EXPECT_TRUE(Log[0].starts_with("Res_LogRowCount(5,000,000,000,00")) << Log[0];
}

TEST_F(TEngineTest, LimitsThatWereNeverSetDivideByNothing) {
    Host.Subscriptions.AddFuture("FUT");
    Control->AddRecord("FUT", 0, 100, 1);
    Control->Calculate();
    EXPECT_EQ(Detail.GetCount(), 0);
    EXPECT_EQ(KeyPrices(), (TTexts{"0"}));
    EXPECT_EQ(Host.TakeLog().size(), 1u);
}

TEST_F(TEngineTest, ConstructionAndDestructionAsTheHostSeesThem) {
    Host.Journal.Clear();
    Host.Market.AddProduct("XDER", "S", "FUT", 2, "2024/03/28");
    {
        TCustomVentiqDataControl Other;
        EXPECT_EQ(Other.GetCount(), 0);
        EXPECT_EQ(Other.GetDefaultUpPrice(), 0.0);
        EXPECT_EQ(Other.GetDetailControl(), nullptr);
        Other.SetExchange("XDER");
        Other.SetSeries("S");
        Other.SetMonth("2024-03");
    }
    EXPECT_EQ(Host.Journal.Take(), (TTexts{"Market.AddExchangeUpdateHandler()", "Subscriptions.Subscribe(FUT)",
                                           "Market.RemoveExchangeUpdateHandler()", "Subscriptions.Unsubscribe(FUT)"}));
}

}  // namespace ventiq
