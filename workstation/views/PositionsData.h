// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <set>

#include "framework/data/ColumnIds.h"
#include "framework/data/DataControl.h"
#include "framework/market/SubItem.h"
#include "workstation/views/TradingDesk.h"

namespace ws {

inline constexpr int kColumnLast = 2011;
inline constexpr int kColumnCurrency = 2012;
inline constexpr int kColumnAverageOfMode = 2020;  // and the two behind it
inline constexpr int kAverageModes = 3;

// What the user's accounts hold, valued at the market's price. Market data are asked for as long as a symbol is held
// and this object lives.
class TPositionsData : public fw::TCustomDataControl {
public:
    explicit TPositionsData(const TTradingDesk& Desk);
    ~TPositionsData() override;

    // Takes the holdings and the average-price mode, and tells the tables.
    void Update();
    int GetMode() const { return FMode; }
    void SetMode(int Mode);  // 0 to 2; others count as 0
    std::function<void()> OnQuote;

    int32_t GetCount() override { return static_cast<int32_t>(FRows.size()); }
    fw::Variant GetValue(int32_t Record, int32_t Column) override;
    fw::Text GetDisplayValue(int32_t Record, int32_t Column) override;
    bool GetRowValue(int32_t Record, void*& Value) override;

private:
    using TKey = std::pair<std::string, std::string>;  // account, symbol
    struct TLine {
        THolding Holding;
        const fw::TCustomSubItem* Item = nullptr;  // of the subscription service
    };
    TLine* LineAt(int Record) const;
    void Watch(const std::set<std::string>& Symbols);
    double AverageOf(const THolding& Holding, int Mode) const;

    const TTradingDesk& FDesk;  // borrowed
    int FMode = 0;
    std::map<TKey, TLine> FLines;  // every one ever shown: its place stands for the row
    std::vector<TLine*> FRows;
    std::map<std::string, fw::TCustomSubItem*> FWatched;
};

}  // namespace ws
