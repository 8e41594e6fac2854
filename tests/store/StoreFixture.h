// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the store's tests share: a folder that goes away, and short ways to read and write files.

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

#include "workstation/store/Store.h"

namespace ws::test {

inline constexpr char kNow[] = "2026/11/21 09:05:07";

class TTempFolder {
public:
    TTempFolder() {
        std::string Name = (std::filesystem::temp_directory_path() / "ws-store-XXXXXX").string();
        if (mkdtemp(Name.data()) == nullptr) std::abort();
        FPath = Name;
    }
    ~TTempFolder() {
        std::error_code Ignored;
        std::filesystem::remove_all(FPath, Ignored);
    }
    TTempFolder(const TTempFolder&) = delete;
    TTempFolder& operator=(const TTempFolder&) = delete;
    std::filesystem::path operator/(const std::string& Name) const { return FPath / Name; }
    const std::filesystem::path& Path() const { return FPath; }

    // File name -> content, of the whole folder.
    std::map<std::string, std::string> Content() const {
        std::map<std::string, std::string> All;
        for (const auto& Entry : std::filesystem::recursive_directory_iterator(FPath)) {
            std::ifstream In(Entry.path(), std::ios::binary);
            All[Entry.path().string()] = {std::istreambuf_iterator<char>(In), {}};
        }
        return All;
    }

private:
    std::filesystem::path FPath;
};

inline void WriteFile(const std::filesystem::path& File, const std::string& Text) {
    std::ofstream(File, std::ios::binary) << Text;
}

inline std::string ReadFile(const std::filesystem::path& File) {
    std::ifstream In(File, std::ios::binary);
    return {std::istreambuf_iterator<char>(In), {}};
}

// The key of the error that Work throws; "" when it throws none.
template <class TWork>
std::string ErrorKeyOf(TWork&& Work) {
    try {
        Work();
    } catch (const EStoreError& Error) {
        return Error.Key();
    }
    return "";
}

}  // namespace ws::test
