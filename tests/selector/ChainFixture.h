// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include "tests/support/FakeHost.h"
#include "workstation/selector/ChainSelector.h"

namespace ws {

// A market of index options: 2026-12 with a future and five strikes, a week of it without a future, 2027-01 with a
// future only.
class TChainFixture : public testing::Test {
protected:
    static constexpr int kFuture = 2, kOption = 3;
    const fw::TSelectedMarket December{"HKFE", "HSI", "2026-12"};
    support::TFakeHost Host;

    TChainFixture() {
        Host.FailOnLeftovers = true;
        Host.Market.AddProduct("HKFE", "HSI", "HSIF7", kFuture, "2027/01/28");
        Host.Market.AddProduct("HKFE", "HSI", "HSIZ6", kFuture, "2026/12/30");
        for (const char* Strike : {"26400", "26000", "26200", "26800", "26600"})
            AddPair(Strike, "L6", "X6", "2026/12/30");
        for (const char* Strike : {"26200", "26400"})
            for (auto* Product : AddPair(Strike, "L6W11", "X6W11", "2026/12/11"))
                Product->With("WeeklyOptionExp", "W2");
    }

    std::vector<support::TFakeProduct*> AddPair(const fw::Text& Strike, const char* Call, const char* Put,
                                                const char* Expiry) {
        auto& M = Host.Market;
        return {&M.AddProduct("HKFE", "HSI", "HSI" + Strike + Call, kOption, Expiry, Strike, "C"),
                &M.AddProduct("HKFE", "HSI", "HSI" + Strike + Put, kOption, Expiry, Strike, "P")};
    }
    support::TFakeSubItem& Quote(const fw::Text& Symbol, double Bid, double Ask) {
        return Host.Subscriptions.Item(Symbol).Ready().Set(fw::kFieldBid, Bid).Set(fw::kFieldAsk, Ask);
    }
    static fw::Text Under(const TChainSelector& S) { return S.Current() ? S.SymbolAt(*S.Current()) : fw::Text(); }
};

}  // namespace ws
