// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Which series of the exchange a chain's expiries belong to. The rules stand in ChainImport.h.

#include <map>
#include <set>
#include <string>
#include <utility>

namespace ws {

struct TRootExpiry {
    std::string Root;
    std::string Expiry;  // "yyyy/MM/dd"
    auto operator<=>(const TRootExpiry&) const = default;
};

struct TListedExpiries {
    std::set<std::string> Series;                 // every series code of the exchange
    std::map<TRootExpiry, std::string> SeriesOf;  // expiries with contracts before the import
    std::set<TRootExpiry> Staying;                // of those, the ones that still have contracts without the file's
    std::set<std::pair<std::string, std::string>> OtherMonths;  // (series, "yyyy-MM") of contracts of no known form
};

// The series of every expiry of the file.
std::map<TRootExpiry, std::string> AssignSeries(const std::set<TRootExpiry>& InFile, const TListedExpiries& Listed);

}  // namespace ws
