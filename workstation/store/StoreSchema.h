// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The tables of the store file and how an older file is brought up to date. Inside of the store.

namespace SQLite {
class Database;
}

namespace ws {

inline constexpr int kSchemaVersion = 3;           // kept in the file as PRAGMA user_version
inline constexpr int kApplicationId = 0x56515753;  // "VQWS", kept as PRAGMA application_id

// Runs every step from the file's version to Target in one transaction. A file without tables is at version 0; one
// that stands at Target or above stays. Throws SQLite::Exception; then the file is as before.
void UpgradeSchema(SQLite::Database& Db, int Target = kSchemaVersion);

}  // namespace ws
