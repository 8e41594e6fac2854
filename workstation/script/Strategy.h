// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace ws {

enum class ELegSide { Buy, Sell };

// One leg as it is typed: texts as a user types them into the cells.
struct TStrategyLeg {
    std::string Symbol;
    ELegSide Side = ELegSide::Buy;
    std::optional<std::string> Premium;  // none: what the market proposes
    std::string Qty = "1";
};

// A strategy as it is typed. Without a market the first leg's contract decides it; without a range bound the view's own
// proposal stays.
struct TStrategy {
    std::string Exchange, Series, Month;
    std::vector<TStrategyLeg> Legs;
    std::optional<std::string> Down, Up, Interval;
};

}  // namespace ws
