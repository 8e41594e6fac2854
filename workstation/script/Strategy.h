// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace ws {

enum class ELegSide { Buy, Sell };

// One leg as it is entered into the cells.
struct TStrategyLeg {
    std::string Symbol;
    ELegSide Side = ELegSide::Buy;
    std::optional<double> Premium;  // as the cell shows it; none: what the market proposes
    double Qty = 1.0;
};

// A strategy as it is entered. Without a market the first leg's contract decides it; without a range bound the view's
// own proposal stays.
struct TStrategy {
    std::string Exchange, Series, Month;
    std::vector<TStrategyLeg> Legs;
    std::optional<double> Down, Up, Interval;
};

}  // namespace ws
