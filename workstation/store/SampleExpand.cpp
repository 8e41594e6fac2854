// SPDX-License-Identifier: GPL-3.0-or-later
// Laying the sample out for a month: dates, symbols, and everything that names a symbol.
#include <map>
#include <string_view>
#include <tuple>

#include "workstation/store/SampleDefinition.h"
#include "workstation/store/SampleMarket.h"

namespace ws {
namespace {

constexpr std::string_view kFutureMonths = "FGHJKMNQUVXZ";
constexpr std::string_view kCallMonths = "ABCDEFGHIJKL";
constexpr std::string_view kPutMonths = "MNOPQRSTUVWX";

constexpr int kMostMonths = 12 * 200;  // a clock further ahead than that is not followed

std::string_view MonthLetters(const TProductRow& Product) {
    if (IsCallCode(Product.CallPutCode)) return kCallMonths;
    if (IsPutCode(Product.CallPutCode)) return kPutMonths;
    return kFutureMonths;
}

bool BeginsWithOneOf(const std::string& Code, std::string_view Letters) {
    return !Code.empty() && Letters.find(Code.front()) != std::string_view::npos;
}

// The future of the same series and month stands behind an option.
void RelateOptionsToFutures(std::vector<TProductRow>& Products) {
    using TKey = std::tuple<std::string, std::string, std::string>;
    const auto KeyOf = [](const TProductRow& P) { return TKey{P.Exchange, P.Series, P.ExpiryDate.substr(0, 7)}; };
    std::map<TKey, std::string> Futures;
    for (const auto& P : Products)
        if (P.ProductType == 2) Futures.emplace(KeyOf(P), P.Symbol);
    for (auto& P : Products) {
        if (P.ProductType != 3) continue;
        const auto It = Futures.find(KeyOf(P));
        if (It != Futures.end()) P.RelatedSymbol = It->second;
    }
}

// Takes {U}, {K}, ... at the front of Rest and gives its text.
std::string Placeholder(std::string_view Name, const TProductRow& Product, const std::string& Date) {
    const std::size_t Month = static_cast<std::size_t>((Date[5] - '0') * 10 + (Date[6] - '0')) - 1;
    if (Name == "U") return Product.Series;
    if (Name == "K") return Product.StrikePrice;
    if (Name == "M") return std::string(1, MonthLetters(Product)[Month]);
    if (Name == "T") return IsPutCode(Product.CallPutCode) ? "P" : "C";
    if (Name == "y") return Date.substr(3, 1);
    if (Name == "yy") return Date.substr(2, 2);
    if (Name == "mm") return Date.substr(5, 2);
    if (Name == "dd") return Date.substr(8, 2);
    return {};
}

}  // namespace

bool IsCallCode(const std::string& Code) { return BeginsWithOneOf(Code, "16C"); }
bool IsPutCode(const std::string& Code) { return BeginsWithOneOf(Code, "27P"); }

const TSeriesRow* TSampleDefinition::FindSeries(const std::string& Exchange, const std::string& Code) const {
    for (const auto& Row : Market.Series)
        if (Row.Exchange == Exchange && Row.Code == Code) return &Row;
    return nullptr;
}

TDay TSampleDefinition::Expiry(const TContractLine& Line, TYearMonth Month) const {
    const std::string& Exchange = Line.Common.Exchange;
    if (Line.Week > 0) return WeeklyExpiry(Line.Week, Month, Holidays, Exchange);
    return MonthlyExpiry(Rules.at(Exchange).Expiry, Month, Holidays, Exchange);
}

std::string SymbolFromPattern(const std::string& Pattern, const TProductRow& Product, TDay Expiry) {
    const std::string Date = TextFromDay(Expiry);
    std::string Symbol;
    for (std::size_t i = 0; i < Pattern.size();) {
        const std::size_t End = Pattern[i] == '{' ? Pattern.find('}', i) : std::string::npos;
        if (End == std::string::npos) {
            Symbol += Pattern[i++];
        } else {
            Symbol += Placeholder(std::string_view(Pattern).substr(i + 1, End - i - 1), Product, Date);
            i = End + 1;
        }
    }
    return Symbol;
}

std::vector<TProductRow> ContractsOf(const TSampleDefinition& Definition, const TContractLine& Line, int Shift) {
    std::vector<TProductRow> Products;
    for (const int Offset : Line.Months) {
        const TDay Expiry = Definition.Expiry(Line, Definition.Base + std::chrono::months{Offset + Shift});
        for (const auto& Strike : Line.Strikes) {
            for (const auto& Code : Line.CallPutCodes) {
                TProductRow Row = Line.Common;
                Row.StrikePrice = Strike;
                Row.CallPutCode = Code;
                Row.ExpiryDate = TextFromDay(Expiry);
                Row.Symbol = SymbolFromPattern(Line.SymbolPattern, Row, Expiry);
                Products.push_back(std::move(Row));
            }
        }
    }
    return Products;
}

TSampleMarket::TSampleMarket(const std::filesystem::path& Folder) : FDefinition(std::make_unique<TSampleDefinition>()) {
    ReadSample(Folder, *FDefinition, FProblems);
}

TSampleMarket::~TSampleMarket() = default;
TSampleMarket::TSampleMarket(TSampleMarket&&) noexcept = default;
TSampleMarket& TSampleMarket::operator=(TSampleMarket&&) noexcept = default;

const std::vector<TLineProblem>& TSampleMarket::Problems() const { return FProblems; }
bool TSampleMarket::Empty() const { return FDefinition->Contracts.empty(); }
std::string TSampleMarket::Version() const { return FDefinition->Version; }
std::string TSampleMarket::BaseMonth() const { return TextFromYearMonth(FDefinition->Base); }

std::string TSampleMarket::FirstExpiry(int Months) const {
    std::string First;
    for (const auto& Line : FDefinition->Contracts) {
        for (const int Offset : Line.Months) {
            const auto Day = FDefinition->Expiry(Line, FDefinition->Base + std::chrono::months{Offset + Months});
            const std::string Text = TextFromDay(Day);
            if (First.empty() || Text < First) First = Text;
        }
    }
    return First;
}

int TSampleMarket::MonthsFor(const std::string& Today, int From) const {
    if (Empty() || !DayFromText(Today)) return From;
    int Months = From;
    while (Months - From < kMostMonths && FirstExpiry(Months) < Today) ++Months;
    return Months;
}

TSampleSet TSampleMarket::Expand(int Months) const {
    TSampleSet Set{FDefinition->Market, FDefinition->Trading, {}};
    std::map<std::string, std::string> Moved;  // base symbol -> symbol
    for (const auto& Line : FDefinition->Contracts) {
        const auto Base = ContractsOf(*FDefinition, Line, 0);
        auto Now = ContractsOf(*FDefinition, Line, Months);
        for (std::size_t i = 0; i < Now.size(); ++i) {
            Moved[Base[i].Symbol] = Now[i].Symbol;
            Set.BaseSymbols.push_back(Base[i].Symbol);
            Set.Market.Products.push_back(std::move(Now[i]));
        }
    }
    RelateOptionsToFutures(Set.Market.Products);
    for (auto& Row : Set.Market.Quotes) Row.Symbol = Moved.at(Row.Symbol);
    for (auto& Row : Set.Trading.Positions) Row.Symbol = Moved.at(Row.Symbol);
    return Set;
}

}  // namespace ws
