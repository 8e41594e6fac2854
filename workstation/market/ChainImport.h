// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Turns a chain file into rows of the market. Pure: what the market holds and the chain go in, a set of changes comes
// out, which somebody applies in one transaction (ChainStore.h).
//
// Series. A month code (yyyy-MM) must name one expiry of a series, and no series may have more months than the exchange
// has series (a view reaches a month only below that number). Hence, for expiries that the market does not know yet:
//   - a root with at most one expiry a month is the series ROOT;
//   - a root with several is a series for each expiry day, ROOT.DD ("SPXW.03"; the 3rd of any month);
//   - where a series would come to have too many months, every new expiry of the file is its own series, ROOT.YYMMDD.
// An expiry that the market knows stays in its series, and a root goes on in the form that it has. Series are never
// renamed and never removed, also when the last contract of one is gone: their number must not shrink.

#include <set>
#include <string>
#include <vector>

#include "workstation/market/ChainFile.h"
#include "workstation/market/MarketRows.h"
#include "workstation/resources/Texts.h"

namespace ws {

inline constexpr char kChainExchange[] = "CBOE";
inline constexpr char kChainCurrency[] = "USD";
inline constexpr double kChainMultiplier = 100.0;

// Rows to put, whole (add or overwrite by key), and contracts to remove with their quotes.
struct TChainChanges {
    TExchangeRow Exchange;
    TCurrencyRow Currency;
    std::vector<TSeriesRow> Series;
    std::vector<TSpreadBandRow> SpreadBands;
    std::vector<TProductRow> Products;         // in file order
    std::vector<TQuoteRow> Quotes;             // one a product
    std::vector<std::string> RemovedProducts;  // of the file's roots, not in the file and not kept

    std::vector<std::string> Roots;      // of the file, in its order
    std::vector<std::string> NewSeries;  // codes that the exchange did not list before
    std::size_t AddedProducts = 0;       // of Products, how many the market did not know
    std::size_t KeptProducts = 0;        // not in the file, but held or ordered on
};

// Current: the market as it stands; only its exchanges and the rows of kChainExchange are looked at. Kept: symbols that
// must stay although the file lacks them (held or ordered on). Names gives the exchange and currency names.
// Bad lines of Chain are not looked at. Throws EMarketRefusal (kImportNoContracts) for a chain without contracts.
TChainChanges PlanChainImport(const TChainFile& Chain, const TMarketSet& Current, const std::set<std::string>& Kept,
                              const TTextTable& Names);

}  // namespace ws
