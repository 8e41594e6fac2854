// SPDX-License-Identifier: Apache-2.0
// Feeds a fuzz target each file named, or each file of each folder named: replay_<target> FILE|FOLDER...
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/FuzzTarget.h"

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> FilesOf(const fs::path& Named) {
    if (!fs::is_directory(Named)) return {Named};
    std::vector<fs::path> Files;
    for (const auto& Entry : fs::directory_iterator(Named))
        if (Entry.is_regular_file()) Files.push_back(Entry.path());
    std::sort(Files.begin(), Files.end());
    return Files;
}

bool Replay(const fs::path& File) {
    std::ifstream Stream(File, std::ios::binary);
    if (!Stream) return false;
    const std::string Bytes{std::istreambuf_iterator<char>(Stream), {}};
    std::cout << File.filename().string() << " (" << Bytes.size() << " bytes)" << std::endl;  // stands before an abort
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(Bytes.data()), Bytes.size());
    return true;
}

}  // namespace

int main(int Count, char** Args) {
    int Replayed = 0;
    for (int I = 1; I < Count; ++I) {
        const fs::path Named = Args[I];
        if (!fs::exists(Named)) {
            std::cerr << "no such file or folder: " << Named << '\n';
            return 2;
        }
        for (const auto& File : FilesOf(Named)) {
            if (!Replay(File)) {
                std::cerr << "cannot be read: " << File << '\n';
                return 2;
            }
            ++Replayed;
        }
    }
    if (Replayed == 0) std::cerr << "nothing to replay\n";
    return Replayed == 0 ? 2 : 0;
}
