// SPDX-License-Identifier: Apache-2.0
#include "framework/base/FlagGuard.h"

#include <gtest/gtest.h>

namespace fw {
namespace {

TEST(FlagGuard, SetsTheFlagAndEndsAsAsked) {
    struct TCase {
        bool Before;
        EGuardEnd End;
        bool After;
    };
    const TCase Cases[] = {{false, EGuardEnd::Restore, false},
                           {true, EGuardEnd::Restore, true},
                           {false, EGuardEnd::Clear, false},
                           {true, EGuardEnd::Clear, false}};
    for (const auto& C : Cases) {
        bool Flag = C.Before;
        {
            const TFlagGuard Guard(Flag, C.End);
            EXPECT_TRUE(Flag);
        }
        EXPECT_EQ(Flag, C.After);
    }
}

TEST(FlagGuard, EndsOnErrorsToo) {
    bool Flag = false;
    try {
        const TFlagGuard Guard(Flag, EGuardEnd::Restore);
        throw 1;
    } catch (int) {
    }
    EXPECT_FALSE(Flag);
}

TEST(FlagGuard, InnerGuardLeavesTheOuterOneOn) {
    bool Flag = false;
    const TFlagGuard Outer(Flag, EGuardEnd::Restore);
    { const TFlagGuard Inner(Flag, EGuardEnd::Restore); }
    EXPECT_TRUE(Flag);
}

}  // namespace
}  // namespace fw
