// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/market/ChainStore.h"

#include "workstation/store/StoreTransaction.h"

namespace ws {

namespace {

constexpr std::size_t kRowsPerReport = 1000;

class TProgressCounter {
public:
    TProgressCounter(const TStoreProgress& Progress, const std::string& FileName, std::size_t Total)
        : FProgress(Progress), FFileName(FileName), FTotal(Total) {}
    void Count() {
        ++FDone;
        if (FProgress && (FDone % kRowsPerReport == 0 || FDone == FTotal) && !FProgress(FDone, FTotal))
            throw EMarketRefusal({kImportCancelled, {FFileName}});
    }

private:
    const TStoreProgress& FProgress;
    const std::string& FFileName;
    std::size_t FDone = 0, FTotal;
};

}  // namespace

TChainChanges ApplyChainImport(TStore& Store, const TChainFile& Chain, std::set<std::string> KeptSymbols,
                               const TTextTable& Names, const TStoreProgress& Progress) {
    TStoreTransaction Transaction(Store);  // first: nobody changes between what is read here and what is written
    KeptSymbols.merge(Store.HeldSymbols());
    TChainChanges Changes = PlanChainImport(Chain, Store.LoadMarket(), KeptSymbols, Names);
    TProgressCounter Counter(Progress, Chain.FileName,
                             Changes.RemovedProducts.size() + Changes.Products.size() + Changes.Quotes.size());
    Transaction.Put(Changes.Exchange);
    Transaction.Put(Changes.Currency);
    for (const TSpreadBandRow& Row : Changes.SpreadBands) Transaction.Put(Row);
    for (const TSeriesRow& Row : Changes.Series) Transaction.Put(Row);
    for (const std::string& Symbol : Changes.RemovedProducts) Transaction.RemoveProduct(Symbol), Counter.Count();
    for (const TProductRow& Row : Changes.Products) Transaction.Put(Row), Counter.Count();
    for (const TQuoteRow& Row : Changes.Quotes) Transaction.Put(Row), Counter.Count();
    Transaction.Commit();
    return Changes;
}

}  // namespace ws
