// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>

#include "framework/base/Color.h"
#include "framework/base/Object.h"
#include "framework/base/Signal.h"

namespace fw {

// Background of cells, and how their text stands on it.
class FRAMEWORK_API TStyle : public TObject {
public:
    TStyle();
    ~TStyle() override;
    TColor GetColor() const { return FColor; }
    void SetColor(TColor Value);
    bool Filled = true;  // false: the table's own background
    bool Bold = false;
    std::optional<TColor> TextColor;  // none: the table's own
    TSignal<> OnChanged;

private:
    TColor FColor = kColorRed;
};

}  // namespace fw
