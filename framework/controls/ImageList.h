// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

#include "framework/base/Object.h"
#include "framework/base/Text.h"

namespace fw {

// Images by index, each known by the name of an icon that the host's skin supplies.
class FRAMEWORK_API TImageList : public TObject {
public:
    TImageList();
    explicit TImageList(std::vector<Text> IconNames);
    ~TImageList() override;
    int GetCount() const { return static_cast<int>(FIconNames.size()); }
    Text GetIconName(int Index) const;  // "" out of range

private:
    std::vector<Text> FIconNames;
};

}  // namespace fw
