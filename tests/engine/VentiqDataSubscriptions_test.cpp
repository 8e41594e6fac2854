// SPDX-License-Identifier: Apache-2.0
#include <stdexcept>

#include "tests/engine/EngineFixture.h"

namespace ventiq {

using TTexts = std::vector<Text>;

namespace {

class TPendingTest : public TEngineTest {
protected:
    TPendingTest() {
        Host.Market.AddProduct("XDER", "FUTS", "F3", kProductFuture, "2024/03/28");
        Host.Market.AddProduct("XDER", "FUTS", "F4", kProductFuture, "2024/04/25");
        Select("XDER", "FUTS");
    }
    support::TFakeSubItem& Item(const Text& Symbol) { return Host.Subscriptions.Item(Symbol); }
};

}  // namespace

TEST_F(TPendingTest, APendingFutureIsSubscribedOnce) {
    for (const auto* Month : {"2024-03", "", "2024-03", "2024-04", "2024-03"}) Control->SetMonth(Month);
    EXPECT_EQ(Host.Subscriptions.Subscribed(), (TTexts{"F3", "F4"}));
    EXPECT_EQ(Host.Subscriptions.SubscribeCount, 2);
    EXPECT_EQ(Control->GetSubscribedList().size(), 2u);
}

TEST_F(TPendingTest, AReadyFutureIsNotSubscribed) {
    Item("F3").Ready().Set(kFieldReferencePrice, 100);
    Control->SetMonth("2024-03");
    EXPECT_EQ(Host.Subscriptions.SubscribeCount, 0);
    EXPECT_EQ(Defaults(), "80 120 4");
}

TEST_F(TPendingTest, AnUpdateWithoutChangesChangesNothing) {
    Control->SetMonth("2024-03");
    Item("F3").Ready().Set(kFieldReferencePrice, 100);
    Host.Subscriptions.Deliver(0);
    Host.Subscriptions.DeliverNothing();
    TObject Other;
    Control->SymbolUpdate(nullptr, &Other);
    EXPECT_EQ(Control->GetSubscribedList().size(), 1u);
    EXPECT_EQ(Defaults(), "0 0 0");
}

TEST_F(TPendingTest, EveryPendingEntryIsExaminedOnEveryUpdate) {
    Control->SetMonth("2024-04");
    Control->SetMonth("2024-03");
    Item("F3").Ready().Set(kFieldReferencePrice, 100);
    Host.Subscriptions.Deliver("F4");
    EXPECT_EQ(Host.Subscriptions.Subscribed(), (TTexts{"F4"})) << "F3 was ready, F4 told so; F4 stays";
    EXPECT_EQ(Defaults(), "80 120 4");
}

TEST_F(TPendingTest, AnItemWithoutDataStaysUntilTheControlEnds) {
    Control->SetMonth("2024-03");
    Item("F3").State = kItemNoData;
    Host.Subscriptions.Deliver();
    EXPECT_EQ(Host.Subscriptions.Subscribed(), (TTexts{"F3"}));
    Control.reset();
    EXPECT_TRUE(Host.Subscriptions.Subscribed().empty());
}

TEST_F(TPendingTest, TheEntryIsGoneBeforeTheRangeIsDerived) {
    Control->SetMonth("2024-03");
    Item("F3").Ready().Set(kFieldReferencePrice, 100);
    size_t Pending = 99;
    Control->SetOnUpdateDefaultPrice(
        [&](TObject*) { Pending = Control->GetSubscribedList().size() + Host.Subscriptions.Subscribed().size(); });
    Host.Subscriptions.Deliver();
    EXPECT_EQ(Pending, 0u);
}

TEST_F(TPendingTest, AnUnderlyingWhoseExpiryIsUnknownEndsTheWalkOnly) {
    Host.Market.AddProduct("XDER", "FUTS", "F5", kProductFuture, "2024/05/30");
    Control->SetMonth("2024-03");
    Control->SetMonth("2024-05");
    // F3 is withdrawn, so nobody knows its expiry any more.
    static_cast<support::TFakeProduct*>(Host.Market.GetProductBySymbol("F3"))->Symbol = "GONE";
    Item("F3").Ready();
    Item("F5").Ready().Set(kFieldReferencePrice, 100);
    Host.Subscriptions.Deliver("F5");
    EXPECT_EQ(Host.TakeErrors().size(), 1u);
    EXPECT_EQ(Host.Subscriptions.Subscribed(), (TTexts{"F5"}));
    EXPECT_EQ(Defaults(), "0 0 0");
    Host.Subscriptions.Deliver("F5");
    EXPECT_EQ(Defaults(), "80 120 4");
    EXPECT_TRUE(Control->GetSubscribedList().empty());
}

TEST_F(TPendingTest, ASelectionMadeMeanwhileIsSafe) {
    Control->SetMonth("2024-04");
    Control->SetMonth("2024-03");
    Item("F3").Ready().Set(kFieldReferencePrice, 100);
    Item("F4").Ready().Set(kFieldReferencePrice, 50.5);
    Control->SetOnUpdateDefaultPrice([&](TObject*) { Control->SetMonth("2024-04"); });
    Host.Subscriptions.Deliver("F3");
    EXPECT_EQ(Defaults(), "40 60 2");
    EXPECT_TRUE(Host.Subscriptions.Subscribed().empty());
}

// Seen: one subscription that the service would not end kept the ones behind it. Cause: the whole walk ended with the
// first error. Now each is ended on its own.
TEST_F(TPendingTest, ASubscriptionThatCannotBeEndedKeepsNoOther) {
    Host.FailOnLeftovers = false;
    Control->SetMonth("2024-03");
    Control->SetMonth("2024-04");
    Host.Journal.OnLine = [](const Text& Line) {
        if (Line == "Subscriptions.Unsubscribe(F3)") throw std::runtime_error("service down");
    };
    Control.reset();
    Host.Journal.OnLine = nullptr;
    EXPECT_EQ(Host.Subscriptions.Subscribed(), (TTexts{"F3"}));
    EXPECT_EQ(Host.TakeErrors().size(), 1u);
}

}  // namespace ventiq
