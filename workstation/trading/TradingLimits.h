// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <map>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace ws {

inline constexpr const char* kTradingSection = "Trading";

// Where the checks of an order begin to warn or to refuse. Configuration, section "Trading", under the names below; a
// limit of 0 is off. Quantities in contracts, values (price x quantity x multiplier) in the contract's currency.
struct TTradingLimits {
    double SoftQty = 500;              // more warns
    double HardQty = 10'000;           // more cannot be sent
    double SoftValue = 20'000'000;     // more warns
    double HardValue = 1'000'000'000;  // more cannot be sent
    double LastPercent = 20;           // farther from the last price warns
    double LastSteps = 500;            // the same, in price steps
    double StaleSeconds = 300;         // a last price that is older warns
    double SameBatchSeconds = 120;     // for so long an equal batch counts as sent by mistake

    // "Exchanges.<account>" = "HKFE SEHK": where the account may trade. An account without the entry: everywhere.
    std::map<std::string, std::set<std::string>> ExchangesOfAccount;

    bool MayTrade(const std::string& Account, const std::string& Exchange) const;
};

// The limits by the names under which they are configured.
struct TNamedLimit {
    const char* Name;
    double TTradingLimits::*Field;
};
std::span<const TNamedLimit> NamedLimits();

// Read answers "" for what is not set. A text that is no number, or one below 0, is named in the log and the default
// stands.
TTradingLimits ReadTradingLimits(const std::function<std::string(const std::string& Key)>& Read,
                                 const std::vector<std::string>& Accounts);

}  // namespace ws
