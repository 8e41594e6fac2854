// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "engine/VentiqDataControl.h"

namespace ventiq {

// What nearly every part of the frame looks at. The frame owns it and decides when the data control comes and goes:
// it is created late in construction and freed before the lists, so parts test it before every use.
struct TVentiqContext {
    std::unique_ptr<TCustomVentiqDataControl> FMyDataControl;
    Text FGroupID;              // link group of the view
    TObject* FOwner = nullptr;  // the frame: the identity under which the host knows what the parts ask for
};

}  // namespace ventiq
