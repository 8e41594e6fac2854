// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/services/ServiceFixture.h"

namespace ws {

class TSubscriptionServiceTest : public TServiceFixture {
protected:
    fw::TObject Owner;
    int Updates = 0;
    TSubscriptionServiceTest() { Open(); }
    void Subscribe(const std::string& Symbol) {
        Station->Subscriptions().Subscribe(
            &Item(Symbol),
            [this](fw::TObject*, fw::TObject* Update) {
                ASSERT_EQ(dynamic_cast<fw::TCustomUpdate&>(*Update).GetCount(), 1);
                ++Updates;
            },
            &Owner);
    }
};

TEST_F(TSubscriptionServiceTest, NothingIsKnownUntilSomebodySubscribesAndTheLoopRuns) {
    EXPECT_EQ(Item("HSI26400L6").GetState(), fw::kItemUnknown);
    EXPECT_EQ(Item("HSI26400L6").GetFieldText(fw::kFieldExchange), "");
    Subscribe("HSI26400L6");
    EXPECT_EQ(Updates, 0) << "never from inside the call";
    EXPECT_EQ(Item("HSI26400L6").GetState(), fw::kItemUnknown);
    Station->Pump();
    EXPECT_EQ(Updates, 1);
    auto& I = Item("HSI26400L6");
    EXPECT_EQ(I.GetState(), fw::kItemReady);
    EXPECT_EQ(I.GetFieldText(fw::kFieldExchange), "HKFE");
    EXPECT_EQ(I.GetFieldText(fw::kFieldProductType), "3");
    EXPECT_EQ(I.GetFieldText(fw::kFieldSeries), "HSI");
    EXPECT_EQ(I.GetFieldText(fw::kFieldCurrency), "HKD");
    EXPECT_EQ(I.GetFieldValue(fw::kFieldStrike), 26400.0);
    EXPECT_EQ(I.GetFieldText(fw::kFieldStrike), "26400");
    EXPECT_EQ(I.GetFieldValue(fw::kFieldMultiplier), 50.0);
    EXPECT_FALSE(I.HasField(fw::kFieldDisplayFactor));
    EXPECT_GT(I.GetFieldValue(fw::kFieldReferencePrice), 0.0);
}

TEST_F(TSubscriptionServiceTest, TheSameSymbolIsTheSameItem) { EXPECT_EQ(&Item("HSIZ6"), &Item("HSIZ6")); }

TEST_F(TSubscriptionServiceTest, AnUnlistedSymbolGetsTheAnswerThatThereIsNothing) {
    Subscribe("NOBODY");
    Station->Pump();
    EXPECT_EQ(Item("NOBODY").GetState(), fw::kItemNoData);
    EXPECT_EQ(Updates, 1);
    EXPECT_TRUE(Station->Subscriptions().Pending().empty());
}

TEST_F(TSubscriptionServiceTest, SomeContractsAnswerLateAndSomeNever) {
    Subscribe("HHI10400L6");
    Subscribe("HHI10500L6");
    Run(2);
    EXPECT_EQ(Item("HHI10400L6").GetState(), fw::kItemUnknown);
    EXPECT_EQ(Updates, 0);
    Run(4);
    EXPECT_EQ(Item("HHI10400L6").GetState(), fw::kItemReady);
    EXPECT_EQ(Item("HHI10500L6").GetState(), fw::kItemUnknown);
    EXPECT_EQ(Station->Subscriptions().Pending(), std::vector<std::string>{"HHI10500L6"});
}

TEST_F(TSubscriptionServiceTest, SubscribersHearOfNewPricesUntilTheyLeave) {
    Subscribe("HSIZ6");
    Station->Pump();
    const double First = Item("HSIZ6").GetFieldValue(fw::kFieldReferencePrice);
    Run(30);
    EXPECT_GT(Updates, 5);
    EXPECT_NE(Item("HSIZ6").GetFieldValue(fw::kFieldReferencePrice), First);
    Station->Subscriptions().Unsubscribe(&Item("HSIZ6"), &Owner);
    const int Before = Updates;
    Run(10);
    EXPECT_EQ(Updates, Before);
    EXPECT_EQ(Item("HSIZ6").GetState(), fw::kItemReady) << "its data stay";
    EXPECT_FALSE(Station->Subscriptions().HasOwners());
}

TEST_F(TSubscriptionServiceTest, OneWhoComesLaterIsToldToo) {
    Subscribe("HSIZ6");
    Station->Pump();
    fw::TObject Other;
    int Told = 0;
    Station->Subscriptions().Subscribe(
        &Item("HSIZ6"), [&](fw::TObject*, fw::TObject*) { ++Told; }, &Other);
    EXPECT_EQ(Told, 0);
    Station->Pump();
    EXPECT_EQ(Told, 1);
}

TEST_F(TSubscriptionServiceTest, TheDisplayFactorIsAField) {
    Subscribe("CPRZ26");
    Station->Pump();
    EXPECT_EQ(Item("CPRZ26").GetFieldValue(fw::kFieldDisplayFactor), 100.0);
}

}  // namespace ws
