// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the sample files say, before it is laid out for a month. Inside of the sample loader.

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "workstation/market/MarketRows.h"
#include "workstation/store/CsvTable.h"
#include "workstation/store/MarketCalendar.h"

namespace ws {

// How an exchange names and dates its contracts.
struct TContractRule {
    EExpiryRule Expiry = EExpiryRule::LastBusinessDay;
    std::string FutureSymbol, OptionSymbol, WeeklySymbol;  // patterns; see SymbolFromPattern
};

// One line of futures.csv, ladders.csv or contracts.csv: every combination of Months, Strikes and CallPutCodes is
// a contract; futures have one empty strike and one empty code.
struct TContractLine {
    TProductRow Common;       // what all contracts of the line share; symbol and expiry are empty
    std::vector<int> Months;  // offsets from the base month
    int Week = 0;             // 1-4, or 0 for a monthly contract
    std::string SymbolPattern;
    std::vector<std::string> Strikes{""};
    std::vector<std::string> CallPutCodes{""};
};

struct TSampleDefinition {
    std::string Version;
    TYearMonth Base{};
    TMarketSet Market;                           // everything but products; quotes name base symbols
    TTradingSet Trading;                         // positions name base symbols
    std::map<std::string, TContractRule> Rules;  // by exchange
    THolidays Holidays;
    std::vector<TContractLine> Contracts;  // in listing order

    const TSeriesRow* FindSeries(const std::string& Exchange, const std::string& Code) const;
    TDay Expiry(const TContractLine& Line, TYearMonth Month) const;
};

// Reads all files of Folder into Definition; bad lines go to Problems.
void ReadSample(const std::filesystem::path& Folder, TSampleDefinition& Definition,
                std::vector<TLineProblem>& Problems);

// The contracts of one line with everything but the related symbol.
std::vector<TProductRow> ContractsOf(const TSampleDefinition& Definition, const TContractLine& Line, int Shift);

// Fills a pattern: {U} series, {K} strike, {M} month letter (futures FGHJKMNQUVXZ, calls A-L, puts M-X),
// {T} C or P, {y} last digit of the expiry's year, {yy} its last two digits, {mm} its month, {dd} its day.
std::string SymbolFromPattern(const std::string& Pattern, const TProductRow& Product, TDay Expiry);

// Whether a call/put code is a call's or a put's: the first character decides, as at symbol entry.
bool IsCallCode(const std::string& Code);  // "1", "6", "C"
bool IsPutCode(const std::string& Code);   // "2", "7", "P"

}  // namespace ws
