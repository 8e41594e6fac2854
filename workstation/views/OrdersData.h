// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <set>

#include "framework/data/ColumnIds.h"
#include "framework/data/DataControl.h"
#include "workstation/views/TradingDesk.h"

namespace ws {

// Columns of the trading views besides the host-wide ones.
inline constexpr int kColumnAccount = 10;
inline constexpr int kColumnTime = 2001;
inline constexpr int kColumnFilled = 2002;
inline constexpr int kColumnAverage = 2003;
inline constexpr int kColumnState = 2004;
inline constexpr int kColumnReason = 2005;
inline constexpr int kColumnOrderId = 2006;
inline constexpr int kColumnBatchPlace = 2007;

// The orders of the user's accounts, newest first. Cells are asked of the order system when somebody looks; the object
// behind a row stands for the order, whatever becomes of the others.
class TOrdersData : public fw::TCustomDataControl {
public:
    explicit TOrdersData(const TTradingDesk& Desk);

    // Takes up orders that came, and tells the tables.
    void Update();
    const TOrderRow* OrderAt(int Record) const;  // null out of range; valid until the next change
    std::string IdAt(int Record) const;          // "" out of range

    int32_t GetCount() override { return static_cast<int32_t>(FRows.size()); }
    fw::Variant GetValue(int32_t Record, int32_t Column) override;
    fw::Text GetDisplayValue(int32_t Record, int32_t Column) override;
    bool GetRowValue(int32_t Record, void*& Value) override;

private:
    struct TRow {
        const std::string* Id;  // of FIds
        size_t Index;           // of the order system's orders
    };
    const TRow* RowAt(int Record) const;

    const TTradingDesk& FDesk;   // borrowed
    std::set<std::string> FIds;  // every order ever shown: its place stands for the row
    std::vector<TRow> FRows;     // oldest first
    size_t FSeen = 0;            // how many of the order system's orders were looked at
    std::string FLastId;         // of the last of them
};

}  // namespace ws
