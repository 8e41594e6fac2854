// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/WindowMarket.h"

#include <chrono>
#include <cstdio>
#include <fstream>

#include "framework/base/Numbers.h"
#include "workstation/market/MarketDay.h"
#include "workstation/market/MonthCode.h"
#include "workstation/services/Workstation.h"
#include "workstation/store/StoreTransaction.h"

namespace bench {

namespace {

constexpr int kFuture = 2, kOption = 3;
constexpr int kDaysToExpiry = 60;
constexpr double kMultiplier = 50;

std::string Expiry() {
    return ws::MarketDayText(*ws::MarketDayOf(ws::SampleToday()) + std::chrono::days(kDaysToExpiry));
}

ws::TProductRow Contract(const std::string& Symbol, int Type) {
    ws::TProductRow Row;
    Row.Symbol = Symbol;
    Row.Exchange = TBenchMarket::kExchange;
    Row.Series = TBenchMarket::kSeries;
    Row.ProductType = Type;
    Row.ExpiryDate = Expiry();
    Row.LotSize = "1";
    Row.Currency = "HKD";
    Row.Multiplier = kMultiplier;
    return Row;
}

}  // namespace

void TBenchMarket::Put(ws::TStore& Store) const {
    ws::TStoreTransaction Write(Store);
    ws::TSeriesRow Series;
    Series.Exchange = kExchange;
    Series.Code = kSeries;
    Series.NameEn = Series.NameHant = Series.NameHans = "Measured index";
    Series.Currency = "HKD";
    Series.UnderlyingLast = (kLowest + kHighest) / 2;
    Series.Decimals = 0;
    Series.SortIndex = 1000;
    Write.Put(Series);
    Write.Put(Contract(Future(), kFuture));
    for (int i = 0; i < Strikes; ++i)
        for (const char Side : {'C', 'P'}) {
            auto Row = Contract(Option(i, Side), kOption);
            Row.StrikePrice = fw::FloatToShortestText(Strike(i));
            Row.CallPutCode = std::string(1, Side);
            Write.Put(Row);
        }
    Write.Commit();
}

std::string TBenchMarket::Month() const { return ws::MonthCodeOf(Contract(Future(), kFuture)); }

std::string TBenchMarket::Option(int Number, char Side) const {
    return kSeries + fw::FloatToShortestText(Strike(Number)) + Side;
}

std::vector<std::string> TBenchMarket::Symbols() const {
    std::vector<std::string> Result{Future()};
    for (int i = 0; i < Strikes; ++i)
        for (const char Side : {'C', 'P'}) Result.push_back(Option(i, Side));
    return Result;
}

ws::TStrategy TBenchMarket::Empty(double Interval) const {
    ws::TStrategy Strategy;
    Strategy.Exchange = kExchange;
    Strategy.Series = kSeries;
    Strategy.Month = Month();
    Strategy.Down = kLowest;
    Strategy.Up = kHighest;
    Strategy.Interval = Interval;
    return Strategy;
}

ws::TStrategy TBenchMarket::IronCondor(double Interval) const {
    const auto At = [this](double Price) { return static_cast<int>((Price - kLowest) / Step()); };
    ws::TStrategy Strategy = Empty(Interval);
    Strategy.Legs = {{Option(At(18000), 'P'), ws::ELegSide::Buy, 120, 1},
                     {Option(At(19000), 'P'), ws::ELegSide::Sell, 310, 1},
                     {Option(At(21000), 'C'), ws::ELegSide::Sell, 290, 1},
                     {Option(At(22000), 'C'), ws::ELegSide::Buy, 110, 1}};
    return Strategy;
}

ws::TStrategy TBenchMarket::Mixed(int Legs, double Interval) const {
    ws::TStrategy Strategy = Empty(Interval);
    for (int i = 0; i < Legs; ++i) {
        const std::string Symbol = i % 10 == 9 ? Future() : Option(i / 2 % Strikes, i % 2 == 0 ? 'C' : 'P');
        const auto Side = i / 2 % 2 == 0 ? ws::ELegSide::Buy : ws::ELegSide::Sell;
        Strategy.Legs.push_back({Symbol, Side, 100.0 + i, 1.0 + i % 5});
    }
    return Strategy;
}

void WriteChainFile(const std::filesystem::path& File, int Lines, int Expiries) {
    std::ofstream Out(File);
    Out << "Measured Index,Last: 4136.48,Change:  -43.28\n"
           "\"Date: February 3, 2023 at 11:24 PM EST\",Bid: 4095.1599,Ask: 4182.2598,Size: 1*1,Volume: 0\n"
           "Expiration Date,Calls,Last Sale,Net,Bid,Ask,Volume,IV,Delta,Gamma,Open Interest,Strike,"
           "Puts,Last Sale,Net,Bid,Ask,Volume,IV,Delta,Gamma,Open Interest\n";
    using namespace std::chrono;
    const int Strikes = Lines / Expiries;
    for (int i = 0; i < Lines; ++i) {
        const auto Month = year(2023) / 3 + months(i / Strikes);
        const year_month_day Day{sys_days{Month / Friday[3]}};
        static constexpr const char* kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                  "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
        const int Strike = 1000 + i % Strikes * 5;
        const unsigned M = unsigned(Day.month()), D = unsigned(Day.day());
        const int Y = int(Day.year());
        char Line[512];
        std::snprintf(Line, sizeof Line,
                      "Fri %s %02u %d,SPX%02d%02u%02uC%08d,%d.1,0,%d.3,%d.3,0,0,0,0,5,%d.00,"
                      "SPX%02d%02u%02uP%08d,0,0,0,0.05,0,0,0,0,0\n",
                      kMonths[M - 1], D, Y, Y % 100, M, D, Strike * 1000, 2997, 3122, 3146, Strike, Y % 100, M, D,
                      Strike * 1000);
        Out << Line;
    }
}

}  // namespace bench
