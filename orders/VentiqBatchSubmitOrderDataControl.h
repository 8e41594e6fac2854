// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <vector>

#include "framework/data/DataControl.h"
#include "framework/trading/ClientOrder.h"

namespace ventiq {

using namespace fw;

using TClientOrderList = std::vector<std::unique_ptr<TCustomClientOrder>>;

// The table of the batch confirmation dialog: a row an order, columns as BatchColumns lists them. Holds copies of its
// own, so it stays as it is when the orders it was made of are sent or freed. Prices in real price units.
class TCustomBatchSubmitOrderDataControl : public TCustomDataControl {
public:
    explicit TCustomBatchSubmitOrderDataControl(TObject* Owner = nullptr);  // the owner is not passed on
    ~TCustomBatchSubmitOrderDataControl() override;

    void InitData(const TClientOrderList& Orders);  // replaces the rows
    void ClearData();

    TColumnInfoList* GetColList() override;
    int32_t GetCount() override;
    // Also answers column 5, the order service's own text, which no column shows: by it the host knows its orders again.
    Variant GetValue(int32_t RecordIndex, int32_t Attribute) override;
    Text GetDisplayValue(int32_t RecordIndex, int32_t Attribute) override;

private:
    const TCustomClientOrder* OrderAt(int32_t RecordIndex) const;  // null out of range
    TClientOrderList FOrders;
};

}  // namespace ventiq
