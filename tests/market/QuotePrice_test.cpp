// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/QuotePrice.h"

#include <gtest/gtest.h>

namespace {

using TPrice = std::optional<double>;
constexpr auto kNo = std::nullopt;

struct TPriceCase {
    const char* Why;
    TPrice Bid, Ask, Last, Settled;
    TPrice Imported, Live;
};

TEST(QuotePrice, OnePriceOfAQuote) {
    const TPriceCase Cases[] = {
        {"all there", 3122.3, 3146.3, 2997.1, 3000, 3134.3, 2997.1},
        {"halving leaves no noise", 0.1, 0.2, kNo, kNo, 0.15, 0.15},
        {"nobody bids", 0.0, 0.05, 0.1, kNo, 0.025, 0.1},
        {"no ask", 5, kNo, 4.5, kNo, 4.5, 4.5},
        {"crossed", 5, 4, 4.5, kNo, 4.5, 4.5},
        {"never traded", kNo, kNo, kNo, 7, 7, 7},
        {"nothing", kNo, kNo, kNo, kNo, kNo, kNo},
    };
    for (const TPriceCase& C : Cases) {
        SCOPED_TRACE(C.Why);
        ws::TQuoteRow Quote;
        Quote.Bid = C.Bid;
        Quote.Ask = C.Ask;
        Quote.Last = C.Last;
        Quote.PreviousSettlement = C.Settled;
        EXPECT_EQ(ws::ReferencePrice(Quote, true), C.Imported);
        EXPECT_EQ(ws::ReferencePrice(Quote, false), C.Live);
    }
}

}  // namespace
