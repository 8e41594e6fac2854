// SPDX-License-Identifier: GPL-3.0-or-later
// Reading and writing the rows of a TMarketSet.
#include "workstation/store/StoreImpl.h"
#include "workstation/store/StoreTransaction.h"

namespace ws {
namespace {

constexpr char kPutExchange[] =
    "INSERT INTO exchange (code, name_en, name_hant, name_hans, supported, market_day, sort_index, utc_offset)"
    " VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8) ON CONFLICT (code) DO UPDATE SET name_en = excluded.name_en,"
    " name_hant = excluded.name_hant, name_hans = excluded.name_hans, supported = excluded.supported,"
    " market_day = excluded.market_day, sort_index = excluded.sort_index, utc_offset = excluded.utc_offset";
constexpr char kPutCurrency[] =
    "INSERT INTO currency (code, name_en, name_hant, name_hans) VALUES (?1, ?2, ?3, ?4) ON CONFLICT (code)"
    " DO UPDATE SET name_en = excluded.name_en, name_hant = excluded.name_hant, name_hans = excluded.name_hans";
constexpr char kPutSeries[] =
    "INSERT OR REPLACE INTO series (exchange, code, name_en, name_hant, name_hans, currency, underlying_last,"
    " volatility, decimals, imported, sort_index) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11)";
constexpr char kPutProduct[] =
    "INSERT INTO product (symbol, exchange, series, product_type, expiry_date, strike_price, call_put_code, lot_size,"
    " spread_code, related_symbol, currency, multiplier, display_factor)"
    " VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13) ON CONFLICT (symbol) DO UPDATE SET"
    " exchange = excluded.exchange, series = excluded.series, product_type = excluded.product_type,"
    " expiry_date = excluded.expiry_date, strike_price = excluded.strike_price,"
    " call_put_code = excluded.call_put_code, lot_size = excluded.lot_size, spread_code = excluded.spread_code,"
    " related_symbol = excluded.related_symbol, currency = excluded.currency, multiplier = excluded.multiplier,"
    " display_factor = excluded.display_factor";
constexpr char kProductColumns[] =
    "SELECT symbol, exchange, series, product_type, expiry_date, strike_price, call_put_code, lot_size,"
    " spread_code, related_symbol, currency, multiplier, display_factor FROM product";
constexpr char kPutAttribute[] = "INSERT INTO product_attribute (symbol, name, value) VALUES (?1, ?2, ?3)";
constexpr char kPutQuote[] =
    "INSERT OR REPLACE INTO quote (symbol, bid, ask, last, previous_settlement, time, silent, delay_seconds)"
    " VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8)";
constexpr char kPutBand[] = "INSERT OR REPLACE INTO spread_band (code, kind, lower, step) VALUES (?1, ?2, ?3, ?4)";
constexpr char kPutOption[] = "INSERT OR REPLACE INTO order_option (exchange, option, sort_index) VALUES (?1, ?2, ?3)";

constexpr char kDropAttributes[] = "DELETE FROM product_attribute WHERE symbol = ?1";
constexpr char kDropQuote[] = "DELETE FROM quote WHERE symbol = ?1";
constexpr char kDropProduct[] = "DELETE FROM product WHERE symbol = ?1";
constexpr char kDropSeries[] = "DELETE FROM series WHERE exchange = ?1 AND code = ?2";
constexpr char kDropSeriesProducts[] = "DELETE FROM product WHERE exchange = ?1 AND series = ?2";
constexpr char kDropSeriesAttributes[] =
    "DELETE FROM product_attribute WHERE symbol IN (SELECT symbol FROM product WHERE exchange = ?1 AND series = ?2)";
constexpr char kDropSeriesQuotes[] =
    "DELETE FROM quote WHERE symbol IN (SELECT symbol FROM product WHERE exchange = ?1 AND series = ?2)";
constexpr char kDropExchange[] = "DELETE FROM exchange WHERE code = ?1";
constexpr char kDropExchangeSeries[] = "DELETE FROM series WHERE exchange = ?1";
constexpr char kDropExchangeOptions[] = "DELETE FROM order_option WHERE exchange = ?1";
constexpr char kDropExchangeProducts[] = "DELETE FROM product WHERE exchange = ?1";
constexpr char kDropExchangeAttributes[] =
    "DELETE FROM product_attribute WHERE symbol IN (SELECT symbol FROM product WHERE exchange = ?1)";
constexpr char kDropExchangeQuotes[] =
    "DELETE FROM quote WHERE symbol IN (SELECT symbol FROM product WHERE exchange = ?1)";
constexpr char kDropBands[] = "DELETE FROM spread_band WHERE code = ?1";
constexpr const char* kDropMarket[] = {
    "DELETE FROM quote",    "DELETE FROM product_attribute", "DELETE FROM product",     "DELETE FROM series",
    "DELETE FROM exchange", "DELETE FROM currency",          "DELETE FROM spread_band", "DELETE FROM order_option"};

TProductRow ReadProduct(SQLite::Statement& S) {
    TProductRow Row;
    Row.Symbol = TextAt(S, 0);
    Row.Exchange = TextAt(S, 1);
    Row.Series = TextAt(S, 2);
    Row.ProductType = IntAt(S, 3);
    Row.ExpiryDate = TextAt(S, 4);
    Row.StrikePrice = TextAt(S, 5);
    Row.CallPutCode = TextAt(S, 6);
    Row.LotSize = TextAt(S, 7);
    Row.SpreadCode = TextAt(S, 8);
    Row.RelatedSymbol = TextAt(S, 9);
    Row.Currency = TextAt(S, 10);
    Row.Multiplier = OptionalAt(S, 11);
    Row.DisplayFactor = OptionalAt(S, 12);
    return Row;
}

TSeriesRow ReadSeries(SQLite::Statement& S) {
    TSeriesRow Row;
    Row.Exchange = TextAt(S, 0);
    Row.Code = TextAt(S, 1);
    Row.NameEn = TextAt(S, 2);
    Row.NameHant = TextAt(S, 3);
    Row.NameHans = TextAt(S, 4);
    Row.Currency = TextAt(S, 5);
    Row.UnderlyingLast = OptionalAt(S, 6);
    Row.Volatility = DoubleAt(S, 7);
    Row.Decimals = IntAt(S, 8);
    Row.Imported = IntAt(S, 9) != 0;
    Row.SortIndex = IntAt(S, 10);
    return Row;
}

TQuoteRow ReadQuote(SQLite::Statement& S) {
    TQuoteRow Row;
    Row.Symbol = TextAt(S, 0);
    Row.Bid = OptionalAt(S, 1);
    Row.Ask = OptionalAt(S, 2);
    Row.Last = OptionalAt(S, 3);
    Row.PreviousSettlement = OptionalAt(S, 4);
    Row.Time = TextAt(S, 5);
    Row.Silent = IntAt(S, 6) != 0;
    Row.DelaySeconds = IntAt(S, 7);
    return Row;
}

}  // namespace

TMarketSet TStore::LoadMarket() const {
    TMarketSet M;
    std::unordered_map<std::string, std::size_t> Place;
    TImpl& Db = *FImpl;
    Db.Each(
        "SELECT code, name_en, name_hant, name_hans, supported, market_day, sort_index, utc_offset FROM exchange"
        " ORDER BY sort_index, code",
        [&](SQLite::Statement& S) {
            M.Exchanges.push_back({TextAt(S, 0), TextAt(S, 1), TextAt(S, 2), TextAt(S, 3), IntAt(S, 4) != 0,
                                   TextAt(S, 5), IntAt(S, 6), IntAt(S, 7)});
        });
    Db.Each("SELECT code, name_en, name_hant, name_hans FROM currency ORDER BY code", [&](SQLite::Statement& S) {
        M.Currencies.push_back({TextAt(S, 0), TextAt(S, 1), TextAt(S, 2), TextAt(S, 3)});
    });
    Db.Each(
        "SELECT exchange, code, name_en, name_hant, name_hans, currency, underlying_last, volatility, decimals,"
        " imported, sort_index FROM series ORDER BY exchange, sort_index, code",
        [&](SQLite::Statement& S) { M.Series.push_back(ReadSeries(S)); });
    Db.Each((std::string(kProductColumns) + " ORDER BY id").c_str(), [&](SQLite::Statement& S) {
        M.Products.push_back(ReadProduct(S));
        Place[M.Products.back().Symbol] = M.Products.size() - 1;
    });
    Db.Each("SELECT symbol, name, value FROM product_attribute", [&](SQLite::Statement& S) {
        const auto It = Place.find(TextAt(S, 0));
        if (It != Place.end()) M.Products[It->second].Attributes[TextAt(S, 1)] = TextAt(S, 2);
    });
    Db.Each(
        "SELECT symbol, bid, ask, last, previous_settlement, time, silent, delay_seconds FROM quote"
        " ORDER BY symbol",
        [&](SQLite::Statement& S) { M.Quotes.push_back(ReadQuote(S)); });
    Db.Each("SELECT code, kind, lower, step FROM spread_band ORDER BY code, lower", [&](SQLite::Statement& S) {
        M.SpreadBands.push_back({TextAt(S, 0), IntAt(S, 1), DoubleAt(S, 2), DoubleAt(S, 3)});
    });
    Db.Each("SELECT exchange, option, sort_index FROM order_option ORDER BY exchange, sort_index, option",
            [&](SQLite::Statement& S) {
                M.OrderOptions.push_back({TextAt(S, 0), TextAt(S, 1), IntAt(S, 2)});
            });
    return M;
}

std::optional<TProductRow> TStore::FindProduct(const std::string& Symbol) const {
    std::optional<TProductRow> Found;
    FImpl->Each((std::string(kProductColumns) + " WHERE symbol = ?1").c_str(),
                [&](SQLite::Statement& S) { Found = ReadProduct(S); }, Symbol);
    if (Found)
        FImpl->Each(
            "SELECT name, value FROM product_attribute WHERE symbol = ?1",
            [&](SQLite::Statement& S) { Found->Attributes[TextAt(S, 0)] = TextAt(S, 1); }, Symbol);
    return Found;
}

void TStoreTransaction::Put(const TExchangeRow& Row) {
    FStore.FImpl->Run(kPutExchange, Row.Code, Row.NameEn, Row.NameHant, Row.NameHans, Row.Supported, Row.MarketDay,
                      Row.SortIndex, Row.UtcOffsetMinutes);
}

void TStoreTransaction::Put(const TCurrencyRow& Row) {
    FStore.FImpl->Run(kPutCurrency, Row.Code, Row.NameEn, Row.NameHant, Row.NameHans);
}

void TStoreTransaction::Put(const TSeriesRow& Row) {
    FStore.FImpl->Run(kPutSeries, Row.Exchange, Row.Code, Row.NameEn, Row.NameHant, Row.NameHans, Row.Currency,
                      Row.UnderlyingLast, Row.Volatility, Row.Decimals, Row.Imported, Row.SortIndex);
}

void TStoreTransaction::Put(const TProductRow& Row) {
    TStore::TImpl& Db = *FStore.FImpl;
    Db.Run(kPutProduct, Row.Symbol, Row.Exchange, Row.Series, Row.ProductType, Row.ExpiryDate, Row.StrikePrice,
           Row.CallPutCode, Row.LotSize, Row.SpreadCode, Row.RelatedSymbol, Row.Currency, Row.Multiplier,
           Row.DisplayFactor);
    Db.Run(kDropAttributes, Row.Symbol);
    for (const auto& [Name, Value] : Row.Attributes) Db.Run(kPutAttribute, Row.Symbol, Name, Value);
}

void TStoreTransaction::Put(const TQuoteRow& Row) {
    FStore.FImpl->Run(kPutQuote, Row.Symbol, Row.Bid, Row.Ask, Row.Last, Row.PreviousSettlement, Row.Time, Row.Silent,
                      Row.DelaySeconds);
}

void TStoreTransaction::Put(const TSpreadBandRow& Row) {
    FStore.FImpl->Run(kPutBand, Row.Code, Row.Kind, Row.Lower, Row.Step);
}

void TStoreTransaction::Put(const TOrderOptionRow& Row) {
    FStore.FImpl->Run(kPutOption, Row.Exchange, Row.Option, Row.SortIndex);
}

void TStoreTransaction::RemoveExchange(const std::string& Exchange) {
    for (const char* Sql : {kDropExchangeQuotes, kDropExchangeAttributes, kDropExchangeProducts, kDropExchangeSeries,
                            kDropExchangeOptions, kDropExchange})
        FStore.FImpl->Run(Sql, Exchange);
}

void TStoreTransaction::RemoveSeries(const std::string& Exchange, const std::string& Series) {
    for (const char* Sql : {kDropSeriesQuotes, kDropSeriesAttributes, kDropSeriesProducts, kDropSeries})
        FStore.FImpl->Run(Sql, Exchange, Series);
}

void TStoreTransaction::RemoveProduct(const std::string& Symbol) {
    for (const char* Sql : {kDropQuote, kDropAttributes, kDropProduct}) FStore.FImpl->Run(Sql, Symbol);
}

void TStoreTransaction::RemoveQuote(const std::string& Symbol) { FStore.FImpl->Run(kDropQuote, Symbol); }

void TStoreTransaction::RemoveQuotesOfSeries(const std::string& Exchange, const std::string& Series) {
    FStore.FImpl->Run(kDropSeriesQuotes, Exchange, Series);
}

void TStoreTransaction::RemoveSpreadTable(const std::string& Code) { FStore.FImpl->Run(kDropBands, Code); }

void TStoreTransaction::RemoveMarket() {
    for (const char* Sql : kDropMarket) FStore.FImpl->Run(Sql);
}

void TStoreTransaction::PutMarket(const TMarketSet& Market) {
    for (const auto& Row : Market.Exchanges) Put(Row);
    for (const auto& Row : Market.Currencies) Put(Row);
    for (const auto& Row : Market.Series) Put(Row);
    for (const auto& Row : Market.Products) Put(Row);
    for (const auto& Row : Market.Quotes) Put(Row);
    for (const auto& Row : Market.SpreadBands) Put(Row);
    for (const auto& Row : Market.OrderOptions) Put(Row);
}

}  // namespace ws
