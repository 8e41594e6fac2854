// SPDX-License-Identifier: GPL-3.0-or-later
// Opening the store, and what stands in the way: locked, read-only, newer, foreign, damaged.
#include <SQLiteCpp/Backup.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>

#include "workstation/store/StoreImpl.h"
#include "workstation/store/StoreSchema.h"

namespace fs = std::filesystem;

namespace ws {
namespace {

constexpr int kBusyTimeoutMs = 1000;  // another workstation's commit takes a fraction of this

bool IsDamage(const SQLite::Exception& Cause) {
    return Cause.getErrorCode() == SQLITE_CORRUPT || Cause.getErrorCode() == SQLITE_NOTADB;
}

// Throws what the user reads when the file was written by a newer workstation or is no store at all.
// Touches the file for the first time, so a file that is no database throws SQLite::Exception here.
void CheckOrigin(SQLite::Database& Db, const std::string& Name) {
    const int Version = Db.execAndGet("PRAGMA user_version").getInt();
    const int Application = Db.execAndGet("PRAGMA application_id").getInt();
    const int Objects = Db.execAndGet("SELECT count(*) FROM sqlite_master").getInt();
    if (Objects == 0 && Application == 0) return;  // a fresh file
    if (Application != kApplicationId) throw EStoreError(kStoreForeign, {Name});
    if (Version > kSchemaVersion)
        throw EStoreError(kStoreNewer, {Name, std::to_string(Version), std::to_string(kSchemaVersion)});
}

bool IsSound(SQLite::Database& Db) { return Db.execAndGet("PRAGMA quick_check(1)").getString() == "ok"; }

// The library takes a file of one byte for an empty database and would write over it.
bool IsTooShort(const fs::path& File) {
    constexpr std::uintmax_t kSmallestPage = 512;
    std::error_code Error;
    const auto Size = fs::file_size(File, Error);
    return !Error && Size > 0 && Size < kSmallestPage;
}

// A damaged file is met in two ways: by an error of the library, or by the check.
struct TDamaged {};

// Opens, checks and upgrades. Throws TDamaged, EStoreError, SQLite::Exception.
SQLite::Database OpenChecked(const fs::path& File) {
    const std::string Name = File.string();
    try {
        if (IsTooShort(File)) throw TDamaged{};
        SQLite::Database Db(Name, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE, kBusyTimeoutMs);
        // Until the file is known to be a sound store of ours, closing it must not write the log into it.
        sqlite3_db_config(Db.getHandle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
        CheckOrigin(Db, Name);
        if (!IsSound(Db)) throw TDamaged{};
        sqlite3_db_config(Db.getHandle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
        // A file without write permission opens all the same, for reading.
        if (sqlite3_db_readonly(Db.getHandle(), "main") == 1) throw EStoreError(kStoreReadOnly, {Name});
        Db.exec("PRAGMA journal_mode = WAL");
        Db.exec("PRAGMA synchronous = FULL");
        Db.exec("BEGIN IMMEDIATE");  // now rather than in the middle of the user's work
        Db.exec("ROLLBACK");
        UpgradeSchema(Db);
        return Db;
    } catch (const SQLite::Exception& Cause) {
        if (IsDamage(Cause)) throw TDamaged{};
        // In write-ahead mode a folder that cannot be written shows as "cannot open".
        std::error_code Ignored;
        if (Cause.getErrorCode() == SQLITE_CANTOPEN && fs::exists(File, Ignored) &&
            (access(Name.c_str(), W_OK) != 0 || access(File.parent_path().c_str(), W_OK) != 0))
            throw EStoreError(kStoreReadOnly, {Name});
        throw;
    }
}

// "2026/11/21 09:05:00" -> "20261121-090500"
std::string Stamp(const std::string& Now) {
    std::string Text;
    for (const char C : Now) {
        if (C >= '0' && C <= '9') Text += C;
        if (C == ' ') Text += '-';
    }
    return Text;
}

// Renames without ever replacing: a hard link fails where the name is taken.
bool MoveTo(const fs::path& From, const fs::path& To, std::error_code& Error) {
    Error.clear();
    fs::create_hard_link(From, To, Error);
    if (!Error) {
        fs::remove(From, Error);
        return !Error;
    }
    if (Error == std::errc::file_exists || fs::exists(To)) {
        Error = std::make_error_code(std::errc::file_exists);
        return false;
    }
    Error.clear();
    fs::rename(From, To, Error);  // a file system without hard links
    return !Error;
}

// Moves the damaged file (and what the library keeps beside it) out of the way. Returns its new name.
fs::path SetAside(const fs::path& File, const std::string& Now) {
    const std::string Base = File.string() + ".corrupt-" + Stamp(Now);
    std::error_code Error;
    for (int Try = 1;; ++Try) {
        const fs::path Target = Try == 1 ? Base : Base + "-" + std::to_string(Try);
        if (MoveTo(File, Target, Error)) {
            for (const char* Tail : {"-wal", "-shm", "-journal"}) {
                std::error_code Ignored;
                if (fs::exists(File.string() + Tail, Ignored))
                    MoveTo(File.string() + Tail, Target.string() + Tail, Ignored);
            }
            return Target;
        }
        if (Error != std::errc::file_exists) throw EStoreError(kStoreDamaged, {File.string()});
    }
}

// "file:" address of a path, so that options can be handed to the library.
std::string Address(const fs::path& File) {
    std::string Text = "file:";
    for (const char C : fs::absolute(File).string()) {
        char Hex[4];
        if (C == '%' || C == '?' || C == '#') {
            std::snprintf(Hex, sizeof Hex, "%%%02X", static_cast<unsigned char>(C));
            Text += Hex;
        } else {
            Text += C;
        }
    }
    return Text;
}

// A connection that leaves no trace on disk. Without a journal or log beside the file nobody is writing it, and it
// is read as it stands; with one, the reader joins the writer's files.
SQLite::Database OpenForCopy(const fs::path& File) {
    std::error_code Ignored;
    const bool Busy = fs::exists(File.string() + "-wal", Ignored) || fs::exists(File.string() + "-journal", Ignored);
    return SQLite::Database(Address(File) + (Busy ? "?mode=ro" : "?immutable=1"),
                            SQLite::OPEN_READONLY | SQLite::OPEN_URI, kBusyTimeoutMs);
}

SQLite::Database EmptyInMemory() {
    SQLite::Database Db(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    UpgradeSchema(Db);
    return Db;
}

}  // namespace

void ThrowStoreError(const std::string& FileName, const SQLite::Exception& Cause) {
    switch (Cause.getErrorCode()) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED: throw EStoreError(kStoreLocked, {FileName});
        case SQLITE_READONLY:
        case SQLITE_PERM: throw EStoreError(kStoreReadOnly, {FileName});
        case SQLITE_CANTOPEN: throw EStoreError(kStoreCannotOpen, {FileName, Cause.what()});
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB: throw EStoreError(kStoreDamaged, {FileName});
        case SQLITE_FULL: throw EStoreError(kStoreDiskFull, {FileName});
        default: throw EStoreError(kStoreFailed, {FileName, Cause.what()});
    }
}

TOpenedStore TStore::OpenFile(const fs::path& File, const std::string& Now) {
    const std::string Name = File.string();
    std::error_code Error;
    if (File.has_parent_path()) fs::create_directories(File.parent_path(), Error);
    if (Error) throw EStoreError(kStoreCannotOpen, {Name, Error.message()});
    const auto Make = [&] { return std::make_unique<TImpl>(Name, OpenChecked(fs::absolute(File))); };
    return Translated(Name, [&] {
        TOpenedStore Opened;
        std::unique_ptr<TImpl> Impl;
        try {
            Impl = Make();
        } catch (const TDamaged&) {
            Opened.Notices.push_back({kStoreSetAside, {Name, SetAside(File, Now).string()}});
        }
        try {
            if (!Impl) Impl = Make();
        } catch (const TDamaged&) {
            throw EStoreError(kStoreDamaged, {Name});
        }
        Opened.Store.reset(new TStore(std::move(Impl)));
        return Opened;
    });
}

TOpenedStore TStore::InMemoryCopyOf(const fs::path& File) {
    const std::string Name = File.string();
    return Translated(Name, [&] {
        TOpenedStore Opened;
        auto Impl = std::make_unique<TImpl>(":memory:", EmptyInMemory());
        std::error_code Ignored;
        try {
            if (IsTooShort(File)) throw TDamaged{};
            if (fs::file_size(File, Ignored) > 0 && !Ignored) {
                SQLite::Database Source = OpenForCopy(File);
                CheckOrigin(Source, Name);
                if (!IsSound(Source)) throw TDamaged{};
                SQLite::Database Copy(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
                SQLite::Backup(Copy, Source).executeStep(-1);
                UpgradeSchema(Copy);
                Copy.exec(
                    "UPDATE meta SET value = lower(hex(randomblob(4))) WHERE key = 'OrderTag'");  // ids of its own
                Impl = std::make_unique<TImpl>(":memory:", std::move(Copy));
            }
        } catch (const TDamaged&) {
            Opened.Notices.push_back({kStoreCopyDamaged, {Name}});
        } catch (const SQLite::Exception& Cause) {
            if (!IsDamage(Cause)) throw;
            Opened.Notices.push_back({kStoreCopyDamaged, {Name}});
        }
        Opened.Store.reset(new TStore(std::move(Impl)));
        return Opened;
    });
}

std::unique_ptr<TStore> TStore::CreateInMemory() {
    return Translated(":memory:", [] {
        return std::unique_ptr<TStore>(new TStore(std::make_unique<TImpl>(":memory:", EmptyInMemory())));
    });
}

}  // namespace ws
