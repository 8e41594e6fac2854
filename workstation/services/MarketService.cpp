// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/MarketService.h"

#include <algorithm>
#include <climits>

#include "framework/base/Log.h"
#include "workstation/services/MarketRecords.h"

namespace ws {

namespace {

template <class TList>
auto At(const TList& List, int Index) -> const typename TList::value_type* {
    return Index >= 0 && Index < static_cast<int>(List.size()) ? &List[static_cast<size_t>(Index)] : nullptr;
}

template <class TMap, class TKey>
int CountIn(const TMap& Map, const TKey& Key) {
    const auto It = Map.find(Key);
    return It == Map.end() ? 0 : static_cast<int>(It->second.size());
}

// Quoted, but in no list: views know it by its market data alone.
bool IsDataOnly(const TProductRow& Row) {
    const auto It = Row.Attributes.find(kAttributeDataOnly);
    return It != Row.Attributes.end() && It->second == "1";
}

// Stable, ascending by the market's own order.
template <class TRank>
void SortByRank(fw::TStringList* List, TRank Rank) {
    if (!List) return;
    List->Sort(fw::TCustomComparer([&](const fw::Text& A, const fw::Text& B) { return Rank(A) - Rank(B); }));
}

}  // namespace

TMarketService::TMarketService() = default;
TMarketService::~TMarketService() = default;

void TMarketService::Load(TMarketSet Market) {
    FMarket = std::move(Market);
    LoadSpreadTables();
    FSeriesOf.clear();
    FProductsOf.clear();
    for (auto& [Symbol, Product] : FProducts) Product->Listed = false;

    for (const auto& Row : FMarket.Series) {
        FSeriesOf[Row.Exchange].push_back(&Row);
        auto& Record = FSeries[Row.Code];  // one record per code, whichever exchange lists it first
        if (!Record) Record = std::make_unique<TMarketSeries>();
        if (Record->Row.Exchange.empty() || Record->Row.Exchange == Row.Exchange) Record->Row = Row;
    }
    for (const auto& Row : FMarket.Products) {
        auto& Product = FProducts[Row.Symbol];
        if (!Product) Product = std::make_unique<TMarketProduct>();
        Product->Row = Row;
        Product->Listed = true;
        if (!IsDataOnly(Row)) FProductsOf[{Row.Exchange, Row.Series}].push_back(Product.get());
    }
}

void TMarketService::LoadSpreadTables() {
    TSpreadTables Tables(FMarket.SpreadBands);
    for (const auto& Reason : Tables.Refused) fw::TLog::Warning(Reason.Key, Reason.Args);
    FSpreadTables.clear();
    for (auto& [Code, Table] : Tables.ByCode)
        FSpreadTables[Code] = std::make_unique<TListedSpreadTable>(std::move(Table));
}

int TMarketService::GetExchangeCount() { return static_cast<int>(FMarket.Exchanges.size()); }

fw::Text TMarketService::GetExchangeCode(int Index) {
    const auto* Row = At(FMarket.Exchanges, Index);
    return Row ? Row->Code : fw::Text();
}

bool TMarketService::IsExchangeSupported(const fw::Text& Exchange) {
    const auto* Row = At(FMarket.Exchanges, ExchangeIndex(Exchange));
    return Row && Row->Supported;
}

int TMarketService::GetSeriesCount(const fw::Text& Exchange) { return CountIn(FSeriesOf, Exchange); }

fw::Text TMarketService::GetSeriesCode(const fw::Text& Exchange, int Index) {
    const auto It = FSeriesOf.find(Exchange);
    const auto* Row = It == FSeriesOf.end() ? nullptr : At(It->second, Index);
    return Row ? (*Row)->Code : fw::Text();
}

fw::TCustomSeries* TMarketService::GetSeriesInfo(const fw::Text& Series) {
    const auto It = FSeries.find(Series);
    return It == FSeries.end() ? nullptr : It->second.get();
}

int TMarketService::GetProductCount(const fw::Text& Exchange, const fw::Text& Series) {
    return CountIn(FProductsOf, TSeriesKey{Exchange, Series});
}

fw::TCustomProduct* TMarketService::GetProduct(const fw::Text& Exchange, const fw::Text& Series, int Index) {
    const auto It = FProductsOf.find({Exchange, Series});
    const auto* Product = It == FProductsOf.end() ? nullptr : At(It->second, Index);
    return Product ? *Product : nullptr;
}

fw::TCustomProduct* TMarketService::GetProductBySymbol(const fw::Text& Symbol) {
    const auto It = FProducts.find(Symbol);
    const bool Found = It != FProducts.end() && It->second->Listed && !IsDataOnly(It->second->Row);
    return Found ? It->second.get() : nullptr;
}

fw::TCustomSpreadTable* TMarketService::GetSpreadTable(const fw::Text& Code) {
    const auto It = FSpreadTables.find(Code);
    return It == FSpreadTables.end() ? nullptr : It->second.get();
}

// Price-step tables are all loaded; a text that names no product is ignored.
void TMarketService::RequestSymbol(const fw::Text& Symbol) {
    if (OnRequestSymbol && FindProduct(Symbol)) OnRequestSymbol(Symbol);
}

const TProductRow* TMarketService::FindProduct(const std::string& Symbol) const {
    const auto It = FProducts.find(Symbol);
    return It != FProducts.end() && It->second->Listed ? &It->second->Row : nullptr;
}

const TSeriesRow* TMarketService::FindSeries(const std::string& Exchange, const std::string& Series) const {
    const auto It = FSeriesOf.find(Exchange);
    if (It == FSeriesOf.end()) return nullptr;
    const auto Row =
        std::find_if(It->second.begin(), It->second.end(), [&](const TSeriesRow* R) { return R->Code == Series; });
    return Row == It->second.end() ? nullptr : *Row;
}

int TMarketService::ExchangeIndex(const std::string& Exchange) const {
    const auto It = std::find_if(FMarket.Exchanges.begin(), FMarket.Exchanges.end(),
                                 [&](const auto& R) { return R.Code == Exchange; });
    return It == FMarket.Exchanges.end() ? INT_MAX : static_cast<int>(It - FMarket.Exchanges.begin());
}

int TMarketService::SeriesIndex(const std::string& Exchange, const std::string& Series) const {
    const auto It = FSeriesOf.find(Exchange);
    if (It == FSeriesOf.end()) return INT_MAX;
    const auto Row =
        std::find_if(It->second.begin(), It->second.end(), [&](const TSeriesRow* R) { return R->Code == Series; });
    return Row == It->second.end() ? INT_MAX : static_cast<int>(Row - It->second.begin());
}

void TExchangeOrder::Sort(fw::TStringList* List) {
    SortByRank(List, [&](const fw::Text& Code) { return FMarket.ExchangeIndex(Code); });
}

void TSeriesOrder::Sort(const fw::Text& Exchange, fw::TStringList* List) {
    SortByRank(List, [&](const fw::Text& Code) { return FMarket.SeriesIndex(Exchange, Code); });
}

}  // namespace ws
