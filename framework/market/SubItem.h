// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/base/Const.h"
#include "framework/base/Object.h"
#include "framework/base/Text.h"

namespace fw {

// Numbers of the market-data fields.
enum EField : int {
    kFieldReferencePrice = 3,
    kFieldExchange = 20,
    kFieldProductType = 22,  // 2 future, 3 option
    kFieldCurrency = 23,
    kFieldLotSize = 24,
    kFieldStrike = 27,
    kFieldCallPut = 28,
    kFieldExpiry = 29,
    kFieldSpreadCode = 73,
    kFieldSeries = 141,
    kFieldMultiplier = 504,
    kFieldDisplayFactor = 1504,
    // The quote itself; real price units. A side that nobody quotes has no value.
    kFieldBid = 2001,
    kFieldAsk = 2002,
    kFieldLast = 2003,
    kFieldQuoteTime = 2004,  // when it last changed: seconds since 1970-01-01 UTC
};

// Market data of one symbol. The subscription service owns it for the process and gives the same object for the same
// symbol; last data stay readable after the last subscriber left.
class FRAMEWORK_API TCustomSubItem : public TObject {
public:
    ~TCustomSubItem() override;
    virtual Text GetSymbol() const = 0;
    virtual int GetState() const = 0;  // EItemState
    // One stored value, two views: a field without value reads as "" and 0.0.
    virtual Text GetFieldText(int FieldId) const = 0;
    virtual double GetFieldValue(int FieldId) const = 0;
    virtual bool HasField(int FieldId) const = 0;
};

// What changed in one delivery. Count 0: nothing.
class FRAMEWORK_API TCustomUpdate : public TObject {
public:
    explicit TCustomUpdate(int Count);
    ~TCustomUpdate() override;
    int GetCount() const { return FCount; }

private:
    int FCount;
};

}  // namespace fw
