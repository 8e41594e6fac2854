// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/workspace/DurableFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace ws {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBlock = 64 * 1024;

[[noreturn]] void ThrowLast() { throw std::system_error(errno, std::generic_category()); }

class THandle {
public:
    THandle(const fs::path& File, int Flags) : FHandle(::open(File.c_str(), Flags | O_CLOEXEC, 0600)) {}
    ~THandle() {
        if (FHandle >= 0) ::close(FHandle);
    }
    THandle(const THandle&) = delete;
    THandle& operator=(const THandle&) = delete;
    bool IsOpen() const { return FHandle >= 0; }

    void Write(const std::string& Text) const {
        for (std::size_t Done = 0; Done < Text.size();) {
            const ssize_t Count = ::write(FHandle, Text.data() + Done, Text.size() - Done);
            if (Count < 0 && errno != EINTR) ThrowLast();
            Done += static_cast<std::size_t>(std::max<ssize_t>(Count, 0));
        }
    }
    std::size_t Read(char* Into, std::size_t Most) const {
        for (;;) {
            const ssize_t Count = ::read(FHandle, Into, Most);
            if (Count >= 0) return static_cast<std::size_t>(Count);
            if (errno != EINTR) ThrowLast();
        }
    }
    void Sync() const {
        if (::fsync(FHandle) != 0) ThrowLast();
    }

private:
    int FHandle;
};

}  // namespace

TDurableFile::TDurableFile(fs::path File, const std::string& Text) : FFile(std::move(File)), FNew(FFile) {
    FNew += ".new";
    try {
        const THandle Handle(FNew, O_WRONLY | O_CREAT | O_TRUNC);
        if (!Handle.IsOpen()) ThrowLast();
        Handle.Write(Text);
        Handle.Sync();
    } catch (const std::system_error&) {
        ::unlink(FNew.c_str());
        throw;
    }
}

TDurableFile::~TDurableFile() {
    if (!FCommitted) ::unlink(FNew.c_str());
}

void TDurableFile::Commit() {
    if (::rename(FNew.c_str(), FFile.c_str()) != 0) ThrowLast();
    FCommitted = true;
    const THandle Folder(FFile.has_parent_path() ? FFile.parent_path() : fs::path("."), O_RDONLY | O_DIRECTORY);
    if (!Folder.IsOpen()) ThrowLast();
    Folder.Sync();
}

std::optional<std::string> ReadWhole(const fs::path& File, std::size_t MostBytes) {
    const THandle Handle(File, O_RDONLY);
    if (!Handle.IsOpen()) {
        if (errno == ENOENT || errno == ENOTDIR) return std::nullopt;
        ThrowLast();
    }
    std::string Text;
    while (Text.size() < MostBytes) {
        const std::size_t Before = Text.size();
        Text.resize(std::min(MostBytes, Before + kBlock));
        const std::size_t Count = Handle.Read(Text.data() + Before, Text.size() - Before);
        Text.resize(Before + Count);
        if (Count == 0) break;
    }
    return Text;
}

}  // namespace ws
