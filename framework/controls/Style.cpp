// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/Style.h"

namespace fw {

TStyle::TStyle() = default;
TStyle::~TStyle() = default;

void TStyle::SetColor(TColor Value) {
    if (Value == FColor) return;
    FColor = Value;
    OnChanged();
}

}  // namespace fw
