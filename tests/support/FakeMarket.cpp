// SPDX-License-Identifier: Apache-2.0
#include "tests/support/FakeMarket.h"

#include <cmath>

namespace support {

using namespace fw;

namespace {
constexpr double kTolerance = 1e-7;
constexpr double kOpenEnd = 1e15;
}  // namespace

Text TFakeProduct::GetAttribute(const Text& Name) const {
    const auto Found = Attributes.find(Name);
    return Found == Attributes.end() ? Text() : Found->second;
}

double TFakeSpreadTable::Edge(size_t Band) const { return Band < Bands.size() ? Bands[Band].Lower : kOpenEnd; }

double TFakeSpreadTable::SnapPrice(double Price, int Direction) const {
    if (Bands.empty()) return Price;
    if (Direction > 0) {
        for (size_t B = 0; B < Bands.size(); ++B) {
            const double Steps = std::floor((Price + kTolerance - Bands[B].Lower) / Bands[B].Step) + 1.0;
            const double Next = Bands[B].Lower + std::max(0.0, Steps) * Bands[B].Step;
            if (Next < Edge(B + 1) - kTolerance) return Next;
        }
        return Price;
    }
    for (size_t B = Bands.size(); B-- > 0;) {
        const double Steps = std::ceil((Price - kTolerance - Bands[B].Lower) / Bands[B].Step) - 1.0;
        const double Last = std::ceil((Edge(B + 1) - kTolerance - Bands[B].Lower) / Bands[B].Step) - 1.0;
        if (Steps >= 0.0) return Bands[B].Lower + std::min(Steps, Last) * Bands[B].Step;
    }
    return Bands.front().Lower;
}

double TFakeSpreadTable::StepUp(double Price, double& Upper, double& Lower) const {
    size_t B = 0;
    while (B + 1 < Bands.size() && Price >= Edge(B + 1) - kTolerance) ++B;
    Upper = Edge(B + 1);
    Lower = Edge(B);
    return Bands.empty() ? 0.0 : Bands[B].Step;
}

double TFakeSpreadTable::StepDown(double Price, double& Upper, double& Lower) const {
    size_t B = 0;
    while (B + 1 < Bands.size() && Price > Edge(B + 1) + kTolerance) ++B;
    Upper = Edge(B + 1);
    Lower = Edge(B);
    return Bands.empty() ? 0.0 : Bands[B].Step;
}

void TFakeMarketAdapter::AddExchange(const Text& Code, bool Supported) {
    if (!Find(Code)) FExchanges.push_back({Code, {}});
    if (!Supported) FUnsupported.insert(Code);
}

TFakeSeries& TFakeMarketAdapter::AddSeries(const Text& Exchange, const Text& Series, const Text& Name) {
    if (!Find(Exchange, Series)) ListSeries(Exchange, Series);
    auto& Info = FSeriesInfo[Series];
    Info.Code = Series;
    if (!Name.empty()) Info.DefaultName = Name;
    return Info;
}

void TFakeMarketAdapter::ListSeries(const Text& Exchange, const Text& Code) {
    AddExchange(Exchange);
    Find(Exchange)->Series.push_back({Code, {}});
}

TFakeProduct& TFakeMarketAdapter::AddProduct(const Text& Exchange, const Text& Series, const Text& Symbol,
                                             int ProductType, const Text& ExpiryDate, const Text& Strike,
                                             const Text& CallPut) {
    if (!Find(Exchange, Series)) ListSeries(Exchange, Series);
    auto& Product = FProducts.emplace_back();
    Product.Symbol = Symbol;
    Product.Exchange = Exchange;
    Product.Series = Series;
    Product.ProductType = ProductType;
    Product.ExpiryDate = ExpiryDate;
    Product.StrikePrice = Strike;
    Product.CallPutCode = CallPut;
    Find(Exchange, Series)->Products.push_back(&Product);
    return Product;
}

void TFakeMarketAdapter::AddOptions(const Text& Exchange, const Text& Series, const Text& Prefix,
                                    const Text& ExpiryDate, const std::vector<Text>& Strikes) {
    for (const auto& Strike : Strikes) {
        AddProduct(Exchange, Series, Prefix + "C" + Strike, 3, ExpiryDate, Strike, "C");
        AddProduct(Exchange, Series, Prefix + "P" + Strike, 3, ExpiryDate, Strike, "P");
    }
}

TFakeSpreadTable& TFakeMarketAdapter::AddSpreadTable(const Text& Code, std::vector<TFakeSpreadTable::TBand> Bands) {
    auto& Table = FSpreads[Code];
    Table.Bands = std::move(Bands);
    return Table;
}

void TFakeMarketAdapter::RemoveExchange(const Text& Code) {
    std::erase_if(FExchanges, [&](const auto& E) { return E.Code == Code; });
}

void TFakeMarketAdapter::Clear() {
    FExchanges.clear();
    FUnsupported.clear();
    FSeriesInfo.clear();
    FSpreads.clear();
    FProducts.clear();
}

TFakeMarketAdapter::TListedExchange* TFakeMarketAdapter::Find(const Text& Exchange) {
    for (auto& E : FExchanges)
        if (E.Code == Exchange) return &E;
    return nullptr;
}

TFakeMarketAdapter::TListedSeries* TFakeMarketAdapter::Find(const Text& Exchange, const Text& Series) {
    if (auto* E = Find(Exchange))
        for (auto& S : E->Series)
            if (S.Code == Series) return &S;
    return nullptr;
}

void TFakeMarketAdapter::AddExchangeUpdateHandler(TDataEvent Handler, TObject* Owner) {
    FJournal.Call("Market.AddExchangeUpdateHandler()");
    FHandlers.Add(Owner, std::move(Handler));
}

void TFakeMarketAdapter::RemoveExchangeUpdateHandler(TObject* Owner) {
    FJournal.Call("Market.RemoveExchangeUpdateHandler()");
    FHandlers.Remove(Owner);
}

Text TFakeMarketAdapter::GetExchangeCode(int Index) {
    return Index >= 0 && Index < GetExchangeCount() ? FExchanges[static_cast<size_t>(Index)].Code : Text();
}

int TFakeMarketAdapter::GetSeriesCount(const Text& Exchange) {
    FJournal.Read("Market.GetSeriesCount(" + Exchange + ")");
    const auto* E = Find(Exchange);
    return E ? static_cast<int>(E->Series.size()) : 0;
}

Text TFakeMarketAdapter::GetSeriesCode(const Text& Exchange, int Index) {
    return Index >= 0 && Index < GetSeriesCount(Exchange) ? Find(Exchange)->Series[static_cast<size_t>(Index)].Code
                                                          : Text();
}

TCustomSeries* TFakeMarketAdapter::GetSeriesInfo(const Text& Series) {
    const auto Found = FSeriesInfo.find(Series);
    return Found == FSeriesInfo.end() ? nullptr : &Found->second;
}

int TFakeMarketAdapter::GetProductCount(const Text& Exchange, const Text& Series) {
    FJournal.Read("Market.GetProductCount(" + Exchange + ", " + Series + ")");
    const auto* S = Find(Exchange, Series);
    return S ? static_cast<int>(S->Products.size()) : 0;
}

TCustomProduct* TFakeMarketAdapter::GetProduct(const Text& Exchange, const Text& Series, int Index) {
    const auto* S = Find(Exchange, Series);
    return S && Index >= 0 && Index < static_cast<int>(S->Products.size()) ? S->Products[static_cast<size_t>(Index)]
                                                                           : nullptr;
}

TCustomProduct* TFakeMarketAdapter::GetProductBySymbol(const Text& Symbol) {
    FJournal.Read("Market.GetProductBySymbol(" + Symbol + ")");
    for (auto& P : FProducts)
        if (P.Symbol == Symbol) return &P;
    return nullptr;
}

TCustomSpreadTable* TFakeMarketAdapter::GetSpreadTable(const Text& Code) {
    FJournal.Read("Market.GetSpreadTable(" + Code + ")");
    const auto Found = FSpreads.find(Code);
    return Found == FSpreads.end() ? nullptr : &Found->second;
}

void TFakeMarketAdapter::RequestSymbol(const Text& Symbol) {
    FJournal.Call("Market.RequestSymbol(" + Symbol + ")");
    Requested.push_back(Symbol);
}

}  // namespace support
