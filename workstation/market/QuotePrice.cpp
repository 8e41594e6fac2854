// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/QuotePrice.h"

#include <cmath>

namespace ws {

std::optional<double> MiddlePrice(const TQuoteRow& Quote) {
    if (!Quote.Bid || !Quote.Ask || *Quote.Bid > *Quote.Ask) return std::nullopt;
    const double Middle = *Quote.Bid / 2 + *Quote.Ask / 2;
    return std::abs(Middle) < 4e6 ? std::round(Middle * 1e9) / 1e9 : Middle;
}

std::optional<double> ReferencePrice(const TQuoteRow& Quote, bool Imported) {
    const std::optional<double> Middle = MiddlePrice(Quote);
    if (Imported && Middle) return Middle;
    if (Quote.Last) return Quote.Last;
    if (Middle) return Middle;
    return Quote.PreviousSettlement;
}

}  // namespace ws
