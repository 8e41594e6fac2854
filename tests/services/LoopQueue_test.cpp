// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/LoopQueue.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace ws {

TEST(LoopQueue, RunsInOrderAndLeavesNewWorkForTheNextRound) {
    TLoopQueue Queue;
    std::vector<int> Ran;
    int Woken = 0;
    Queue.OnPosted = [&] { ++Woken; };
    Queue.Post([&] {
        Ran.push_back(1);
        Queue.Post([&] { Ran.push_back(3); });
    });
    Queue.Post([&] { Ran.push_back(2); });
    EXPECT_TRUE(Ran.empty());
    EXPECT_EQ(Queue.Pump(), 2);
    EXPECT_EQ(Ran, (std::vector<int>{1, 2}));
    EXPECT_EQ(Queue.Pump(), 1);
    EXPECT_EQ(Ran, (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(Queue.Pump(), 0);
    EXPECT_EQ(Woken, 3);
}

TEST(LoopQueue, ATaskWithALoopOfItsOwnHoldsNobodyBack) {
    TLoopQueue Queue;
    std::vector<int> Ran;
    Queue.Post([&] {
        Queue.Post([&] { Ran.push_back(3); });
        EXPECT_EQ(Queue.Pump(), 2);
        Ran.push_back(1);
        Queue.Post([&] { Ran.push_back(4); });
    });
    Queue.Post([&] { Ran.push_back(2); });
    EXPECT_EQ(Queue.Pump(), 1) << "the others have run, and what came since waits";
    EXPECT_EQ(Ran, (std::vector<int>{2, 3, 1}));
    Queue.Pump();
    EXPECT_EQ(Ran.back(), 4);
}

TEST(LoopQueue, ATaskThatThrowsDoesNotStopTheOthers) {
    TLoopQueue Queue;
    bool Ran = false;
    Queue.Post([] { throw std::runtime_error("task"); });
    Queue.Post([&] { Ran = true; });
    Queue.Pump();
    EXPECT_TRUE(Ran);
}

}  // namespace ws
