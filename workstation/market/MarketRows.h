// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The market as plain rows, in the shape in which the sample files hold them and the store keeps them.
// Prices are real price units of the exchange (never display units). Dates are "yyyy/MM/dd" texts of the
// exchange's own market day. Texts are UTF-8. No behaviour lives here.

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace ws {

struct TExchangeRow {
    std::string Code;  // "HKFE"
    std::string NameEn, NameHant, NameHans;
    bool Supported = true;     // offered in the payoff view
    std::string MarketDay;     // "yyyy/MM/dd" when the exchange stands still on a day of its own (imported), else empty
    int SortIndex = 0;         // order of listing
    int UtcOffsetMinutes = 0;  // the exchange's wall clock, for "today" at the exchange
};

struct TCurrencyRow {
    std::string Code;  // "HKD"
    std::string NameEn, NameHant, NameHans;
};

struct TSeriesRow {
    std::string Exchange;
    std::string Code;  // unique within the exchange
    std::string NameEn, NameHant, NameHans;
    std::string Currency;
    std::optional<double> UnderlyingLast;  // last price of the underlying itself
    double Volatility = 0.2;               // per year, of the simulated walk
    int Decimals = 2;                      // decimals in which the exchange quotes the series (of the real price)
    bool Imported = false;                 // from a file: quotes stand still
    int SortIndex = 0;
};

// Attributes of products that the workstation itself reads.
inline constexpr char kAttributeShortCode[] = "ShortCode";  // a numeric code that stands for the contract when typed
inline constexpr char kAttributeDataOnly[] = "DataOnly";    // "1": quoted, but no view finds a contract of that symbol
inline constexpr char kAttributeField[] = "Field";          // "Field73": what the market data state in that field,
                                                            // whatever the contract says; empty: nothing

struct TProductRow {
    std::string Symbol;  // exchange symbol form, unique over all exchanges
    std::string Exchange, Series;
    int ProductType = 0;        // 2 future, 3 option; others exist and are ignored by the payoff view
    std::string ExpiryDate;     // "yyyy/MM/dd"
    std::string StrikePrice;    // text as the exchange states it; empty for futures
    std::string CallPutCode;    // "C"/"P" or a numeric exchange code; empty for futures
    std::string LotSize;        // text; empty = not stated
    std::string SpreadCode;     // price-step table; empty = none stated
    std::string RelatedSymbol;  // e.g. the future behind an option; empty = none
    std::string Currency;
    std::optional<double> Multiplier;               // contract multiplier; absent = not stated
    std::optional<double> DisplayFactor;            // display price = real price x factor; absent = none
    std::map<std::string, std::string> Attributes;  // e.g. {"WeeklyOptionExp", "W1"}, {"ShortCode", "00005"}
};

struct TQuoteRow {
    std::string Symbol;
    std::optional<double> Bid, Ask, Last;
    std::optional<double> PreviousSettlement;
    std::string Time;      // "yyyy/MM/dd HH:mm:ss", exchange wall clock; empty = no data have ever come
    bool Silent = false;   // a contract that the market lists but for which it never sends data
    int DelaySeconds = 0;  // first data come this late after a subscription
};

// One band of a price-step table: steps of Step from Lower up to the next band's Lower.
struct TSpreadBandRow {
    std::string Code;
    int Kind = 1;  // 1 = bands; other kinds exist and are not walked
    double Lower = 0.0;
    double Step = 1.0;
};

struct TOrderOptionRow {
    std::string Exchange;
    std::string Option;
    int SortIndex = 0;
};

struct TMarketSet {
    std::vector<TExchangeRow> Exchanges;
    std::vector<TCurrencyRow> Currencies;
    std::vector<TSeriesRow> Series;
    std::vector<TProductRow> Products;
    std::vector<TQuoteRow> Quotes;
    std::vector<TSpreadBandRow> SpreadBands;
    std::vector<TOrderOptionRow> OrderOptions;
};

struct TUserRow {
    std::string Code, Name;
    int UserType = 0;
    bool AccountSelectable = true;
    std::string DefaultAccount;          // empty = none
    std::vector<std::string> Rights;     // "OEOpenC", "OEPrin", ...
    std::vector<std::string> Functions;  // "PayOff", ...
    std::vector<std::string> Accounts;
    int SortIndex = 0;
};

struct TAccountRow {
    std::string Code, Name;
};

// One shipped position: an opening execution.
struct TPositionRow {
    std::string Account, Symbol;
    double Qty = 0.0;       // signed
    double AvgPrice = 0.0;  // real price units
};

struct TTradingSet {
    std::vector<TUserRow> Users;
    std::vector<TAccountRow> Accounts;
    std::vector<TPositionRow> Positions;
};

}  // namespace ws
