// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/selector/ChainFixture.h"

namespace ws {

class OptionChain : public TChainFixture {
protected:
    using TTexts = std::vector<fw::Text>;
    static TOptionChain Read(const char* Month) { return ReadOptionChain({"HKFE", "HSI", Month}); }
    static TTexts Lines(const TOptionChain& Chain) {
        TTexts Result;
        for (const auto& Each : Chain.Strikes)
            Result.push_back(Each.Symbol(ECallPut::Call) + "|" + Each.Symbol(ECallPut::Put));
        return Result;
    }
};

TEST_F(OptionChain, StrikesAscendAndHaveBothSides) {
    const auto Chain = Read("2026-12");
    EXPECT_EQ(Lines(Chain), (TTexts{"HSI26000L6|HSI26000X6", "HSI26200L6|HSI26200X6", "HSI26400L6|HSI26400X6",
                                    "HSI26600L6|HSI26600X6", "HSI26800L6|HSI26800X6"}));
    EXPECT_EQ(Chain.Strikes[1].Value, 26200);
    ASSERT_EQ(Chain.Futures.size(), 1u);
    EXPECT_EQ(Chain.Futures[0].Symbol, "HSIZ6");
    EXPECT_TRUE(Chain.Futures[0].IsOfMonth);
    EXPECT_FALSE(Chain.HasSeveralExpiries || Chain.HasSeveralRoots);
}

TEST_F(OptionChain, AWeekIsAMonthOfItsOwnAndShowsTheFutureThatOutlivesIt) {
    const auto Chain = Read("2026-12-W2");
    EXPECT_EQ(Lines(Chain), (TTexts{"HSI26200L6W11|HSI26200X6W11", "HSI26400L6W11|HSI26400X6W11"}));
    ASSERT_EQ(Chain.Futures.size(), 1u);
    EXPECT_EQ(Chain.Futures[0].Symbol, "HSIZ6");
    EXPECT_FALSE(Chain.Futures[0].IsOfMonth);
}

TEST_F(OptionChain, AMonthMayHaveAFutureOnlyAndAMarketNothing) {
    EXPECT_TRUE(Read("2027-01").Strikes.empty());
    EXPECT_FALSE(Read("2027-01").IsEmpty());
    EXPECT_TRUE(Read("2030-01").IsEmpty());
    EXPECT_TRUE(ReadOptionChain({"HKFE", "NONE", "2026-12"}).IsEmpty());
    EXPECT_TRUE(ReadOptionChain({"HKFE", "HSI", ""}).IsEmpty());
    EXPECT_TRUE(ReadOptionChain({}).Futures.empty());
}

TEST_F(OptionChain, NoContractHidesAnother) {
    const auto Add = [&](const char* Symbol, const char* Expiry, const char* Strike, const char* Side) {
        Host.Market.AddProduct("OPX", "IDX", Symbol, kOption, Expiry, Strike, Side);
    };
    Add("IDX27C100", "2027/02/19", "100", "C");
    Add("IDX27P100", "2027/02/19", "100.0", "P");  // the same strike in another text
    Add("IDXW27P100", "2027/02/19", "100", "P");   // another root, its put only
    Add("IDX27C100A", "2027/02/19", "100", "C");   // root, expiry and strike again
    Add("IDX27C100B", "2027/02/26", "100", "C");   // a later expiry of the month
    const auto Chain = ReadOptionChain({"OPX", "IDX", "2027-02"});
    EXPECT_EQ(Lines(Chain), (TTexts{"IDX27C100|IDX27P100", "IDX27C100A|", "|IDXW27P100", "IDX27C100B|"}));
    EXPECT_TRUE(Chain.HasSeveralExpiries);
    EXPECT_TRUE(Chain.HasSeveralRoots);
}

TEST_F(OptionChain, WhatIsNoContractOfAChainStaysOut) {
    auto& M = Host.Market;
    M.AddProduct("OPX", "IDX", "A", kOption, "2027/02/19", "ten", "C");
    M.AddProduct("OPX", "IDX", "B", kOption, "2027/02/19", "10", "?");
    M.AddProduct("OPX", "IDX", "C", 1, "2027/02/19");
    M.AddProduct("OPX", "IDX", "D", kOption, "", "10", "C");
    EXPECT_TRUE(ReadOptionChain({"OPX", "IDX", "2027-02"}).IsEmpty());
}

TEST_F(OptionChain, StrikesWithDecimalsAndSidesByNumberAreRead) {
    auto& M = Host.Market;
    M.AddProduct("OPX", "STK", "00117", kOption, "2027/02/19", "92.50", "1");
    M.AddProduct("OPX", "STK", "00118", kOption, "2027/02/19", "92.50", "2");
    M.AddProduct("OPX", "STK", "00119", kOption, "2027/02/19", "8.75", "6");
    const auto Chain = ReadOptionChain({"OPX", "STK", "2027-02"});
    EXPECT_EQ(Lines(Chain), (TTexts{"00119|", "00117|00118"}));
    EXPECT_EQ(Chain.Strikes[1].Value, 92.5);
    EXPECT_EQ(Chain.Strikes[1].Stated, "92.50");
}

}  // namespace ws
