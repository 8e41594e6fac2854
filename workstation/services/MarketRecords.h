// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/market/Product.h"
#include "workstation/market/MarketRows.h"
#include "workstation/market/SpreadTable.h"

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

class TListedSpreadTable : public fw::TCustomSpreadTable {
public:
    explicit TListedSpreadTable(TSpreadTable Table) : FTable(std::move(Table)) {}
    int GetKind() const override { return FTable.Kind(); }
    double SnapPrice(double Price, int Direction) const override { return FTable.SnapPrice(Price, Direction); }
    double StepUp(double Price, double& Upper, double& Lower) const override {
        return FTable.StepUp(Price, Upper, Lower);
    }
    double StepDown(double Price, double& Upper, double& Lower) const override {
        return FTable.StepDown(Price, Upper, Lower);
    }

private:
    TSpreadTable FTable;
};

}  // namespace ws
