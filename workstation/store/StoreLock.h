// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

#include "workstation/store/StoreError.h"

namespace ws {

// One workstation window for a store: held through a lock on "<store>.lock", which the system takes back when the
// program ends, however it ends. Raises EStoreError when another program holds it. Where no such file can be made the
// store is opened without a lock, and says itself what is wrong with the folder.
class TStoreLock {
public:
    explicit TStoreLock(const std::filesystem::path& Store);
    ~TStoreLock();
    TStoreLock(const TStoreLock&) = delete;
    TStoreLock& operator=(const TStoreLock&) = delete;

private:
    int FHandle;
};

}  // namespace ws
