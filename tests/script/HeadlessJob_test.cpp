// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/script/JobFixture.h"
#include "workstation/market/MonthCode.h"
#include "workstation/script/StrategyRun.h"

namespace ws {

class THeadlessJobTest : public TJobFixture {};

TEST_F(THeadlessJobTest, ALongCallIsTabulated) {
    ASSERT_EQ(RunJob({"--leg", "HSI26400L6,buy,500,2", "--down", "26000", "--up", "27000", "--interval", "200"}),
              kExitDone)
        << Errors.str();
    EXPECT_EQ(Lines("payoff.csv"), (std::vector<std::string>{"price,pl", "26000,-50000", "26200,-50000", "26400,-50000",
                                                             "26600,-30000", "26800,-10000", "27000,10000"}));
    EXPECT_EQ(Lines("keyprices.csv"),
              (std::vector<std::string>{"price,pl", "26000,-50000", "26400,-50000", "27000,10000"}));
    EXPECT_EQ(Lines("payoff.png").size(), 1u);
    EXPECT_NE(Out.str().find("payoff.csv"), std::string::npos);
    EXPECT_FALSE(Station->HasOwners()) << "the view is closed and has let go of everything";
}

TEST_F(THeadlessJobTest, WithoutLegsTheFirstStartsStrategyIsCalculated) {
    ASSERT_EQ(RunJob({}), kExitDone) << Errors.str();
    EXPECT_EQ(Lines("payoff.csv").size(), 52u);
    EXPECT_EQ(Lines("keyprices.csv").size(), 7u) << "both ends and four strikes";
}

TEST_F(THeadlessJobTest, PremiumsAreWhatTheCellShowsNotWhatTheExchangeQuotes) {
    ASSERT_EQ(RunJob({"--leg", "CPRZ26,buy,400,1", "--down", "4", "--up", "4.5", "--interval", "0.5"}), kExitDone)
        << Errors.str();
    EXPECT_EQ(Lines("payoff.csv"), (std::vector<std::string>{"price,pl", "4,0", "4.5,12500"}))
        << "400 shown is 4.00 real, multiplier 25,000";
}

TEST_F(THeadlessJobTest, EveryLegThatIsInTheWayIsNamedAndNothingIsWritten) {
    const struct {
        const char* Why;
        std::vector<std::string> Arguments;
        std::vector<const char*> Named;
    } Cases[] = {
        {"unknown", {"--leg", "NOBODY,buy,1,1"}, {"NOBODY"}},
        {"foreign", {"--leg", "HSI26400L6,buy,1,1", "--leg", "OILF27,buy,1,1"}, {"OILF27"}},
        {"never any data", {"--leg", "HHI9400L6,buy,1,1", "--leg", "HHI10500L6,buy,1,1"}, {"HHI10500L6"}},
        {"unknown market", {"--exchange", "MOON", "--leg", "HSI26400L6,buy,1,1"}, {"MOON"}},
        {"bad range", {"--leg", "HSI26400L6,buy,1,1", "--down", "5", "--up", "4"}, {}},
        {"a quantity beyond the editor", {"--leg", "HSI26400L6,buy,1,1e18"}, {"1e+18"}},
    };
    for (const auto& C : Cases) {
        SCOPED_TRACE(C.Why);
        Errors.str("");
        EXPECT_EQ(RunJob(C.Arguments), kExitFailed);
        for (const char* Name : C.Named) EXPECT_NE(Errors.str().find(Name), std::string::npos) << Errors.str();
        EXPECT_FALSE(Errors.str().empty());
        EXPECT_FALSE(std::filesystem::exists(Folder / "out"));
        EXPECT_FALSE(Station->HasOwners());
    }
}

TEST_F(THeadlessJobTest, LateDataAreWaitedFor) {
    EXPECT_EQ(RunJob({"--leg", "HHI10400L6,buy,10,1"}), kExitDone) << Errors.str();
}

TEST_F(THeadlessJobTest, AWeeklyContractFindsItsMonth) {
    const auto* Product = Station->Market().FindProduct("HSI26400L6W11");
    ASSERT_TRUE(Product);
    EXPECT_EQ(MonthCodeOf(*Product), "2026-12-W2");
    EXPECT_EQ(RunJob({"--leg", "HSI26400L6W11,buy,10,1"}), kExitDone) << Errors.str();
}

// A descriptor that opens nothing, or says why.
struct TClosedView : fw::TIBaseView {
    const char* Reason = nullptr;
    int64_t OpenNewInstance() override { return Reason ? throw std::runtime_error(Reason) : 0; }
};

TEST_F(THeadlessJobTest, AViewIsOpenedAndDrawnAloneAndClosed) {
    const auto Line = ParseCommandLine({"--picture", "--view", "Ventiq_620", "--out", (Folder / "view.png").string()});
    EXPECT_EQ(RunViewPicture(*Station, View, Line, JobHost(), Out, Errors), kExitDone) << Errors.str();
    EXPECT_TRUE(std::filesystem::exists(Folder / "view.png"));
    EXPECT_EQ(Out.str(), (Folder / "view.png").string() + '\n');
    EXPECT_TRUE(View.OpenViews().empty());
}

TEST_F(THeadlessJobTest, AViewThatCannotBeDrawnIsSaid) {
    const auto Line =
        ParseCommandLine({"--picture", "--view", "Mine_1", "--out", (Folder / "no" / "view.png").string()});
    EXPECT_EQ(RunViewPicture(*Station, View, Line, JobHost(), Out, Errors), kExitFailed);
    EXPECT_NE(Errors.str().find("view.png"), std::string::npos);
    TClosedView Closed;
    for (const char* Reason : {static_cast<const char*>(nullptr), "no room for a view"}) {
        Closed.Reason = Reason;
        Errors.str({});
        EXPECT_EQ(RunViewPicture(*Station, Closed, Line, JobHost(), Out, Errors), kExitFailed);
        EXPECT_NE(Errors.str().find("Mine_1"), std::string::npos);
        EXPECT_NE(Errors.str().find(Reason ? Reason : ""), std::string::npos);
    }
}

}  // namespace ws
