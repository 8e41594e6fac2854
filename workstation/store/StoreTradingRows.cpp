// SPDX-License-Identifier: GPL-3.0-or-later
// Reading and writing the rows of a TTradingSet.
#include <array>

#include "workstation/store/StoreImpl.h"
#include "workstation/store/StoreTransaction.h"

namespace ws {
namespace {

constexpr char kPutAccount[] =
    "INSERT INTO account (code, name, sort_index) VALUES (?1, ?2, ?3)"
    " ON CONFLICT (code) DO UPDATE SET name = excluded.name, sort_index = excluded.sort_index";
constexpr char kPutUser[] =
    "INSERT INTO user (code, name, user_type, account_selectable, default_account, sort_index)"
    " VALUES (?1, ?2, ?3, ?4, ?5, ?6) ON CONFLICT (code) DO UPDATE SET name = excluded.name,"
    " user_type = excluded.user_type, account_selectable = excluded.account_selectable,"
    " default_account = excluded.default_account, sort_index = excluded.sort_index";
constexpr char kDropGrants[] = "DELETE FROM user_grant WHERE user = ?1";
constexpr char kPutGrant[] = "INSERT OR IGNORE INTO user_grant (user, kind, value, sort_index) VALUES (?1, ?2, ?3, ?4)";
constexpr char kPutPosition[] =
    "INSERT INTO execution (account, symbol, qty, price, day, time) VALUES (?1, ?2, ?3, ?4, '', 0)"
    " ON CONFLICT (account, symbol) WHERE order_id IS NULL DO UPDATE SET qty = excluded.qty, price = excluded.price";
constexpr char kDropPosition[] = "DELETE FROM execution WHERE order_id IS NULL AND account = ?1 AND symbol = ?2";
constexpr char kDropPositions[] = "DELETE FROM execution WHERE order_id IS NULL";
constexpr const char* kDropTrading[] = {"DELETE FROM user_grant", "DELETE FROM user", "DELETE FROM account",
                                        kDropPositions};

// The three lists of a user share one table; this is how a list is called there.
struct TGrantKind {
    std::string Name;
    std::vector<std::string> TUserRow::*List;
};
const std::array<TGrantKind, 3>& GrantKinds() {
    static const std::array<TGrantKind, 3> Kinds{
        {{"right", &TUserRow::Rights}, {"function", &TUserRow::Functions}, {"account", &TUserRow::Accounts}}};
    return Kinds;
}

}  // namespace

TTradingSet TStore::LoadTrading() const {
    TTradingSet T;
    TImpl& Db = *FImpl;
    Db.Each(
        "SELECT code, name, user_type, account_selectable, default_account, sort_index FROM user"
        " ORDER BY sort_index, code",
        [&](SQLite::Statement& S) {
            TUserRow Row;
            Row.Code = TextAt(S, 0);
            Row.Name = TextAt(S, 1);
            Row.UserType = IntAt(S, 2);
            Row.AccountSelectable = IntAt(S, 3) != 0;
            Row.DefaultAccount = TextAt(S, 4);
            Row.SortIndex = IntAt(S, 5);
            T.Users.push_back(std::move(Row));
        });
    for (auto& User : T.Users)
        for (const auto& Kind : GrantKinds())
            Db.Each(
                "SELECT value FROM user_grant WHERE user = ?1 AND kind = ?2 ORDER BY sort_index",
                [&](SQLite::Statement& S) { (User.*Kind.List).push_back(TextAt(S, 0)); }, User.Code, Kind.Name);
    Db.Each("SELECT code, name FROM account ORDER BY sort_index, code", [&](SQLite::Statement& S) {
        T.Accounts.push_back({TextAt(S, 0), TextAt(S, 1)});
    });
    Db.Each("SELECT account, symbol, qty, price FROM execution WHERE order_id IS NULL ORDER BY seq",
            [&](SQLite::Statement& S) {
                T.Positions.push_back({TextAt(S, 0), TextAt(S, 1), DoubleAt(S, 2), DoubleAt(S, 3)});
            });
    return T;
}

void TStoreTransaction::Put(const TUserRow& Row) {
    TStore::TImpl& Db = *FStore.FImpl;
    Db.Run(kPutUser, Row.Code, Row.Name, Row.UserType, Row.AccountSelectable, Row.DefaultAccount, Row.SortIndex);
    Db.Run(kDropGrants, Row.Code);
    for (const auto& Kind : GrantKinds()) {
        int Index = 0;
        for (const auto& Value : Row.*Kind.List) Db.Run(kPutGrant, Row.Code, Kind.Name, Value, Index++);
    }
}

void TStoreTransaction::Put(const TAccountRow& Row, int SortIndex) {
    FStore.FImpl->Run(kPutAccount, Row.Code, Row.Name, SortIndex);
}

void TStoreTransaction::Put(const TPositionRow& Row) {
    FStore.FImpl->Run(kPutPosition, Row.Account, Row.Symbol, Row.Qty, Row.AvgPrice);
}

void TStoreTransaction::RemovePosition(const std::string& Account, const std::string& Symbol) {
    FStore.FImpl->Run(kDropPosition, Account, Symbol);
}

void TStoreTransaction::RemoveAllPositions() { FStore.FImpl->Run(kDropPositions); }

void TStoreTransaction::RemoveTrading() {
    for (const char* Sql : kDropTrading) FStore.FImpl->Run(Sql);
}

void TStoreTransaction::PutTrading(const TTradingSet& Trading) {
    for (const auto& Row : Trading.Users) Put(Row);
    int Index = 0;
    for (const auto& Row : Trading.Accounts) Put(Row, Index++);
    for (const auto& Row : Trading.Positions) Put(Row);
}

}  // namespace ws
