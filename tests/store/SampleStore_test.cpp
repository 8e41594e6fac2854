// SPDX-License-Identifier: GPL-3.0-or-later
// The sample in a store: created, aged, moved forward, restored.
#include <algorithm>
#include <set>

#include "tests/store/StoreFixture.h"
#include "workstation/store/SampleStore.h"
#include "workstation/store/StoreTransaction.h"

namespace fs = std::filesystem;

namespace ws::test {
namespace {

const fs::path kSample{WS_SAMPLE_FOLDER};

// Everything of a store as text, to compare two states of it.
std::string Dump(const TStore& Store) {
    std::string Text;
    const TMarketSet M = Store.LoadMarket();
    for (const auto& R : M.Exchanges) Text += "X " + R.Code + R.NameEn + R.MarketDay + "\n";
    for (const auto& R : M.Series) Text += "S " + R.Exchange + R.Code + std::to_string(R.Imported) + "\n";
    for (const auto& R : M.Products) Text += "P " + R.Symbol + " " + R.ExpiryDate + " " + R.RelatedSymbol + "\n";
    for (const auto& R : M.Quotes) Text += "Q " + R.Symbol + " " + R.Time + std::to_string(R.Silent) + "\n";
    for (const auto& R : M.OrderOptions) Text += "O " + R.Exchange + R.Option + "\n";
    const TTradingSet T = Store.LoadTrading();
    for (const auto& R : T.Positions) Text += "H " + R.Account + R.Symbol + std::to_string(R.Qty) + "\n";
    for (const auto& R : T.Users) Text += "U " + R.Code + "\n";
    for (const auto& [Key, Value] : Store.LoadSettings()) Text += "K " + Key.first + Key.second + Value + "\n";
    for (const char* Key : {kMetaSampleVersion, kMetaSampleMonths, kMetaSampleFirstExpiry})
        Text += Store.ReadMeta(Key).value_or("-") + "\n";
    return Text;
}

std::unique_ptr<TStore> Filled(const std::string& Today) {
    auto Store = TStore::CreateInMemory();
    PrepareSampleMarket(*Store, kSample, Today);
    return Store;
}

void ImportSomething(TStore& Store) {
    TStoreTransaction Write(Store);
    Write.Put(TExchangeRow{"CBOE", "Imported", "匯入", "导入", true, "2023/02/03", 9, -360});
    TSeriesRow Series;
    Series.Exchange = "CBOE";
    Series.Code = "SPX";
    Series.Imported = true;
    Write.Put(Series);
    TProductRow Product;
    Product.Symbol = "SPX230217C04000000";
    Product.Exchange = "CBOE";
    Product.Series = "SPX";
    Product.ProductType = 3;
    Product.ExpiryDate = "2023/02/17";
    Write.Put(Product);
    TQuoteRow Quote;
    Quote.Symbol = Product.Symbol;
    Quote.Time = "2023/02/03 16:00:00";
    Write.Put(Quote);
    Write.Put(TPositionRow{"A100", Product.Symbol, 3, 12.5});
    Write.Commit();
}

TEST(SampleStore, FirstStartPutsTheSampleIntoTheStore) {
    const auto Store = TStore::CreateInMemory();
    const TSampleOutcome Outcome = PrepareSampleMarket(*Store, kSample, "2026/11/21");
    EXPECT_TRUE(Outcome.Created);
    EXPECT_TRUE(Outcome.Notices.empty());
    EXPECT_EQ(Outcome.MonthsRolled, 0);
    EXPECT_EQ(Store->LoadMarket().Products.size(), TSampleMarket(kSample).Expand(0).BaseSymbols.size());
    EXPECT_EQ(Store->LoadTrading().Users.size(), 4u);
    EXPECT_EQ(Store->ReadMeta(kMetaSampleFirstExpiry), "2026/12/11");
    EXPECT_EQ(Store->ReadMeta(kMetaSampleVersion), "2");
    EXPECT_EQ(Store->CurrentSampleSymbol("HSIZ6"), "HSIZ6");
}

TEST(SampleStore, NextStartWritesNothing) {
    const auto Store = Filled("2026/11/21");
    const std::string Before = Dump(*Store);
    for (const char* Today : {"2026/11/21", "2026/12/11", "2020/01/01"}) {
        const TSampleOutcome Outcome = PrepareSampleMarket(*Store, kSample, Today);
        EXPECT_FALSE(Outcome.Created);
        EXPECT_TRUE(Outcome.Notices.empty());
        EXPECT_EQ(Dump(*Store), Before);
    }
}

TEST(SampleStore, UnagedSampleNeedsNoFiles) {
    const auto Store = Filled("2026/11/21");
    EXPECT_TRUE(PrepareSampleMarket(*Store, "/nowhere", "2026/11/21").Notices.empty());
}

TEST(SampleStore, AgedSampleIsMovedAndSaysSo) {
    const auto Store = Filled("2026/11/21");
    const TSampleOutcome Outcome = PrepareSampleMarket(*Store, kSample, "2026/12/12");
    EXPECT_FALSE(Outcome.Created);
    EXPECT_EQ(Outcome.MonthsRolled, 1);
    ASSERT_EQ(Outcome.Notices.size(), 1u);
    EXPECT_EQ(Outcome.Notices[0].Key, kSampleRolled);
    EXPECT_EQ(Outcome.Notices[0].Args, (std::vector<std::string>{"1", "2027/01/08"}));
    EXPECT_EQ(Outcome.SymbolMap.at("HSIZ6"), "HSIF7");
    EXPECT_EQ(Outcome.SymbolMap.at("HSIF7"), "HSIG7");
    EXPECT_EQ(Outcome.SymbolMap.at("HSI27000L6W18"), "HSI27000A7W15");
    EXPECT_EQ(Outcome.SymbolMap.at("00016"), "00016");
    EXPECT_EQ(Store->CurrentSampleSymbol("HSI27000L6"), "HSI27000A7");
    EXPECT_EQ(Store->FindProduct("HSI27000A7")->ExpiryDate, "2027/01/28");
    EXPECT_EQ(Store->FindProduct("HSI27000A7")->RelatedSymbol, "HSIF7");
    EXPECT_FALSE(Store->FindProduct("HSIZ6"));
}

TEST(SampleStore, PositionsAndQuotesFollowTheirContract) {
    const auto Store = Filled("2026/11/21");
    {
        TStoreTransaction Write(*Store);
        Write.Put(TPositionRow{"A100", "HSIZ6", 7, 26000.5});  // traded since
        TQuoteRow Quote;
        Quote.Symbol = "HSIF7";
        Quote.Last = 26500;
        Quote.Time = "2026/11/30 16:30:00";
        Write.Put(Quote);
        Write.Commit();
    }
    const auto Held = Store->LoadTrading().Positions.size();
    PrepareSampleMarket(*Store, kSample, "2027/02/01");
    ASSERT_EQ(Store->LoadTrading().Positions.size(), Held);
    const auto Of = [&](const std::string& Symbol) {
        for (const auto& Row : Store->LoadTrading().Positions)
            if (Row.Account == "A100" && Row.Symbol == Symbol) return Row.Qty;
        return 0.0;
    };
    EXPECT_EQ(Store->ReadMeta(kMetaSampleMonths), "2");
    EXPECT_EQ(Of("HSIG7"), 7);   // was HSIZ6
    EXPECT_EQ(Of("HSIH7"), -1);  // was HSIF7
    EXPECT_EQ(Of("HSI27000B7"), -3);
    std::map<std::string, TQuoteRow> Quotes;
    for (const auto& Row : Store->LoadMarket().Quotes) Quotes[Row.Symbol] = Row;
    ASSERT_TRUE(Quotes.contains("HSIH7"));
    EXPECT_EQ(Quotes["HSIH7"].Last, 26500);
    EXPECT_EQ(Quotes["HSIH7"].Time, "2027/01/30 16:30:00");
    EXPECT_TRUE(Quotes.at("HHI10500B7").Silent);
    EXPECT_EQ(Quotes.size(), 3u);
}

// Whatever day a start falls on, however often, the store looks as if it had been made that day.
TEST(SampleStore, FortyMonthsOfStartsEndWhereOneStartWould) {
    const TSampleMarket Sample(kSample);
    const auto Store = Filled("2026/11/21");
    for (int Months = 1; Months <= 40; ++Months) {
        SCOPED_TRACE(Months);
        const std::string Today = Sample.FirstExpiry(Months);
        PrepareSampleMarket(*Store, kSample, Today);
        EXPECT_EQ(Store->ReadMeta(kMetaSampleMonths), std::to_string(Months));
        for (const auto& P : Store->LoadMarket().Products) ASSERT_GE(P.ExpiryDate, Today) << P.Symbol;
        EXPECT_TRUE(PrepareSampleMarket(*Store, kSample, Today).Notices.empty());
        if (Months % 13 != 1) continue;
        ASSERT_EQ(Dump(*Filled(Today)), Dump(*Store));
    }
}

TEST(SampleStore, ManyMonthsAtOnceAreOneRoll) {
    const auto Store = Filled("2026/11/21");
    const TSampleOutcome Outcome = PrepareSampleMarket(*Store, kSample, "2030/06/30");
    EXPECT_EQ(Outcome.MonthsRolled, 43);
    ASSERT_EQ(Outcome.Notices.size(), 1u);
    EXPECT_EQ(Dump(*Store), Dump(*Filled("2030/06/30")));
}

TEST(SampleStore, FirstStartLongAfterTheBaseMonthSaysThatItMoved) {
    const auto Store = TStore::CreateInMemory();
    const TSampleOutcome Outcome = PrepareSampleMarket(*Store, kSample, "2028/01/31");
    EXPECT_TRUE(Outcome.Created);
    EXPECT_EQ(Outcome.MonthsRolled, 14);
    ASSERT_EQ(Outcome.Notices.size(), 1u);
    EXPECT_EQ(Outcome.Notices[0].Key, kSampleRolled);
}

TEST(SampleStore, RollLeavesEverythingElseAlone) {
    const auto Store = Filled("2026/11/21");
    ImportSomething(*Store);
    Store->WriteSetting("Shell", "Skin", "dark");
    PrepareSampleMarket(*Store, kSample, "2027/01/20");
    EXPECT_EQ(Store->FindProduct("SPX230217C04000000")->ExpiryDate, "2023/02/17");
    const auto Positions = Store->LoadTrading().Positions;
    EXPECT_TRUE(std::any_of(Positions.begin(), Positions.end(),
                            [](const auto& Row) { return Row.Symbol == "SPX230217C04000000" && Row.Qty == 3; }));
    for (const auto& Row : Store->LoadMarket().Quotes)
        if (Row.Symbol == "SPX230217C04000000") {
            EXPECT_EQ(Row.Time, "2023/02/03 16:00:00");
        }
    EXPECT_EQ(Store->ReadSetting("Shell", "Skin"), "dark");
}

TEST(SampleStore, ResetRestoresTheSampleAndKeepsImports) {
    const auto Store = Filled("2026/11/21");
    const std::string Fresh = Dump(*Store);
    {
        TStoreTransaction Write(*Store);
        Write.RemoveExchange("XDER");
        Write.RemoveProduct("HSIZ6");
        Write.RemoveAllPositions();
        TExchangeRow Own{"OWN", "own", "own", "own", true, "", 50, 0};
        Write.Put(Own);
        Write.Commit();
    }
    EXPECT_NE(Dump(*Store), Fresh);
    EXPECT_TRUE(ResetSampleMarket(*Store, kSample, "2026/11/21").Created);
    EXPECT_EQ(Dump(*Store), Fresh);

    ImportSomething(*Store);
    Store->WriteSetting("Shell", "Skin", "dark");
    const std::string WithImport = Dump(*Store);
    ResetSampleMarket(*Store, kSample, "2026/11/21");
    EXPECT_EQ(Dump(*Store).size(), WithImport.size());
    EXPECT_TRUE(Store->FindProduct("SPX230217C04000000"));
    EXPECT_TRUE(Store->HeldSymbols().contains("SPX230217C04000000"));
    EXPECT_EQ(Store->ReadSetting("Shell", "Skin"), "dark");
    const auto Exchanges = Store->LoadMarket().Exchanges;
    EXPECT_TRUE(std::any_of(Exchanges.begin(), Exchanges.end(),
                            [](const auto& Row) { return Row.Code == "CBOE" && Row.MarketDay == "2023/02/03"; }));
}

TEST(SampleStore, ResetOfAMovedSampleIsLaidOutForToday) {
    const auto Store = Filled("2027/05/05");
    const TSampleOutcome Outcome = ResetSampleMarket(*Store, kSample, "2026/11/21");
    EXPECT_EQ(Outcome.MonthsRolled, 0);
    EXPECT_EQ(Dump(*Store), Dump(*Filled("2026/11/21")));
}

TEST(SampleStore, MissingFolderChangesNothingAndIsNamed) {
    const auto Store = TStore::CreateInMemory();
    const TSampleOutcome Outcome = PrepareSampleMarket(*Store, "/nowhere", "2026/11/21");
    ASSERT_FALSE(Outcome.Notices.empty());
    EXPECT_EQ(Outcome.Notices[0].Key, kSampleMissing);
    EXPECT_EQ(Outcome.Notices[0].Args, std::vector<std::string>{"/nowhere"});
    EXPECT_FALSE(Store->ReadMeta(kMetaSampleMonths));
    PrepareSampleMarket(*Store, kSample, "2026/11/21");
    const std::string Before = Dump(*Store);
    PrepareSampleMarket(*Store, "/nowhere", "2027/11/21");
    ResetSampleMarket(*Store, "/nowhere", "2027/11/21");
    EXPECT_EQ(Dump(*Store), Before);
}

// A copy of the shipped folder with one file changed.
class TEditedSample {
public:
    TEditedSample() { fs::copy(kSample, FFolder.Path(), fs::copy_options::recursive); }
    void Replace(const std::string& File, const std::string& Old, const std::string& New) {
        std::string Text = ReadFile(FFolder / File);
        const auto At = Text.find(Old);
        ASSERT_NE(At, std::string::npos);
        WriteFile(FFolder / File, Text.replace(At, Old.size(), New));
    }
    const fs::path& Path() const { return FFolder.Path(); }

private:
    TTempFolder FFolder;
};

TEST(SampleStore, BadLinesAreToldAndTheRestIsUsed) {
    TEditedSample Edited;
    Edited.Replace("positions.csv", "A100,HSIZ6,2,", "A100,HSIZ6,two,");
    const auto Store = TStore::CreateInMemory();
    const TSampleOutcome Outcome = PrepareSampleMarket(*Store, Edited.Path(), "2026/11/21");
    EXPECT_TRUE(Outcome.Created);
    ASSERT_EQ(Outcome.Notices.size(), 1u);
    EXPECT_EQ(Outcome.Notices[0].Key, "Res_LineNotNumber");
    EXPECT_EQ(Outcome.Notices[0].Args, (std::vector<std::string>{"positions.csv", "3", "Qty", "two"}));
    EXPECT_TRUE(Outcome.Notices[0].Warning);
}

// Seen: the bands of the table as it was before the edit stayed in the store, and its contracts went on with them.
TEST(SampleStore, AResetTakesATableOutThatIsRefusedNow) {
    const auto Store = Filled("2026/11/21");
    TEditedSample Edited;
    Edited.Replace("price-steps.csv", "CENTOPT,1,3,0.05\n", "CENTOPT,1,0,0.05\n");
    const auto Notices = ResetSampleMarket(*Store, Edited.Path(), "2026/11/21").Notices;
    ASSERT_EQ(Notices.size(), 1u);
    EXPECT_EQ(Notices[0].Key, "Res_LineStepsOverlap");
    EXPECT_EQ(Notices[0].Args[0], "price-steps.csv");
    EXPECT_EQ(Notices[0].Args[2], "CENTOPT");
    EXPECT_TRUE(Notices[0].Warning);
    const TMarketSet M = Store->LoadMarket();
    EXPECT_TRUE(
        std::none_of(M.SpreadBands.begin(), M.SpreadBands.end(), [](const auto& B) { return B.Code == "CENTOPT"; }));
    EXPECT_TRUE(
        std::any_of(M.SpreadBands.begin(), M.SpreadBands.end(), [](const auto& B) { return B.Code == "CENT"; }));
    EXPECT_EQ(Store->FindProduct("OIL2612C71")->SpreadCode, "CENTOPT");
}

TEST(SampleStore, ResetFollowsEditedFiles) {
    const auto Store = Filled("2026/11/21");
    TEditedSample Edited;
    Edited.Replace("price-steps.csv", "CENTOPT,1,3,0.05\n", "");
    Edited.Replace("series.csv", "HSI,Hang Seng Index", "HSI,An edited name");
    Edited.Replace("contracts.csv", "XRUN,RNB,3,0,,00128,8.50,7,500,STOCKOPT,500,,\n", "");
    EXPECT_TRUE(ResetSampleMarket(*Store, Edited.Path(), "2026/11/21").Notices.empty());
    const TMarketSet M = Store->LoadMarket();
    EXPECT_EQ(
        std::count_if(M.SpreadBands.begin(), M.SpreadBands.end(), [](const auto& B) { return B.Code == "CENTOPT"; }),
        2);
    EXPECT_EQ(M.Series.front().NameEn, "An edited name");
    EXPECT_FALSE(Store->FindProduct("00128"));
}

// An order of A100 that bought Qty of Symbol, in the store as if it had been traded; its id.
std::string Trade(TStore& Store, const std::string& Symbol, double Qty) {
    TStoreTransaction Write(Store);
    TOrderRow Order;
    Order.Account = "A100";
    Order.Symbol = Symbol;
    Order.Qty = Order.FilledQty = Qty;
    Order.State = EOrderState::Filled;
    Order.Id = Write.AddOrder(Order);
    Write.AddExecution({Order.Id + "/1", Order.Id, "A100", Symbol, Qty, 100, "2026/11/20", 1});
    Write.Commit();
    return Order.Id;
}

double HeldOf(const TStore& Store, const std::string& Symbol) {
    double Qty = 0;
    for (const auto& Row : Store.LoadExecutions())
        if (Row.Account == "A100" && Row.Symbol == Symbol) Qty += Row.Qty;
    return Qty;
}

// The sample holds +2 HSIZ6 and -1 HSIF7. One contract's new symbol is the other one's old symbol.
TEST(SampleStore, OrdersAndTheirExecutionsMoveWithTheirContract) {
    const auto Store = Filled("2026/11/21");
    Trade(*Store, "HSIZ6", 5);
    Trade(*Store, "HSIF7", 7);
    PrepareSampleMarket(*Store, kSample, "2026/12/12");
    EXPECT_EQ(HeldOf(*Store, "HSIZ6"), 0);
    EXPECT_EQ(HeldOf(*Store, "HSIF7"), 7);  // 2 + 5
    EXPECT_EQ(HeldOf(*Store, "HSIG7"), 6);  // -1 + 7
    const auto Orders = Store->LoadOrders();
    ASSERT_EQ(Orders.size(), 2u);
    EXPECT_EQ(Orders[0].Symbol, "HSIF7");
    EXPECT_EQ(Orders[1].Symbol, "HSIG7");
}

TEST(SampleStore, ResetPutsOpeningPositionsBackAndKeepsOrders) {
    const auto Store = Filled("2026/11/21");
    Trade(*Store, "HSIZ6", 5);
    {
        TStoreTransaction Write(*Store);
        Write.RemovePosition("A100", "HSIZ6");
        Write.Put(TPositionRow{"A100", "HSIF7", 99, 1});
        Write.Commit();
    }
    ResetSampleMarket(*Store, kSample, "2026/11/21");
    EXPECT_EQ(Store->LoadOrders().size(), 1u);
    EXPECT_EQ(HeldOf(*Store, "HSIZ6"), 7);
    EXPECT_EQ(HeldOf(*Store, "HSIF7"), -1);
}

TEST(SampleStore, ResetOfAMovedSampleTakesItsOrdersAlong) {
    const auto Store = Filled("2026/12/12");
    Trade(*Store, "HSIF7", 5);  // HSIZ6 a month before
    ResetSampleMarket(*Store, kSample, "2026/11/21");
    EXPECT_EQ(HeldOf(*Store, "HSIZ6"), 7);
    EXPECT_EQ(Store->LoadOrders().at(0).Symbol, "HSIZ6");
}

// Two starts at the same moment: the second finds the work done and does not move the sample again.
TEST(SampleStore, TwoWorkstationsMoveTheSampleOnce) {
    const TTempFolder Folder;
    const auto A = TStore::OpenFile(Folder / "store.db", kNow);
    const auto B = TStore::OpenFile(Folder / "store.db", kNow);
    EXPECT_TRUE(PrepareSampleMarket(*A.Store, kSample, "2026/11/21").Created);
    EXPECT_FALSE(PrepareSampleMarket(*B.Store, kSample, "2026/11/21").Created);
    EXPECT_EQ(PrepareSampleMarket(*B.Store, kSample, "2026/12/12").MonthsRolled, 1);
    EXPECT_EQ(PrepareSampleMarket(*A.Store, kSample, "2026/12/12").MonthsRolled, 0);
    EXPECT_EQ(Dump(*A.Store), Dump(*Filled("2026/12/12")));
    const auto Other = TStore::OpenFile(Folder / "store.db", kNow);
    TStoreTransaction Write(*Other.Store);
    EXPECT_EQ(ErrorKeyOf([&] { PrepareSampleMarket(*A.Store, kSample, "2027/12/12"); }), kStoreLocked);
}

TEST(SampleStore, PositionsInContractsThatTheFilesDroppedAreTold) {
    const auto Store = Filled("2026/11/21");
    Trade(*Store, "CPRF27", 1);
    {
        TStoreTransaction Write(*Store);
        Write.Put(TPositionRow{"A100", "CPRF27", 3, 4});
        Write.Commit();
    }
    TEditedSample Edited;
    Edited.Replace("positions.csv", "A100,CPRZ26,5,4.0610\nA100,CPR2612C4.20,-5,0.0625\n", "");
    Edited.Replace("futures.csv", "XDER,CPR,0 1 2 3,5,COPPER,25000,100,\n", "");
    const TSampleOutcome Outcome = PrepareSampleMarket(*Store, Edited.Path(), "2026/12/12");
    ASSERT_EQ(Outcome.Notices.size(), 2u);
    EXPECT_EQ(Outcome.Notices[0].Key, kSamplePositionDropped);
    EXPECT_EQ(Outcome.Notices[0].Args, (std::vector<std::string>{"A100", "CPRZ26"}));
    EXPECT_EQ(Outcome.Notices[1].Key, kSampleRolled);
    EXPECT_FALSE(Store->HeldSymbols().contains("CPRZ26"));
    EXPECT_EQ(HeldOf(*Store, "CPRF27"), 4);  // traded on: kept whole
    EXPECT_TRUE(Store->HeldSymbols().contains("CPR2701C4.20"));
}

}  // namespace
}  // namespace ws::test
