// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/data/DataControl.h"

namespace fw {

// A batch handed to the confirmation dialog. The dialog owns DataControl from then on and sets Result to true when the
// trader confirms.
class FRAMEWORK_API TOrderTakeActionRecord : public TObject {
public:
    TOrderTakeActionRecord();
    ~TOrderTakeActionRecord() override;
    TCustomDataControl* DataControl = nullptr;
    int Action = 0;
    int ViewId = 0;
    bool Result = false;
};

}  // namespace fw
