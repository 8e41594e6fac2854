// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/ImageList.h"

namespace fw {

TImageList::TImageList() = default;
TImageList::TImageList(std::vector<Text> IconNames) : FIconNames(std::move(IconNames)) {}
TImageList::~TImageList() = default;

Text TImageList::GetIconName(int Index) const {
    return Index >= 0 && Index < GetCount() ? FIconNames[static_cast<size_t>(Index)] : Text();
}

}  // namespace fw
