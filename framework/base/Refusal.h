// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

#include "framework/base/Text.h"

namespace fw {

// Why something that was asked for is not done: a resource key with the arguments of its sentence.
struct TRefusal {
    Text Key;
    std::vector<Text> Args;
    friend bool operator==(const TRefusal&, const TRefusal&) = default;
};

}  // namespace fw
