// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/MonthCode.h"

#include <algorithm>

#include "framework/base/Text.h"

namespace ws {

namespace {
constexpr const char* kWeeklyTag = "WeeklyOptionExp";
constexpr const char* kExchangeWithWeeks = "HKFE";
}  // namespace

std::string MonthCodeOf(std::string_view Exchange, std::string_view Expiry, std::string_view WeeklyTag) {
    std::string Code(Expiry.substr(0, 7));
    std::replace(Code.begin(), Code.end(), '/', '-');
    if (!fw::SameText(Exchange, kExchangeWithWeeks)) return Code;
    const std::string Week = fw::Trim(WeeklyTag);
    return Week.empty() ? Code : Code + "-" + Week;
}

std::string MonthCodeOf(const TProductRow& Product) {
    const auto Tag = Product.Attributes.find(kWeeklyTag);
    return MonthCodeOf(Product.Exchange, Product.ExpiryDate,
                       Tag == Product.Attributes.end() ? std::string_view() : std::string_view(Tag->second));
}

std::string MonthCodeOf(const fw::TCustomProduct& Product) {
    return MonthCodeOf(Product.GetExchange(), Product.GetExpiryDate(), Product.GetAttribute(kWeeklyTag));
}

}  // namespace ws
