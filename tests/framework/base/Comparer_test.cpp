// SPDX-License-Identifier: Apache-2.0
#include "framework/base/Comparer.h"

#include <gtest/gtest.h>

namespace fw {
namespace {

TEST(Comparer, AsksItsFunction) {
    const TCustomComparer ByLength(
        [](const Text& A, const Text& B) { return static_cast<int32_t>(A.size()) - static_cast<int32_t>(B.size()); });
    EXPECT_LT(ByLength.Compare("z", "aa"), 0);
    EXPECT_EQ(ByLength.Compare("b", "a"), 0);
    EXPECT_GT(ByLength.Compare("aaa", "zz"), 0);
}

TEST(MonthComparer, OrdersMonthCodesByTime) {
    const TCustomMonthComparer Months;
    const Text Ascending[] = {"2023-12", "2024-01", "2024-02", "2024-02-W1", "2024-02-W2", "2024-10"};
    for (size_t A = 0; A < std::size(Ascending); ++A)
        for (size_t B = 0; B < std::size(Ascending); ++B) {
            SCOPED_TRACE(Ascending[A] + " and " + Ascending[B]);
            EXPECT_EQ(Months.Compare(Ascending[A], Ascending[B]), A < B ? -1 : A > B ? 1 : 0);
        }
}

}  // namespace
}  // namespace fw
