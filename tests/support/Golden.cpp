// SPDX-License-Identifier: Apache-2.0
#include "tests/support/Golden.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace support {

using namespace fw;

testing::AssertionResult MatchesGolden(const Text& Name, const std::vector<Text>& Lines) {
    const std::filesystem::path Path = std::filesystem::path(VENTIQ_TESTS_DIR) / (Name + ".txt");
    if (const char* Update = std::getenv("VENTIQ_UPDATE_GOLDEN"); Update && Text(Update) == "1") {
        std::filesystem::create_directories(Path.parent_path());
        std::ofstream File(Path, std::ios::binary);
        for (const auto& L : Lines) File << L << '\n';
        return File ? testing::AssertionSuccess() : testing::AssertionFailure() << "cannot write " << Path;
    }
    std::ifstream File(Path, std::ios::binary);
    if (!File) return testing::AssertionFailure() << "no approved text " << Path;
    size_t Index = 0;
    for (Text Approved; std::getline(File, Approved); ++Index) {
        const Text Seen = Index < Lines.size() ? Lines[Index] : "(end)";
        if (Seen != Approved || Index >= Lines.size())
            return testing::AssertionFailure()
                   << Name << ", line " << Index + 1 << "\n  approved: " << Approved << "\n  seen:     " << Seen;
    }
    if (Index < Lines.size())
        return testing::AssertionFailure()
               << Name << ", line " << Index + 1 << "\n  approved: (end)\n  seen:     " << Lines[Index];
    return testing::AssertionSuccess();
}

}  // namespace support
