// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/store/Store.h"

#include <cstdlib>
#include <utility>

#include "workstation/store/StoreImpl.h"
#include "workstation/store/StoreTransaction.h"

namespace ws {

TStore::TStore(std::unique_ptr<TImpl> Impl) : FImpl(std::move(Impl)) {}

TStore::~TStore() = default;

const std::string& TStore::FileName() const { return FImpl->FileName; }

void TStore::ReplaceMarket(const TMarketSet& Market) {
    TStoreTransaction Write(*this);
    Write.RemoveMarket();
    Write.PutMarket(Market);
    Write.Commit();
}

void TStore::ReplaceTrading(const TTradingSet& Trading) {
    TStoreTransaction Write(*this);
    Write.RemoveTrading();
    Write.PutTrading(Trading);
    Write.Commit();
}

TStoreTransaction::TStoreTransaction(TStore& Store) : FStore(Store) {
    TStore::TImpl& Impl = *FStore.FImpl;
    Translated(Impl.FileName, [&] { Impl.Db.exec("BEGIN IMMEDIATE"); });
    FOpen = true;
}

TStoreTransaction::~TStoreTransaction() {
    if (!FOpen) return;
    // A failure here means that the database library has rolled back by itself already.
    FStore.FImpl->Db.tryExec("ROLLBACK");
}

void TStoreTransaction::Commit() {
    TStore::TImpl& Impl = *FStore.FImpl;
    Translated(Impl.FileName, [&] { Impl.Db.exec("COMMIT"); });
    FOpen = false;
}

std::filesystem::path DefaultStorePath() {
    const auto Folder = [](const char* Name) {
        const char* Value = std::getenv(Name);
        return std::filesystem::path(Value ? Value : "");
    };
    std::filesystem::path Base = Folder("XDG_DATA_HOME");
    if (Base.empty() || Base.is_relative()) Base = Folder("HOME") / ".local" / "share";
    return Base / "ventiq-workstation" / "store.db";
}

}  // namespace ws
