// SPDX-License-Identifier: GPL-3.0-or-later
// Reading and writing orders and executions.
#include <algorithm>
#include <array>
#include <string_view>

#include "workstation/store/StoreImpl.h"
#include "workstation/store/StoreTransaction.h"

namespace ws {
namespace {

// An id is the store's own tag and the order's number in it: two stores give different ones.
constexpr char kAddOrder[] =
    "INSERT INTO client_order (seq, id, account, symbol, side, price, qty, open_close, principal, batch_id, place,"
    " batch_size, state, filled_qty, avg_fill_price, reason_key, reason_args, created, changed)"
    " SELECT n, (SELECT value FROM meta WHERE key = 'OrderTag') || '-' || n, ?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10,"
    " ?11, ?12, ?13, ?14, ?15, ?16, ?17 FROM (SELECT coalesce(max(seq), 0) + 1 AS n FROM client_order)";
constexpr char kChangeOrder[] =
    "UPDATE client_order SET state = ?2, filled_qty = ?3, avg_fill_price = ?4, reason_key = ?5, reason_args = ?6,"
    " changed = ?7 WHERE id = ?1";
constexpr char kAddExecution[] =
    "INSERT INTO execution (id, order_id, account, symbol, qty, price, day, time)"
    " VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8) ON CONFLICT (id) DO NOTHING";

// Two rounds, because one contract's new symbol is the next one's old symbol. No symbol begins with the mark.
constexpr const char* kMarkSymbol[] = {"UPDATE client_order SET symbol = char(1) || ?2 WHERE symbol = ?1",
                                       "UPDATE execution SET symbol = char(1) || ?2 WHERE symbol = ?1"};
constexpr const char* kUnmarkSymbols[] = {
    "UPDATE client_order SET symbol = substr(symbol, 2) WHERE substr(symbol, 1, 1) = char(1)",
    "UPDATE execution SET symbol = substr(symbol, 2) WHERE substr(symbol, 1, 1) = char(1)"};

// As they stand in the file; in the order of EOrderState.
constexpr std::array<std::string_view, 7> kStateNames{"new",       "accepted", "partly filled", "filled",
                                                      "cancelled", "rejected", "unknown"};

std::string StateName(EOrderState State) { return std::string(kStateNames[static_cast<std::size_t>(State)]); }

// What a later workstation may have written is not known here.
EOrderState StateOf(const std::string& Name) {
    const auto It = std::find(kStateNames.begin(), kStateNames.end(), Name);
    return It == kStateNames.end() ? EOrderState::Unknown : static_cast<EOrderState>(It - kStateNames.begin());
}

constexpr char kArgEnd = '\x1f';  // each argument is followed by one

std::string TextOfArgs(const std::vector<std::string>& Args) {
    std::string Text;
    for (const auto& Arg : Args) (Text += Arg) += kArgEnd;
    return Text;
}

std::vector<std::string> ArgsOfText(const std::string& Text) {
    std::vector<std::string> Args;
    for (std::size_t Start = 0, End; (End = Text.find(kArgEnd, Start)) != std::string::npos; Start = End + 1)
        Args.push_back(Text.substr(Start, End - Start));
    return Args;
}

}  // namespace

std::vector<TOrderRow> TStore::LoadOrders() const {
    std::vector<TOrderRow> Rows;
    FImpl->Each(
        "SELECT account, symbol, side, price, qty, open_close, principal, batch_id, place, batch_size, id, state,"
        " filled_qty, avg_fill_price, reason_key, reason_args, created, changed FROM client_order ORDER BY seq",
        [&](SQLite::Statement& S) {
            Rows.push_back({{TextAt(S, 0), TextAt(S, 1), IntAt(S, 2), DoubleAt(S, 3), DoubleAt(S, 4), IntAt(S, 5),
                             IntAt(S, 6), TextAt(S, 7), IntAt(S, 8), IntAt(S, 9)},
                            TextAt(S, 10),
                            StateOf(TextAt(S, 11)),
                            DoubleAt(S, 12),
                            DoubleAt(S, 13),
                            {TextAt(S, 14), ArgsOfText(TextAt(S, 15))},
                            Int64At(S, 16),
                            Int64At(S, 17)});
        });
    return Rows;
}

std::vector<TExecutionRow> TStore::LoadExecutions() const {
    std::vector<TExecutionRow> Rows;
    FImpl->Each(
        "SELECT coalesce(id, ''), coalesce(order_id, ''), account, symbol, qty, price, day, time FROM execution"
        " ORDER BY order_id IS NOT NULL, seq",
        [&](SQLite::Statement& S) {
            Rows.push_back({TextAt(S, 0), TextAt(S, 1), TextAt(S, 2), TextAt(S, 3), DoubleAt(S, 4), DoubleAt(S, 5),
                            TextAt(S, 6), Int64At(S, 7)});
        });
    return Rows;
}

std::set<std::string> TStore::HeldSymbols() const {
    std::set<std::string> Symbols;
    FImpl->Each(
        "SELECT symbol FROM execution GROUP BY account, symbol HAVING abs(sum(qty)) > 1e-7"
        " UNION SELECT symbol FROM client_order WHERE state NOT IN ('filled', 'cancelled', 'rejected')",
        [&](SQLite::Statement& S) { Symbols.insert(TextAt(S, 0)); });
    return Symbols;
}

std::string TStoreTransaction::AddOrder(const TOrderRow& Row) {
    TStore::TImpl& Db = *FStore.FImpl;
    Db.Run(kAddOrder, Row.Account, Row.Symbol, Row.Side, Row.Price, Row.Qty, Row.OpenClose, Row.Principal, Row.BatchId,
           Row.Place, Row.BatchSize, StateName(Row.State), Row.FilledQty, Row.AvgFillPrice, Row.Reason.Key,
           TextOfArgs(Row.Reason.Args), Row.Created, Row.Changed);
    std::string Id;
    Db.Each("SELECT id FROM client_order WHERE seq = last_insert_rowid()",
            [&](SQLite::Statement& S) { Id = TextAt(S, 0); });
    return Id;
}

void TStoreTransaction::ChangeOrder(const TOrderRow& Row) {
    FStore.FImpl->Run(kChangeOrder, Row.Id, StateName(Row.State), Row.FilledQty, Row.AvgFillPrice, Row.Reason.Key,
                      TextOfArgs(Row.Reason.Args), Row.Changed);
}

bool TStoreTransaction::AddExecution(const TExecutionRow& Row) {
    TStore::TImpl& Db = *FStore.FImpl;
    Db.Run(kAddExecution, Row.Id, Row.OrderId, Row.Account, Row.Symbol, Row.Qty, Row.Price, Row.Day, Row.Time);
    return Db.Db.getChanges() == 1;
}

void TStoreTransaction::RenameContracts(const std::map<std::string, std::string>& Symbols) {
    TStore::TImpl& Db = *FStore.FImpl;
    std::set<std::string> Named;
    Db.Each("SELECT symbol FROM execution UNION SELECT symbol FROM client_order",
            [&](SQLite::Statement& S) { Named.insert(TextAt(S, 0)); });
    for (const auto& [Old, New] : Symbols)
        if (Named.contains(Old))
            for (const char* Sql : kMarkSymbol) Db.Run(Sql, Old, New);
    for (const char* Sql : kUnmarkSymbols) Db.Run(Sql);
}

}  // namespace ws
