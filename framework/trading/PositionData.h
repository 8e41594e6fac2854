// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>

#include "framework/market/SubItem.h"

namespace fw {

// A held position. Prices in real price units. Owned by the position service.
class FRAMEWORK_API TCustomPositionData : public TObject {
public:
    ~TCustomPositionData() override;
    virtual Text GetSymbol() const = 0;
    virtual double GetQty() const = 0;  // signed net quantity
    virtual TCustomSubItem* GetSubItem() const = 0;
    virtual int GetSideKind() const = 0;  // 0 by the sign of the quantity, 1 long, 2 short
    virtual double GetAvgPrice() const = 0;
    virtual double GetAvgPriceMode1() const = 0;
    virtual double GetAvgPriceMode2() const = 0;
};

// Symbol to position, ascending by symbol text; positions are borrowed.
using TPositionDictionary = std::map<Text, TCustomPositionData*>;

}  // namespace fw
