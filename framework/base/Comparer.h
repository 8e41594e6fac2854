// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>

#include "framework/base/Object.h"
#include "framework/base/Text.h"

namespace fw {

// Orders two texts: negative, zero or positive. Held by std::shared_ptr; it goes with its last holder.
class FRAMEWORK_API TCustomComparer : public TObject {
public:
    using TFunction = std::function<int32_t(const Text& A, const Text& B)>;
    explicit TCustomComparer(TFunction Function);
    ~TCustomComparer() override;
    virtual int32_t Compare(const Text& A, const Text& B) const;

private:
    TFunction FFunction;
};

// Orders month codes ("yyyy-MM", "yyyy-MM-W1") by their text. One instance per data control.
class FRAMEWORK_API TCustomMonthComparer : public TCustomComparer {
public:
    TCustomMonthComparer();
    ~TCustomMonthComparer() override;
};

}  // namespace fw
