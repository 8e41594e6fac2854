// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "framework/market/Product.h"
#include "workstation/market/MarketRows.h"

namespace ws {

// The price-step tables of the market by code, as views see them. Raises EMarketRefusal for bands that make no table.
std::map<std::string, std::unique_ptr<fw::TCustomSpreadTable>> MakeSpreadTables(
    const std::vector<TSpreadBandRow>& Bands);

}  // namespace ws
