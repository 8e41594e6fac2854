// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/script/TraderFixture.h"

namespace ws {

// Two full legs and the empty row below them, in December's index options.
class TTwoLegs : public TTraderFixture {
protected:
    TGridCells Before;

    void SetUp() override {
        OpenView();
        ASSERT_TRUE(Choose("HKFE", "HSI", "2026-12"));
        ASSERT_TRUE(Type(0, ventiq::kColSymbol, "HSI26400L6"));
        ASSERT_TRUE(Type(1, ventiq::kColSymbol, "HSI27000L6"));
        Run(2);
        for (const int Row : {0, 1}) {
            ASSERT_TRUE(Type(Row, ventiq::kColPremium, Row == 0 ? "650" : "352"));
            ASSERT_TRUE(Type(Row, ventiq::kColQty, "3"));
            ASSERT_TRUE(Play(TStep::CellItem(kLegs, Row, ventiq::kColOpenClose, 1)));
            ASSERT_TRUE(Play(TStep::CellItem(kLegs, Row, ventiq::kColPrincipal, 2)));
        }
        ASSERT_TRUE(Play(TStep::CellItem(kLegs, 1, ventiq::kColSide, 1)));
        Before = Cells();
        ASSERT_EQ(Before.size(), 3u);
        for (const int Row : {0, 1})
            for (const auto& Cell : Before[static_cast<size_t>(Row)]) ASSERT_FALSE(Cell.AsText().empty());
        Entries.clear();
    }
    void TearDown() override {
        for (const auto& Entry : Entries) EXPECT_NE(Entry.Level, fw::ELogLevel::Error) << Entry.Key;
    }

    // The grid as it was, but for one cell.
    TGridCells BeforeWith(int Row, int Column, const fw::Variant& Value) {
        TGridCells Result = Before;
        Result[static_cast<size_t>(Row)][static_cast<size_t>(ColumnOf(Column))] = Value;
        return Result;
    }
    TGridCells BeforeWithout(int Row) {
        TGridCells Result = Before;
        Result.erase(Result.begin() + Row);
        return Result;
    }
    static TGridCells Plus(TGridCells Grid, size_t Rows) {
        Grid.resize(Grid.size() + Rows, std::vector<fw::Variant>(Grid.front().size()));
        return Grid;
    }
};

}  // namespace ws
