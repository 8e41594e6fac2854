// SPDX-License-Identifier: Apache-2.0
#include "framework/base/Clock.h"

#include <gtest/gtest.h>

namespace fw {
namespace {

using namespace std::chrono_literals;

TEST(Clock, RunsWithTheSystemUnlessFixed) {
    ASSERT_FALSE(TClock::IsFixed());
    const auto Before = std::chrono::system_clock::now();
    const auto Now = TClock::Now();
    EXPECT_LE(Before, Now);
    EXPECT_LE(Now, std::chrono::system_clock::now());
}

TEST(Clock, StandsStillWhileFixed) {
    const TClock::TTimePoint Noon{1'700'000'000s};
    TClock::Fix(Noon);
    EXPECT_TRUE(TClock::IsFixed());
    EXPECT_EQ(TClock::Now(), Noon);
    EXPECT_EQ(TClock::Now(), Noon);
    TClock::Fix(Noon + 1h);
    EXPECT_EQ(TClock::Now(), Noon + 1h);
    TClock::Fix(std::nullopt);
    EXPECT_FALSE(TClock::IsFixed());
    EXPECT_GT(TClock::Now(), Noon + 1h);
}

}  // namespace
}  // namespace fw
