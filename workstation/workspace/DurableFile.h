// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace ws {

// A file that is replaced as a whole: after a crash at any moment the old text or the new one stands there. The text is
// on the disk once Commit has returned. Both operations raise std::system_error with the system's reason; the old text
// stands then.
class TDurableFile {
public:
    // Writes Text beside File, under its name with ".new" behind it, and waits for the disk.
    TDurableFile(std::filesystem::path File, const std::string& Text);
    ~TDurableFile();  // without Commit nothing is left
    TDurableFile(const TDurableFile&) = delete;
    TDurableFile& operator=(const TDurableFile&) = delete;

    void Commit();

private:
    std::filesystem::path FFile, FNew;
    bool FCommitted = false;
};

// The first MostBytes bytes of a file. None when there is no such file; raises std::system_error when there is one that
// cannot be read.
std::optional<std::string> ReadWhole(const std::filesystem::path& File, std::size_t MostBytes);

}  // namespace ws
