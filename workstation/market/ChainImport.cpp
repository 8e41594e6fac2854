// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/ChainImport.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "workstation/market/ChainSeries.h"
#include "workstation/market/MarketDay.h"
#include "workstation/market/OccSymbol.h"

namespace ws {

namespace {

constexpr int kOption = 3;
constexpr int kEasternMinutes = -300;  // where the file does not say otherwise
constexpr int kDecimals = 2;

// The two price-step tables of the market for listed options, and how to tell which one a root trades in.
constexpr char kNickelSteps[] = "CBOE.NICKEL";
constexpr char kPennySteps[] = "CBOE.PENNY";
constexpr double kDimeFrom = 3.0;  // steps of 0.05 below, 0.10 from here on

struct TCurrent {
    std::map<std::string, TSeriesRow> Series;                      // by code
    std::unordered_map<std::string, const TProductRow*> Products;  // by symbol
    int MaxSeriesSort = -1;
};

TCurrent CurrentOf(const TMarketSet& Market) {
    TCurrent Current;
    for (const TSeriesRow& Row : Market.Series) {
        if (Row.Exchange != kChainExchange) continue;
        Current.Series.emplace(Row.Code, Row);
        Current.MaxSeriesSort = std::max(Current.MaxSeriesSort, Row.SortIndex);
    }
    for (const TProductRow& Row : Market.Products)
        if (Row.Exchange == kChainExchange) Current.Products.emplace(Row.Symbol, &Row);
    return Current;
}

TExchangeRow ExchangeRow(const TChainFile& Chain, const TMarketSet& Market, const TTextTable& Names) {
    TExchangeRow Row;
    bool Listed = false;
    int MaxSort = -1;
    for (const TExchangeRow& Exchange : Market.Exchanges) {
        MaxSort = std::max(MaxSort, Exchange.SortIndex);
        if (Exchange.Code != kChainExchange) continue;
        Row = Exchange;
        Listed = true;
    }
    if (!Listed) {
        Row.Code = kChainExchange;
        Row.NameEn = Names.Lookup(kTagExchange, Row.Code, kLanguageEnglish);
        Row.NameHant = Names.Lookup(kTagExchange, Row.Code, kLanguageTraditional);
        Row.NameHans = Names.Lookup(kTagExchange, Row.Code, kLanguageSimplified);
        Row.SortIndex = MaxSort + 1;
        Row.UtcOffsetMinutes = kEasternMinutes;
    }
    Row.Supported = true;
    Row.MarketDay = Chain.Date.Day;
    Row.UtcOffsetMinutes = Chain.Date.UtcOffsetMinutes.value_or(Row.UtcOffsetMinutes);
    return Row;
}

TCurrencyRow CurrencyRow(const TMarketSet& Market, const TTextTable& Names) {
    for (const TCurrencyRow& Currency : Market.Currencies)
        if (Currency.Code == kChainCurrency) return Currency;
    return {kChainCurrency, Names.Lookup(kTagCurrency, kChainCurrency, kLanguageEnglish),
            Names.Lookup(kTagCurrency, kChainCurrency, kLanguageTraditional),
            Names.Lookup(kTagCurrency, kChainCurrency, kLanguageSimplified)};
}

bool OnGrid(double Price, double Step) {
    const double Steps = Price / Step;
    return std::abs(Steps - std::round(Steps)) * Step < 1e-6;
}

bool OnNickelGrid(double Price) { return OnGrid(Price, Price < kDimeFrom ? 0.05 : 0.10); }

// The coarsest table in which every bid and ask of the root is a valid price; none where even a cent is too coarse.
std::map<std::string, std::string> SpreadCodes(const TChainFile& Chain) {
    std::map<std::string, std::string> Codes;
    for (const TChainContract& Contract : Chain.Contracts) {
        std::string& Code = Codes.emplace(Contract.Root, kNickelSteps).first->second;
        for (const std::optional<double>& Price : {Contract.Bid, Contract.Ask}) {
            if (!Price) continue;
            if (Code == kNickelSteps && !OnNickelGrid(*Price)) Code = kPennySteps;
            if (Code == kPennySteps && !OnGrid(*Price, 0.01)) Code.clear();
        }
    }
    return Codes;
}

std::vector<TSpreadBandRow> SpreadBands() {
    return {{kNickelSteps, 1, 0.0, 0.05}, {kNickelSteps, 1, kDimeFrom, 0.10}, {kPennySteps, 1, 0.0, 0.01}};
}

// Everything of the exchange that decides on series: what is there, and what of it stays.
TListedExpiries ListedExpiries(const TCurrent& Current, const std::unordered_set<std::string>& Removed) {
    TListedExpiries Listed;
    for (const auto& [Code, Row] : Current.Series) Listed.Series.insert(Code);
    for (const auto& [Symbol, Row] : Current.Products) {
        Listed.Series.insert(Row->Series);
        if (const auto Occ = ParseOccSymbol(Symbol); Occ && MarketDayText(Occ->Expiry) == Row->ExpiryDate) {
            const TRootExpiry Key{Occ->Root, Row->ExpiryDate};
            Listed.SeriesOf.emplace(Key, Row->Series);
            if (!Removed.contains(Symbol)) Listed.Staying.insert(Key);
        } else if (MarketDayOf(Row->ExpiryDate)) {
            Listed.OtherMonths.emplace(Row->Series, Row->ExpiryDate.substr(0, 4) + "-" + Row->ExpiryDate.substr(5, 2));
        }
    }
    return Listed;
}

// Contracts of the file's roots that the file does not list: those that must stay are counted, the others removed.
std::unordered_set<std::string> FindRemoved(const TChainFile& Chain, const TCurrent& Current,
                                            const std::set<std::string>& Kept, TChainChanges& Changes) {
    std::unordered_set<std::string> InFile, Removed;
    for (const TChainContract& Contract : Chain.Contracts) InFile.insert(Contract.Symbol);
    const std::set<std::string> Roots(Changes.Roots.begin(), Changes.Roots.end());
    for (const auto& [Symbol, Row] : Current.Products) {
        if (InFile.contains(Symbol)) continue;
        const auto Occ = ParseOccSymbol(Symbol);
        if (!Occ || !Roots.contains(Occ->Root)) continue;
        if (Kept.contains(Symbol))
            ++Changes.KeptProducts;
        else
            Removed.insert(Symbol);
    }
    Changes.RemovedProducts.assign(Removed.begin(), Removed.end());
    std::sort(Changes.RemovedProducts.begin(), Changes.RemovedProducts.end());
    return Removed;
}

void PutSeries(const TChainFile& Chain, TCurrent& Current, const std::map<TRootExpiry, std::string>& SeriesOf,
               TChainChanges& Changes) {
    std::set<std::string> Done;
    for (const auto& [Expiry, Code] : SeriesOf) {
        if (!Done.insert(Code).second) continue;
        const auto Known = Current.Series.find(Code);
        TSeriesRow Row;
        if (Known != Current.Series.end()) {
            Row = Known->second;
        } else {
            Row.SortIndex = ++Current.MaxSeriesSort;
            Changes.NewSeries.push_back(Code);
        }
        Row.Exchange = kChainExchange;
        Row.Code = Code;
        Row.NameEn = Row.NameHant = Row.NameHans = Chain.UnderlyingName;
        Row.Currency = kChainCurrency;
        if (Chain.UnderlyingLast) Row.UnderlyingLast = Chain.UnderlyingLast;
        Row.Decimals = kDecimals;
        Row.Imported = true;
        Changes.Series.push_back(std::move(Row));
    }
}

TProductRow ProductRow(const TChainContract& Contract, const std::string& Series, const std::string& SpreadCode) {
    TProductRow Row;
    Row.Symbol = Contract.Symbol;
    Row.Exchange = kChainExchange;
    Row.Series = Series;
    Row.ProductType = kOption;
    Row.ExpiryDate = Contract.Expiry;
    Row.StrikePrice = Contract.StrikeText;
    Row.CallPutCode = std::string(1, Contract.CallPut);
    Row.LotSize = "1";
    Row.SpreadCode = SpreadCode;
    Row.Currency = kChainCurrency;
    Row.Multiplier = kChainMultiplier;
    return Row;
}

TQuoteRow QuoteRow(const TChainContract& Contract, const TChainDate& Date) {
    TQuoteRow Row;
    Row.Symbol = Contract.Symbol;
    Row.Bid = Contract.Bid;
    Row.Ask = Contract.Ask;
    Row.Last = Contract.Last;
    Row.Time = Date.Time;
    return Row;
}

}  // namespace

TChainChanges PlanChainImport(const TChainFile& Chain, const TMarketSet& Market, const std::set<std::string>& Kept,
                              const TTextTable& Names) {
    if (Chain.Contracts.empty()) throw EMarketRefusal({kImportNoContracts, {Chain.FileName}});
    TChainChanges Changes;
    std::set<TRootExpiry> InFile;
    for (const TChainContract& Contract : Chain.Contracts) {
        if (std::find(Changes.Roots.begin(), Changes.Roots.end(), Contract.Root) == Changes.Roots.end())
            Changes.Roots.push_back(Contract.Root);
        InFile.insert({Contract.Root, Contract.Expiry});
    }
    TCurrent Current = CurrentOf(Market);
    const std::unordered_set<std::string> Removed = FindRemoved(Chain, Current, Kept, Changes);
    const std::map<TRootExpiry, std::string> SeriesOf = AssignSeries(InFile, ListedExpiries(Current, Removed));
    const std::map<std::string, std::string> Steps = SpreadCodes(Chain);

    Changes.Exchange = ExchangeRow(Chain, Market, Names);
    Changes.Currency = CurrencyRow(Market, Names);
    Changes.SpreadBands = SpreadBands();
    PutSeries(Chain, Current, SeriesOf, Changes);
    Changes.Products.reserve(Chain.Contracts.size());
    Changes.Quotes.reserve(Chain.Contracts.size());
    for (const TChainContract& Contract : Chain.Contracts) {
        if (!Current.Products.contains(Contract.Symbol)) ++Changes.AddedProducts;
        Changes.Products.push_back(
            ProductRow(Contract, SeriesOf.at({Contract.Root, Contract.Expiry}), Steps.at(Contract.Root)));
        Changes.Quotes.push_back(QuoteRow(Contract, Chain.Date));
    }
    return Changes;
}

}  // namespace ws
