// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <stdexcept>
#include <string>

#include "framework/base/Export.h"

namespace fw {

// A text that does not convert (dates).
class FRAMEWORK_API EConvertError : public std::runtime_error {
public:
    explicit EConvertError(const std::string& What);
    ~EConvertError() override;
};

// A list index out of range.
class FRAMEWORK_API EListError : public std::out_of_range {
public:
    explicit EListError(const std::string& What);
    ~EListError() override;
};

// A service that nobody installed.
class FRAMEWORK_API EServiceMissing : public std::logic_error {
public:
    explicit EServiceMissing(const std::string& What);
    ~EServiceMissing() override;
};

// A bound of an axis that would lie beyond the other.
class FRAMEWORK_API EAxisRange : public std::invalid_argument {
public:
    explicit EAxisRange(const std::string& What);
    ~EAxisRange() override;
};

}  // namespace fw
