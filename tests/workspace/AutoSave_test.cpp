// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/workspace/AutoSave.h"

#include <gtest/gtest.h>

namespace ws {

class AutoSaveTest : public testing::Test {
protected:
    TAutoSave Save;
    bool IsDue(const char* Text, int Second) {
        return Save.IsDue(Text, TAutoSave::TTime(std::chrono::seconds(Second)));
    }
};

TEST_F(AutoSaveTest, IsDueFiveSecondsAfterTheFirstChange) {
    Save.Settle("a");
    EXPECT_FALSE(IsDue("a", 100));
    EXPECT_FALSE(IsDue("b", 101));
    EXPECT_FALSE(IsDue("c", 105)) << "a further change does not put it off";
    EXPECT_TRUE(IsDue("d", 106));
    Save.Settle("d");
    EXPECT_FALSE(IsDue("d", 107));
}

TEST_F(AutoSaveTest, AChangeThatIsTakenBackIsNone) {
    Save.Settle("a");
    EXPECT_FALSE(IsDue("b", 1));
    EXPECT_FALSE(IsDue("a", 2));
    EXPECT_FALSE(IsDue("b", 9));
    EXPECT_TRUE(IsDue("b", 14));
}

TEST_F(AutoSaveTest, WhatCouldNotBeSavedWaitsForTheNextChange) {
    EXPECT_FALSE(IsDue("b", 1));
    EXPECT_TRUE(IsDue("b", 6));
    Save.Settle("b");  // in vain
    EXPECT_FALSE(IsDue("b", 60));
    EXPECT_FALSE(IsDue("c", 61));
    EXPECT_TRUE(IsDue("c", 66));
}

}  // namespace ws
