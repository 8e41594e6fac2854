// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdlib>
#include <set>

#include "tests/script/JobFixture.h"

namespace ws {

class TImportedChainTest : public TJobFixture {};

// One root with six monthly expiries becomes six series, so that the last one can be reached and calculated.
TEST_F(TImportedChainTest, TheLastOfSixMonthsIsCalculated) {
    ASSERT_EQ(RunJob({"--import", VENTIQ_TEST_DATA "/chain_six_months.csv", "--leg", "LONE221118C00050000,buy,4,1",
                      "--down", "45", "--up", "55", "--interval", "5"}),
              kExitDone)
        << Errors.str();
    EXPECT_EQ(Lines("payoff.csv"), (std::vector<std::string>{"price,pl", "45,-400", "50,-400", "55,100"}));
    EXPECT_EQ(Lines("keyprices.csv"), (std::vector<std::string>{"price,pl", "45,-400", "50,-400", "55,100"}));
}

TEST_F(TImportedChainTest, BadLinesRefuseTheFileUnlessTheyAreSkipped) {
    const std::vector<std::string> Leg{
        "--leg", "TLXW240308C01010000,buy,7,1", "--down", "1000", "--up", "1020", "--interval", "10"};
    std::vector<std::string> Arguments{"--import", VENTIQ_TEST_DATA "/chain_bad_lines.csv"};
    Arguments.insert(Arguments.end(), Leg.begin(), Leg.end());
    EXPECT_EQ(RunJob(Arguments), kExitFailed);
    EXPECT_NE(Errors.str().find("TLXW24C01020000"), std::string::npos) << "the bad symbol is named: " << Errors.str();
    Arguments.push_back("--skip-bad-lines");
    EXPECT_EQ(RunJob(Arguments), kExitDone) << Errors.str();
}

// A real chain: a call spread on the index's own month, every row against the formula written out.
TEST_F(TImportedChainTest, ASpreadOnARealChain) {
    const char* Chains = std::getenv("VENTIQ_CHAINS");
    if (!Chains) GTEST_SKIP() << "VENTIQ_CHAINS is not set: no real option chain to calculate on";
    const auto File = std::filesystem::path(Chains) / "spx_quotedata_2023-02-03.csv";
    ASSERT_TRUE(std::filesystem::exists(File)) << File;
    ASSERT_EQ(RunJob({"--import", File.string(), "--leg", "SPX230217C04100000,buy,118.5,2", "--leg",
                      "SPX230217C04200000,sell,62.25,2", "--down", "4000", "--up", "4300", "--interval", "12.5"}),
              kExitDone)
        << Errors.str();
    const auto Rows = Lines("payoff.csv");
    ASSERT_EQ(Rows.size(), 26u);
    for (size_t i = 1; i < Rows.size(); ++i) {
        const double Price = 4000 + 12.5 * static_cast<double>(i - 1);
        const double Long = (std::max(Price - 4100, 0.0) - 118.5) * 2 * 100,
                     Short = (62.25 - std::max(Price - 4200, 0.0)) * 2 * 100;
        EXPECT_EQ(Rows[i], fw::FloatToShortestText(Price) + "," + fw::FloatToShortestText(Long + Short));
    }
    EXPECT_EQ(Lines("keyprices.csv"),
              (std::vector<std::string>{"price,pl", "4000,-11250", "4100,-11250", "4200,8750", "4300,8750"}));
}

}  // namespace ws
