// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/QuoteWalk.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string_view>

#include "framework/base/Numbers.h"
#include "workstation/market/BlackModel.h"
#include "workstation/market/CallPut.h"
#include "workstation/market/MarketDay.h"

namespace ws {

namespace {

constexpr int kOption = 3;
// A year of the walk is the time in which markets are open, so that a trader sees a day's range in a day.
constexpr double kSecondsPerYear = 252 * 6.5 * 3600;
constexpr double kDaysPerYear = 365.0;
constexpr double kHalfDay = 0.5;             // what is left on the day of expiry
constexpr double kOptionHalfSpread = 0.005;  // of the value, at least half a step

// FNV-1a: the same on every machine.
std::uint64_t HashOf(std::string_view S) {
    std::uint64_t Hash = 0xcbf29ce484222325ULL;
    for (const char C : S) Hash = (Hash ^ static_cast<unsigned char>(C)) * 0x100000001b3ULL;
    return Hash;
}

TQuoteRow WithoutData(const TQuoteRow& Row) {
    TQuoteRow Empty;
    Empty.Symbol = Row.Symbol;
    Empty.Silent = Row.Silent;
    Empty.DelaySeconds = Row.DelaySeconds;
    return Empty;
}

}  // namespace

TQuoteWalk::TQuoteWalk(const TMarketSet& Market, std::uint64_t Seed, TTimePoint StartUtc)
    : FSeed(Seed), FNow(StartUtc) {
    Replace(Market);
}

void TQuoteWalk::Replace(const TMarketSet& Market) {
    std::unordered_map<std::string, TContract> Old = std::move(FContracts);
    FContracts.clear();
    FTables = TSpreadTables(Market.SpreadBands);
    BuildSeries(Market);
    BuildContracts(Market);
    for (const auto& [Symbol, Count] : FWatched) {
        const auto Now = FContracts.find(Symbol);
        if (Now == FContracts.end()) continue;
        Now->second.DueAt = FElapsed + Now->second.DelaySeconds;
        const auto Before = Old.find(Symbol);
        if (Before == Old.end() || !Before->second.DueAt) continue;
        Now->second.DueAt = Before->second.DueAt;
        Now->second.Arrived = Before->second.Arrived;
    }
}

void TQuoteWalk::BuildSeries(const TMarketSet& Market) {
    FExchanges.clear();
    FSeries.clear();
    for (const TExchangeRow& Row : Market.Exchanges) FExchanges[Row.Code] = Row;
    for (const TSeriesRow& Row : Market.Series) {
        TSeries Series;
        Series.Row = Row;
        Series.Exchange = FExchanges[Row.Exchange];
        Series.Walk = Row.Imported || !Row.UnderlyingLast || !(*Row.UnderlyingLast > 0.0) ? nullptr : WalkOf(Row);
        FSeries.emplace(std::pair{Row.Exchange, Row.Code}, std::move(Series));
        FDecimalSteps.emplace(Row.Decimals, TSpreadTable::OfDecimals(Row.Decimals));
    }
}

TQuoteWalk::TWalk* TQuoteWalk::WalkOf(const TSeriesRow& Row) {
    const double Volatility = std::isfinite(Row.Volatility) ? std::max(Row.Volatility, 0.0) : 0.0;
    const std::string Key =
        Row.Exchange + '/' + fw::FloatToShortestText(*Row.UnderlyingLast) + '/' + fw::FloatToShortestText(Volatility);
    auto Found = FWalks.find(Key);
    if (Found == FWalks.end())
        Found = FWalks.emplace(Key, TWalk{*Row.UnderlyingLast, Volatility, std::mt19937_64(FSeed ^ HashOf(Key))}).first;
    return &Found->second;
}

void TQuoteWalk::BuildContracts(const TMarketSet& Market) {
    FContracts.reserve(Market.Products.size());
    for (const TQuoteRow& Row : Market.Quotes) FContracts[Row.Symbol].Quote = Row;
    std::unordered_map<std::string, TContract> Listed;
    Listed.reserve(Market.Products.size());
    for (const TProductRow& Product : Market.Products) {
        TContract Contract;
        if (const auto Stored = FContracts.find(Product.Symbol); Stored != FContracts.end())
            Contract.Quote = std::move(Stored->second.Quote);
        Contract.Quote.Symbol = Product.Symbol;
        Prepare(Contract, Product);
        Listed.insert_or_assign(Product.Symbol, std::move(Contract));
    }
    FContracts = std::move(Listed);
}

// Decides how a contract is priced, once.
void TQuoteWalk::Prepare(TContract& Contract, const TProductRow& Product) const {
    Contract.DelaySeconds = std::max(Contract.Quote.DelaySeconds, 0);
    if (Contract.Quote.Silent) {
        Contract.Pricing = EPricing::Silent;
        Contract.Quote = WithoutData(Contract.Quote);
        return;
    }
    const auto Series = FSeries.find({Product.Exchange, Product.Series});
    const auto Expiry = MarketDayOf(Product.ExpiryDate);
    if (Series == FSeries.end() || !Series->second.Walk) return;
    const bool Dated = Product.ProductType == kOption || !Product.ExpiryDate.empty();
    if (Dated && !Expiry) return;
    Contract.Series = &Series->second;
    Contract.Expiry = Expiry.value_or(std::chrono::sys_days::max());
    const TSpreadTable* Table = FTables.Find(Product.SpreadCode);
    Contract.Steps = Table && Table->Kind() == kSpreadBands ? Table : &FDecimalSteps.at(Series->second.Row.Decimals);
    if (Product.ProductType != kOption) {
        Contract.Pricing = EPricing::Linear;
        return;
    }
    const std::optional<double> Strike = fw::TextToFloat(Product.StrikePrice);
    const auto Right = CallOrPut(Product.CallPutCode);
    if (!Strike || !Right) return;
    Contract.Strike = *Strike;
    Contract.Pricing = *Right == ECallPut::Call ? EPricing::Call : EPricing::Put;
}

std::chrono::sys_days TQuoteWalk::DayAt(const TExchangeRow& Exchange) const {
    if (const auto Day = MarketDayOf(Exchange.MarketDay)) return *Day;
    return MarketDayAt(FNow, Exchange.UtcOffsetMinutes);
}

std::string TQuoteWalk::MarketDay(const std::string& Exchange) const {
    const auto Found = FExchanges.find(Exchange);
    return MarketDayText(DayAt(Found == FExchanges.end() ? TExchangeRow{} : Found->second));
}

std::optional<double> TQuoteWalk::UnderlyingOf(const std::string& Exchange, const std::string& Series) const {
    const auto Found = FSeries.find({Exchange, Series});
    if (Found == FSeries.end()) return std::nullopt;
    return Found->second.Walk ? std::optional(Found->second.Walk->Price) : Found->second.Row.UnderlyingLast;
}

bool TQuoteWalk::HasData(const TContract& Contract) const {
    if (Contract.Pricing == EPricing::Silent) return false;
    return Contract.DelaySeconds == 0 || (Contract.DueAt && FElapsed >= *Contract.DueAt);
}

double TQuoteWalk::ValueOf(const TContract& Contract) const {
    const double Forward = Contract.Series->Walk->Price;
    if (Contract.Pricing == EPricing::Linear) return Forward;
    const double Days = static_cast<double>((Contract.Expiry - DayAt(Contract.Series->Exchange)).count());
    const double Years = (Days + kHalfDay) / kDaysPerYear;
    const double Volatility = SmileVolatility(Contract.Series->Walk->Volatility, Forward, Contract.Strike, Years);
    return BlackPrice({Forward, Contract.Strike, Years, Volatility, 1.0}, Contract.Pricing == EPricing::Call);
}

// True: bid, ask or last are others now.
bool TQuoteWalk::Reprice(TContract& Contract) {
    Contract.PricedAt = FVersion;
    if (Contract.Pricing == EPricing::Stands || Contract.Pricing == EPricing::Silent) return false;
    if (Contract.Expiry < DayAt(Contract.Series->Exchange)) return false;
    const double Value = ValueOf(Contract);
    double Upper = 0.0, Lower = 0.0;
    const double Step = Contract.Steps->StepUp(Value, Upper, Lower);
    const double Wide = Contract.Pricing == EPricing::Linear ? 0.0 : kOptionHalfSpread * Value;
    const double Half = std::max(0.5 * Step, Wide);
    const double Bid = Contract.Steps->Floor(Value - Half), Ask = Contract.Steps->Ceil(Value + Half);
    const bool HasBid = Bid > 0.0 && Bid <= Value;  // below the lowest step nobody bids
    const double Below = Contract.Steps->Floor(Value), Above = Contract.Steps->Ceil(Value);
    double Last = Value - Below <= Above - Value ? Below : Above;
    if (!(Last > 0.0)) Last = Ask;  // worth less than half a step: somebody paid the one price there is
    TQuoteRow& Quote = Contract.Quote;
    const std::optional<double> NewBid = HasBid ? std::optional(Bid) : std::nullopt;
    if (!Quote.Time.empty() && Quote.Bid == NewBid && Quote.Ask == Ask && Quote.Last == Last) return false;
    Quote.Bid = NewBid;
    Quote.Ask = Ask;
    Quote.Last = Last;
    Quote.Time = MarketTimeText(FNow, Contract.Series->Exchange.UtcOffsetMinutes);
    return true;
}

const TQuoteRow* TQuoteWalk::QuoteOf(const std::string& Symbol) {
    const auto Found = FContracts.find(Symbol);
    if (Found == FContracts.end()) return nullptr;
    TContract& Contract = Found->second;
    if (!HasData(Contract)) {
        FWithoutData = WithoutData(Contract.Quote);
        return &FWithoutData;
    }
    if (Contract.PricedAt != FVersion) Reprice(Contract);
    return &Contract.Quote;
}

void TQuoteWalk::Watch(const std::string& Symbol) {
    ++FWatched[Symbol];
    const auto Found = FContracts.find(Symbol);
    if (Found == FContracts.end()) return;
    if (!Found->second.DueAt) Found->second.DueAt = FElapsed + Found->second.DelaySeconds;
    if (HasData(Found->second) && Found->second.PricedAt != FVersion) Reprice(Found->second);
}

void TQuoteWalk::Unwatch(const std::string& Symbol) {
    const auto Found = FWatched.find(Symbol);
    if (Found != FWatched.end() && --Found->second == 0) FWatched.erase(Found);
}

// Box and Muller's transformation; the library's distribution differs from one library to the next.
double TQuoteWalk::Normal(std::mt19937_64& Random) {
    const auto Uniform = [&Random] { return (static_cast<double>(Random() >> 11U) + 0.5) * 0x1p-53; };
    const double Radius = std::sqrt(-2.0 * std::log(Uniform()));
    return Radius * std::cos(2.0 * std::numbers::pi * Uniform());
}

std::vector<std::string> TQuoteWalk::Step(double Seconds) {
    if (Seconds > 0.0 && std::isfinite(Seconds)) {
        FElapsed += Seconds;
        FNow += std::chrono::duration_cast<TTimePoint::duration>(std::chrono::duration<double>(Seconds));
        ++FVersion;
        const double Years = Seconds / kSecondsPerYear;
        for (auto& [Key, Walk] : FWalks) {
            const double Deviation = Walk.Volatility * std::sqrt(Years);
            Walk.Price *= std::exp(Deviation * Normal(Walk.Random) - 0.5 * Deviation * Deviation);
        }
    }
    std::vector<std::string> Changed;
    for (const auto& [Symbol, Count] : FWatched) {
        const auto Found = FContracts.find(Symbol);
        if (Found == FContracts.end() || !HasData(Found->second)) continue;
        TContract& Contract = Found->second;
        const bool Arrived = Contract.DelaySeconds > 0 && !Contract.Arrived;
        const bool Moved = Contract.PricedAt != FVersion && Reprice(Contract);
        if (Arrived) Contract.Arrived = true;
        if (Arrived || Moved) Changed.push_back(Symbol);
    }
    return Changed;
}

}  // namespace ws
