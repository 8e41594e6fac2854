// SPDX-License-Identifier: GPL-3.0-or-later
// What the sample files may hold, and what is said about a line that breaks a rule.
#include <map>

#include "tests/store/StoreFixture.h"
#include "workstation/store/SampleLine.h"
#include "workstation/store/SampleMarket.h"
#include "workstation/store/SamplePriceSteps.h"

namespace ws::test {
namespace {

using TFiles = std::map<std::string, std::string>;

// The smallest sample with one of everything; the line under test is always the last of its file.
TFiles SmallSample() {
    return {
        {"sample.csv", "Name,Value\nVersion,7\nBaseMonth,2026-12\n"},
        {"currencies.csv", "Code,NameEn,NameHant,NameHans\nHKD,a,b,c\n"},
        {"exchanges.csv",
         "Code,NameEn,NameHant,NameHans,Supported,UtcOffsetMinutes,ExpiryRule,FutureSymbol,OptionSymbol,WeeklySymbol\n"
         "E,a,b,c,1,480,BeforeLastBusinessDay,{U}{M}{y},{U}{K}{M}{y},{U}{K}{M}{y}W{dd}\n"},
        {"holidays.csv", "Exchange,Day,Remark\nE,12/25,x\n"},
        {"order-options.csv", "Exchange,Option\nE,Open\n"},
        {"price-steps.csv", "Code,Kind,From,Step\nT,1,0,1\n"},
        {"series.csv",
         "Exchange,Code,NameEn,NameHant,NameHans,Currency,UnderlyingLast,Volatility,Decimals\nE,S,a,b,c,HKD,100,0.2,"
         "2\n"},
        {"futures.csv",
         "Exchange,Series,Months,LotSize,PriceSteps,Multiplier,DisplayFactor,Attributes\nE,S,0 1,,T,50,,\n"},
        {"ladders.csv",
         "Exchange,Series,Months,Week,FirstStrike,LastStrike,StrikeStep,LotSize,PriceSteps,Multiplier,DisplayFactor,"
         "CallCode,PutCode,Attributes\nE,S,0,2,90,110,10,5,T,50,100,,,A=1;B=two words\n"},
        {"contracts.csv",
         "Exchange,Series,Type,Months,Week,Symbol,Strike,CallPut,LotSize,PriceSteps,Multiplier,DisplayFactor,"
         "Attributes\nE,S,3,0,,00005,7.50,6,,,,,\n"},
        {"quotes.csv", "Symbol,Bid,Ask,Last,PreviousSettlement,Silent,DelaySeconds\nSZ6,1,2,,1.5,0,3\n"},
        {"accounts.csv", "Code,Name\nA1,Account\n"},
        {"users.csv",
         "Code,Name,UserType,AccountSelectable,Accounts,DefaultAccount,Rights,Functions\nu,n,2,1,A1,A1,OEPrin,"
         "PayOff\n"},
        {"positions.csv", "Account,Symbol,Qty,AvgPrice\nA1,SZ6,-2,99.5\n"},
    };
}

TSampleMarket Load(const TFiles& Files) {
    const TTempFolder Folder;
    for (const auto& [Name, Text] : Files) WriteFile(Folder / Name, Text);
    return TSampleMarket(Folder.Path());
}

std::string WithoutLastLine(const std::string& Text) { return Text.substr(0, Text.rfind('\n', Text.size() - 2) + 1); }

int CountLines(const std::string& Text) { return static_cast<int>(std::count(Text.begin(), Text.end(), '\n')); }

TEST(SampleFiles, SmallSampleHasNothingToReport) {
    const TSampleMarket Sample = Load(SmallSample());
    EXPECT_TRUE(Sample.Problems().empty());
    EXPECT_EQ(Sample.Version(), "7");
    EXPECT_EQ(Sample.BaseMonth(), "2026-12");
    const TSampleSet Set = Sample.Expand(0);
    ASSERT_EQ(Set.Market.Products.size(), 9u);  // 2 futures, 3 strikes a call and a put, 1 single
    const TProductRow& Call = Set.Market.Products[2];
    EXPECT_EQ(Call.Symbol, "S90L6W11");
    EXPECT_EQ(Call.ProductType, 3);
    EXPECT_EQ(Call.ExpiryDate, "2026/12/11");
    EXPECT_EQ(Call.StrikePrice, "90");
    EXPECT_EQ(Call.CallPutCode, "C");
    EXPECT_EQ(Call.LotSize, "5");
    EXPECT_EQ(Call.SpreadCode, "T");
    EXPECT_EQ(Call.RelatedSymbol, "SZ6");
    EXPECT_EQ(Call.Currency, "HKD");
    EXPECT_EQ(Call.Multiplier, 50);
    EXPECT_EQ(Call.DisplayFactor, 100);
    EXPECT_EQ(Call.Attributes,
              (std::map<std::string, std::string>{{"A", "1"}, {"B", "two words"}, {"WeeklyOptionExp", "W2"}}));
    EXPECT_EQ(Set.Market.Products[3].Symbol, "S90X6W11");
    EXPECT_EQ(Set.Market.Products[8].Symbol, "00005");
    EXPECT_FALSE(Set.Market.Products[8].Multiplier);
    ASSERT_EQ(Set.Market.Quotes.size(), 1u);
    EXPECT_EQ(Set.Market.Quotes[0].Bid, 1);
    EXPECT_FALSE(Set.Market.Quotes[0].Last);
    EXPECT_EQ(Set.Market.Quotes[0].DelaySeconds, 3);
    ASSERT_EQ(Set.Trading.Positions.size(), 1u);
    EXPECT_EQ(Set.Trading.Positions[0].AvgPrice, 99.5);
}

struct TBadLine {
    const char* File;
    const char* Line;
    const char* Key;
    std::vector<std::string> Args;
};

const TBadLine kBadLines[] = {
    {"currencies.csv", "HKD,again,x,y", kLineTwice, {"HKD"}},
    {"currencies.csv", "USD,dollar,,y", kLineEmpty, {"NameHant"}},
    {"currencies.csv", "USD,dollar,x", kLineCellCount, {"3", "4"}},
    {"exchanges.csv", "F,a,b,c,2,0,ThirdFriday,,,", kLineOutOfRange, {"Supported", "2"}},
    {"exchanges.csv", "F,a,b,c,1,east,ThirdFriday,,,", kLineNotNumber, {"UtcOffsetMinutes", "east"}},
    {"exchanges.csv", "F,a,b,c,1,0,Sometimes,,,", kLineUnknownCode, {"ExpiryRule", "Sometimes"}},
    {"holidays.csv", "G,01/01,x", kLineUnknownCode, {"Exchange", "G"}},
    {"holidays.csv", "E,2026-01-01,x", kLineBadDate, {"Day", "2026-01-01"}},
    {"order-options.csv", "E,Open", kLineTwice, {"E Open"}},
    {"price-steps.csv", ",1,0,1", kLineEmpty, {"Code"}},
    {"series.csv", "E,R,a,b,c,QQQ,100,0.2,2", kLineUnknownCode, {"Currency", "QQQ"}},
    {"series.csv", "E,R,a,b,c,HKD,,0.2,2", kLineEmpty, {"UnderlyingLast"}},
    {"series.csv", "E,R,a,b,c,HKD,inf,0.2,2", kLineNotNumber, {"UnderlyingLast", "inf"}},
    {"series.csv", "E,R,a,b,c,HKD,1e5,0.2,2", kLineNotNumber, {"UnderlyingLast", "1e5"}},
    {"series.csv", "E,R,a,b,c,HKD,100,20,2", kLineOutOfRange, {"Volatility", "20"}},
    {"series.csv", "E,R,a,b,c,HKD,100,0.2,2.5", kLineNotNumber, {"Decimals", "2.5"}},
    {"futures.csv", "E,R,0,,T,50,,", kLineUnknownCode, {"Series", "R"}},
    {"futures.csv", "E,S,,,T,50,,", kLineEmpty, {"Months"}},
    {"futures.csv", "E,S,2 x,,T,50,,", kLineNotNumber, {"Months", "x"}},
    {"futures.csv", "E,S,-1,,T,50,,", kLineOutOfRange, {"Months", "-1"}},
    {"futures.csv", "E,S,1,,T,50,,", kLineTwice, {"SF7"}},
    {"futures.csv", "E,S,2,zero,T,50,,", kLineNotNumber, {"LotSize", "zero"}},
    {"futures.csv", "E,S,2,,U,50,,", kLineUnknownCode, {"PriceSteps", "U"}},
    {"futures.csv", "E,S,2,,T,-50,,", kLineOutOfRange, {"Multiplier", "-50"}},
    {"futures.csv", "E,S,2,,T,50,,Loose", kLineBadText, {"Attributes", "Loose"}},
    {"futures.csv", "E,S,2 3,,T,50,,ShortCode=00007", kLineTwice, {"00007"}},
    {"futures.csv", "E,S,2,,T,50,,ShortCode=SZ6", kLineTwice, {"SZ6"}},
    {"ladders.csv", "E,S,0,5,90,110,10,5,T,50,100,,,", kLineOutOfRange, {"Week", "5"}},
    {"ladders.csv", "E,S,0,,110,90,10,5,T,50,100,,,", kLineOutOfRange, {"StrikeStep", "10"}},
    {"ladders.csv", "E,S,0,,90,110,7,5,T,50,100,,,", kLineOutOfRange, {"StrikeStep", "7"}},
    {"ladders.csv", "E,S,0,,90,110,0,5,T,50,100,,,", kLineOutOfRange, {"StrikeStep", "0"}},
    {"ladders.csv", "E,S,0,,1,999999,0.01,5,T,50,100,,,", kLineOutOfRange, {"StrikeStep", "0.01"}},
    {"ladders.csv", "E,S,0,,90,110,10,5,T,50,100,P,,", kLineUnknownCode, {"CallCode", "P"}},
    {"ladders.csv", "E,S,0,,90,110,10,5,T,50,100,,9,", kLineUnknownCode, {"PutCode", "9"}},
    {"ladders.csv", "E,S,0,2,100,100,10,5,T,50,100,,,", kLineTwice, {"S100L6W11"}},
    {"contracts.csv", "E,S,3,0,,00006,,C,,,,,", kLineEmpty, {"Strike"}},
    {"contracts.csv", "E,S,3,0,,00006,8,,,,,,", kLineEmpty, {"CallPut"}},
    {"contracts.csv", "E,S,3,0,,,8,C,,,,,", kLineEmpty, {"Symbol"}},
    {"contracts.csv", "E,S,2,0,,00005,,,,,,,", kLineTwice, {"00005"}},
    {"quotes.csv", "SZ9,1,,,,,", kLineUnknownCode, {"Symbol", "SZ9"}},
    {"quotes.csv", "SZ6,1,,,,,", kLineTwice, {"SZ6"}},
    {"quotes.csv", "SF7,nan,,,,,", kLineNotNumber, {"Bid", "nan"}},
    {"users.csv", "v,n,2,1,A1 A9,A1,,", kLineUnknownCode, {"Accounts", "A9"}},
    {"users.csv", "v,n,2,1,,A1,,", kLineUnknownCode, {"DefaultAccount", "A1"}},
    {"users.csv", "u,n,2,1,,,,", kLineTwice, {"u"}},
    {"positions.csv", "A9,SZ6,1,1", kLineUnknownCode, {"Account", "A9"}},
    {"positions.csv", "A1,SZ9,1,1", kLineUnknownCode, {"Symbol", "SZ9"}},
    {"positions.csv", "A1,SZ6,1,1", kLineTwice, {"A1 SZ6"}},
    {"positions.csv", "A1,SF7,many,1", kLineNotNumber, {"Qty", "many"}},
};

TEST(SampleFiles, EveryBadLineIsNamedAndLeftOut) {
    const std::size_t Contracts = Load(SmallSample()).Expand(0).BaseSymbols.size();
    for (const auto& Bad : kBadLines) {
        SCOPED_TRACE(std::string(Bad.File) + ": " + Bad.Line);
        TFiles Files = SmallSample();
        Files[Bad.File] += std::string(Bad.Line) + "\n";
        const TSampleMarket Sample = Load(Files);
        ASSERT_EQ(Sample.Problems().size(), 1u);
        const TLineProblem& Problem = Sample.Problems()[0];
        EXPECT_EQ(Problem.File, Bad.File);
        EXPECT_EQ(Problem.Line, CountLines(Files[Bad.File]));
        EXPECT_EQ(Problem.Key, Bad.Key);
        EXPECT_EQ(Problem.Args, Bad.Args);
        EXPECT_EQ(Sample.Expand(0).BaseSymbols.size(), Contracts);
    }
}

struct TRefusedTable {
    const char* Why;
    const char* Lines;  // after "T,1,0,1", which stands on line 2
    std::vector<TLineProblem> Problems;
};

TEST(SampleFiles, APriceStepTableIsUsedWholeOrNotAtAll) {
    const std::string File = "price-steps.csv";
    const TRefusedTable Cases[] = {
        {"the same edge twice", "T,1,0,2\n", {{File, 3, kLineStepsOverlap, {"T", "0"}}}},
        {"descending", "T,1,10,2\nT,1,5,1\n", {{File, 4, kLineStepsOverlap, {"T", "5"}}}},
        {"two kinds", "T,2,10,1\n", {{File, 3, kLineStepsKinds, {"T"}}}},
        {"no band", "T,1,,\n", {{File, 3, kLineStepsNone, {"T"}}}},
        {"half a band", "T,1,5,\n", {{File, 3, kLineEmpty, {"Step"}}, {File, 3, kLineStepsDropped, {"T"}}}},
        {"a step of 0", "T,1,5,0\n", {{File, 3, kLineOutOfRange, {"Step", "0"}}, {File, 3, kLineStepsDropped, {"T"}}}},
        {"no number", "T,1,x,1\n", {{File, 3, kLineNotNumber, {"From", "x"}}, {File, 3, kLineStepsDropped, {"T"}}}},
        {"told once", "T,1,0,2\nT,1,0,3\nT,1,x,4\n", {{File, 3, kLineStepsOverlap, {"T", "0"}}}},
    };
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        TFiles Files = SmallSample();
        Files[File] += std::string(Case.Lines) + "GOOD,1,0,1\nGOOD,1,10,5\n";
        Files["futures.csv"] += "E,S,2,,GOOD,50,,\n";
        const TSampleMarket Sample = Load(Files);
        ASSERT_EQ(Sample.Problems().size(), Case.Problems.size());
        for (std::size_t i = 0; i < Case.Problems.size(); ++i) {
            EXPECT_EQ(Sample.Problems()[i].File, File);
            EXPECT_EQ(Sample.Problems()[i].Line, Case.Problems[i].Line);
            EXPECT_EQ(Sample.Problems()[i].Key, Case.Problems[i].Key);
            EXPECT_EQ(Sample.Problems()[i].Args, Case.Problems[i].Args);
        }
        const TMarketSet Market = Sample.Expand(0).Market;
        EXPECT_EQ(Market.Products.size(), 10u) << "the contracts of the refused table are listed, without one";
        ASSERT_EQ(Market.SpreadBands.size(), 2u);
        EXPECT_EQ(Market.SpreadBands[0].Code, "GOOD");
        EXPECT_EQ(Market.SpreadBands[1].Step, 5.0);
    }
}

TEST(SampleFiles, ATableThatStandsNowhereElseMayHaveNoBandsToo) {
    TFiles Files = SmallSample();
    Files["price-steps.csv"] += "EMPTY,1,,\n";
    Files["futures.csv"] += "E,S,2,0,EMPTY,50,,\n";
    const TSampleMarket Sample = Load(Files);
    ASSERT_EQ(Sample.Problems().size(), 1u);
    EXPECT_EQ(Sample.Problems()[0].Key, kLineStepsNone);
    EXPECT_EQ(Sample.Expand(0).Market.Products.size(), 10u) << "a lot of 0 is a lot";
}

TEST(SampleFiles, EveryLineIsReportedNotOnlyTheFirst) {
    TFiles Files = SmallSample();
    Files["futures.csv"] += "E,S,2,zero,T,50,,\nE,S,3,,T,50,,\nE,S,4,,U,x,,\n";
    const TSampleMarket Sample = Load(Files);
    ASSERT_EQ(Sample.Problems().size(), 2u);
    EXPECT_EQ(Sample.Problems()[0].Line, 3);
    EXPECT_EQ(Sample.Problems()[1].Line, 5);
    EXPECT_EQ(Sample.Problems()[1].Key, kLineUnknownCode);  // one report a line
    EXPECT_EQ(Sample.Expand(0).BaseSymbols.size(), 10u);
}

TEST(SampleFiles, HeadersAreCheckedByName) {
    TFiles Files = SmallSample();
    Files["accounts.csv"] = "Name,Code\nAccount,A1\n";  // any order
    EXPECT_TRUE(Load(Files).Problems().empty());
    Files["accounts.csv"] = "Code,Name,Colour\nA1,Account,red\n";
    ASSERT_EQ(Load(Files).Problems().size(), 1u);
    EXPECT_EQ(Load(Files).Problems()[0].Key, kLineUnknownColumn);
    EXPECT_EQ(Load(Files).Expand(0).Trading.Accounts.size(), 1u);
    Files["accounts.csv"] = "Code\nA1\n";
    EXPECT_EQ(Load(Files).Problems().at(0).Key, kLineNoColumn);
    EXPECT_EQ(Load(Files).Problems().at(0).Line, 1);
    EXPECT_TRUE(Load(Files).Expand(0).Trading.Accounts.empty());
}

TEST(SampleFiles, MissingAndEmptyFilesAreReportedOnce) {
    for (const char* Name : {"holidays.csv", "quotes.csv", "order-options.csv", "positions.csv"}) {
        SCOPED_TRACE(Name);
        TFiles Files = SmallSample();
        Files.erase(Name);
        const TSampleMarket Missing = Load(Files);
        ASSERT_EQ(Missing.Problems().size(), 1u);
        EXPECT_EQ(Missing.Problems()[0].File, Name);
        EXPECT_EQ(Missing.Problems()[0].Key, kLineNoFile);
        Files[Name] = "";
        const TSampleMarket Emptied = Load(Files);
        ASSERT_EQ(Emptied.Problems().size(), 1u);
        EXPECT_EQ(Emptied.Problems()[0].Key, kLineNoColumn);
    }
}

TEST(SampleFiles, WithoutABaseMonthThereIsNoSample) {
    for (const char* Text : {"Name,Value\nVersion,7\n", "Name,Value\nBaseMonth,December\n", ""}) {
        SCOPED_TRACE(Text);
        TFiles Files = SmallSample();
        Files["sample.csv"] = Text;
        const TSampleMarket Sample = Load(Files);
        EXPECT_TRUE(Sample.Empty());
        EXPECT_EQ(Sample.Problems().size(), 1u);
        EXPECT_EQ(Sample.FirstExpiry(0), "");
        EXPECT_EQ(Sample.MonthsFor("2030/01/01"), 0);
    }
    EXPECT_TRUE(TSampleMarket("/nowhere").Empty());
}

TEST(SampleFiles, StrikesAreWrittenAsTheLadderWritesThem) {
    TFiles Files = SmallSample();
    Files["ladders.csv"] = WithoutLastLine(Files["ladders.csv"]) + "E,S,0,,0.7,1.1,0.100,5,T,50,100,,,\n";
    const TSampleSet Set = Load(Files).Expand(0);
    std::vector<std::string> Strikes;
    for (const auto& P : Set.Market.Products)
        if (P.CallPutCode == "C") Strikes.push_back(P.StrikePrice);
    EXPECT_EQ(Strikes, (std::vector<std::string>{"0.700", "0.800", "0.900", "1.000", "1.100"}));
}

}  // namespace
}  // namespace ws::test
