// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/TradingFacts.h"

#include "framework/base/Clock.h"
#include "framework/base/Numbers.h"
#include "workstation/market/MarketDay.h"
#include "workstation/market/QuotePrice.h"

namespace ws {

namespace {

constexpr double kNoLot = 1e-7;

// The texts of a day and of a time order as the times do, and a day comes before every time of it.
std::string TodayAt(const TExchangeRow& Exchange, fw::TClock::TTimePoint Now) {
    if (!Exchange.MarketDay.empty()) return Exchange.MarketDay;
    return MarketDayText(MarketDayAt(Now, Exchange.UtcOffsetMinutes));
}
std::string OldestFreshTime(const TExchangeRow& Exchange, fw::TClock::TTimePoint Now, double StaleSeconds) {
    if (!Exchange.MarketDay.empty()) return Exchange.MarketDay;
    const auto Age =
        std::chrono::duration_cast<fw::TClock::TTimePoint::duration>(std::chrono::duration<double>(StaleSeconds));
    return MarketTimeText(Now - Age, Exchange.UtcOffsetMinutes);
}

}  // namespace

fw::TClock::TTimePoint TTradingFacts::Now() const { return FFrom.Now ? FFrom.Now() : fw::TClock::Now(); }

TTraderFacts TTradingFacts::Trader() {
    const TUserRow& User = FFrom.Profile.User();
    return {{User.Accounts.begin(), User.Accounts.end()}, {User.Rights.begin(), User.Rights.end()}};
}

TTradingLimits TTradingFacts::Limits() {
    return ReadTradingLimits([this](const std::string& Key) { return FFrom.Config.ReadString(kTradingSection, Key); },
                             FFrom.Profile.User().Accounts);
}

TContractFacts TTradingFacts::Contract(const std::string& Symbol, const TTradingLimits& Limits) {
    TContractFacts Facts;
    const TProductRow* Product = FFrom.Market.FindProduct(Symbol);
    if (!Product) return Facts;
    Facts.Listed = true;
    Facts.Exchange = Product->Exchange;
    Facts.Currency = Product->Currency;
    Facts.ProductType = Product->ProductType;
    Facts.ExpiryDate = Product->ExpiryDate;
    Facts.LotSize = fw::TextToFloatDef(Product->LotSize, 1.0);
    if (Facts.LotSize < kNoLot) Facts.LotSize = 1.0;  // as the view counts it
    Facts.Multiplier = Product->Multiplier;
    Facts.Steps = FFrom.Market.GetSpreadTable(Product->SpreadCode);
    const TMarketSet& Market = FFrom.Market.Market();
    for (const auto& Row : Market.OrderOptions)
        if (Row.Exchange == Facts.Exchange) Facts.OrderOptions.push_back(Row.Option);

    const auto Index = static_cast<size_t>(FFrom.Market.ExchangeIndex(Facts.Exchange));
    const TExchangeRow* Exchange = Index < Market.Exchanges.size() ? &Market.Exchanges[Index] : nullptr;
    Facts.Expired = Exchange && MarketDayOf(Facts.ExpiryDate) && Facts.ExpiryDate < TodayAt(*Exchange, Now());
    const TSeriesRow* Series = FFrom.Market.FindSeries(Facts.Exchange, Product->Series);
    TakePrice(Facts, Symbol, Exchange, Series && Series->Imported, Limits.StaleSeconds);
    return Facts;
}

void TTradingFacts::TakePrice(TContractFacts& Facts, const std::string& Symbol, const TExchangeRow* Exchange,
                              bool Imported, double StaleSeconds) const {
    const TQuoteRow* Quote = FFrom.QuoteOf(Symbol);
    if (!Quote) return;
    Facts.LastPrice = ReferencePrice(*Quote, Imported);
    Facts.PriceTime = Quote->Time;
    Facts.Stale = Exchange && StaleSeconds > 0 && Quote->Time < OldestFreshTime(*Exchange, Now(), StaleSeconds);
}

}  // namespace ws
