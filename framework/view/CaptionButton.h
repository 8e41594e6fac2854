// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

#include "framework/base/Object.h"
#include "framework/base/Text.h"

namespace fw {

// A button that the host draws in the title bar of a view. Created by the view and never freed.
class FRAMEWORK_API TCaptionButton : public TObject {
public:
    TCaptionButton();
    ~TCaptionButton() override;
    Text Hint;
    int ImageIndex = 0;  // in the view's caption image list
    int State = 0;
    TNotifyEvent OnClick;
};

using TCaptionButtonList = std::vector<TCaptionButton*>;

}  // namespace fw
