// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <deque>
#include <map>
#include <set>

#include "framework/base/OwnerRegistrations.h"
#include "framework/services/MarketAdapter.h"
#include "tests/support/Journal.h"

namespace support {

// A listed contract; tests write the fields.
class TFakeProduct : public fw::TCustomProduct {
public:
    fw::Text Symbol, Exchange, Series;
    int ProductType = 3;
    fw::Text ExpiryDate, StrikePrice, CallPutCode, LotSize, SpreadCode, RelatedSymbol;
    std::map<fw::Text, fw::Text> Attributes;

    TFakeProduct& With(const fw::Text& Attribute, const fw::Text& Value) {
        Attributes[Attribute] = Value;
        return *this;
    }

    fw::Text GetSymbol() const override { return Symbol; }
    fw::Text GetExchange() const override { return Exchange; }
    fw::Text GetSeries() const override { return Series; }
    int GetProductType() const override { return ProductType; }
    fw::Text GetExpiryDate() const override { return ExpiryDate; }
    fw::Text GetStrikePrice() const override { return StrikePrice; }
    fw::Text GetAttribute(const fw::Text& Name) const override;
    fw::Text GetCallPutCode() const override { return CallPutCode; }
    fw::Text GetLotSize() const override { return LotSize; }
    fw::Text GetSpreadCode() const override { return SpreadCode; }
    fw::Text GetRelatedSymbol() const override { return RelatedSymbol; }
};

class TFakeSeries : public fw::TCustomSeries {
public:
    fw::Text Code, DefaultName, Name1, Name2;
    fw::Text GetCode() const override { return Code; }
    fw::Text GetDefaultName() const override { return DefaultName; }
    fw::Text GetNameForLanguage1() const override { return Name1; }
    fw::Text GetNameForLanguage2() const override { return Name2; }
};

// Bands in ascending order, each with its lower edge and step; valid prices are edge + k * step. The last band is open.
class TFakeSpreadTable : public fw::TCustomSpreadTable {
public:
    struct TBand {
        double Lower, Step;
    };
    std::vector<TBand> Bands;
    int Kind = 1;

    int GetKind() const override { return Kind; }
    double SnapPrice(double Price, int Direction) const override;
    double StepUp(double Price, double& Upper, double& Lower) const override;
    double StepDown(double Price, double& Upper, double& Lower) const override;

private:
    double Edge(size_t Band) const;  // lower edge of a band; a large number past the last
};

// The market: exchanges, their series and products in the order in which tests add them.
class TFakeMarketAdapter : public fw::TCustomMarketAdapter {
public:
    explicit TFakeMarketAdapter(TJournal& Journal) : FJournal(Journal) {}

    // Each of these adds what is named and not there yet. A code that is listed twice on purpose:
    // ListExchange/ListSeries.
    void AddExchange(const fw::Text& Code, bool Supported = true);
    TFakeSeries& AddSeries(const fw::Text& Exchange, const fw::Text& Series, const fw::Text& Name = {});
    TFakeProduct& AddProduct(const fw::Text& Exchange, const fw::Text& Series, const fw::Text& Symbol, int ProductType,
                             const fw::Text& ExpiryDate, const fw::Text& Strike = {}, const fw::Text& CallPut = {});
    // A call and a put on each strike, symbols "<Prefix>C<strike>" and "<Prefix>P<strike>".
    void AddOptions(const fw::Text& Exchange, const fw::Text& Series, const fw::Text& Prefix,
                    const fw::Text& ExpiryDate, const std::vector<fw::Text>& Strikes);
    TFakeSpreadTable& AddSpreadTable(const fw::Text& Code, std::vector<TFakeSpreadTable::TBand> Bands);
    void ListExchange(const fw::Text& Code) { FExchanges.push_back({Code, {}}); }
    void ListSeries(const fw::Text& Exchange, const fw::Text& Code);
    void RemoveExchange(const fw::Text& Code);
    void ForgetSeriesInfo(const fw::Text& Series) { FSeriesInfo.erase(Series); }
    void Clear();

    // Tells every registered handler that the exchange list changed.
    void FireExchangeUpdate() { FHandlers.Notify("ExchangeUpdate", this, nullptr); }
    int HandlerCount() const { return static_cast<int>(FHandlers.GetCount()); }

    std::vector<fw::Text> Requested;  // what RequestSymbol was given

    void AddExchangeUpdateHandler(fw::TDataEvent Handler, fw::TObject* Owner) override;
    void RemoveExchangeUpdateHandler(fw::TObject* Owner) override;
    int GetExchangeCount() override { return static_cast<int>(FExchanges.size()); }
    fw::Text GetExchangeCode(int Index) override;
    bool IsExchangeSupported(const fw::Text& Exchange) override { return !FUnsupported.contains(Exchange); }
    int GetSeriesCount(const fw::Text& Exchange) override;
    fw::Text GetSeriesCode(const fw::Text& Exchange, int Index) override;
    fw::TCustomSeries* GetSeriesInfo(const fw::Text& Series) override;
    int GetProductCount(const fw::Text& Exchange, const fw::Text& Series) override;
    fw::TCustomProduct* GetProduct(const fw::Text& Exchange, const fw::Text& Series, int Index) override;
    fw::TCustomProduct* GetProductBySymbol(const fw::Text& Symbol) override;
    fw::TCustomSpreadTable* GetSpreadTable(const fw::Text& Code) override;
    void RequestSymbol(const fw::Text& Symbol) override;

private:
    struct TListedSeries {
        fw::Text Code;
        std::vector<TFakeProduct*> Products;
    };
    struct TListedExchange {
        fw::Text Code;
        std::vector<TListedSeries> Series;
    };
    TListedExchange* Find(const fw::Text& Exchange);
    TListedSeries* Find(const fw::Text& Exchange, const fw::Text& Series);

    TJournal& FJournal;
    std::deque<TFakeProduct> FProducts;  // keeps addresses
    std::vector<TListedExchange> FExchanges;
    std::set<fw::Text> FUnsupported;
    std::map<fw::Text, TFakeSeries> FSeriesInfo;
    std::map<fw::Text, TFakeSpreadTable> FSpreads;
    fw::TOwnerRegistrations<fw::TObject*, fw::TObject*> FHandlers;
};

}  // namespace support
