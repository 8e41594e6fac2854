// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/base/Color.h"
#include "framework/base/Object.h"
#include "framework/base/Signal.h"

namespace fw {

// Background of cells.
class FRAMEWORK_API TStyle : public TObject {
public:
    TStyle();
    ~TStyle() override;
    TColor GetColor() const { return FColor; }
    void SetColor(TColor Value);
    TSignal<> OnChanged;

private:
    TColor FColor = kColorRed;
};

}  // namespace fw
