// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A price-step table: bands of prices, each with a step of its own. Valid prices of a band are its lower edge and every
// whole step above it, below the next band's lower edge. Real price units. Two prices within 1e-7 are the same price.

#include <map>
#include <string>
#include <vector>

#include "workstation/market/MarketMessage.h"
#include "workstation/market/MarketRows.h"

namespace ws {

inline constexpr int kSpreadBands = 1;          // the kind of table that is walked
inline constexpr double kLastBandUpper = 1e15;  // upper edge of the last band: finite, so that differences stay finite

class TSpreadTable {
public:
    // Bands of one table in ascending order. Throws EMarketRefusal: no bands, bands that overlap or descend, a step
    // that is not above 1e-6, an edge or step that is no finite number, bands of several kinds. Of a kind other than 1
    // nothing is checked and nothing walked: prices then pass unchanged with a step of 1.
    explicit TSpreadTable(const std::vector<TSpreadBandRow>& Bands);

    // One band from 0 with steps of one unit of the last decimal: for contracts without a table.
    static TSpreadTable OfDecimals(int Decimals);

    int Kind() const { return FKind; }

    // Strictly beyond Price. Direction 1: the smallest valid price above Price + 1e-7; -1: the largest valid price
    // below Price - 1e-7. Where there is none below, the lowest band's lower edge.
    double SnapPrice(double Price, int Direction) const;

    // Step and edges of the band [Lower, Upper) that holds Price; of the lowest band for a Price below all.
    double StepUp(double Price, double& Upper, double& Lower) const;
    // Step and edges of the band (Lower, Upper] that holds Price; of the lowest band for a Price up to its edge.
    double StepDown(double Price, double& Upper, double& Lower) const;

    // The largest valid price not above Price, the smallest not below it; Price itself when it is valid. Floor of a
    // price below the lowest band is that band's lower edge.
    double Floor(double Price) const;
    double Ceil(double Price) const;

private:
    struct TBand {
        double Lower, Upper, Step;
        double Last;  // its largest valid price
    };
    TSpreadTable() = default;
    void Add(double Lower, double Upper, double Step);
    const TBand& BandUp(double Price) const;
    const TBand& BandDown(double Price) const;

    int FKind = kSpreadBands;
    std::vector<TBand> FBands;  // never empty for kind 1
};

// All tables of a market by code. A table that is refused is left out and its reason kept: the contracts of its code
// then have no table.
struct TSpreadTables {
    std::map<std::string, TSpreadTable> ByCode;
    std::vector<TMarketMessage> Refused;  // %1 code, %2 lower edge, %3 step of the band that is wrong

    explicit TSpreadTables(const std::vector<TSpreadBandRow>& Bands);  // bands of a code in ascending order
    const TSpreadTable* Find(const std::string& Code) const;           // null when unknown or refused
};

}  // namespace ws
