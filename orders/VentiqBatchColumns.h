// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/data/ColumnInfo.h"

namespace ventiq {

using namespace fw;

// The columns of the batch confirmation, in order. Made at the first call; one list for the process, never freed.
TColumnInfoList* BatchColumns();

}  // namespace ventiq
