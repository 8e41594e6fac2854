// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <fstream>
#include <stdexcept>
#include <string>

namespace bench {

// What the program holds of the machine's memory in kB, as the system tells: "VmRSS:" now, "VmHWM:" at most so far.
// Raises where it does not tell.
inline long MemoryKb(const std::string& Field) {
    std::ifstream Status("/proc/self/status");
    for (std::string Line; std::getline(Status, Line);)
        if (Line.starts_with(Field)) return std::stol(Line.substr(Field.size()));
    throw std::runtime_error("the system does not tell " + Field);
}

inline long ResidentKb() { return MemoryKb("VmRSS:"); }
inline long MostResidentKb() { return MemoryKb("VmHWM:"); }

}  // namespace bench
