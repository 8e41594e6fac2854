// SPDX-License-Identifier: Apache-2.0
#include "framework/base/Signal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

#include "framework/base/Text.h"

namespace fw {
namespace {

using testing::ElementsAre;

class Signal : public testing::Test {
protected:
    auto Note(const Text& Name) {
        return [this, Name](int Value) { Calls.push_back(Name + std::to_string(Value)); };
    }
    TSignal<int> Changed;
    std::vector<Text> Calls;
};

TEST_F(Signal, TellsListenersInOrderOfConnection) {
    const auto B = Changed.Connect(Note("b"));
    const auto A = Changed.Connect(Note("a"));
    Changed(1);
    EXPECT_THAT(Calls, ElementsAre("b1", "a1"));
}

TEST_F(Signal, ConnectionEndsWithItsObject) {
    EXPECT_FALSE(Changed.HasListeners());
    {
        const auto Link = Changed.Connect(Note("a"));
        EXPECT_TRUE(Changed.HasListeners());
    }
    EXPECT_FALSE(Changed.HasListeners());
    Changed(1);
    EXPECT_TRUE(Calls.empty());
}

TEST_F(Signal, ConnectionMoves) {
    TConnection Kept;
    {
        auto Link = Changed.Connect(Note("a"));
        Kept = std::move(Link);
    }
    Changed(1);
    Kept = Changed.Connect(Note("b"));
    Changed(2);
    EXPECT_THAT(Calls, ElementsAre("a1", "b2")) << "the assigned connection ends the former one";
    Kept.Disconnect();
    Kept.Disconnect();
    Changed(3);
    EXPECT_EQ(Calls.size(), 2u);
}

TEST_F(Signal, ConnectionMayOutliveTheSignal) {
    std::optional<TSignal<>> Dying(std::in_place);
    auto Link = Dying->Connect([] {});
    Dying.reset();
    Link.Disconnect();
}

TEST_F(Signal, BunchEndsTogether) {
    TConnections Links;
    Links += Changed.Connect(Note("a"));
    Links += Changed.Connect(Note("b"));
    Changed(1);
    Links.Clear();
    Changed(2);
    EXPECT_THAT(Calls, ElementsAre("a1", "b1"));
}

TEST_F(Signal, ListenerDisconnectedDuringTheRoundIsNotCalled) {
    TConnection B;
    const auto A = Changed.Connect([&](int) { B.Disconnect(); });
    B = Changed.Connect(Note("b"));
    const auto C = Changed.Connect(Note("c"));
    Changed(1);
    EXPECT_THAT(Calls, ElementsAre("c1"));
}

TEST_F(Signal, ListenerMayDisconnectItselfAndGoOn) {
    TConnection A;
    A = Changed.Connect([&, Label = Text(100, 'a')](int) {
        A.Disconnect();
        Changed(7);  // drops the ended slots while this one still runs
        Calls.push_back(Label.substr(99));
    });
    Changed(1);
    EXPECT_THAT(Calls, ElementsAre("a"));
}

TEST_F(Signal, ListenerConnectedDuringTheRoundWaitsForTheNext) {
    TConnections Links;
    Links += Changed.Connect([&](int Value) {
        if (Value == 1) Links += Changed.Connect(Note("new"));
    });
    Changed(1);
    EXPECT_TRUE(Calls.empty());
    Changed(2);
    EXPECT_THAT(Calls, ElementsAre("new2"));
}

TEST_F(Signal, RoundsMayNest) {
    const auto A = Changed.Connect([&](int Value) {
        Calls.push_back("a" + std::to_string(Value));
        if (Value == 1) Changed(2);
    });
    const auto B = Changed.Connect(Note("b"));
    Changed(1);
    EXPECT_THAT(Calls, ElementsAre("a1", "a2", "b2", "b1"));
}

}  // namespace
}  // namespace fw
