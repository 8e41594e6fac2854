// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqOrderPush.h"

#include "tests/view/PartsFixture.h"

namespace ventiq {
namespace {

class OrderPush : public TPartsFixture {
protected:
    TVentiqOrderPush Push{Form, Context, Selectors};
    TCustomClientOrder Order;

    OrderPush() {
        Host.Market.AddOptions("HKFE", "HHI", "HHI", "2026/12/30", {"100"});
        Host.Market.AddOptions("HKFE", "HHI", "HHJ", "2026/12/11", {"100"});
        for (const char* Weekly : {"HHJC100", "HHJP100"})
            dynamic_cast<support::TFakeProduct*>(Host.Market.GetProductBySymbol(Weekly))
                ->With("WeeklyOptionExp", " W2 ");
        Form.edtAccount.OnExit = [this](TObject* S) { Selectors.edtAccountExit(S); };
        Selectors.InitExchangeList();
        Order.SetAccount("A200");
    }
    bool PushSymbol(const Text& Symbol, int Kind = 0) {
        Order.SetSymbol(Symbol);
        return Push.SetCustomData(Kind, &Order);
    }
    Text Market() {
        const auto& C = *Context.FMyDataControl;
        return C.GetExchange() + " " + C.GetSeries() + " " + C.GetMonth();
    }
};

TEST_F(OrderPush, BringsTheSelectorsToItsInstrumentAndAccount) {
    EXPECT_TRUE(PushSymbol("DEFC10"));
    EXPECT_EQ(Market(), "XDER DEF 2026-12");
    EXPECT_EQ(Form.edtAccount.GetText(), "A200");
    EXPECT_EQ(Context.FMyDataControl->GetAccount(), "A200");
    EXPECT_TRUE(PushSymbol("HSJC100", 77)) << "whatever the kind";
    EXPECT_EQ(Market(), "HKFE HSI 2027-01");
}

TEST_F(OrderPush, SelectsAsAUserDoesAndIsRemembered) {
    PushSymbol("DEFC10");
    EXPECT_EQ(Selectors.FLayoutExchange, "XDER");
    EXPECT_EQ(Selectors.FLayoutSeries, "DEF");
}

TEST_F(OrderPush, AWeeklyInstrumentFindsItsWeek) {
    PushSymbol("HHJC100");
    EXPECT_EQ(Market(), "HKFE HHI 2026-12-W2");
    PushSymbol("HHIC100");
    EXPECT_EQ(Market(), "HKFE HHI 2026-12");
}

TEST_F(OrderPush, AnyOtherObjectChangesNothing) {
    PushSymbol("DEFC10");
    const Text Before = Market();
    TObject Other;
    EXPECT_TRUE(Push.SetCustomData(0, &Other));
    EXPECT_TRUE(Push.SetCustomData(0, nullptr));
    EXPECT_EQ(Market(), Before);
}

TEST_F(OrderPush, AnUnknownSymbolMovesOnlyTheAccount) {
    PushSymbol("DEFC10");
    const Text Before = Market();
    Order.SetAccount("A300");
    PushSymbol("NOWHERE");
    EXPECT_EQ(Market(), Before);
    EXPECT_EQ(Context.FMyDataControl->GetAccount(), "A300");
    EXPECT_EQ(Host.Journal.Count("Subscriptions.Subscribe(NOWHERE)"), 0);
}

TEST_F(OrderPush, MarketDataPlaceASymbolWithoutProductRecordButSelectNoMonth) {
    PushSymbol("HSJC100");
    ASSERT_EQ(Market(), "HKFE HSI 2027-01");
    auto& Item = Host.Subscriptions.Item("DEFX77");
    Item.Set(kFieldExchange, "XDER").Set(kFieldSeries, "DEF").Set(kFieldExpiry, "2026/12/18");
    PushSymbol("DEFX77");
    EXPECT_EQ(Market(), "HKFE HSI 2027-01") << "not ready";
    Item.Ready();
    FormatSettings().ShortDateFormat = "before";
    PushSymbol("DEFX77");
    EXPECT_EQ(Context.FMyDataControl->GetExchange(), "XDER");
    EXPECT_EQ(Context.FMyDataControl->GetSeries(), "DEF");
    EXPECT_EQ(FormatSettings().ShortDateFormat, "yyyy-MM") << "the month code is computed all the same";
}

TEST_F(OrderPush, AMalformedExpiryRaisesAfterExchangeAndSeriesWereChosen) {
    auto& Item = Host.Subscriptions.Item("DEFX77");
    Item.Set(kFieldExchange, "XDER").Set(kFieldSeries, "DEF").Set(kFieldExpiry, "18.12.2026").Ready();
    EXPECT_THROW(PushSymbol("DEFX77"), EConvertError);
    EXPECT_EQ(Context.FMyDataControl->GetSeries(), "DEF");
    EXPECT_EQ(Context.FMyDataControl->GetAccount(), "") << "the account comes last";
}

TEST_F(OrderPush, WithoutMarketListsOnlyTheAccountIsTaken) {
    Selectors.FExchangeList.Clear();
    Selectors.FSeriesList.Clear();
    Selectors.FMonthList.Clear();
    const Text Before = Market();
    PushSymbol("DEFC10");
    EXPECT_EQ(Market(), Before);
    EXPECT_EQ(Form.edtAccount.GetHint(), "A200");
}

}  // namespace
}  // namespace ventiq
