// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "framework/market/Product.h"
#include "workstation/trading/TradingLimits.h"

namespace ws {

// What the checks know of a contract at one moment. Prices in real price units.
struct TContractFacts {
    bool Listed = false;  // false: nothing below is known
    std::string Exchange, Currency;
    int ProductType = 0;     // 2 future, 3 option
    std::string ExpiryDate;  // "yyyy/MM/dd"
    bool Expired = false;    // by the exchange's market day; the last day itself still trades
    double LotSize = 0.0;    // 0: none stated
    std::optional<double> Multiplier;
    const fw::TCustomSpreadTable* Steps = nullptr;  // borrowed; null: no table
    std::vector<std::string> OrderOptions;          // what the exchange offers: "Open", "Close", "Client", ...
    std::optional<double> LastPrice;
    std::string PriceTime;  // of LastPrice, the exchange's wall clock
    bool Stale = false;     // LastPrice is older than the limit
};

// The user who is logged in.
struct TTraderFacts {
    std::set<std::string> Accounts, Rights;
};

// Symbol to signed net quantity of an account.
using THeldQuantities = std::map<std::string, double>;

// Where the checks take their facts from; each answer is of the moment.
class IOrderFacts {
public:
    virtual ~IOrderFacts() = default;
    virtual TTraderFacts Trader() = 0;
    virtual TTradingLimits Limits() = 0;
    virtual TContractFacts Contract(const std::string& Symbol, const TTradingLimits& Limits) = 0;
    virtual THeldQuantities Held(const std::string& Account) = 0;
};

}  // namespace ws
