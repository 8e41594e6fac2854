// SPDX-License-Identifier: Apache-2.0
#include "framework/view/Frame.h"

namespace fw {

TFrame::TFrame() = default;
TFrame::~TFrame() = default;

bool TFrame::SetLanguage(int) { return false; }
bool TFrame::SetGroupID(const Text&) { return false; }
bool TFrame::GetGroupID(Text&) { return false; }
Text TFrame::GetLayoutData() { return {}; }
bool TFrame::SetLayoutData(const Text&) { return false; }
bool TFrame::SetCustomData(int, TObject*) { return false; }
TCaptionButtonList* TFrame::GetViewCaptionButtons() { return nullptr; }
TImageList* TFrame::GetViewCaptionButtonImageList() { return nullptr; }

void TFrame::SetStaleSince(std::optional<TClock::TTimePoint> Calculated) {
    if (Calculated == FStaleSince) return;
    FStaleSince = Calculated;
    OnStaleChanged();
}

}  // namespace fw
