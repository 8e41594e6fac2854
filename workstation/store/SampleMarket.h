// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The sample market as the files of one folder describe it (docs/sample-market.md documents every file and column).
// The files are written for a base month; Expand gives the market as it stands any number of months later:
// expiries, symbols and everything that names them move together. No clock is read here.

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "workstation/market/MarketRows.h"
#include "workstation/store/CsvTable.h"

namespace ws {

struct TSampleDefinition;

// The market some months after the base month. BaseSymbols runs beside Market.Products: what each contract is
// called in the base month, by which the files, positions and the first start know it.
struct TSampleSet {
    TMarketSet Market;
    TTradingSet Trading;
    std::vector<std::string> BaseSymbols;
};

class TSampleMarket {
public:
    // Reads every file of Folder. Never throws: bad lines are left out and stand in Problems.
    explicit TSampleMarket(const std::filesystem::path& Folder);
    ~TSampleMarket();
    TSampleMarket(TSampleMarket&&) noexcept;
    TSampleMarket& operator=(TSampleMarket&&) noexcept;

    const std::vector<TLineProblem>& Problems() const;  // in the order in which the files are read
    bool Empty() const;                                 // no contract at all
    std::string Version() const;                        // sample.csv, "Version"
    std::string BaseMonth() const;                      // sample.csv, "BaseMonth", "yyyy-MM"

    // The earliest expiry ("yyyy/MM/dd") of the market Months after the base month; "" when Empty.
    std::string FirstExpiry(int Months) const;

    // By how many months the sample has to be moved so that no contract has expired before Today ("yyyy/MM/dd"):
    // From, or the smallest number above it. From again when Today is malformed or the sample is Empty.
    int MonthsFor(const std::string& Today, int From = 0) const;

    TSampleSet Expand(int Months) const;

private:
    std::unique_ptr<TSampleDefinition> FDefinition;
    std::vector<TLineProblem> FProblems;
};

}  // namespace ws
