// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The workstation's one database file: market, users, accounts, orders, executions, settings.
// One TStore is one connection; use it from one thread. Every operation that touches the database throws
// EStoreError and nothing else. Writing happens in a TStoreTransaction (StoreTransaction.h); settings and
// meta values alone may be written without one.

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "workstation/market/MarketRows.h"
#include "workstation/store/StoreError.h"
#include "workstation/store/StoreJournal.h"
#include "workstation/trading/OrderTypes.h"

namespace ws {

class TStore;

struct TOpenedStore {
    std::unique_ptr<TStore> Store;      // owned, never null
    std::vector<TStoreNotice> Notices;  // e.g. that a damaged file was set aside
};

// (section, key) -> value
using TSettings = std::map<std::pair<std::string, std::string>, std::string>;

class TStore {
public:
    // Opens File, creating it and its folders when missing. Now ("yyyy/MM/dd HH:mm:ss", local) only dates the
    // name of a damaged file that is set aside: "<name>.corrupt-yyyyMMdd-HHmmss", never over an existing one.
    // Throws EStoreError: locked, read-only, newer schema, not a store, cannot be created. None of these
    // changes the file.
    static TOpenedStore OpenFile(const std::filesystem::path& File, const std::string& Now);

    // A copy of File in memory; without a file, an empty store in memory. Nothing is written to disk, a damaged
    // file included: the copy is then empty and a notice says so. Throws as OpenFile, but a file that cannot be
    // written is no error here.
    static TOpenedStore InMemoryCopyOf(const std::filesystem::path& File);

    // An empty store in memory.
    static std::unique_ptr<TStore> CreateInMemory();

    ~TStore();
    TStore(const TStore&) = delete;
    TStore& operator=(const TStore&) = delete;

    const std::string& FileName() const;  // as shown to the user; ":memory:" for a store in memory

    // The whole market / trading data, in listing order (exchanges, series, order options, users and accounts by
    // their sort index, products in the order in which they were first put).
    TMarketSet LoadMarket() const;
    TTradingSet LoadTrading() const;

    // Replace everything of that kind, in a transaction of its own.
    void ReplaceMarket(const TMarketSet& Market);
    void ReplaceTrading(const TTradingSet& Trading);

    std::vector<TOrderRow> LoadOrders() const;          // in the order in which they were added
    std::vector<TExecutionRow> LoadExecutions() const;  // openings first, then in the order in which they came
    std::set<std::string> HeldSymbols() const;          // held in any account, or with an order that has not ended
    std::optional<TProductRow> FindProduct(const std::string& Symbol) const;

    std::optional<std::string> ReadSetting(const std::string& Section, const std::string& Key) const;
    void WriteSetting(const std::string& Section, const std::string& Key, const std::string& Value);
    void RemoveSetting(const std::string& Section, const std::string& Key);
    TSettings LoadSettings() const;

    // The journal of a view (StoreJournal.h), oldest state first; without states where there is none.
    TJournalRows LoadJournal(const TJournalKey& Key) const;
    std::vector<TStrategyRow> LoadStrategies(const std::string& User) const;  // by name

    // The store's own notes, e.g. which sample it holds (keys: SampleStore.h).
    std::optional<std::string> ReadMeta(const std::string& Key) const;
    void WriteMeta(const std::string& Key, const std::string& Value);

    // The contract that stands today for one named in the sample files: "HSIZ6" -> "HSIF7" after a roll of one
    // month. Empty when the sample holds no such contract. Both directions as one map: base symbol -> symbol.
    std::string CurrentSampleSymbol(const std::string& BaseSymbol) const;
    std::map<std::string, std::string> SampleSymbols() const;

private:
    friend class TStoreTransaction;
    struct TImpl;
    explicit TStore(std::unique_ptr<TImpl> Impl);
    std::unique_ptr<TImpl> FImpl;
};

// $XDG_DATA_HOME/ventiq-workstation/store.db, or ~/.local/share/... where the variable is unset, empty or relative.
std::filesystem::path DefaultStorePath();

}  // namespace ws
