// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "workstation/market/MarketRows.h"

namespace ws {

// The one price of a quote, in which positions are valued and premiums are proposed. Of an imported quote the middle of
// bid and ask, else the last price (a last trade in a chain file may be days old); of a live one the last price, else
// the middle, else the previous settlement. Nothing when the quote has none.
std::optional<double> ReferencePrice(const TQuoteRow& Quote, bool Imported);

// The middle of bid and ask, free of the noise of the halving; nothing without an ask, without a bid or when they
// cross.
std::optional<double> MiddlePrice(const TQuoteRow& Quote);

}  // namespace ws
