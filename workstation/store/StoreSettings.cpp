// SPDX-License-Identifier: GPL-3.0-or-later
// Settings, the store's own notes, and which contract stands for which of the sample files.
#include "workstation/store/StoreImpl.h"
#include "workstation/store/StoreTransaction.h"

namespace ws {
namespace {

constexpr char kPutSetting[] =
    "INSERT INTO setting (section, key, value) VALUES (?1, ?2, ?3)"
    " ON CONFLICT (section, key) DO UPDATE SET value = excluded.value";
constexpr char kPutMeta[] =
    "INSERT INTO meta (key, value) VALUES (?1, ?2) ON CONFLICT (key) DO UPDATE SET value = excluded.value";
constexpr char kDropSetting[] = "DELETE FROM setting WHERE section = ?1 AND key = ?2";
constexpr char kPutSampleSymbol[] = "INSERT INTO sample_symbol (symbol, base_symbol) VALUES (?1, ?2)";
constexpr char kDropSampleSymbols[] = "DELETE FROM sample_symbol";

}  // namespace

std::optional<std::string> TStore::ReadSetting(const std::string& Section, const std::string& Key) const {
    std::optional<std::string> Value;
    FImpl->Each(
        "SELECT value FROM setting WHERE section = ?1 AND key = ?2",
        [&](SQLite::Statement& S) { Value = TextAt(S, 0); }, Section, Key);
    return Value;
}

void TStore::WriteSetting(const std::string& Section, const std::string& Key, const std::string& Value) {
    FImpl->Run(kPutSetting, Section, Key, Value);
}

void TStore::RemoveSetting(const std::string& Section, const std::string& Key) {
    FImpl->Run(kDropSetting, Section, Key);
}

TSettings TStore::LoadSettings() const {
    TSettings All;
    FImpl->Each("SELECT section, key, value FROM setting", [&](SQLite::Statement& S) {
        All[{TextAt(S, 0), TextAt(S, 1)}] = TextAt(S, 2);
    });
    return All;
}

std::optional<std::string> TStore::ReadMeta(const std::string& Key) const {
    std::optional<std::string> Value;
    FImpl->Each(
        "SELECT value FROM meta WHERE key = ?1", [&](SQLite::Statement& S) { Value = TextAt(S, 0); }, Key);
    return Value;
}

void TStore::WriteMeta(const std::string& Key, const std::string& Value) { FImpl->Run(kPutMeta, Key, Value); }

std::string TStore::CurrentSampleSymbol(const std::string& BaseSymbol) const {
    std::string Symbol;
    FImpl->Each(
        "SELECT symbol FROM sample_symbol WHERE base_symbol = ?1", [&](SQLite::Statement& S) { Symbol = TextAt(S, 0); },
        BaseSymbol);
    return Symbol;
}

std::map<std::string, std::string> TStore::SampleSymbols() const {
    std::map<std::string, std::string> All;
    FImpl->Each("SELECT base_symbol, symbol FROM sample_symbol",
                [&](SQLite::Statement& S) { All[TextAt(S, 0)] = TextAt(S, 1); });
    return All;
}

void TStoreTransaction::WriteSetting(const std::string& Section, const std::string& Key, const std::string& Value) {
    FStore.FImpl->Run(kPutSetting, Section, Key, Value);
}

void TStoreTransaction::WriteMeta(const std::string& Key, const std::string& Value) {
    FStore.FImpl->Run(kPutMeta, Key, Value);
}

void TStoreTransaction::PutSampleSymbol(const std::string& Symbol, const std::string& BaseSymbol) {
    FStore.FImpl->Run(kPutSampleSymbol, Symbol, BaseSymbol);
}

void TStoreTransaction::RemoveSampleSymbols() { FStore.FImpl->Run(kDropSampleSymbols); }

}  // namespace ws
