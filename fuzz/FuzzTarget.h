// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

// What libFuzzer and the replay call for each input; a property that does not hold ends the process. Always 0.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size);

namespace fuzz {

inline std::string_view AsText(const uint8_t* Data, size_t Size) {
    return Size == 0 ? std::string_view() : std::string_view(reinterpret_cast<const char*>(Data), Size);
}

// The text up to the next line break or the end; Rest goes on behind it.
inline std::string_view TakeLine(std::string_view& Rest) {
    const size_t End = Rest.find('\n');
    const std::string_view Line = Rest.substr(0, End);
    Rest.remove_prefix(End == std::string_view::npos ? Rest.size() : End + 1);
    return Line;
}

inline void Require(bool Holds, const char* Property) {
    if (Holds) return;
    std::fprintf(stderr, "does not hold: %s\n", Property);
    std::abort();
}

}  // namespace fuzz
