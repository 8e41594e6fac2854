// SPDX-License-Identifier: Apache-2.0
#include "framework/base/Errors.h"

namespace fw {

EConvertError::EConvertError(const std::string& What) : std::runtime_error(What) {}
EConvertError::~EConvertError() = default;

EListError::EListError(const std::string& What) : std::out_of_range(What) {}
EListError::~EListError() = default;

EServiceMissing::EServiceMissing(const std::string& What) : std::logic_error(What) {}
EServiceMissing::~EServiceMissing() = default;

EAxisRange::EAxisRange(const std::string& What) : std::invalid_argument(What) {}
EAxisRange::~EAxisRange() = default;

}  // namespace fw
