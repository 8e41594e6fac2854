// SPDX-License-Identifier: GPL-3.0-or-later
// The files of the sample market, line by line. A line with anything wrong is left out and reported.
#include <algorithm>
#include <cmath>
#include <limits>
#include <set>
#include <utility>

#include "workstation/store/SampleDefinition.h"
#include "workstation/store/SampleLine.h"
#include "workstation/store/SamplePriceSteps.h"

namespace ws {
namespace {

constexpr double kHuge = 1e12;
constexpr int kFarthestMonth = 60;
constexpr long long kMostStrikes = 2000;  // of one ladder; more is a typing error

const std::string kWeekly = "WeeklyOptionExp";

class TSampleReader {
public:
    TSampleReader(const std::filesystem::path& Folder, TSampleDefinition& Definition,
                  std::vector<TLineProblem>& Problems)
        : FFolder(Folder), FSample(Definition), FProblems(Problems) {}

    // In this order, since later files name what earlier ones define.
    void ReadAll() {
        if (!ReadMain()) return;
        ReadCurrencies();
        ReadExchanges();
        ReadHolidays();
        ReadOrderOptions();
        ReadPriceSteps();
        ReadSeries();
        ReadFutures();
        ReadLadders();
        ReadSingles();
        ReadQuotes();
        ReadAccounts();
        ReadUsers();
        ReadPositions();
    }

private:
    bool ReadMain();
    void ReadCurrencies();
    void ReadExchanges();
    void ReadHolidays();
    void ReadOrderOptions();
    void ReadPriceSteps();
    void ReadSeries();
    void ReadFutures();
    void ReadLadders();
    void ReadSingles();
    void ReadQuotes();
    void ReadAccounts();
    void ReadUsers();
    void ReadPositions();

    void ReadContractCells(TSampleLine& Line, TContractLine& Contract);
    void ReadStrikes(TSampleLine& Line, TContractLine& Contract);
    void AddContracts(TSampleLine& Line, TContractLine Contract);
    std::string Known(TSampleLine& Line, const char* Column, const std::set<std::string>& Codes,
                      bool MayBeEmpty = false);
    bool First(TSampleLine& Line, std::set<std::string>& Seen, const std::string& What);

    // Every row of a file, as a TSampleLine.
    template <class TOnLine>
    void Each(const char* File, const std::vector<const char*>& Columns, TOnLine&& OnLine) {
        const TCsvTable Table = ReadSampleFile(FFolder, File, Columns, FProblems);
        for (const auto& Row : Table.Rows) {
            TSampleLine Line(Table, Row, FProblems);
            OnLine(Line);
        }
    }

    std::filesystem::path FFolder;
    TSampleDefinition& FSample;
    std::vector<TLineProblem>& FProblems;
    std::set<std::string> FCurrencies, FExchanges, FStepCodes, FAccounts, FUsers;
    std::set<std::string> FSymbols;     // of the base month
    std::set<std::string> FTypedCodes;  // what a user may type for a contract: symbols and short codes
};

std::string TSampleReader::Known(TSampleLine& Line, const char* Column, const std::set<std::string>& Codes,
                                 bool MayBeEmpty) {
    std::string Code = MayBeEmpty ? Line.Text(Column) : Line.Required(Column);
    if (!Code.empty() && !Codes.contains(Code)) Line.Fail(kLineUnknownCode, {Column, Code});
    return Code;
}

bool TSampleReader::First(TSampleLine& Line, std::set<std::string>& Seen, const std::string& What) {
    if (!Line.Good()) return false;
    if (!Seen.insert(What).second) Line.Fail(kLineTwice, {What});
    return Line.Good();
}

bool TSampleReader::ReadMain() {
    bool HasBase = false;
    Each("sample.csv", {"Name", "Value"}, [&](TSampleLine& Line) {
        const std::string Name = Line.Required("Name");
        const std::string Value = Line.Required("Value");
        if (Name == "Version") {
            FSample.Version = Value;
        } else if (Name == "BaseMonth") {
            const auto Month = YearMonthFromText(Value);
            if (!Month) return Line.Fail(kLineBadDate, {"BaseMonth", Value});
            FSample.Base = *Month;
            HasBase = true;
        } else {
            Line.Fail(kLineUnknownCode, {"Name", Name});
        }
    });
    if (!HasBase && FProblems.empty()) FProblems.push_back({"sample.csv", 0, kLineEmpty, {"BaseMonth"}});
    return HasBase;
}

void TSampleReader::ReadCurrencies() {
    Each("currencies.csv", {"Code", "NameEn", "NameHant", "NameHans"}, [&](TSampleLine& Line) {
        const TCurrencyRow Row{Line.Required("Code"), Line.Required("NameEn"), Line.Required("NameHant"),
                               Line.Required("NameHans")};
        if (First(Line, FCurrencies, Row.Code)) FSample.Market.Currencies.push_back(Row);
    });
}

void TSampleReader::ReadExchanges() {
    Each("exchanges.csv",
         {"Code", "NameEn", "NameHant", "NameHans", "Supported", "UtcOffsetMinutes", "ExpiryRule", "FutureSymbol",
          "OptionSymbol", "WeeklySymbol"},
         [&](TSampleLine& Line) {
             TExchangeRow Row;
             Row.Code = Line.Required("Code");
             Row.NameEn = Line.Required("NameEn");
             Row.NameHant = Line.Required("NameHant");
             Row.NameHans = Line.Required("NameHans");
             Row.Supported = Line.Flag("Supported", true);
             Row.UtcOffsetMinutes = Line.OptionalWhole("UtcOffsetMinutes", 0, -14 * 60, 14 * 60);
             Row.SortIndex = static_cast<int>(FSample.Market.Exchanges.size());
             const auto Expiry = ExpiryRuleFromText(Line.Required("ExpiryRule"));
             if (!Expiry) Line.Fail(kLineUnknownCode, {"ExpiryRule", Line.Text("ExpiryRule")});
             TContractRule Rule{Expiry.value_or(EExpiryRule::LastBusinessDay), Line.Text("FutureSymbol"),
                                Line.Text("OptionSymbol"), Line.Text("WeeklySymbol")};
             if (!First(Line, FExchanges, Row.Code)) return;
             FSample.Rules[Row.Code] = std::move(Rule);
             FSample.Market.Exchanges.push_back(std::move(Row));
         });
}

void TSampleReader::ReadHolidays() {
    Each("holidays.csv", {"Exchange", "Day", "Remark"}, [&](TSampleLine& Line) {
        const std::string Exchange = Known(Line, "Exchange", FExchanges);
        const std::string Day = Line.Required("Day");
        if (Line.Good() && !FSample.Holidays.Add(Exchange, Day)) Line.Fail(kLineBadDate, {"Day", Day});
    });
}

void TSampleReader::ReadOrderOptions() {
    std::set<std::string> Seen;
    Each("order-options.csv", {"Exchange", "Option"}, [&](TSampleLine& Line) {
        TOrderOptionRow Row{Known(Line, "Exchange", FExchanges), Line.Required("Option"), 0};
        if (!First(Line, Seen, Row.Exchange + " " + Row.Option)) return;
        Row.SortIndex = static_cast<int>(FSample.Market.OrderOptions.size());
        FSample.Market.OrderOptions.push_back(std::move(Row));
    });
}

void TSampleReader::ReadPriceSteps() {
    TSamplePriceSteps Steps = ws::ReadPriceSteps(FFolder, FProblems);
    FSample.Market.SpreadBands = std::move(Steps.Bands);
    FStepCodes = std::move(Steps.Codes);
}

void TSampleReader::ReadSeries() {
    std::set<std::string> Seen;
    Each("series.csv",
         {"Exchange", "Code", "NameEn", "NameHant", "NameHans", "Currency", "UnderlyingLast", "Volatility", "Decimals"},
         [&](TSampleLine& Line) {
             TSeriesRow Row;
             Row.Exchange = Known(Line, "Exchange", FExchanges);
             Row.Code = Line.Required("Code");
             Row.NameEn = Line.Required("NameEn");
             Row.NameHant = Line.Required("NameHant");
             Row.NameHans = Line.Required("NameHans");
             Row.Currency = Known(Line, "Currency", FCurrencies);
             Row.UnderlyingLast = Line.Number("UnderlyingLast", 1e-9, kHuge);
             Row.Volatility = Line.Number("Volatility", 0.001, 5.0);
             Row.Decimals = Line.Whole("Decimals", 0, 8);
             if (!First(Line, Seen, Row.Exchange + " " + Row.Code)) return;
             Row.SortIndex = static_cast<int>(FSample.Market.Series.size());
             FSample.Market.Series.push_back(std::move(Row));
         });
}

// The cells that futures, ladders and single contracts have in common.
void TSampleReader::ReadContractCells(TSampleLine& Line, TContractLine& Contract) {
    TProductRow& P = Contract.Common;
    P.Exchange = Known(Line, "Exchange", FExchanges);
    P.Series = Line.Required("Series");
    const TSeriesRow* Series = FSample.FindSeries(P.Exchange, P.Series);
    if (!Series)
        Line.Fail(kLineUnknownCode, {"Series", P.Series});
    else
        P.Currency = Series->Currency;
    Contract.Months = Line.WholeList("Months", 0, kFarthestMonth);
    P.LotSize = Line.Text("LotSize");
    Line.OptionalNumber("LotSize", 0, kHuge);
    P.SpreadCode = Known(Line, "PriceSteps", FStepCodes, true);
    P.Multiplier = Line.OptionalNumber("Multiplier", 1e-9, kHuge);
    P.DisplayFactor = Line.OptionalNumber("DisplayFactor", 1e-9, kHuge);
    for (const auto& Pair : Line.List("Attributes", ';')) {
        const std::size_t Equal = Pair.find('=');
        if (Equal == 0 || Equal == std::string::npos)
            Line.Fail(kLineBadText, {"Attributes", Pair});
        else
            P.Attributes[Pair.substr(0, Equal)] = Pair.substr(Equal + 1);
    }
    if (Contract.Week > 0) P.Attributes[kWeekly] = "W" + std::to_string(Contract.Week);
}

// Strikes are counted in the last decimal that the cells show, so that no sum of fractions creeps in, and all of
// them are written with that many decimals.
void TSampleReader::ReadStrikes(TSampleLine& Line, TContractLine& Contract) {
    constexpr const char* kColumns[] = {"FirstStrike", "LastStrike", "StrikeStep"};
    std::size_t Decimals = 0;
    for (const char* Column : kColumns) {
        const std::string Cell = Line.Text(Column);
        Line.Number(Column, 0, 1e9);
        const std::size_t Point = Cell.find('.');
        if (Point != std::string::npos) Decimals = std::max(Decimals, Cell.size() - Point - 1);
    }
    if (Decimals > 6) Line.Fail(kLineOutOfRange, {"StrikeStep", Line.Text("StrikeStep")});
    if (!Line.Good()) return;
    const double Scale = std::pow(10.0, static_cast<double>(Decimals));
    const auto Units = [&](const char* Column) { return std::llround(Line.Number(Column, 0, 1e9) * Scale); };
    const long long From = Units(kColumns[0]);
    const long long To = Units(kColumns[1]);
    const long long Step = Units(kColumns[2]);
    if (Step <= 0 || To < From || (To - From) % Step != 0 || (To - From) / Step >= kMostStrikes)
        return Line.Fail(kLineOutOfRange, {"StrikeStep", Line.Text("StrikeStep")});
    Contract.Strikes.clear();
    for (long long Strike = From; Strike <= To; Strike += Step) {
        std::string Text = std::to_string(Strike);
        if (Decimals > 0) {
            if (Text.size() <= Decimals) Text.insert(0, Decimals + 1 - Text.size(), '0');
            Text.insert(Text.size() - Decimals, ".");
        }
        Contract.Strikes.push_back(std::move(Text));
    }
}

// Keeps the line's contracts unless one of their symbols or short codes is taken.
void TSampleReader::AddContracts(TSampleLine& Line, TContractLine Contract) {
    if (Line.Good() && Contract.SymbolPattern.empty()) Line.Fail(kLineEmpty, {"Symbol"});
    if (!Line.Good()) return;
    std::set<std::string> Symbols, Typed;
    for (const auto& Product : ContractsOf(FSample, Contract, 0)) {
        if (FTypedCodes.contains(Product.Symbol) || !Typed.insert(Product.Symbol).second)
            return Line.Fail(kLineTwice, {Product.Symbol});
        Symbols.insert(Product.Symbol);
        const auto Code = Product.Attributes.find(kAttributeShortCode);
        if (Code == Product.Attributes.end()) continue;
        if (FTypedCodes.contains(Code->second) || !Typed.insert(Code->second).second)
            return Line.Fail(kLineTwice, {Code->second});
    }
    FSymbols.merge(Symbols);
    FTypedCodes.merge(Typed);
    FSample.Contracts.push_back(std::move(Contract));
}

void TSampleReader::ReadFutures() {
    Each("futures.csv",
         {"Exchange", "Series", "Months", "LotSize", "PriceSteps", "Multiplier", "DisplayFactor", "Attributes"},
         [&](TSampleLine& Line) {
             TContractLine Contract;
             Contract.Common.ProductType = 2;
             ReadContractCells(Line, Contract);
             Contract.SymbolPattern = FSample.Rules[Contract.Common.Exchange].FutureSymbol;
             AddContracts(Line, std::move(Contract));
         });
}

void TSampleReader::ReadLadders() {
    Each("ladders.csv",
         {"Exchange", "Series", "Months", "Week", "FirstStrike", "LastStrike", "StrikeStep", "LotSize", "PriceSteps",
          "Multiplier", "DisplayFactor", "CallCode", "PutCode", "Attributes"},
         [&](TSampleLine& Line) {
             TContractLine Contract;
             Contract.Common.ProductType = 3;
             Contract.Week = Line.OptionalWhole("Week", 0, 1, 4);
             ReadContractCells(Line, Contract);
             ReadStrikes(Line, Contract);
             Contract.CallPutCodes = {Line.Text("CallCode"), Line.Text("PutCode")};
             if (Contract.CallPutCodes[0].empty()) Contract.CallPutCodes[0] = "C";
             if (Contract.CallPutCodes[1].empty()) Contract.CallPutCodes[1] = "P";
             if (!IsCallCode(Contract.CallPutCodes[0]))
                 Line.Fail(kLineUnknownCode, {"CallCode", Contract.CallPutCodes[0]});
             if (!IsPutCode(Contract.CallPutCodes[1]))
                 Line.Fail(kLineUnknownCode, {"PutCode", Contract.CallPutCodes[1]});
             const TContractRule& Rule = FSample.Rules[Contract.Common.Exchange];
             Contract.SymbolPattern = Contract.Week > 0 ? Rule.WeeklySymbol : Rule.OptionSymbol;
             AddContracts(Line, std::move(Contract));
         });
}

void TSampleReader::ReadSingles() {
    Each("contracts.csv",
         {"Exchange", "Series", "Type", "Months", "Week", "Symbol", "Strike", "CallPut", "LotSize", "PriceSteps",
          "Multiplier", "DisplayFactor", "Attributes"},
         [&](TSampleLine& Line) {
             TContractLine Contract;
             Contract.Common.ProductType = Line.Whole("Type", 1, 99);
             Contract.Week = Line.OptionalWhole("Week", 0, 1, 4);
             ReadContractCells(Line, Contract);
             Contract.SymbolPattern = Line.Required("Symbol");
             if (Contract.Common.ProductType == 3) {
                 Line.Number("Strike", 0, 1e9);
                 Contract.Strikes = {Line.Text("Strike")};
                 Contract.CallPutCodes = {Line.Required("CallPut")};
                 const std::string& Code = Contract.CallPutCodes[0];
                 if (!IsCallCode(Code) && !IsPutCode(Code)) Line.Fail(kLineUnknownCode, {"CallPut", Code});
             }
             AddContracts(Line, std::move(Contract));
         });
}

void TSampleReader::ReadQuotes() {
    std::set<std::string> Seen;
    Each("quotes.csv", {"Symbol", "Bid", "Ask", "Last", "PreviousSettlement", "Silent", "DelaySeconds"},
         [&](TSampleLine& Line) {
             TQuoteRow Row;
             Row.Symbol = Known(Line, "Symbol", FSymbols);
             Row.Bid = Line.OptionalNumber("Bid", -kHuge, kHuge);
             Row.Ask = Line.OptionalNumber("Ask", -kHuge, kHuge);
             Row.Last = Line.OptionalNumber("Last", -kHuge, kHuge);
             Row.PreviousSettlement = Line.OptionalNumber("PreviousSettlement", -kHuge, kHuge);
             Row.Silent = Line.Flag("Silent", false);
             Row.DelaySeconds = Line.OptionalWhole("DelaySeconds", 0, 0, 3600);
             if (First(Line, Seen, Row.Symbol)) FSample.Market.Quotes.push_back(std::move(Row));
         });
}

void TSampleReader::ReadAccounts() {
    Each("accounts.csv", {"Code", "Name"}, [&](TSampleLine& Line) {
        const TAccountRow Row{Line.Required("Code"), Line.Required("Name")};
        if (First(Line, FAccounts, Row.Code)) FSample.Trading.Accounts.push_back(Row);
    });
}

void TSampleReader::ReadUsers() {
    Each("users.csv",
         {"Code", "Name", "UserType", "AccountSelectable", "Accounts", "DefaultAccount", "Rights", "Functions"},
         [&](TSampleLine& Line) {
             TUserRow Row;
             Row.Code = Line.Required("Code");
             Row.Name = Line.Required("Name");
             Row.UserType = Line.Whole("UserType", 0, 99);
             Row.AccountSelectable = Line.Flag("AccountSelectable", true);
             Row.Accounts = Line.List("Accounts");
             Row.DefaultAccount = Line.Text("DefaultAccount");
             Row.Rights = Line.List("Rights");
             Row.Functions = Line.List("Functions");
             for (const auto& Account : Row.Accounts)
                 if (!FAccounts.contains(Account)) Line.Fail(kLineUnknownCode, {"Accounts", Account});
             if (!Row.DefaultAccount.empty() &&
                 std::count(Row.Accounts.begin(), Row.Accounts.end(), Row.DefaultAccount) == 0)
                 Line.Fail(kLineUnknownCode, {"DefaultAccount", Row.DefaultAccount});
             if (!First(Line, FUsers, Row.Code)) return;
             Row.SortIndex = static_cast<int>(FSample.Trading.Users.size());
             FSample.Trading.Users.push_back(std::move(Row));
         });
}

void TSampleReader::ReadPositions() {
    std::set<std::string> Seen;
    Each("positions.csv", {"Account", "Symbol", "Qty", "AvgPrice"}, [&](TSampleLine& Line) {
        TPositionRow Row;
        Row.Account = Known(Line, "Account", FAccounts);
        Row.Symbol = Known(Line, "Symbol", FSymbols);
        Row.Qty = Line.Number("Qty", -kHuge, kHuge);
        Row.AvgPrice = Line.Number("AvgPrice", -kHuge, kHuge);
        if (First(Line, Seen, Row.Account + " " + Row.Symbol)) FSample.Trading.Positions.push_back(std::move(Row));
    });
}

}  // namespace

void ReadSample(const std::filesystem::path& Folder, TSampleDefinition& Definition,
                std::vector<TLineProblem>& Problems) {
    TSampleReader(Folder, Definition, Problems).ReadAll();
}

}  // namespace ws
