// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <optional>

#include "framework/base/Export.h"

namespace fw {

// The one clock of the process: everything that depends on "now" asks it, so that tests and pictures can fix it.
class FRAMEWORK_API TClock {
public:
    using TTimePoint = std::chrono::system_clock::time_point;
    static TTimePoint Now();
    // A fixed time; no value lets it run again.
    static void Fix(std::optional<TTimePoint> Time);
    static bool IsFixed();
};

}  // namespace fw
