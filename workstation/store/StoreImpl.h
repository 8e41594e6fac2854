// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Inside of the store; included by its own sources only.

#include <SQLiteCpp/SQLiteCpp.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

#include "workstation/store/Store.h"

namespace ws {

// The error that the user reads for a failure of the database library.
[[noreturn]] void ThrowStoreError(const std::string& FileName, const SQLite::Exception& Cause);

// Runs Work; what the database library throws leaves as EStoreError.
template <class TWork>
auto Translated(const std::string& FileName, TWork&& Work) -> decltype(Work()) {
    try {
        return Work();
    } catch (const SQLite::Exception& Cause) {
        ThrowStoreError(FileName, Cause);
    }
}

struct TStore::TImpl {
    std::string FileName;
    SQLite::Database Db;
    std::unordered_map<const char*, std::unique_ptr<SQLite::Statement>> Prepared;

    TImpl(std::string Name, SQLite::Database&& Database) : FileName(std::move(Name)), Db(std::move(Database)) {}

    // The statement for Sql, prepared once; Sql must be a constant with one address (it is the key).
    SQLite::Statement& Statement(const char* Sql) {
        auto& Entry = Prepared[Sql];
        if (!Entry) Entry = std::make_unique<SQLite::Statement>(Db, Sql);
        Entry->tryReset();  // the answer repeats an earlier failure, which was reported then
        Entry->clearBindings();
        return *Entry;
    }

    // Binds Args to ?1, ?2, ... and runs a statement that gives no rows.
    template <class... TArgs>
    void Run(const char* Sql, const TArgs&... Args) {
        Translated(FileName, [&] {
            SQLite::Statement& S = Statement(Sql);
            int Index = 0;
            (BindOne(S, ++Index, Args), ...);
            try {
                S.exec();
            } catch (...) {
                S.tryReset();  // a statement left half-way would hold its locks
                throw;
            }
            S.reset();
        });
    }

    // Binds Args and calls OnRow(statement) for every row.
    template <class TOnRow, class... TArgs>
    void Each(const char* Sql, TOnRow&& OnRow, const TArgs&... Args) {
        Translated(FileName, [&] {
            SQLite::Statement S(Db, Sql);
            int Index = 0;
            (BindOne(S, ++Index, Args), ...);
            while (S.executeStep()) OnRow(S);
        });
    }

    static void BindOne(SQLite::Statement& S, int Index, const std::string& Value) { S.bindNoCopy(Index, Value); }
    static void BindOne(SQLite::Statement& S, int Index, bool Value) { S.bind(Index, Value ? 1 : 0); }
    static void BindOne(SQLite::Statement& S, int Index, int Value) { S.bind(Index, Value); }
    static void BindOne(SQLite::Statement& S, int Index, int64_t Value) { S.bind(Index, Value); }
    static void BindOne(SQLite::Statement& S, int Index, double Value) { S.bind(Index, Value); }
    static void BindOne(SQLite::Statement& S, int Index, const std::optional<double>& Value) {
        if (Value)
            S.bind(Index, *Value);
        else
            S.bind(Index);
    }
};

inline std::string TextAt(SQLite::Statement& S, int Column) { return S.getColumn(Column).getString(); }
inline int IntAt(SQLite::Statement& S, int Column) { return S.getColumn(Column).getInt(); }
inline int64_t Int64At(SQLite::Statement& S, int Column) { return S.getColumn(Column).getInt64(); }
inline double DoubleAt(SQLite::Statement& S, int Column) { return S.getColumn(Column).getDouble(); }
inline std::optional<double> OptionalAt(SQLite::Statement& S, int Column) {
    if (S.isColumnNull(Column)) return std::nullopt;
    return S.getColumn(Column).getDouble();
}

}  // namespace ws
