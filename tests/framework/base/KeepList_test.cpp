// SPDX-License-Identifier: Apache-2.0
#include "framework/base/KeepList.h"

#include <gtest/gtest.h>

namespace fw {
namespace {

struct TCounted {
    explicit TCounted(int& Destroyed) : FDestroyed(Destroyed) {}
    ~TCounted() { ++FDestroyed; }
    int& FDestroyed;
};

TEST(KeepList, KeepsAnObjectForGood) {
    static int Destroyed = 0;
    const int Before = KeptCount();
    TCounted* Kept = Keep(std::make_unique<TCounted>(Destroyed));
    ASSERT_NE(Kept, nullptr);
    EXPECT_EQ(&Kept->FDestroyed, &Destroyed);
    EXPECT_EQ(KeptCount(), Before + 1);
    Keep(std::make_unique<TCounted>(Destroyed));
    EXPECT_EQ(KeptCount(), Before + 2);
    EXPECT_EQ(Destroyed, 0);
}

}  // namespace
}  // namespace fw
