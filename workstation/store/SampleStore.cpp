// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/store/SampleStore.h"

#include <set>
#include <utility>

#include "workstation/store/MarketCalendar.h"
#include "workstation/store/SampleLine.h"
#include "workstation/store/StoreTransaction.h"

namespace ws {
namespace {

void TellProblems(const TSampleMarket& Sample, const std::filesystem::path& Folder, TSampleOutcome& Outcome) {
    if (Sample.Empty()) Outcome.Notices.push_back({kSampleMissing, {Folder.string()}, true});
    for (const auto& Problem : Sample.Problems()) {
        TStoreNotice Notice{Problem.Key, {Problem.File, std::to_string(Problem.Line)}, true};
        Notice.Args.insert(Notice.Args.end(), Problem.Args.begin(), Problem.Args.end());
        Outcome.Notices.push_back(std::move(Notice));
    }
}

void PutSampleProducts(TStoreTransaction& Write, const std::vector<TProductRow>& Products,
                       const std::vector<std::string>& BaseSymbols) {
    for (std::size_t i = 0; i < Products.size(); ++i) {
        Write.Put(Products[i]);
        Write.PutSampleSymbol(Products[i].Symbol, BaseSymbols[i]);
    }
}

void PutSampleMeta(TStoreTransaction& Write, const TSampleMarket& Sample, int Months) {
    Write.WriteMeta(kMetaSampleVersion, Sample.Version());
    Write.WriteMeta(kMetaSampleMonths, std::to_string(Months));
    Write.WriteMeta(kMetaSampleFirstExpiry, Sample.FirstExpiry(Months));
}

// The codes of exchanges of which the store holds imported series.
std::set<std::string> ImportedExchanges(const TMarketSet& Market) {
    std::set<std::string> Codes;
    for (const auto& Series : Market.Series)
        if (Series.Imported) Codes.insert(Series.Exchange);
    return Codes;
}

// Takes everything out that came from a sample; what was imported stays.
void RemoveSample(TStoreTransaction& Write, const TStore& Store) {
    const TMarketSet Held = Store.LoadMarket();
    const std::set<std::string> Imported = ImportedExchanges(Held);
    for (const auto& Exchange : Held.Exchanges)
        if (!Imported.contains(Exchange.Code)) Write.RemoveExchange(Exchange.Code);
    for (const auto& Series : Held.Series)
        if (!Series.Imported) Write.RemoveSeries(Series.Exchange, Series.Code);
    std::set<std::string> ImportedSteps;
    for (const auto& Product : Held.Products)
        if (Imported.contains(Product.Exchange)) ImportedSteps.insert(Product.SpreadCode);
    for (const auto& Band : Held.SpreadBands)
        if (!ImportedSteps.contains(Band.Code)) Write.RemoveSpreadTable(Band.Code);
    Write.RemoveSampleSymbols();
    Write.RemoveTrading();
}

void PutSample(TStoreTransaction& Write, TSampleSet Set, const std::set<std::string>& Imported) {
    // An exchange that both the sample and an import know stays as imported: its market day belongs to its quotes.
    std::erase_if(Set.Market.Exchanges, [&](const TExchangeRow& Row) { return Imported.contains(Row.Code); });
    PutSampleProducts(Write, std::exchange(Set.Market.Products, {}), Set.BaseSymbols);
    for (const auto& Band : Set.Market.SpreadBands) Write.RemoveSpreadTable(Band.Code);  // bands an edit took out
    Write.PutMarket(Set.Market);
    Write.PutTrading(Set.Trading);
}

int StoredMonths(const TStore& Store) {
    return WholeFromText(Store.ReadMeta(kMetaSampleMonths).value_or("0")).value_or(0);
}

std::map<std::string, std::string> BaseSymbols(const TStore& Store) {
    std::map<std::string, std::string> Base;  // symbol -> base symbol
    for (const auto& [BaseSymbol, Symbol] : Store.SampleSymbols()) Base[Symbol] = BaseSymbol;
    return Base;
}

// From the contracts of the sample in the store to the same contracts of Set.
std::map<std::string, std::string> SymbolMapTo(const TSampleSet& Set, const std::map<std::string, std::string>& Base) {
    std::map<std::string, std::string> Now, Moved;  // base symbol -> new symbol; old symbol -> new symbol
    for (std::size_t i = 0; i < Set.BaseSymbols.size(); ++i) Now[Set.BaseSymbols[i]] = Set.Market.Products[i].Symbol;
    for (const auto& [Old, BaseSymbol] : Base)
        if (const auto It = Now.find(BaseSymbol); It != Now.end()) Moved[Old] = It->second;
    return Moved;
}

// An opening position in a contract that the files list no more goes, unless somebody has traded on it.
void DropUnlistedPositions(TStoreTransaction& Write, const TStore& Store,
                           const std::map<std::string, std::string>& Base, TSampleOutcome& Outcome) {
    std::set<std::pair<std::string, std::string>> Traded;
    for (const auto& Row : Store.LoadExecutions())
        if (!Row.OrderId.empty()) Traded.insert({Row.Account, Row.Symbol});
    for (const auto& Row : Store.LoadTrading().Positions) {
        if (!Base.contains(Row.Symbol) || Outcome.SymbolMap.contains(Row.Symbol)) continue;
        if (Traded.contains({Row.Account, Row.Symbol})) continue;
        Write.RemovePosition(Row.Account, Row.Symbol);
        Outcome.Notices.push_back({kSamplePositionDropped, {Row.Account, Row.Symbol}});
    }
}

std::vector<TQuoteRow> TakeQuotes(TStoreTransaction& Write, const TStore& Store,
                                  const std::map<std::string, std::string>& Base) {
    std::vector<TQuoteRow> Taken;
    for (auto& Row : Store.LoadMarket().Quotes)
        if (Base.contains(Row.Symbol)) Taken.push_back(Row);
    for (const auto& [Symbol, Ignored] : Base) Write.RemoveProduct(Symbol);
    return Taken;
}

void MoveSample(TStoreTransaction& Write, const TStore& Store, const TSampleMarket& Sample, int From, int To,
                TSampleOutcome& Outcome) {
    const auto Base = BaseSymbols(Store);
    const TSampleSet Set = Sample.Expand(To);
    Outcome.SymbolMap = SymbolMapTo(Set, Base);
    DropUnlistedPositions(Write, Store, Base, Outcome);
    Write.RenameContracts(Outcome.SymbolMap);
    std::vector<TQuoteRow> Quotes = TakeQuotes(Write, Store, Base);
    Write.RemoveSampleSymbols();
    PutSampleProducts(Write, Set.Market.Products, Set.BaseSymbols);
    for (auto& Row : Quotes) {
        const auto It = Outcome.SymbolMap.find(Row.Symbol);
        if (It == Outcome.SymbolMap.end()) continue;
        Row.Symbol = It->second;
        Row.Time = ShiftedDateText(Row.Time, To - From);
        Write.Put(Row);
    }
    PutSampleMeta(Write, Sample, To);
    Outcome.MonthsRolled = To - From;
    Outcome.Notices.push_back({kSampleRolled, {std::to_string(To - From), Sample.FirstExpiry(To)}});
}

void CreateSample(TStoreTransaction& Write, const TStore& Store, const TSampleMarket& Sample, const std::string& Today,
                  TSampleOutcome& Outcome) {
    const int Months = Sample.MonthsFor(Today);
    const std::set<std::string> Imported = ImportedExchanges(Store.LoadMarket());
    std::vector<TPositionRow> Kept;
    for (const auto& Row : Store.LoadTrading().Positions)
        if (const auto Product = Store.FindProduct(Row.Symbol); Product && Imported.contains(Product->Exchange))
            Kept.push_back(Row);
    TSampleSet Set = Sample.Expand(Months);
    const auto Moved = SymbolMapTo(Set, BaseSymbols(Store));
    RemoveSample(Write, Store);
    Write.RenameContracts(Moved);  // what is left: orders and their executions
    PutSample(Write, std::move(Set), Imported);
    for (const auto& Row : Kept) Write.Put(Row);
    PutSampleMeta(Write, Sample, Months);
    Outcome.Created = true;
    Outcome.MonthsRolled = Months;
    if (Months > 0) Outcome.Notices.push_back({kSampleRolled, {std::to_string(Months), Sample.FirstExpiry(Months)}});
}

bool IsUpToDate(const TStore& Store, const std::string& Today) {
    return Store.ReadMeta(kMetaSampleMonths) && Store.ReadMeta(kMetaSampleFirstExpiry).value_or("") >= Today;
}

}  // namespace

TSampleOutcome PrepareSampleMarket(TStore& Store, const std::filesystem::path& Folder, const std::string& Today) {
    TSampleOutcome Outcome;
    // An unaged sample needs no look at the files: a start after the first touches the database alone.
    if (IsUpToDate(Store, Today)) return Outcome;
    const TSampleMarket Sample(Folder);
    TellProblems(Sample, Folder, Outcome);
    if (Sample.Empty()) return Outcome;
    TStoreTransaction Write(Store);
    if (IsUpToDate(Store, Today)) return Outcome;  // another workstation was faster
    if (!Store.ReadMeta(kMetaSampleMonths)) {
        CreateSample(Write, Store, Sample, Today, Outcome);
    } else {
        const int From = StoredMonths(Store);
        const int To = Sample.MonthsFor(Today, From);
        if (To == From) return Outcome;
        MoveSample(Write, Store, Sample, From, To, Outcome);
    }
    Write.Commit();
    return Outcome;
}

TSampleOutcome ResetSampleMarket(TStore& Store, const std::filesystem::path& Folder, const std::string& Today) {
    TSampleOutcome Outcome;
    const TSampleMarket Sample(Folder);
    TellProblems(Sample, Folder, Outcome);
    if (Sample.Empty()) return Outcome;
    TStoreTransaction Write(Store);
    CreateSample(Write, Store, Sample, Today, Outcome);
    Write.Commit();
    return Outcome;
}

}  // namespace ws
