// SPDX-License-Identifier: GPL-3.0-or-later
// Every kind of row, written and read again.

#include "tests/store/StoreFixture.h"
#include "workstation/store/StoreTransaction.h"

namespace ws::test {
namespace {

TExchangeRow AnExchange() { return {"HKFE", "Futures", "期貨", "期货", false, "2026/11/20", 3, -360}; }
TCurrencyRow ACurrency() { return {"HKD", "dollar", "港元", "港币"}; }
TSeriesRow ASeries() { return {"HKFE", "HSI", "Index", "指數", "指数", "HKD", 26480.5, 0.25, 4, true, 7}; }
TProductRow AProduct() {
    return {"HSI27000L6", "HKFE",
            "HSI",        3,
            "2026/12/30", "27000",
            "C",          "100",
            "INDEX",      "HSIZ6",
            "HKD",        50.0,
            100.0,        {{"WeeklyOptionExp", "W1"}, {"ShortCode", "00005"}}};
}
TQuoteRow AQuote() { return {"HSI27000L6", 1.25, 1.5, 1.375, 1.0, "2026/11/20 16:30:00", true, 4}; }
TUserRow AUser() {
    return {"trader", "A trader", 2, false, "A100", {"OEPrin", "OEOpenC"}, {"PayOff", "Quotes"}, {"A200", "A100"}, 5};
}

void ExpectSame(const TProductRow& A, const TProductRow& B) {
    EXPECT_EQ(A.Symbol, B.Symbol);
    EXPECT_EQ(A.Exchange, B.Exchange);
    EXPECT_EQ(A.Series, B.Series);
    EXPECT_EQ(A.ProductType, B.ProductType);
    EXPECT_EQ(A.ExpiryDate, B.ExpiryDate);
    EXPECT_EQ(A.StrikePrice, B.StrikePrice);
    EXPECT_EQ(A.CallPutCode, B.CallPutCode);
    EXPECT_EQ(A.LotSize, B.LotSize);
    EXPECT_EQ(A.SpreadCode, B.SpreadCode);
    EXPECT_EQ(A.RelatedSymbol, B.RelatedSymbol);
    EXPECT_EQ(A.Currency, B.Currency);
    EXPECT_EQ(A.Multiplier, B.Multiplier);
    EXPECT_EQ(A.DisplayFactor, B.DisplayFactor);
    EXPECT_EQ(A.Attributes, B.Attributes);
}

void ExpectSame(const TQuoteRow& A, const TQuoteRow& B) {
    EXPECT_EQ(A.Symbol, B.Symbol);
    EXPECT_EQ(A.Bid, B.Bid);
    EXPECT_EQ(A.Ask, B.Ask);
    EXPECT_EQ(A.Last, B.Last);
    EXPECT_EQ(A.PreviousSettlement, B.PreviousSettlement);
    EXPECT_EQ(A.Time, B.Time);
    EXPECT_EQ(A.Silent, B.Silent);
    EXPECT_EQ(A.DelaySeconds, B.DelaySeconds);
}

TEST(StoreRows, ExchangeCurrencyAndSeriesComeBackWhole) {
    const auto Store = TStore::CreateInMemory();
    Store->ReplaceMarket({{AnExchange()}, {ACurrency()}, {ASeries()}, {}, {}, {}, {}});
    const TMarketSet M = Store->LoadMarket();
    ASSERT_EQ(M.Exchanges.size(), 1u);
    EXPECT_EQ(M.Exchanges[0].Code, "HKFE");
    EXPECT_EQ(M.Exchanges[0].NameEn, "Futures");
    EXPECT_EQ(M.Exchanges[0].NameHant, "期貨");
    EXPECT_EQ(M.Exchanges[0].NameHans, "期货");
    EXPECT_FALSE(M.Exchanges[0].Supported);
    EXPECT_EQ(M.Exchanges[0].MarketDay, "2026/11/20");
    EXPECT_EQ(M.Exchanges[0].SortIndex, 3);
    EXPECT_EQ(M.Exchanges[0].UtcOffsetMinutes, -360);
    ASSERT_EQ(M.Currencies.size(), 1u);
    EXPECT_EQ(M.Currencies[0].Code + M.Currencies[0].NameEn + M.Currencies[0].NameHant + M.Currencies[0].NameHans,
              "HKDdollar港元港币");
    ASSERT_EQ(M.Series.size(), 1u);
    EXPECT_EQ(
        M.Series[0].Exchange + M.Series[0].Code + M.Series[0].NameEn + M.Series[0].NameHant + M.Series[0].NameHans,
        "HKFEHSIIndex指數指数");
    EXPECT_EQ(M.Series[0].Currency, "HKD");
    EXPECT_EQ(M.Series[0].UnderlyingLast, 26480.5);
    EXPECT_EQ(M.Series[0].Volatility, 0.25);
    EXPECT_EQ(M.Series[0].Decimals, 4);
    EXPECT_TRUE(M.Series[0].Imported);
    EXPECT_EQ(M.Series[0].SortIndex, 7);
}

TEST(StoreRows, ProductsAndQuotesComeBackWhole) {
    const auto Store = TStore::CreateInMemory();
    TProductRow Bare;
    Bare.Symbol = "BARE";
    TQuoteRow NoData;
    NoData.Symbol = "BARE";
    Store->ReplaceMarket({{}, {}, {}, {AProduct(), Bare}, {AQuote(), NoData}, {}, {}});
    const TMarketSet M = Store->LoadMarket();
    ASSERT_EQ(M.Products.size(), 2u);
    ExpectSame(M.Products[0], AProduct());
    ExpectSame(M.Products[1], Bare);
    ASSERT_EQ(M.Quotes.size(), 2u);
    ExpectSame(M.Quotes[0], NoData);  // by symbol
    ExpectSame(M.Quotes[1], AQuote());
    ExpectSame(Store->FindProduct("HSI27000L6").value(), AProduct());
    EXPECT_FALSE(Store->FindProduct("HSI27000L7"));
}

TEST(StoreRows, BandsAndOrderOptionsComeBackInOrder) {
    const auto Store = TStore::CreateInMemory();
    Store->ReplaceMarket({{},
                          {},
                          {},
                          {},
                          {},
                          {{"B", 1, 10, 0.5}, {"B", 1, 0.25, 0.125}, {"A", 2, -5, 1}},
                          {{"X", "Open", 1}, {"X", "Close", 0}}});
    const TMarketSet M = Store->LoadMarket();
    ASSERT_EQ(M.SpreadBands.size(), 3u);
    EXPECT_EQ(M.SpreadBands[0].Code, "A");
    EXPECT_EQ(M.SpreadBands[0].Kind, 2);
    EXPECT_EQ(M.SpreadBands[0].Lower, -5);
    EXPECT_EQ(M.SpreadBands[1].Lower, 0.25);
    EXPECT_EQ(M.SpreadBands[1].Step, 0.125);
    EXPECT_EQ(M.SpreadBands[2].Lower, 10);
    ASSERT_EQ(M.OrderOptions.size(), 2u);
    EXPECT_EQ(M.OrderOptions[0].Option, "Close");
    EXPECT_EQ(M.OrderOptions[1].SortIndex, 1);
}

TEST(StoreRows, UsersAccountsAndPositionsComeBackWhole) {
    const auto Store = TStore::CreateInMemory();
    Store->ReplaceTrading(
        {{AUser()}, {{"Z9", "first"}, {"A1", "second"}}, {{"Z9", "B", -2, 1.5}, {"A1", "A", 3, 0.1}}});
    const TTradingSet T = Store->LoadTrading();
    ASSERT_EQ(T.Users.size(), 1u);
    EXPECT_EQ(T.Users[0].Code, "trader");
    EXPECT_EQ(T.Users[0].Name, "A trader");
    EXPECT_EQ(T.Users[0].UserType, 2);
    EXPECT_FALSE(T.Users[0].AccountSelectable);
    EXPECT_EQ(T.Users[0].DefaultAccount, "A100");
    EXPECT_EQ(T.Users[0].Rights, AUser().Rights);
    EXPECT_EQ(T.Users[0].Functions, AUser().Functions);
    EXPECT_EQ(T.Users[0].Accounts, AUser().Accounts);
    EXPECT_EQ(T.Users[0].SortIndex, 5);
    ASSERT_EQ(T.Accounts.size(), 2u);
    EXPECT_EQ(T.Accounts[0].Code, "Z9");
    EXPECT_EQ(T.Accounts[1].Name, "second");
    ASSERT_EQ(T.Positions.size(), 2u);
    EXPECT_EQ(T.Positions[0].Symbol, "B");
    EXPECT_EQ(T.Positions[0].Qty, -2);
    EXPECT_EQ(T.Positions[1].AvgPrice, 0.1);
    const auto Executions = Store->LoadExecutions();
    ASSERT_EQ(Executions.size(), 2u);
    EXPECT_EQ(Executions[0].Account, "Z9");
    EXPECT_EQ(Executions[0].Qty, -2);
    EXPECT_EQ(Executions[0].Price, 1.5);
    EXPECT_EQ(Executions[0].OrderId, "");
    EXPECT_EQ(Executions[0].Day, "");
    EXPECT_EQ(Store->HeldSymbols(), (std::set<std::string>{"A", "B"}));
}

TEST(StoreRows, NumbersComeBackToTheLastBit) {
    const auto Store = TStore::CreateInMemory();
    TQuoteRow Row{"X", 0.1 + 0.2, 5e-324, 1.7976931348623157e308, -0.0, "", false, 0};
    Store->ReplaceMarket({{}, {}, {}, {}, {Row}, {}, {}});
    ExpectSame(Store->LoadMarket().Quotes.at(0), Row);
}

TEST(StoreRows, TextsThatMeanSomethingElsewhereAreTexts) {
    const auto Store = TStore::CreateInMemory();
    using namespace std::string_literals;
    const std::string Odd = "a'b\"; DROP TABLE product; -- %1 \0 z"s;
    Store->WriteSetting("S", Odd, Odd);
    EXPECT_EQ(Store->ReadSetting("S", Odd), Odd);
}

TEST(StoreRows, PuttingAgainOverwritesInPlace) {
    const auto Store = TStore::CreateInMemory();
    TProductRow Second = AProduct();
    Second.Symbol = "SECOND";
    Store->ReplaceMarket({{}, {}, {ASeries()}, {AProduct(), Second}, {AQuote()}, {}, {}});
    {
        TStoreTransaction Write(*Store);
        TProductRow Changed = AProduct();
        Changed.LotSize = "5";
        Changed.Attributes = {{"Only", "one"}};
        Write.Put(Changed);
        TQuoteRow Quote = AQuote();
        Quote.Bid.reset();
        Write.Put(Quote);
        TSeriesRow Series = ASeries();
        Series.UnderlyingLast.reset();
        Write.Put(Series);
        TUserRow User = AUser();
        Write.Put(User);
        User.Rights = {"OEPrin"};
        Write.Put(User);
        Write.Put(TPositionRow{"A1", "X", 1, 2});
        Write.Put(TPositionRow{"A1", "X", 5, 6});
        Write.Commit();
    }
    const TMarketSet M = Store->LoadMarket();
    ASSERT_EQ(M.Products.size(), 2u);
    EXPECT_EQ(M.Products[0].Symbol, AProduct().Symbol);  // keeps its place
    EXPECT_EQ(M.Products[0].LotSize, "5");
    EXPECT_EQ(M.Products[0].Attributes, (std::map<std::string, std::string>{{"Only", "one"}}));
    EXPECT_FALSE(M.Quotes.at(0).Bid);
    EXPECT_FALSE(M.Series.at(0).UnderlyingLast);
    EXPECT_EQ(Store->LoadTrading().Users.at(0).Rights, std::vector<std::string>{"OEPrin"});
    ASSERT_EQ(Store->LoadTrading().Positions.size(), 1u);
    EXPECT_EQ(Store->LoadTrading().Positions[0].Qty, 5);
}

TEST(StoreRows, RemovingTakesWhatHangsBelowAndNothingElse) {
    const auto Store = TStore::CreateInMemory();
    TMarketSet M;
    for (const char* Exchange : {"E1", "E2"}) {
        M.Exchanges.push_back({Exchange, "", "", "", true, "", 0, 0});
        M.OrderOptions.push_back({Exchange, "Open", 0});
        for (const char* Series : {"S1", "S2"}) {
            TSeriesRow S = ASeries();
            S.Exchange = Exchange;
            S.Code = Series;
            M.Series.push_back(S);
            TProductRow P = AProduct();
            P.Exchange = Exchange;
            P.Series = Series;
            P.Symbol = std::string(Exchange) + Series;
            M.Products.push_back(P);
            TQuoteRow Q = AQuote();
            Q.Symbol = P.Symbol;
            M.Quotes.push_back(Q);
        }
    }
    const auto Counts = [&] {
        const TMarketSet Now = Store->LoadMarket();
        return std::vector<std::size_t>{Now.Exchanges.size(), Now.OrderOptions.size(), Now.Series.size(),
                                        Now.Products.size(), Now.Quotes.size()};
    };
    const auto After = [&](auto&& Remove) {
        Store->ReplaceMarket(M);
        TStoreTransaction Write(*Store);
        Remove(Write);
        Write.Commit();
        return Counts();
    };
    using TCounts = std::vector<std::size_t>;
    EXPECT_EQ(After([](auto& W) { W.RemoveExchange("E1"); }), (TCounts{1, 1, 2, 2, 2}));
    EXPECT_EQ(After([](auto& W) { W.RemoveSeries("E1", "S1"); }), (TCounts{2, 2, 3, 3, 3}));
    EXPECT_EQ(After([](auto& W) { W.RemoveProduct("E1S1"); }), (TCounts{2, 2, 4, 3, 3}));
    EXPECT_EQ(After([](auto& W) { W.RemoveQuote("E1S1"); }), (TCounts{2, 2, 4, 4, 3}));
    EXPECT_EQ(After([](auto& W) { W.RemoveQuotesOfSeries("E1", "S1"); }), (TCounts{2, 2, 4, 4, 3}));
    EXPECT_EQ(After([](auto& W) { W.RemoveProduct("unknown"); }), (TCounts{2, 2, 4, 4, 4}));
    EXPECT_EQ(After([](auto& W) { W.RemoveMarket(); }), (TCounts{0, 0, 0, 0, 0}));
    // A product that comes back does not find the attributes of its former life.
    TProductRow P = AProduct();
    P.Symbol = "E1S1";
    P.Attributes.clear();
    Store->ReplaceMarket(M);
    TStoreTransaction Write(*Store);
    Write.RemoveSeries("E1", "S1");
    Write.Put(P);
    Write.Commit();
    EXPECT_TRUE(Store->FindProduct("E1S1")->Attributes.empty());
}

TEST(StoreTransaction, WithoutCommitNothingHappened) {
    const auto Store = TStore::CreateInMemory();
    Store->WriteSetting("S", "K", "before");
    {
        TStoreTransaction Write(*Store);
        Write.Put(AProduct());
        Write.WriteSetting("S", "K", "after");
    }
    EXPECT_TRUE(Store->LoadMarket().Products.empty());
    EXPECT_EQ(Store->ReadSetting("S", "K"), "before");
}

TEST(StoreTransaction, AFailedRowLeavesTheTransactionUsableOrUndone) {
    const auto Store = TStore::CreateInMemory();
    {
        TStoreTransaction Write(*Store);
        Write.PutSampleSymbol("A", "BASE");
        EXPECT_EQ(ErrorKeyOf([&] { Write.PutSampleSymbol("B", "BASE"); }), kStoreFailed);  // one base, one contract
        Write.PutSampleSymbol("B", "OTHER");
        Write.Commit();
    }
    EXPECT_EQ(Store->SampleSymbols(), (std::map<std::string, std::string>{{"BASE", "A"}, {"OTHER", "B"}}));
}

TEST(StoreTransaction, TwentyThousandContractsWithQuotesInOneTransaction) {
    const TTempFolder Folder;
    const auto Opened = TStore::OpenFile(Folder / "store.db", kNow);
    TStoreTransaction Write(*Opened.Store);
    for (int i = 0; i < 20000; ++i) {
        TProductRow P = AProduct();
        P.Symbol = "SPX260116C" + std::to_string(i);
        P.Attributes.clear();
        TQuoteRow Q = AQuote();
        Q.Symbol = P.Symbol;
        Write.Put(P);
        Write.Put(Q);
    }
    Write.Commit();
    EXPECT_EQ(Opened.Store->LoadMarket().Quotes.size(), 20000u);
}

TEST(StoreSettings, AreReadWrittenAndRemoved) {
    const auto Store = TStore::CreateInMemory();
    EXPECT_FALSE(Store->ReadSetting("A", "k"));
    Store->WriteSetting("A", "k", "1");
    Store->WriteSetting("B", "k", "");
    Store->WriteSetting("A", "k", "2");
    EXPECT_EQ(Store->ReadSetting("A", "k"), "2");
    EXPECT_EQ(Store->ReadSetting("B", "k"), "");
    EXPECT_EQ(Store->LoadSettings(), (TSettings{{{"A", "k"}, "2"}, {{"B", "k"}, ""}}));
    Store->RemoveSetting("A", "k");
    EXPECT_FALSE(Store->ReadSetting("A", "k"));
    Store->WriteMeta("m", "x");
    Store->WriteMeta("m", "y");
    EXPECT_EQ(Store->ReadMeta("m"), "y");
    EXPECT_FALSE(Store->ReadMeta("n"));
}

}  // namespace
}  // namespace ws::test
