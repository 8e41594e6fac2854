// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// How the store speaks to the user: always a resource key and its arguments, never a text.

#include <exception>
#include <string>
#include <vector>

namespace ws {

// Something the user should read although the work went on.
struct TStoreNotice {
    std::string Key;                // "Res_..."
    std::vector<std::string> Args;  // for %1, %2, ... of the key's text
    bool Warning = false;           // something was left out or is not as it should be
};

// The store cannot do what was asked. Every text of such a key names the file (%1) and says what to do.
// Nothing half-done is left behind: the transaction that failed is rolled back.
class EStoreError : public std::exception {
public:
    explicit EStoreError(std::string Key, std::vector<std::string> Args = {});
    ~EStoreError() override;

    const std::string& Key() const { return FKey; }
    const std::vector<std::string>& Args() const { return FArgs; }
    const char* what() const noexcept override;  // key and arguments in one line, for the log

private:
    std::string FKey;
    std::vector<std::string> FArgs;
    std::string FWhat;
};

inline constexpr char kStoreLocked[] = "Res_StoreLocked";          // another program holds the file
inline constexpr char kStoreInUse[] = "Res_StoreInUse";            // another workstation has it open
inline constexpr char kStoreReadOnly[] = "Res_StoreReadOnly";      // file or folder cannot be written
inline constexpr char kStoreNewer[] = "Res_StoreNewer";            // %2 its schema, %3 ours
inline constexpr char kStoreForeign[] = "Res_StoreForeign";        // a database, but not a store
inline constexpr char kStoreCannotOpen[] = "Res_StoreCannotOpen";  // %2 the system's reason
inline constexpr char kStoreDamaged[] = "Res_StoreDamaged";        // found damaged and still where it was
inline constexpr char kStoreDiskFull[] = "Res_StoreDiskFull";
inline constexpr char kStoreFailed[] = "Res_StoreFailed";            // %2 the database's reason
inline constexpr char kStoreSetAside[] = "Res_StoreSetAside";        // notice: %2 where the damaged file went
inline constexpr char kStoreCopyDamaged[] = "Res_StoreCopyDamaged";  // notice: the copy in memory starts empty

}  // namespace ws
