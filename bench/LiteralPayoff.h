// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <unordered_map>

#include "bench/Workload.h"

namespace bench {

// The same results by the rules as they are told: every leg asks for its market data at every price, every row has a
// text and an entry under that text. It is what the engine is held against, in speed and to the last bit.
class TLiteralPayoff {
public:
    explicit TLiteralPayoff(const TPayoff& Payoff) : FControl(Payoff.Control), FHasTable(Payoff.Workload.HasTable) {}

    void Calculate();  // the table, or the key prices where the workload has no table
    size_t GetCount() const { return FList.size(); }
    const fw::Text& PriceText(size_t Row) const { return FList[Row]; }
    double SumAt(size_t Row) const { return FDictionary.at(FList[Row]); }
    double Sum(double Price) const;  // leg by leg

private:
    void CalculateTable();
    void CalculateKeyPrices();
    void Add(double Price);

    const ventiq::TCustomVentiqDataControl& FControl;  // borrowed: range and legs
    const bool FHasTable;
    std::vector<fw::Text> FList;
    std::unordered_map<fw::Text, double> FDictionary;
};

// As CalculateAndReadPage and CalculateAndReadTexts; by nature both calculate every row.
double CalculateAndReadPage(TPayoff& Payoff, TLiteralPayoff& Literal);
double CalculateAndReadTexts(TPayoff& Payoff, TLiteralPayoff& Literal);

inline constexpr int64_t kSampleRows = 10'007;

// Calculates both ways, after an edit where the workload has one: the rows that differ, in text or in any bit of the
// P/L; of a table that does not fit into memory, of kSampleRows all over it.
int64_t CountDifferences(TPayoff& Payoff);

}  // namespace bench
