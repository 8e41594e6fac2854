// SPDX-License-Identifier: GPL-3.0-or-later
// The three average prices, by hand.
#include "workstation/trading/AveragePrices.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace ws {
namespace {

const std::string kToday = "2026/11/21", kYesterday = "2026/11/20";

struct TTrade {
    double Qty, Price;
    std::string Day = kToday;
};

THolding Of(const std::vector<TTrade>& Trades, std::optional<double> Settlement = std::nullopt) {
    std::vector<TExecutionRow> Rows;
    for (const auto& Trade : Trades) {
        TExecutionRow Row;
        Row.Account = "A1";
        Row.Symbol = "HSIZ6";
        Row.Qty = Trade.Qty;
        Row.Price = Trade.Price;
        Row.Day = Trade.Day;
        Rows.push_back(Row);
    }
    return HoldingOf(Rows, kToday, Settlement);
}

TEST(AveragePrices, CostAndFirstInFirstOutByHand) {
    const struct {
        const char* Why;
        std::vector<TTrade> Trades;
        double Qty, Cost, Fifo, Realized;
    } Cases[] = {
        {"one purchase", {{2, 100}}, 2, 100, 100, 0},
        {"one sale", {{-3, 352}}, -3, 352, 352, 0},
        {"two purchases: (2*100 + 3*110) / 5", {{2, 100}, {3, 110}}, 5, 106, 106, 0},
        // Cost stays 106 and realizes 2*(120-106); first in first out has sold the two of 100.
        {"a part is sold", {{2, 100}, {3, 110}, {-2, 120}}, 3, 106, 110, 28},
        // Sold 3: two of 100 and one of 110.
        {"a lot is split", {{2, 100}, {3, 110}, {-3, 90}}, 2, 106, 110, -48},
        // Cost after: (3*106 + 1*126) / 4 = 111; first in first out: (3*110 + 1*126) / 4 = 114.
        {"bought again after a sale", {{2, 100}, {3, 110}, {-2, 120}, {1, 126}}, 4, 111, 114, 28},
        {"closed", {{2, 100}, {-2, 90}}, 0, 0, 0, -20},
        {"closed and opened again", {{2, 100}, {-2, 90}, {1, 80}}, 1, 80, 80, -20},
        // 2 long at 100 realize 2*(130-100); 3 short begin at 130.
        {"long to short through zero", {{2, 100}, {-5, 130}}, -3, 130, 130, 60},
        // 2 short at 100 realize 2*(100-70).
        {"short to long through zero", {{-2, 100}, {5, 70}}, 3, 70, 70, 60},
        // Closes a lot of 2 and a lot of 3, crosses with 1: -6 against +5.
        {"through zero over two lots", {{2, 100}, {3, 110}, {-6, 120}}, -1, 120, 120, 70},
        {"short is bought back in part", {{-4, 50}, {1, 40}}, -3, 50, 50, 10},
        {"an opening of nothing", {{0, 7}, {1, 9}}, 1, 9, 9, 0},
        // 0.1 + 0.2 - 0.3 leaves 5.5e-17 in binary: that is flat.
        {"dust is nothing", {{0.1, 10}, {0.2, 10}, {-0.3, 10}, {2, 33}}, 2, 33, 33, 0},
        {"prices below zero", {{1, -5}, {1, -7}, {-1, -4}}, 1, -6, -7, 2},
    };
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        const auto Holding = Of(Case.Trades);
        EXPECT_DOUBLE_EQ(Holding.Qty, Case.Qty);
        EXPECT_DOUBLE_EQ(Holding.AverageCost, Case.Cost);
        EXPECT_DOUBLE_EQ(Holding.FirstInFirstOut, Case.Fifo);
        EXPECT_NEAR(Holding.Realized, Case.Realized, 1e-9);
        EXPECT_EQ(Holding.Account, "A1");
        EXPECT_EQ(Holding.Symbol, "HSIZ6");
    }
}

TEST(AveragePrices, WhatWasHeldOvernightStandsAtTheSettlement) {
    const struct {
        const char* Why;
        std::vector<TTrade> Trades;
        std::optional<double> Settlement;
        double Expected;
    } Cases[] = {
        {"all of today", {{2, 100}}, 90, 100},
        {"all of yesterday", {{2, 100, kYesterday}}, 90, 90},
        {"an opening has no day", {{2, 100, ""}}, 90, 90},
        {"no settlement: its cost", {{2, 100, kYesterday}, {2, 110, kYesterday}}, std::nullopt, 105},
        // (2*90 + 2*110) / 4
        {"added to today", {{2, 100, kYesterday}, {2, 110}}, 90, 100},
        {"sold in part today", {{4, 100, kYesterday}, {-1, 120}}, 90, 90},
        {"flat overnight", {{2, 100, kYesterday}, {-2, 110, kYesterday}, {3, 70}}, 90, 70},
        {"turned today", {{2, 100, kYesterday}, {-5, 120}}, 90, 120},
        {"closed today", {{2, 100, kYesterday}, {-2, 120}}, 90, 0},
        // A market day that stands still on an older date has no yesterday after it.
        {"of a later day", {{2, 100, "2026/11/22"}}, 90, 100},
    };
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        EXPECT_DOUBLE_EQ(Of(Case.Trades, Case.Settlement).OvernightSettled, Case.Expected);
    }
}

TEST(AveragePrices, NothingAtAllIsAnEmptyHolding) {
    const auto Holding = HoldingOf({}, kToday, 5);
    EXPECT_EQ(Holding.Symbol, "");
    EXPECT_EQ(Holding.Qty, 0);
    EXPECT_EQ(Holding.OvernightSettled, 0);
}

// Whatever is traded: the quantity is the sum, the averages lie between the lowest and the highest price, a flat
// holding has none, and what was paid is what is held plus what was realized.
TEST(AveragePrices, AnySequenceAddsUp) {
    std::mt19937_64 Random(7);
    for (int Round = 0; Round < 2000; ++Round) {
        std::vector<TTrade> Trades;
        double Sum = 0, Paid = 0, Low = 1e9, High = -1e9;
        const int Count = 1 + static_cast<int>(Random() % 12);
        for (int i = 0; i < Count; ++i) {
            const double Qty = (1.0 + static_cast<double>(Random() % 9)) * (Random() % 2 ? 1 : -1);
            const double Price = static_cast<double>(Random() % 1000) / 8 - 20;
            Trades.push_back({Qty, Price, i < Count / 2 ? kYesterday : kToday});
            Sum += Qty;
            Paid += Qty * Price;
            Low = std::min(Low, Price);
            High = std::max(High, Price);
        }
        const auto Holding = Of(Trades);
        ASSERT_EQ(Holding.Qty, Sum);
        for (const double Average : {Holding.AverageCost, Holding.FirstInFirstOut, Holding.OvernightSettled}) {
            if (Sum == 0)
                ASSERT_EQ(Average, 0);
            else
                ASSERT_TRUE(Average >= Low - 1e-9 && Average <= High + 1e-9) << Average;
        }
        ASSERT_NEAR(Holding.Qty * Holding.AverageCost - Holding.Realized, Paid, 1e-6);
    }
}

}  // namespace
}  // namespace ws
