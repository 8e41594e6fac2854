// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workstation/script/Strategy.h"
#include "workstation/store/Store.h"

namespace ws {

// What the first start types: an iron condor on the near month of the sample's main index, priced by the market.
// Empty when the store holds no sample.
TStrategy FirstStartStrategy(const TStore& Store);

}  // namespace ws
