// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/AppPaths.h"

#include <initializer_list>

namespace ws {

namespace {

// The first that exists; the first of all when none does, so that a message can name it.
std::filesystem::path FirstPresent(std::initializer_list<std::filesystem::path> Candidates) {
    std::error_code Ignored;
    for (const auto& Candidate : Candidates)
        if (std::filesystem::is_directory(Candidate, Ignored)) return Candidate;
    return *Candidates.begin();
}

}  // namespace

std::filesystem::path ProgramFolder() {
    std::error_code Ignored;
    return std::filesystem::read_symlink("/proc/self/exe", Ignored).parent_path();
}

std::filesystem::path PackageFolder() {
    return FirstPresent({ProgramFolder() / "packages", ProgramFolder().parent_path() / "lib" / "ventiq-workstation" / "packages"});
}

std::filesystem::path SampleFolder() {
    return FirstPresent({ProgramFolder() / "data" / "sample", ProgramFolder().parent_path() / "share" / "ventiq-workstation" / "sample"});
}

}  // namespace ws
