// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// One write to the store: everything between construction and Commit, or nothing of it.
// Rows are put with prepared statements; 20,000 of them take well under a second.

#include <string>

#include "workstation/store/Store.h"

namespace ws {

class TStoreTransaction {
public:
    // Takes the write lock at once. Throws EStoreError (locked) when another program holds it. The store must
    // outlive the transaction, and only one may be open on a store.
    explicit TStoreTransaction(TStore& Store);
    ~TStoreTransaction();  // rolls back what was not committed
    TStoreTransaction(const TStoreTransaction&) = delete;
    TStoreTransaction& operator=(const TStoreTransaction&) = delete;

    void Commit();  // durable on disk when it returns

    // Add the row or overwrite the one with the same key: exchange, currency, account, user by code; series by
    // exchange and code; product and quote by symbol (a product keeps its place in the list; its attributes are
    // replaced); band by code and lower edge; order option by exchange and option; opening position by account and
    // symbol.
    void Put(const TExchangeRow& Row);
    void Put(const TCurrencyRow& Row);
    void Put(const TSeriesRow& Row);
    void Put(const TProductRow& Row);
    void Put(const TQuoteRow& Row);
    void Put(const TSpreadBandRow& Row);
    void Put(const TOrderOptionRow& Row);
    void Put(const TUserRow& Row);
    void Put(const TAccountRow& Row, int SortIndex = 0);
    void Put(const TPositionRow& Row);  // an opening execution; trades stay

    // Orders and executions are added and never removed.
    std::string AddOrder(const TOrderRow& Row);   // gives the order its id; the row's own is not read
    void ChangeOrder(const TOrderRow& Row);       // state, what is filled, reason, time of the change; by id
    bool AddExecution(const TExecutionRow& Row);  // of an order; false: one of that id is there, nothing is written

    // Orders and executions in the contracts on the left, openings included, are in those on the right from now on.
    void RenameContracts(const std::map<std::string, std::string>& Symbols);

    // Each removes what hangs below it too: exchange -> series, order options; series -> products;
    // product -> attributes, quote. Executions stay. Removing what is not there does nothing.
    void RemoveExchange(const std::string& Exchange);
    void RemoveSeries(const std::string& Exchange, const std::string& Series);
    void RemoveProduct(const std::string& Symbol);
    void RemoveQuote(const std::string& Symbol);
    void RemoveQuotesOfSeries(const std::string& Exchange, const std::string& Series);
    void RemoveSpreadTable(const std::string& Code);
    void RemovePosition(const std::string& Account, const std::string& Symbol);  // the opening one
    void RemoveAllPositions();
    void RemoveMarket();   // every row of a TMarketSet
    void RemoveTrading();  // every row of a TTradingSet

    void PutMarket(const TMarketSet& Market);  // every row of the set
    void PutTrading(const TTradingSet& Trading);

    void WriteSetting(const std::string& Section, const std::string& Key, const std::string& Value);
    void WriteMeta(const std::string& Key, const std::string& Value);

    // A journal is made by its first change. Copying replaces the journals of the other workspace.
    void ChangeJournal(const TJournalKey& Key, const TJournalChange& Change);
    void CopyJournals(const std::string& FromWorkspace, const std::string& ToWorkspace);
    void RemoveJournals(const std::string& Workspace);
    void RemoveJournal(const TJournalKey& Key);

    void PutStrategy(const std::string& User, const TStrategyRow& Row);  // over one of that name
    void RemoveStrategy(const std::string& User, const std::string& Name);

    // Which stored contract stands for which contract of the sample files (SampleStore.h).
    void PutSampleSymbol(const std::string& Symbol, const std::string& BaseSymbol);
    void RemoveSampleSymbols();

private:
    TStore& FStore;  // borrowed, outlives the transaction
    bool FOpen = false;
};

}  // namespace ws
