// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "workstation/market/ChainImport.h"

namespace chaintest {

inline std::string DataFile(const std::string& Name) { return std::string(TEST_DATA) + "/" + Name; }

// The market after Changes, by the rules of the store: rows overwrite those of their key, others are appended.
inline ws::TMarketSet Applied(ws::TMarketSet Market, const ws::TChainChanges& Changes) {
    const auto Put = [](auto& Rows, const auto& Row, auto SameKey) {
        const auto Found = std::find_if(Rows.begin(), Rows.end(), [&](const auto& Old) { return SameKey(Old, Row); });
        if (Found == Rows.end())
            Rows.push_back(Row);
        else
            *Found = Row;
    };
    const auto ByCode = [](const auto& A, const auto& B) { return A.Code == B.Code; };
    const auto BySymbol = [](const auto& A, const auto& B) { return A.Symbol == B.Symbol; };
    Put(Market.Exchanges, Changes.Exchange, ByCode);
    Put(Market.Currencies, Changes.Currency, ByCode);
    for (const auto& Row : Changes.SpreadBands)
        Put(Market.SpreadBands, Row,
            [](const auto& A, const auto& B) { return A.Code == B.Code && A.Lower == B.Lower; });
    for (const auto& Row : Changes.Series)
        Put(Market.Series, Row,
            [](const auto& A, const auto& B) { return A.Exchange == B.Exchange && A.Code == B.Code; });
    const std::set<std::string> Removed(Changes.RemovedProducts.begin(), Changes.RemovedProducts.end());
    std::erase_if(Market.Products, [&](const auto& Row) { return Removed.contains(Row.Symbol); });
    std::erase_if(Market.Quotes, [&](const auto& Row) { return Removed.contains(Row.Symbol); });
    for (const auto& Row : Changes.Products) Put(Market.Products, Row, BySymbol);
    for (const auto& Row : Changes.Quotes) Put(Market.Quotes, Row, BySymbol);
    return Market;
}

// Series -> month code -> the expiries that it names.
using TMonths = std::map<std::string, std::map<std::string, std::set<std::string>>>;
inline TMonths MonthsOf(const ws::TMarketSet& Market) {
    TMonths Months;
    for (const auto& Row : Market.Products)
        if (Row.Exchange == ws::kChainExchange)
            Months[Row.Series][Row.ExpiryDate.substr(0, 4) + "-" + Row.ExpiryDate.substr(5, 2)].insert(Row.ExpiryDate);
    return Months;
}

// What must hold after every import: a month code names one expiry, and no series has more months than the exchange
// has series. Empty: it holds; else what is wrong.
inline std::string Breach(const ws::TMarketSet& Market) {
    const auto Series = static_cast<std::size_t>(std::count_if(
        Market.Series.begin(), Market.Series.end(), [](const auto& R) { return R.Exchange == ws::kChainExchange; }));
    for (const auto& [Code, Months] : MonthsOf(Market)) {
        const bool Listed =
            std::any_of(Market.Series.begin(), Market.Series.end(), [C = Code](const auto& R) { return R.Code == C; });
        if (!Listed) return "series not listed: " + Code;
        if (Months.size() > Series) return "too many months: " + Code;
        for (const auto& [Month, Expiries] : Months)
            if (Expiries.size() != 1) return "several expiries: " + Code + " " + Month;
    }
    return "";
}

inline const ws::TProductRow* FindProduct(const ws::TMarketSet& Market, const std::string& Symbol) {
    for (const auto& Row : Market.Products)
        if (Row.Symbol == Symbol) return &Row;
    return nullptr;
}

inline const ws::TQuoteRow* FindQuote(const ws::TMarketSet& Market, const std::string& Symbol) {
    for (const auto& Row : Market.Quotes)
        if (Row.Symbol == Symbol) return &Row;
    return nullptr;
}

inline std::string SeriesOf(const ws::TMarketSet& Market, const std::string& Symbol) {
    const ws::TProductRow* Product = FindProduct(Market, Symbol);
    return Product ? Product->Series : "not listed";
}

}  // namespace chaintest
