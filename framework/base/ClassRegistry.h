// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "framework/base/Object.h"
#include "framework/base/Text.h"

namespace fw {

// Classes that packages offer to the host, in order of registration. Process-wide; entries stay for the process.
class FRAMEWORK_API TClassRegistry {
public:
    using TFactory = std::function<std::unique_ptr<TObject>()>;

    // A name that is registered already keeps its first factory; false then.
    static bool RegisterClass(const Text& Name, TFactory Factory);
    static std::vector<Text> ClassNames();
    // Null for an unknown name.
    static std::unique_ptr<TObject> Create(const Text& Name);
};

}  // namespace fw
