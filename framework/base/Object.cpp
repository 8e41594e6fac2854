// SPDX-License-Identifier: Apache-2.0
#include "framework/base/Object.h"

namespace fw {

TObject::~TObject() = default;

}  // namespace fw
