// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/store/StoreLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace ws {

TStoreLock::TStoreLock(const std::filesystem::path& Store) {
    std::error_code Ignored;
    if (Store.has_parent_path()) std::filesystem::create_directories(Store.parent_path(), Ignored);
    const std::string File = Store.string() + ".lock";
    FHandle = ::open(File.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (FHandle < 0 || ::flock(FHandle, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) return;
    ::close(FHandle);
    throw EStoreError(kStoreInUse, {Store.string()});
}

TStoreLock::~TStoreLock() {
    if (FHandle >= 0) ::close(FHandle);
}

}  // namespace ws
