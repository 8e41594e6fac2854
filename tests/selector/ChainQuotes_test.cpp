// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/base/Clock.h"
#include "tests/selector/ChainFixture.h"

namespace ws {

class ChainQuotes : public TChainFixture {
protected:
    ~ChainQuotes() override { fw::TClock::Fix({}); }
    TChainQuotes Quotes;
};

TEST_F(ChainQuotes, OnlyWhatIsLookedAtIsSubscribed) {
    Quotes.Watch({"A", "B", "A"});
    EXPECT_EQ(Host.Subscriptions.Subscribed(), (std::vector<fw::Text>{"A", "B"}));
    Quotes.Watch({"B", "C"});
    EXPECT_EQ(Host.Subscriptions.Subscribed(), (std::vector<fw::Text>{"B", "C"}));
    EXPECT_EQ(Host.Subscriptions.SubscribeCount, 3) << "what stays is not asked for again";
    Quotes.Watch({});
    EXPECT_TRUE(Host.Subscriptions.Subscribed().empty());
}

TEST_F(ChainQuotes, ReadsWhatTheItemHas) {
    Quotes.Watch({"A", "B"});
    Quote("A", 10, 12);
    EXPECT_EQ(Quotes.Of("A").Bid, 10);
    EXPECT_EQ(Quotes.Of("A").Ask, 12);
    EXPECT_EQ(Quotes.Of("A").Last, std::nullopt);
    EXPECT_EQ(Quotes.Of("A").AgeSeconds, std::nullopt);
    EXPECT_EQ(Quotes.Of("A").Middle(), 11);
    Host.Subscriptions.Item("B").Set(fw::kFieldBid, 5.0);
    EXPECT_EQ(Quotes.Of("B").Bid, std::nullopt) << "not ready";
    Host.Subscriptions.Item("B").Ready().Set(fw::kFieldLast, 4.0);
    EXPECT_EQ(Quotes.Of("B").Middle(), 4);
    EXPECT_EQ(Quotes.Of("C").Middle(), std::nullopt) << "not watched";
}

TEST_F(ChainQuotes, TheAgeIsCountedByTheOneClockAndNeverBelowZero) {
    Quotes.Watch({"A"});
    Quote("A", 1, 2).Set(fw::kFieldQuoteTime, 1000.0);
    fw::TClock::Fix(fw::TClock::TTimePoint(std::chrono::seconds(1012)));
    EXPECT_EQ(Quotes.Of("A").AgeSeconds, 12);
    fw::TClock::Fix(fw::TClock::TTimePoint(std::chrono::seconds(990)));
    EXPECT_EQ(Quotes.Of("A").AgeSeconds, 0);
}

TEST_F(ChainQuotes, AnAgeIsSaidInOneUnit) {
    const struct {
        double Seconds;
        fw::Text Key;
        int Count;
    } Cases[] = {{0, "Res_AgeSeconds", 0},     {59.9, "Res_AgeSeconds", 59}, {60, "Res_AgeMinutes", 1},
                 {3599, "Res_AgeMinutes", 59}, {3600, "Res_AgeHours", 1},    {86399, "Res_AgeHours", 23},
                 {86400, "Res_AgeDays", 1},    {1e8, "Res_AgeDays", 1157},   {1e300, "Res_AgeDays", 2147483647}};
    for (const auto& Case : Cases) {
        EXPECT_EQ(ShownAge(Case.Seconds).Key, Case.Key) << Case.Seconds;
        EXPECT_EQ(ShownAge(Case.Seconds).Count, Case.Count) << Case.Seconds;
    }
}

TEST_F(ChainQuotes, ChangesAreToldWhileSomebodyLooks) {
    int Told = 0;
    const auto Link = Quotes.OnChanged.Connect([&] { ++Told; });
    Quotes.Watch({"A"});
    Host.Subscriptions.Deliver("A");
    EXPECT_EQ(Told, 1);
    Quotes.Watch({});
    Host.Subscriptions.Deliver("A");
    EXPECT_EQ(Told, 1);
}

}  // namespace ws
