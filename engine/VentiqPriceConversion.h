// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/base/Text.h"

namespace ventiq {

using namespace fw;

// Some instruments are quoted in a unit of their own: display price = real price * field 1504. An empty symbol and an
// item without that field leave the price as it is. Never rounded.

// Real price -> display price.
double GetDisplayPriceValue(double Value, const Text& Symbol);

// Display price -> real price. Deliberately no inverse where the factor is 0 (within 1e-7): such a price shows as 0 and
// is taken as typed.
double GetRealPriceValue(double Value, const Text& Symbol);

}  // namespace ventiq
