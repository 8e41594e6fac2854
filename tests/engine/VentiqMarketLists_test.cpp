// SPDX-License-Identifier: Apache-2.0
#include "tests/engine/EngineFixture.h"

namespace ventiq {

namespace {

class TListTest : public TEngineTest {
protected:
    TStringList Months() {
        TStringList List;
        Control->GetMonthList(&List);
        return List;
    }
};

}  // namespace

TEST_F(TListTest, SupportedExchangesInTheHostsOrder) {
    Host.Market.ListExchange("XDER");
    Host.Market.ListExchange("");
    Host.Market.AddExchange("NOPE", false);
    Host.Market.ListExchange("HKFE");
    Host.Market.ListExchange("XDER");
    TStringList List;
    Control->GetExchangeList(&List);
    EXPECT_EQ(List, (TStringList{"XDER", "HKFE", "XDER"})) << "no check for duplicates";
    EXPECT_EQ(Host.ExchangeComparer.SortCount, 1);
    Host.ExchangeComparer.Sorted = true;
    List.Clear();
    Control->GetExchangeList(&List);
    EXPECT_EQ(List, (TStringList{"HKFE", "XDER", "XDER"}));
}

TEST_F(TListTest, ListsAreAppendedTo) {
    Host.Market.AddProduct("XDER", "S", "A", kProductFuture, "2024/03/28");
    Select("XDER", "S");
    TStringList Exchanges, Series, MonthList;
    for (int I = 0; I < 2; ++I) {
        Control->GetExchangeList(&Exchanges);
        Control->GetSeriesList(&Series);
        Control->GetMonthList(&MonthList);
    }
    EXPECT_EQ(Exchanges.GetCount(), 2);
    EXPECT_EQ(Series.GetCount(), 2);
    EXPECT_EQ(MonthList, (TStringList{"2024-03"})) << "months are listed once";
}

TEST_F(TListTest, ANullListReachesTheExchangeComparerOnly) {
    Host.Market.AddProduct("XDER", "S", "A", kProductFuture, "2024/03/28");
    Select("XDER", "S");
    ExchangeUpdateState = 1;
    Control->GetExchangeList(nullptr);
    Control->GetSeriesList(nullptr);
    Control->GetMonthList(nullptr);
    EXPECT_EQ(Host.ExchangeComparer.NullCount, 1);
    EXPECT_EQ(Host.SeriesComparer.SortCount, 0);
    EXPECT_EQ(ExchangeUpdateState, 1);
    EXPECT_FALSE(ExchangeListReady);
}

TEST_F(TListTest, SeriesOfTheSelectedExchange) {
    TStringList List;
    Control->GetSeriesList(&List);
    EXPECT_EQ(Host.SeriesComparer.SortCount, 0) << "nothing without an exchange";
    Host.Market.ListSeries("XDER", "B");
    Host.Market.ListSeries("XDER", "");
    Host.Market.ListSeries("XDER", "A");
    Host.Market.ListSeries("HKFE", "HSI");
    Control->SetExchange("XDER");
    Control->GetSeriesList(&List);
    EXPECT_EQ(List, (TStringList{"B", "A"}));
    EXPECT_EQ(Host.Journal.Count("SeriesComparer.Sort(XDER)"), 1);
}

TEST_F(TListTest, MonthsOfFuturesAndOptionsEachOnceInOrder) {
    Host.Market.AddProduct("XDER", "S", "A", kProductOption, "2024/06/27");
    Host.Market.AddProduct("XDER", "S", "B", kProductFuture, "2024/03/28");
    Host.Market.AddProduct("XDER", "S", "C", kProductOption, "2024/03/14");
    Host.Market.AddProduct("XDER", "S", "D", 1, "2024/01/01");
    Host.Market.AddProduct("XDER", "S", "E", 0, "not a date");
    Select("XDER", "S");
    EXPECT_EQ(Months(), (TStringList{"2024-03", "2024-06"}));
    Control->SetSeries("");
    EXPECT_EQ(Months(), TStringList());
}

TEST_F(TListTest, WeeklyExpiriesHaveMonthsOfTheirOwnAtTheWeeklyExchange) {
    for (const auto* Exchange : {"HKFE", "hkfe", "HkFe"}) {
        SCOPED_TRACE(Exchange);
        Host.Market.Clear();
        Host.Market.AddProduct(Exchange, "HSI", "W", kProductOption, "2024/05/09", "18000", "C")
            .With(kWeeklyAttribute, "  W1 ");
        Host.Market.AddProduct(Exchange, "HSI", "M", kProductOption, "2024/05/30", "18200", "C");
        Control->SetExchange("");
        Select(Exchange, "HSI");
        EXPECT_EQ(Months(), (TStringList{"2024-05", "2024-05-W1"}));
        Control->SetMonth("2024-05-W1");
        EXPECT_EQ(Defaults(), "18000 18000 0");
        Control->SetMonth("2024-05");
        EXPECT_EQ(Defaults(), "18200 18200 0");
    }
}

TEST_F(TListTest, ATagAtAnotherExchangeIsNotListed) {
    Host.Market.AddProduct("XDER", "S", "A", kProductOption, "2024/05/09").With(kWeeklyAttribute, "W1");
    Select("XDER", "S");
    EXPECT_EQ(Months(), (TStringList{"2024-05"}));
}

TEST_F(TListTest, TheWeeklyTagIsCarriedToProductsOfAnotherExchange) {
    Host.Market.AddProduct("HKFE", "S", "FIRST", kProductOption, "2024/05/02", "90", "C").Exchange = "XDER";
    Host.Market.AddProduct("HKFE", "S", "W", kProductOption, "2024/05/09", "100", "C").With(kWeeklyAttribute, "W1");
    auto& Spot = Host.Market.AddProduct("HKFE", "S", "STOCK", 1, "2024/05/09");
    Spot.With(kWeeklyAttribute, "W9");
    Host.Market.AddProduct("HKFE", "S", "X", kProductOption, "2024/05/30", "110", "C").Exchange = "XDER";
    Select("HKFE", "S");
    EXPECT_EQ(Months(), (TStringList{"2024-05", "2024-05-W1"}))
        << "before the first tag: none; the stock's is not read";
    Control->SetMonth("2024-05-W1");
    EXPECT_EQ(Defaults(), "100 110 0") << "the scan follows the list";
    EXPECT_EQ(Months(), (TStringList{"2024-05", "2024-05-W1"})) << "each pass starts without a tag";
}

TEST_F(TListTest, AMonthCodeGoesThroughTheProcessWideDateSettings) {
    EXPECT_EQ(Control->GetMonthCode("2024/03/28", ""), "2024-03");
    EXPECT_EQ(FormatSettings().ShortDateFormat, "yyyy-MM");
    EXPECT_EQ(FormatSettings().DateSeparator, "-");
    EXPECT_EQ(Control->GetMonthCode("2024/03/28", "W2"), "2024-03-W2") << "it does not depend on what stands there";
    EXPECT_EQ(Control->GetMonthCode(" 2024/3/8 ", ""), "2024-03");
    EXPECT_EQ(Control->GetMonthCode("2024/12/31 16:00", ""), "2024-12");
}

TEST_F(TListTest, AMalformedExpiryRaises) {
    for (const auto* Expiry : {"", "2024-03-28", "20240328", "28/03/2024", "2024/02/30", "2024/13/01", "soon"}) {
        SCOPED_TRACE(Expiry);
        EXPECT_THROW(Control->GetMonthCode(Expiry, ""), EConvertError);
        Host.Market.Clear();
        Host.Market.AddProduct("XDER", "S", "GOOD", kProductOption, "2024/03/28", "100", "C");
        Host.Market.AddProduct("XDER", "S", "BAD", kProductOption, Expiry, "200", "C");
        Control->SetExchange("");
        Select("XDER", "S");
        TStringList List;
        EXPECT_THROW(Control->GetMonthList(&List), EConvertError);
        EXPECT_THROW(Control->SetMonth("2024-03"), EConvertError);
        EXPECT_EQ(Control->GetMonth(), "2024-03") << "as far as it got";
    }
}

TEST_F(TListTest, ASubclassMayNameMonthsItself) {
    class TQuarters : public TCustomVentiqDataControl {
    public:
        Text GetMonthCode(const Text& ExpiryDate, const Text&) override { return ExpiryDate < "2024/04" ? "Q1" : ""; }
    } Quarters;
    Host.Market.AddProduct("XDER", "S", "A", kProductOption, "2024/03/28", "100", "C");
    Host.Market.AddProduct("XDER", "S", "B", kProductOption, "2024/06/28", "200", "C");
    Quarters.SetExchange("XDER");
    Quarters.SetSeries("S");
    TStringList List;
    Quarters.GetMonthList(&List);
    EXPECT_EQ(List, (TStringList{"Q1"})) << "an empty code is not listed";
    Quarters.SetMonth("Q1");
    EXPECT_EQ(Quarters.GetDefaultUpPrice(), 100.0);
}

TEST_F(TListTest, SelectionsDependOnEachOther) {
    Control->SetExchange("XDER");
    Control->SetSeries("S");
    Control->SetMonth("2024-03");
    Control->SetAccount("ACC1");
    Control->SetExchange("XDER");
    Control->SetSeries("S");
    EXPECT_EQ(Control->GetMonth(), "2024-03") << "the value that stands changes nothing";
    Control->SetSeries("T");
    EXPECT_EQ(Control->GetSeries(), "T");
    EXPECT_EQ(Control->GetMonth(), "");
    Control->SetMonth("2024-03");
    Control->SetExchange("xder");
    EXPECT_EQ(Control->GetExchange(), "xder");
    EXPECT_EQ(Control->GetSeries(), "");
    EXPECT_EQ(Control->GetMonth(), "");
    EXPECT_EQ(Control->GetAccount(), "ACC1");
}

TEST_F(TListTest, DerivativesExchangesAreDetectedUntilTheFirstList) {
    Host.Market.AddProduct("XDER", "STOCKS", "S", 1, "");
    Host.Market.AddProduct("XDER", "OPT", "O", kProductOption, "2024/03/28");
    Host.Market.AddProduct("XFUT", "FUT", "F", kProductFuture, "2024/03/28");
    Host.Market.AddProduct("XSTK", "STOCKS", "T", 1, "");
    EXPECT_TRUE(Control->IsDerivativeExchange("XDER"));
    EXPECT_FALSE(Control->IsDerivativeExchange("XSTK"));
    EXPECT_FALSE(Control->IsDerivativeExchange("NOBODY"));
    EXPECT_EQ(DerivativeExchangeCache, (std::map<Text, Text>{{"XDER", "XDER"}}));

    TStringList List;
    Control->GetExchangeList(&List);
    EXPECT_TRUE(Control->IsDerivativeExchange("XDER")) << "detected before";
    EXPECT_FALSE(Control->IsDerivativeExchange("XFUT")) << "from now on the cache alone answers";
    EXPECT_TRUE(Control->DetectIsDerivativeExchange("XFUT"));
    EXPECT_TRUE(Control->IsDerivativeExchange("XFUT"));
}

TEST_F(TListTest, TheCacheIsResetOnceForAllViewsTogether) {
    TCustomVentiqDataControl Other;
    int OtherUpdates = 0;
    Other.SetOnMarketListUpdate([&](TObject*) { ++OtherUpdates; });
    Host.Market.AddProduct("XDER", "OPT", "O", kProductOption, "2024/03/28");
    ASSERT_TRUE(Control->IsDerivativeExchange("XDER"));

    Host.Market.FireExchangeUpdate();
    EXPECT_EQ(ExchangeUpdateState, 1);
    EXPECT_EQ(ListUpdates, 1);
    EXPECT_EQ(OtherUpdates, 1);
    EXPECT_EQ(DerivativeExchangeCache.size(), 1u) << "not yet";

    TStringList List;
    Other.GetExchangeList(&List);
    EXPECT_EQ(ExchangeUpdateState, 2);
    EXPECT_TRUE(DerivativeExchangeCache.empty());
    EXPECT_TRUE(ExchangeListReady);

    ASSERT_TRUE(Control->DetectIsDerivativeExchange("XDER"));
    Host.Market.FireExchangeUpdate();
    EXPECT_EQ(ExchangeUpdateState, 2);
    EXPECT_EQ(ListUpdates, 2);
    Control->GetExchangeList(&List);
    EXPECT_EQ(DerivativeExchangeCache.size(), 1u) << "never a second time";
}

TEST_F(TListTest, AReportWithoutListenerIsRemembered) {
    Control->SetOnMarketListUpdate({});
    Host.Market.FireExchangeUpdate();
    EXPECT_EQ(ExchangeUpdateState, 1);
}

}  // namespace ventiq
