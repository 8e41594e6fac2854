// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/base/Object.h"
#include "framework/base/Text.h"

namespace fw {

// A listed contract, as the market service knows it. Owned by the market service; lives as long as the service.
class FRAMEWORK_API TCustomProduct : public TObject {
public:
    ~TCustomProduct() override;
    virtual Text GetSymbol() const = 0;
    virtual Text GetExchange() const = 0;
    virtual Text GetSeries() const = 0;
    virtual int GetProductType() const = 0;                 // 2 future, 3 option
    virtual Text GetExpiryDate() const = 0;                 // "yyyy/MM/dd"
    virtual Text GetStrikePrice() const = 0;                // real price units
    virtual Text GetAttribute(const Text& Name) const = 0;  // "" when not set
    virtual Text GetCallPutCode() const = 0;
    virtual Text GetLotSize() const = 0;
    virtual Text GetSpreadCode() const = 0;  // code of the price-step table
    virtual Text GetRelatedSymbol() const = 0;
};

// An underlying product family.
class FRAMEWORK_API TCustomSeries : public TObject {
public:
    ~TCustomSeries() override;
    virtual Text GetCode() const = 0;
    virtual Text GetDefaultName() const = 0;
    virtual Text GetNameForLanguage1() const = 0;
    virtual Text GetNameForLanguage2() const = 0;
};

// A price-step table. Kind 1: price bands, each with its own step. Prices are real price units.
class FRAMEWORK_API TCustomSpreadTable : public TObject {
public:
    ~TCustomSpreadTable() override;
    virtual int GetKind() const = 0;
    // Direction 1: the smallest valid price above Price; -1: the largest valid price below it (1e-7 tolerance).
    virtual double SnapPrice(double Price, int Direction) const = 0;
    // Step of the band [lower, upper) that holds Price, and its edges. Out arguments: upper first.
    virtual double StepUp(double Price, double& Upper, double& Lower) const = 0;
    // Step of the band (lower, upper] that holds Price, and its edges.
    virtual double StepDown(double Price, double& Upper, double& Lower) const = 0;
};

// One symbol handed over by a market-data window or popup.
class FRAMEWORK_API TCustomMarketData : public TObject {
public:
    ~TCustomMarketData() override;
    virtual Text GetSymbol() const = 0;
};

}  // namespace fw
