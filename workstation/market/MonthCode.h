// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "framework/market/Product.h"
#include "workstation/market/MarketRows.h"

namespace ws {

// Month code under which the views list a contract: "yyyy-MM" of an expiry "yyyy/MM/dd", with "-tag" for weekly
// contracts at HKFE. An expiry in another form gives a code that no list has.
std::string MonthCodeOf(std::string_view Exchange, std::string_view Expiry, std::string_view WeeklyTag);
std::string MonthCodeOf(const TProductRow& Product);
std::string MonthCodeOf(const fw::TCustomProduct& Product);

}  // namespace ws
