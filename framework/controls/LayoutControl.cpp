// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/LayoutControl.h"

namespace fw {

TLayoutNode::~TLayoutNode() = default;
TLayoutItem::~TLayoutItem() = default;
TLayoutGroup::~TLayoutGroup() = default;

void TLayoutItem::SetCaption(Text Value) {
    if (Value == FCaption) return;
    FCaption = std::move(Value);
    OnModelChanged();
}

}  // namespace fw
