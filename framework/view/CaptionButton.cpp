// SPDX-License-Identifier: Apache-2.0
#include "framework/view/CaptionButton.h"

namespace fw {

TCaptionButton::TCaptionButton() = default;
TCaptionButton::~TCaptionButton() = default;

}  // namespace fw
