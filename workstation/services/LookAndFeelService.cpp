// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/LookAndFeelService.h"

#include "workstation/resources/Skins.h"

namespace ws {

fw::TColor TLookAndFeelService::GetSkinColor(int, const fw::Text& Key) {
    const auto Color = ParseRgb(FConfig.ReadString(FSkin, Key));
    return Color ? ToFrameworkColor(*Color) : fw::kColorRed;
}

void TLookAndFeelService::SetSkin(fw::Text Skin) {
    FSkin = std::move(Skin);
    FEvents.Notify("skin", this, nullptr);
}

}  // namespace ws
