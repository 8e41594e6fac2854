// SPDX-License-Identifier: GPL-3.0-or-later
// Reading and writing what is kept of views and strategies.
#include "workstation/store/StoreImpl.h"
#include "workstation/store/StoreTransaction.h"

namespace ws {
namespace {

constexpr char kPutJournal[] =
    "INSERT INTO journal (workspace, instance, current) VALUES (?1, ?2, ?3)"
    " ON CONFLICT (workspace, instance) DO UPDATE SET current = excluded.current";
constexpr char kPutState[] =
    "INSERT INTO journal_state (journal, number, state)"
    " SELECT id, ?3, ?4 FROM journal WHERE workspace = ?1 AND instance = ?2"
    " ON CONFLICT (journal, number) DO UPDATE SET state = excluded.state";
constexpr char kDropStates[] =
    "DELETE FROM journal_state WHERE (number < ?3 OR number > ?4)"
    " AND journal = (SELECT id FROM journal WHERE workspace = ?1 AND instance = ?2)";

constexpr char kDropStatesOfInstance[] =
    "DELETE FROM journal_state WHERE journal = (SELECT id FROM journal WHERE workspace = ?1 AND instance = ?2)";
constexpr char kDropInstance[] = "DELETE FROM journal WHERE workspace = ?1 AND instance = ?2";
constexpr char kDropStatesOfWorkspace[] =
    "DELETE FROM journal_state WHERE journal IN (SELECT id FROM journal WHERE workspace = ?1)";
constexpr char kDropWorkspace[] = "DELETE FROM journal WHERE workspace = ?1";
constexpr char kCopyWorkspace[] =
    "INSERT INTO journal (workspace, instance, current)"
    " SELECT ?2, instance, current FROM journal WHERE workspace = ?1";
constexpr char kCopyStates[] =
    "INSERT INTO journal_state (journal, number, state) SELECT copy.id, journal_state.number, journal_state.state"
    " FROM journal_state JOIN journal ON journal.id = journal_state.journal AND journal.workspace = ?1"
    " JOIN journal AS copy ON copy.workspace = ?2 AND copy.instance = journal.instance";

constexpr char kPutStrategy[] =
    "INSERT INTO strategy (user, name, note, changed, state) VALUES (?1, ?2, ?3, ?4, ?5)"
    " ON CONFLICT (user, name) DO UPDATE SET note = excluded.note, changed = excluded.changed, state = excluded.state";
constexpr char kDropStrategy[] = "DELETE FROM strategy WHERE user = ?1 AND name = ?2";

}  // namespace

TJournalRows TStore::LoadJournal(const TJournalKey& Key) const {
    TJournalRows Rows;
    FImpl->Each(
        "SELECT number, state, current FROM journal JOIN journal_state ON journal = id"
        " WHERE workspace = ?1 AND instance = ?2 ORDER BY number",
        [&](SQLite::Statement& S) {
            if (Rows.States.empty()) Rows.First = Int64At(S, 0);
            Rows.States.push_back(TextAt(S, 1));
            Rows.Current = Int64At(S, 2);
        },
        Key.Workspace, Key.Instance);
    return Rows;
}

std::vector<TStrategyRow> TStore::LoadStrategies(const std::string& User) const {
    std::vector<TStrategyRow> Rows;
    FImpl->Each(
        "SELECT name, note, changed, state FROM strategy WHERE user = ?1 ORDER BY name",
        [&](SQLite::Statement& S) {
            Rows.push_back({TextAt(S, 0), TextAt(S, 1), Int64At(S, 2), TextAt(S, 3)});
        },
        User);
    return Rows;
}

void TStoreTransaction::ChangeJournal(const TJournalKey& Key, const TJournalChange& Change) {
    TStore::TImpl& Db = *FStore.FImpl;
    Db.Run(kPutJournal, Key.Workspace, Key.Instance, Change.Current);
    Db.Run(kDropStates, Key.Workspace, Key.Instance, Change.First, Change.Last);
    for (const auto& [Number, State] : Change.States) Db.Run(kPutState, Key.Workspace, Key.Instance, Number, State);
}

void TStoreTransaction::CopyJournals(const std::string& FromWorkspace, const std::string& ToWorkspace) {
    if (FromWorkspace == ToWorkspace) return;
    RemoveJournals(ToWorkspace);
    FStore.FImpl->Run(kCopyWorkspace, FromWorkspace, ToWorkspace);
    FStore.FImpl->Run(kCopyStates, FromWorkspace, ToWorkspace);
}

void TStoreTransaction::RemoveJournals(const std::string& Workspace) {
    FStore.FImpl->Run(kDropStatesOfWorkspace, Workspace);
    FStore.FImpl->Run(kDropWorkspace, Workspace);
}

void TStoreTransaction::RemoveJournal(const TJournalKey& Key) {
    FStore.FImpl->Run(kDropStatesOfInstance, Key.Workspace, Key.Instance);
    FStore.FImpl->Run(kDropInstance, Key.Workspace, Key.Instance);
}

void TStoreTransaction::PutStrategy(const std::string& User, const TStrategyRow& Row) {
    FStore.FImpl->Run(kPutStrategy, User, Row.Name, Row.Note, Row.Changed, Row.State);
}

void TStoreTransaction::RemoveStrategy(const std::string& User, const std::string& Name) {
    FStore.FImpl->Run(kDropStrategy, User, Name);
}

}  // namespace ws
