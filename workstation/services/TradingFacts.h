// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "framework/base/Clock.h"
#include "workstation/services/ConfigService.h"
#include "workstation/services/MarketService.h"
#include "workstation/services/ProfileService.h"
#include "workstation/trading/OrderFacts.h"

namespace ws {

// What the checks of orders know, from the services. Everything is borrowed.
class TTradingFacts : public IOrderFacts {
public:
    struct TSources {
        TMarketService& Market;
        const TProfileService& Profile;
        TConfigService& Config;
        std::function<const TQuoteRow*(const std::string& Symbol)> QuoteOf;  // null: no data have come
        std::function<THeldQuantities(const std::string& Account)> Held;
        std::function<fw::TClock::TTimePoint()> Now;  // the clock of the quotes; empty: the process's
    };
    explicit TTradingFacts(TSources Sources) : FFrom(std::move(Sources)) {}

    TTraderFacts Trader() override;
    TTradingLimits Limits() override;
    TContractFacts Contract(const std::string& Symbol, const TTradingLimits& Limits) override;
    THeldQuantities Held(const std::string& Account) override { return FFrom.Held(Account); }

private:
    fw::TClock::TTimePoint Now() const;
    void TakePrice(TContractFacts& Facts, const std::string& Symbol, const TExchangeRow* Exchange, bool Imported,
                   double StaleSeconds) const;
    TSources FFrom;
};

}  // namespace ws
