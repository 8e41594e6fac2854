// SPDX-License-Identifier: Apache-2.0
#include "framework/base/OwnerRegistrations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "framework/base/Errors.h"
#include "tests/framework/base/LogRecorder.h"

namespace fw {
namespace {

using testing::ElementsAre;

class OwnerRegistrations : public testing::Test {
protected:
    auto Note(const Text& Name) {
        return [this, Name](int Value) { Calls.push_back(Name + std::to_string(Value)); };
    }
    TOwnerRegistrations<int> List;
    std::vector<Text> Calls;
    TObject A, B, C;
};

TEST_F(OwnerRegistrations, NotifiesInOrderOfRegistration) {
    List.Add(&B, Note("b"));
    List.Add(&A, Note("a"));
    List.Notify("round", 1);
    EXPECT_THAT(Calls, ElementsAre("b1", "a1"));
    EXPECT_TRUE(List.Contains(&A));
    EXPECT_FALSE(List.Contains(&C));
    EXPECT_EQ(List.GetCount(), 2u);
}

TEST_F(OwnerRegistrations, RegisteringAgainReplacesTheHandler) {
    List.Add(&A, Note("former"));
    List.Add(&B, Note("b"));
    List.Add(&A, Note("a"));
    List.Notify("round", 1);
    EXPECT_THAT(Calls, ElementsAre("b1", "a1"));
    EXPECT_EQ(List.GetCount(), 2u);
}

TEST_F(OwnerRegistrations, NothingIsCalledAfterRemoval) {
    List.Add(&A, Note("a"));
    List.Remove(&B);
    List.Remove(&A);
    List.Remove(&A);
    List.Notify("round", 1);
    EXPECT_TRUE(Calls.empty());
    EXPECT_TRUE(List.IsEmpty());
}

TEST_F(OwnerRegistrations, RemovalDuringARoundHoldsAtOnce) {
    List.Add(&A, [&](int) {
        Calls.push_back("a");
        List.Remove(&B);
    });
    List.Add(&B, Note("b"));
    List.Add(&C, Note("c"));
    List.Notify("round", 1);
    EXPECT_THAT(Calls, ElementsAre("a", "c1"));
}

TEST_F(OwnerRegistrations, HandlerMayRemoveItselfAndGoOn) {
    List.Add(&A, [&, Label = Text(100, 'a')](int) {
        List.Remove(&A);
        Calls.push_back(Label.substr(99));
    });
    List.Add(&B, Note("b"));
    List.Notify("round", 1);
    List.Notify("round", 2);
    EXPECT_THAT(Calls, ElementsAre("a", "b1", "b2"));
}

TEST_F(OwnerRegistrations, WhatIsAddedDuringARoundWaitsForTheNext) {
    List.Add(&A, [&](int) { List.Add(&B, Note("b")); });
    List.Notify("round", 1);
    EXPECT_TRUE(Calls.empty());
    List.Notify("round", 2);
    EXPECT_THAT(Calls, ElementsAre()) << "the first handler replaced the second before its turn";
    List.Remove(&A);
    List.Notify("round", 3);
    EXPECT_THAT(Calls, ElementsAre("b3"));
}

TEST_F(OwnerRegistrations, RoundsMayNest) {
    List.Add(&A, [&](int Depth) {
        Calls.push_back("a" + std::to_string(Depth));
        if (Depth < 2) List.Notify("inner", Depth + 1);
        if (Depth == 2) List.Remove(&B);
    });
    List.Add(&B, Note("b"));
    List.Notify("outer", 1);
    EXPECT_THAT(Calls, ElementsAre("a1", "a2")) << "the inner round removed the owner from the outer one";
}

TEST_F(OwnerRegistrations, ErrorOfAHandlerIsLoggedAndTheRoundGoesOn) {
    TLogRecorder Log;
    List.Add(&A, [](int) { throw EConvertError("no date"); });
    List.Add(&B, [](int) { throw 1; });
    List.Add(&C, Note("c"));
    List.Notify("Market.ExchangeUpdate", 1);
    EXPECT_THAT(Calls, ElementsAre("c1"));
    ASSERT_EQ(Log.Entries.size(), 2u);
    EXPECT_THAT(Log.Entries[0].Args, ElementsAre("Market.ExchangeUpdate", "no date"));
}

TEST_F(OwnerRegistrations, ListMayEndDuringARound) {
    auto Dying = std::make_unique<TOwnerRegistrations<int>>();
    Dying->Add(&A, [&](int) { Dying.reset(); });
    Dying->Add(&B, Note("b"));
    Dying->Notify("round", 1);
    EXPECT_EQ(Dying, nullptr);
    EXPECT_TRUE(Calls.empty()) << "with the list its registrations end";
}

}  // namespace
}  // namespace fw
