// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "view/VentiqForm.h"

namespace ventiq {

// A leg as the position grid has it; the premium in display units. Side is a number and not a text, so equal legs stay
// equal when the language changes.
struct TLeg {
    Text Symbol;
    int Side = 0;
    double Premium = 0.0;
    double Quantity = 0.0;
    bool operator==(const TLeg&) const = default;
};

struct TLegRow : TLeg {
    Text OpenClose, Principal;  // as shown; no leg of a calculation depends on them
};

// The rows that are legs, loaded ones as well as typed ones, in grid order. A row without symbol or with a side that is
// neither text is none.
std::vector<TLegRow> ReadLegRows(const TVentiqForm& Form);

}  // namespace ventiq
