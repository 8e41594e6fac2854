// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <deque>

#include "workstation/trading/BatchProgress.h"

namespace ws {

namespace {

using enum EOrderState;

TOrderRow Leg(int Place, EOrderState State, int Size = 4, const TReason& Reason = {}) {
    TOrderRow Row;
    Row.Id = "id" + std::to_string(Place);
    Row.BatchId = "b1";
    Row.Place = Place;
    Row.BatchSize = Size;
    Row.State = State;
    Row.Reason = Reason;
    return Row;
}

class BatchWatchTest : public testing::Test {
protected:
    BatchWatchTest() {
        Pass(0);
        Link = fw::TLog::Entries().Connect([this](const fw::TLogEntry& Entry) { Logged.push_back(Entry); });
    }
    ~BatchWatchTest() override { fw::TClock::Fix({}); }
    void Pass(int Seconds) {
        Now += std::chrono::seconds(Seconds);
        fw::TClock::Fix(Now);
        Watch.Tick();
    }
    fw::TClock::TTimePoint Now{std::chrono::hours(1000)};
    TBatchWatch Watch;
    std::vector<fw::TLogEntry> Logged;
    fw::TConnection Link;
};

}  // namespace

TEST(BatchProgress, SaysHowFarEveryLegIs) {
    const TReason Closed{"Res_PaperNotListed", {"X1"}};
    const struct {
        const char* Why;
        std::vector<TOrderRow> Legs;
        TReason Sentence;
        bool Answered, Problem;
    } Cases[] = {{"the first is sent", {Leg(1, New)}, {"Res_BatchProgress", {"0", "4", "0"}}, false, false},
                 {"legs that are yet to come are no answer",
                  {Leg(1, Accepted), Leg(2, Accepted)},
                  {"Res_BatchProgress", {"2", "4", "0"}},
                  false,
                  false},
                 {"partly filled and cancelled ones were accepted, too",
                  {Leg(1, PartlyFilled), Leg(2, Filled), Leg(3, Cancelled), Leg(4, Accepted)},
                  {"Res_BatchProgress", {"4", "4", "1"}},
                  true,
                  false},
                 {"a refused leg is named, with its reason and that one's arguments",
                  {Leg(1, Accepted), Leg(2, Filled), Leg(3, Rejected, 4, Closed), Leg(4, New)},
                  {"Res_BatchProgressRefused", {"2", "4", "1", "3", "Res_PaperNotListed", "X1"}},
                  false,
                  true},
                 {"several, with the first one's",
                  {Leg(4, Rejected), Leg(2, Rejected, 4, Closed), Leg(1, Filled), Leg(3, Filled)},
                  {"Res_BatchProgressRefused", {"2", "4", "2", "2, 4", "Res_PaperNotListed", "X1"}},
                  true,
                  true},
                 {"without a reason",
                  {Leg(1, Rejected, 1)},
                  {"Res_BatchProgressRefused", {"0", "1", "0", "1", "Res_OrderNoReason"}},
                  true,
                  true},
                 {"an unknown leg comes before a refused one",
                  {Leg(1, Rejected, 2), Leg(2, Unknown, 2, Closed)},
                  {"Res_BatchProgressUnknown", {"0", "2", "0", "2", "Res_PaperNotListed", "X1"}},
                  true,
                  true}};
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        TBatchProgress Progress;
        for (const TOrderRow& Row : Case.Legs) Progress.Take(Leg(Row.Place, New, Row.BatchSize));
        for (const TOrderRow& Row : Case.Legs) Progress.Take(Row);
        const TReason Said = Progress.Sentence();
        EXPECT_EQ(Said.Key, Case.Sentence.Key);
        EXPECT_EQ(Said.Args, Case.Sentence.Args);
        EXPECT_EQ(Progress.IsAnswered(), Case.Answered);
        EXPECT_EQ(Progress.HasProblem(), Case.Problem);
    }
}

TEST(BatchProgress, OfManyRefusedLegsTheFirstEightAreNamed) {
    TBatchProgress Progress;
    for (int Place = 1; Place <= 9; ++Place) {
        Progress.Take(Leg(Place, Rejected, 9));
        EXPECT_EQ(Progress.Sentence().Args[3].find("\u2026") != std::string::npos, Place > 8) << Place;
    }
    EXPECT_EQ(Progress.Sentence().Args[3], "1, 2, 3, 4, 5, 6, 7, 8, \u2026");
}

TEST(BatchProgress, CountsTheOrdersOfItsBatchOnly) {
    std::deque<TOrderRow> Orders{Leg(1, Filled), Leg(2, Accepted), Leg(3, Filled)};
    Orders[2].BatchId = "b2";
    EXPECT_EQ(ProgressOf(Orders, "b1").Sentence().Args, (std::vector<std::string>{"2", "4", "1"}));
}

TEST_F(BatchWatchTest, ABatchIsToldUntilTenSecondsAfterItsLastAnswerAndLoggedOnce) {
    EXPECT_EQ(Watch.Sentence().Key, "");
    Watch.Take(Leg(1, New, 2));
    Watch.Take(Leg(2, New, 2));
    Pass(30);
    EXPECT_EQ(Watch.Sentence().Args, (std::vector<std::string>{"0", "2", "0"}));
    EXPECT_TRUE(Logged.empty());
    Watch.Take(Leg(1, Accepted, 2));
    Watch.Take(Leg(2, Accepted, 2));
    Pass(1);
    ASSERT_EQ(Logged.size(), 1u);
    EXPECT_EQ(Logged[0].Level, fw::ELogLevel::Info);
    EXPECT_EQ(Logged[0].Key, "Res_BatchProgress");
    Watch.Take(Leg(1, Filled, 2));
    Pass(9);
    EXPECT_EQ(Watch.Sentence().Args, (std::vector<std::string>{"2", "2", "1"}));
    Pass(1);
    EXPECT_EQ(Watch.Sentence().Key, "");
    Watch.Take(Leg(2, Filled, 2));
    Watch.Take(Leg(2, New, 2));
    Pass(1);
    EXPECT_EQ(Watch.Sentence().Key, "") << "it is over";
    EXPECT_EQ(Logged.size(), 1u);
}

TEST_F(BatchWatchTest, AnswersThatDoNotComeAreAWarningAfterAMinute) {
    Watch.Take(Leg(1, New, 2));
    Watch.Take(Leg(2, Accepted, 2));
    Pass(59);
    EXPECT_NE(Watch.Sentence().Key, "");
    Pass(1);
    EXPECT_EQ(Watch.Sentence().Key, "");
    ASSERT_EQ(Logged.size(), 1u);
    EXPECT_EQ(Logged[0].Level, fw::ELogLevel::Warning);
}

TEST_F(BatchWatchTest, TheNewestBatchIsToldAndTheOlderOneBehindIt) {
    Watch.Take(Leg(1, New, 1));
    TOrderRow Second = Leg(1, New, 1);
    Second.BatchId = "b2";
    Watch.Take(Second);
    Watch.Take(Leg(1, Rejected, 1));
    EXPECT_EQ(Watch.Sentence().Key, "Res_BatchProgress");
    Second.State = Filled;
    Pass(5);
    Watch.Take(Second);
    Pass(5);
    EXPECT_EQ(Watch.Sentence().Args, (std::vector<std::string>{"1", "1", "1"}))
        << "the first is over, the second is not";
    Pass(5);
    EXPECT_EQ(Watch.Sentence().Key, "");
    EXPECT_EQ(Logged.size(), 2u);
}

TEST_F(BatchWatchTest, SingleOrdersAndThoseOfEarlierRunsAreNoBatchUnderWay) {
    TOrderRow Single = Leg(1, New, 1);
    Single.BatchId.clear();
    Watch.Take(Single);
    Watch.Take(Leg(1, Unknown, 1));
    Pass(1);
    EXPECT_EQ(Watch.Sentence().Key, "");
    EXPECT_TRUE(Logged.empty());
}

}  // namespace ws
