// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/market/Product.h"
#include "workstation/market/MarketRows.h"

namespace ws {

// A product row as views see it.
class TMarketProduct : public fw::TCustomProduct {
public:
    fw::Text GetSymbol() const override { return Row.Symbol; }
    fw::Text GetExchange() const override { return Row.Exchange; }
    fw::Text GetSeries() const override { return Row.Series; }
    int GetProductType() const override { return Row.ProductType; }
    fw::Text GetExpiryDate() const override { return Row.ExpiryDate; }
    fw::Text GetStrikePrice() const override { return Row.StrikePrice; }
    fw::Text GetCallPutCode() const override { return Row.CallPutCode; }
    fw::Text GetLotSize() const override { return Row.LotSize; }
    fw::Text GetSpreadCode() const override { return Row.SpreadCode; }
    fw::Text GetRelatedSymbol() const override { return Row.RelatedSymbol; }
    fw::Text GetAttribute(const fw::Text& Name) const override {
        const auto It = Row.Attributes.find(Name);
        return It == Row.Attributes.end() ? fw::Text() : It->second;
    }

    TProductRow Row;
    bool Listed = false;
};

class TMarketSeries : public fw::TCustomSeries {
public:
    fw::Text GetCode() const override { return Row.Code; }
    fw::Text GetDefaultName() const override { return Row.NameEn; }
    fw::Text GetNameForLanguage1() const override { return Row.NameHant; }
    fw::Text GetNameForLanguage2() const override { return Row.NameHans; }

    TSeriesRow Row;
};

}  // namespace ws
