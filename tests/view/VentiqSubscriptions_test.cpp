// SPDX-License-Identifier: Apache-2.0
#include <stdexcept>

#include "tests/view/PartsFixture.h"

namespace ventiq {

class TSubscriptions : public TPartsFixture {
protected:
    std::vector<Text> ReChecked;
    TSubscriptions() {
        Subscriptions.OnReCheckSymbol = [this](const Text& S) { ReChecked.push_back(S); };
    }
};

TEST_F(TSubscriptions, AReadyItemIsNotSubscribed) {
    Host.Subscriptions.AddOption("HSIC100", 100, "C");
    EXPECT_TRUE(Subscriptions.CheckSymbolState("HSIC100"));
    EXPECT_EQ(Host.Subscriptions.SubscribeCount, 0);
    EXPECT_TRUE(Subscriptions.FSubscribedList.empty());
}

TEST_F(TSubscriptions, APendingSymbolIsSubscribedOnce) {
    EXPECT_FALSE(Subscriptions.CheckSymbolState("HSIC100"));
    EXPECT_FALSE(Subscriptions.CheckSymbolState("HSIC100"));
    EXPECT_EQ(Host.Subscriptions.SubscribeCount, 1);
    EXPECT_EQ(Host.Subscriptions.Subscribed(), std::vector<Text>{"HSIC100"});
}

TEST_F(TSubscriptions, EveryPendingSymbolIsCheckedOnEveryUpdateAndReadyOnesLeave) {
    Subscriptions.CheckSymbolState("HSIC100");
    Subscriptions.CheckSymbolState("HSIC110");
    Host.Subscriptions.Item("HSIC110").Ready();
    Host.Subscriptions.Deliver("HSIC110");
    EXPECT_EQ(ReChecked, (std::vector<Text>{"HSIC100", "HSIC110"}));
    EXPECT_EQ(Host.Subscriptions.Subscribed(), std::vector<Text>{"HSIC100"});
}

TEST_F(TSubscriptions, AnUpdateOfNothingChangesNothing) {
    Subscriptions.CheckSymbolState("HSIC100");
    Host.Subscriptions.Item("HSIC100").Ready();
    Host.Subscriptions.Deliver(0);
    Host.Subscriptions.DeliverNothing();
    EXPECT_TRUE(ReChecked.empty());
    EXPECT_EQ(Subscriptions.FSubscribedList.size(), 1u);
}

TEST_F(TSubscriptions, TheWalkStandsEntriesThatLeaveMeanwhile) {
    Subscriptions.CheckSymbolState("HSIC100");
    Subscriptions.CheckSymbolState("HSIC110");
    Subscriptions.OnReCheckSymbol = [this](const Text& S) {
        ReChecked.push_back(S);
        Subscriptions.ClearSubscribeList();
    };
    Host.Subscriptions.Deliver("HSIC100");
    EXPECT_EQ(ReChecked, std::vector<Text>{"HSIC100"});
    EXPECT_TRUE(Host.Subscriptions.Subscribed().empty());
}

TEST_F(TSubscriptions, TheRelatedSymbolIsAskedForWhetherReadyOrNot) {
    auto* Product = dynamic_cast<support::TFakeProduct*>(Host.Market.GetProductBySymbol("HSIC100"));
    ASSERT_TRUE(Product);
    Product->RelatedSymbol = "HSIZ6";
    Subscriptions.CheckSymbolState("HSIC100");
    Host.Subscriptions.Item("HSIC110").Ready().Set(kFieldSpreadCode, "T7");
    Subscriptions.CheckSymbolState("HSIC110");
    Subscriptions.CheckSymbolState("HSIC120");
    EXPECT_EQ(Host.Market.Requested, (std::vector<Text>{"HSIZ6", "T7"}))
        << "product first, then field 73, else nothing";
}

TEST_F(TSubscriptions, ClearLetsGoOfEverything) {
    Subscriptions.CheckSymbolState("HSIC100");
    Subscriptions.CheckSymbolState("HSIC110");
    Subscriptions.ClearSubscribeList();
    EXPECT_TRUE(Host.Subscriptions.Subscribed().empty());
    EXPECT_TRUE(Subscriptions.FSubscribedList.empty());
}

// Seen: one subscription that the service would not end kept the ones behind it, with handlers of a frame that is gone.
// Cause: the whole walk ended with the first error. Now each is ended on its own.
TEST_F(TSubscriptions, ASubscriptionThatCannotBeEndedKeepsNoOther) {
    Subscriptions.CheckSymbolState("HSIC100");
    Subscriptions.CheckSymbolState("HSIC110");
    Host.Journal.OnLine = [](const Text& Line) {
        if (Line == "Subscriptions.Unsubscribe(HSIC100)") throw std::runtime_error("service down");
    };
    Subscriptions.ClearSubscribeList();
    Host.Journal.OnLine = nullptr;
    EXPECT_EQ(Host.Subscriptions.Subscribed(), std::vector<Text>{"HSIC100"});
    EXPECT_TRUE(Subscriptions.FSubscribedList.empty());
    EXPECT_EQ(Host.TakeErrors().size(), 1u);
}

}  // namespace ventiq
