// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/store/StoreSchema.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <array>
#include <string>

namespace ws {
namespace {

constexpr char kVersion1[] = R"sql(
CREATE TABLE exchange (
  code TEXT NOT NULL PRIMARY KEY, name_en TEXT NOT NULL, name_hant TEXT NOT NULL, name_hans TEXT NOT NULL,
  supported INTEGER NOT NULL, market_day TEXT NOT NULL, sort_index INTEGER NOT NULL, utc_offset INTEGER NOT NULL
) STRICT;
CREATE TABLE currency (
  code TEXT NOT NULL PRIMARY KEY, name_en TEXT NOT NULL, name_hant TEXT NOT NULL, name_hans TEXT NOT NULL
) STRICT;
CREATE TABLE series (
  exchange TEXT NOT NULL, code TEXT NOT NULL, name_en TEXT NOT NULL, name_hant TEXT NOT NULL,
  name_hans TEXT NOT NULL, currency TEXT NOT NULL, underlying_last REAL, volatility REAL NOT NULL,
  decimals INTEGER NOT NULL, imported INTEGER NOT NULL, sort_index INTEGER NOT NULL,
  PRIMARY KEY (exchange, code)
) STRICT, WITHOUT ROWID;
CREATE TABLE product (
  id INTEGER PRIMARY KEY, symbol TEXT NOT NULL UNIQUE, exchange TEXT NOT NULL, series TEXT NOT NULL,
  product_type INTEGER NOT NULL, expiry_date TEXT NOT NULL, strike_price TEXT NOT NULL,
  call_put_code TEXT NOT NULL, lot_size TEXT NOT NULL, spread_code TEXT NOT NULL, related_symbol TEXT NOT NULL,
  currency TEXT NOT NULL, multiplier REAL, display_factor REAL
) STRICT;
CREATE INDEX product_of_series ON product (exchange, series);
CREATE TABLE product_attribute (
  symbol TEXT NOT NULL, name TEXT NOT NULL, value TEXT NOT NULL, PRIMARY KEY (symbol, name)
) STRICT, WITHOUT ROWID;
CREATE TABLE quote (
  symbol TEXT NOT NULL PRIMARY KEY, bid REAL, ask REAL, last REAL, previous_settlement REAL,
  time TEXT NOT NULL, silent INTEGER NOT NULL, delay_seconds INTEGER NOT NULL
) STRICT, WITHOUT ROWID;
CREATE TABLE spread_band (
  code TEXT NOT NULL, lower REAL NOT NULL, kind INTEGER NOT NULL, step REAL NOT NULL, PRIMARY KEY (code, lower)
) STRICT, WITHOUT ROWID;
CREATE TABLE order_option (
  exchange TEXT NOT NULL, option TEXT NOT NULL, sort_index INTEGER NOT NULL, PRIMARY KEY (exchange, option)
) STRICT, WITHOUT ROWID;
CREATE TABLE account (
  code TEXT NOT NULL PRIMARY KEY, name TEXT NOT NULL, sort_index INTEGER NOT NULL
) STRICT;
CREATE TABLE user (
  code TEXT NOT NULL PRIMARY KEY, name TEXT NOT NULL, user_type INTEGER NOT NULL,
  account_selectable INTEGER NOT NULL, default_account TEXT NOT NULL, sort_index INTEGER NOT NULL
) STRICT;
CREATE TABLE user_grant (
  user TEXT NOT NULL, kind TEXT NOT NULL, value TEXT NOT NULL, sort_index INTEGER NOT NULL,
  PRIMARY KEY (user, kind, value)
) STRICT, WITHOUT ROWID;
CREATE TABLE position (
  id INTEGER PRIMARY KEY, account TEXT NOT NULL, symbol TEXT NOT NULL, qty REAL NOT NULL, avg_price REAL NOT NULL,
  UNIQUE (account, symbol)
) STRICT;
CREATE TABLE setting (
  section TEXT NOT NULL, key TEXT NOT NULL, value TEXT NOT NULL, PRIMARY KEY (section, key)
) STRICT, WITHOUT ROWID;
CREATE TABLE meta (key TEXT NOT NULL PRIMARY KEY, value TEXT NOT NULL) STRICT, WITHOUT ROWID;
CREATE TABLE sample_symbol (
  symbol TEXT NOT NULL PRIMARY KEY, base_symbol TEXT NOT NULL UNIQUE
) STRICT, WITHOUT ROWID;
)sql";

// Orders and executions. What is held is the sum of the executions and is kept nowhere else: the positions of before
// become opening executions, which have no order and no id.
constexpr char kVersion2[] = R"sql(
CREATE TABLE client_order (
  seq INTEGER PRIMARY KEY, id TEXT NOT NULL UNIQUE, account TEXT NOT NULL, symbol TEXT NOT NULL,
  side INTEGER NOT NULL, price REAL NOT NULL, qty REAL NOT NULL, open_close INTEGER NOT NULL,
  principal INTEGER NOT NULL, batch_id TEXT NOT NULL, place INTEGER NOT NULL, batch_size INTEGER NOT NULL,
  state TEXT NOT NULL, filled_qty REAL NOT NULL, avg_fill_price REAL NOT NULL, reason_key TEXT NOT NULL,
  reason_args TEXT NOT NULL, created INTEGER NOT NULL, changed INTEGER NOT NULL
) STRICT;
CREATE TABLE execution (
  seq INTEGER PRIMARY KEY, id TEXT UNIQUE, order_id TEXT, account TEXT NOT NULL, symbol TEXT NOT NULL,
  qty REAL NOT NULL, price REAL NOT NULL, day TEXT NOT NULL, time INTEGER NOT NULL
) STRICT;
CREATE UNIQUE INDEX opening_execution ON execution (account, symbol) WHERE order_id IS NULL;
INSERT INTO execution (account, symbol, qty, price, day, time)
  SELECT account, symbol, qty, avg_price, '', 0 FROM position ORDER BY id;
DROP TABLE position;
INSERT INTO meta (key, value) VALUES ('OrderTag', lower(hex(randomblob(4))));
)sql";

// What each view was like, so that it comes back and can be undone; strategies that a user named. A state is one text,
// whose meaning is not the store's.
constexpr char kVersion3[] = R"sql(
CREATE TABLE journal (
  id INTEGER PRIMARY KEY, workspace TEXT NOT NULL, instance TEXT NOT NULL, current INTEGER NOT NULL,
  UNIQUE (workspace, instance)
) STRICT;
CREATE TABLE journal_state (
  journal INTEGER NOT NULL, number INTEGER NOT NULL, state TEXT NOT NULL, PRIMARY KEY (journal, number)
) STRICT, WITHOUT ROWID;
CREATE TABLE strategy (
  user TEXT NOT NULL, name TEXT NOT NULL, note TEXT NOT NULL, changed INTEGER NOT NULL, state TEXT NOT NULL,
  PRIMARY KEY (user, name)
) STRICT, WITHOUT ROWID;
)sql";

// Step i leads from version i to i + 1. A step that has shipped is never changed; a new one is appended.
constexpr std::array kSteps{kVersion1, kVersion2, kVersion3};
static_assert(kSteps.size() == kSchemaVersion);

}  // namespace

void UpgradeSchema(SQLite::Database& Db, int Target) {
    const auto Version = [&Db] { return Db.execAndGet("PRAGMA user_version").getInt(); };
    if (Version() >= Target) return;
    SQLite::Transaction Upgrade(Db, SQLite::TransactionBehavior::IMMEDIATE);
    // Read again under the write lock: another workstation may have upgraded the file meanwhile.
    for (int Step = Version(); Step < Target; ++Step) Db.exec(kSteps[static_cast<std::size_t>(Step)]);
    Db.exec("PRAGMA application_id = " + std::to_string(kApplicationId));
    Db.exec("PRAGMA user_version = " + std::to_string(Target));
    Upgrade.commit();
}

}  // namespace ws
