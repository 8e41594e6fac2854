// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <memory>
#include <unordered_map>

#include "framework/base/OwnerRegistrations.h"
#include "framework/services/ListComparers.h"
#include "framework/services/MarketAdapter.h"
#include "workstation/market/MarketRows.h"

namespace ws {

class TMarketProduct;
class TMarketSeries;

// The listed market behind the framework's interface. Load may come again at any time (import, reset): a record that a
// view has seen stays alive and takes its new row; one that is listed no more only leaves the lists.
class TMarketService : public fw::TCustomMarketAdapter {
public:
    TMarketService();
    ~TMarketService() override;

    void AddExchangeUpdateHandler(fw::TDataEvent Handler, fw::TObject* Owner) override {
        FEvents.Add(Owner, std::move(Handler));
    }
    void RemoveExchangeUpdateHandler(fw::TObject* Owner) override { FEvents.Remove(Owner); }
    int GetExchangeCount() override;
    fw::Text GetExchangeCode(int Index) override;
    bool IsExchangeSupported(const fw::Text& Exchange) override;
    int GetSeriesCount(const fw::Text& Exchange) override;
    fw::Text GetSeriesCode(const fw::Text& Exchange, int Index) override;
    fw::TCustomSeries* GetSeriesInfo(const fw::Text& Series) override;
    int GetProductCount(const fw::Text& Exchange, const fw::Text& Series) override;
    fw::TCustomProduct* GetProduct(const fw::Text& Exchange, const fw::Text& Series, int Index) override;
    fw::TCustomProduct* GetProductBySymbol(const fw::Text& Symbol) override;
    fw::TCustomSpreadTable* GetSpreadTable(const fw::Text& Code) override;
    void RequestSymbol(const fw::Text& Symbol) override;

    // Takes the market over. A price-step table that is none is named in the log; its contracts have no table then.
    void Load(TMarketSet Market);
    // Tells every view that the lists changed.
    void NotifyListsChanged() { FEvents.Notify("market lists", this, nullptr); }
    bool HasOwners() const { return !FEvents.IsEmpty(); }

    const TMarketSet& Market() const { return FMarket; }
    // The workstation's own view of the market: also what no view finds, because only its market data are known.
    const TProductRow* FindProduct(const std::string& Symbol) const;  // null when not known
    const TSeriesRow* FindSeries(const std::string& Exchange, const std::string& Series) const;
    int ExchangeIndex(const std::string& Exchange) const;  // listing order; unknown: behind all
    int SeriesIndex(const std::string& Exchange, const std::string& Series) const;

    // A symbol's data were asked for through RequestSymbol.
    std::function<void(const fw::Text& Symbol)> OnRequestSymbol;

private:
    void LoadSpreadTables();
    using TSeriesKey = std::pair<std::string, std::string>;
    TMarketSet FMarket;
    std::unordered_map<std::string, std::unique_ptr<TMarketProduct>> FProducts;  // by symbol, also unlisted ones
    std::map<std::string, std::unique_ptr<TMarketSeries>> FSeries;               // by series code
    std::map<std::string, std::vector<const TSeriesRow*>> FSeriesOf;             // by exchange, listing order
    std::map<TSeriesKey, std::vector<TMarketProduct*>> FProductsOf;
    std::map<std::string, std::unique_ptr<fw::TCustomSpreadTable>> FSpreadTables;
    fw::TOwnerRegistrations<fw::TObject*, fw::TObject*> FEvents;
};

// Lists in the order in which the market lists them.
class TExchangeOrder : public fw::TCustomExchangeListComparer {
public:
    explicit TExchangeOrder(const TMarketService& Market) : FMarket(Market) {}
    void Sort(fw::TStringList* List) override;

private:
    const TMarketService& FMarket;
};

class TSeriesOrder : public fw::TCustomSeriesComparer {
public:
    explicit TSeriesOrder(const TMarketService& Market) : FMarket(Market) {}
    void Sort(const fw::Text& Exchange, fw::TStringList* List) override;

private:
    const TMarketService& FMarket;
};

}  // namespace ws
