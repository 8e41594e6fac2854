// SPDX-License-Identifier: Apache-2.0
#include "orders/VentiqBatchColumns.h"

#include <array>

#include "framework/base/KeepList.h"
#include "registration/VentiqConstDef.h"

namespace ventiq {

namespace {

struct TBatchColumn {
    int Id;
    const char* Caption;  // resource key
    int Width;            // pixels at scale 100
    bool Numeric;
};

constexpr std::array kBatchColumns{
    TBatchColumn{kColSymbol, "Res_Symbol", 100, false}, TBatchColumn{kColSide, "Res_Side", 80, false},
    TBatchColumn{kColAccount, "Res_Account", 80, false}, TBatchColumn{kColPrice, "Res_OrderPrice", 70, true},
    TBatchColumn{kColQty, "Res_OrderQty", 70, true},     TBatchColumn{kColRemark, "Res_Remark", 100, false},
};

TColumnInfoList* MakeColumns() {
    auto List = std::make_unique<TColumnInfoList>();
    for (const auto& Column : kBatchColumns)
        List->push_back(TColumnInfo::AddColumn(Column.Id, Column.Caption, Column.Width, "", Column.Numeric));
    return Keep(std::move(List));
}

}  // namespace

TColumnInfoList* BatchColumns() {
    static TColumnInfoList* const Columns = MakeColumns();
    return Columns;
}

}  // namespace ventiq
