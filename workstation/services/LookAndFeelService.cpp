// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/LookAndFeelService.h"

#include "workstation/preferences/PreferenceTable.h"
#include "workstation/resources/Skins.h"

namespace ws {

TLookAndFeelService::TLookAndFeelService(fw::TCustomConfigManager& Config) : FConfig(Config) { Take(); }

fw::TColor TLookAndFeelService::GetSkinColor(int, const fw::Text& Key) {
    const auto Color = ParseRgb(FConfig.ReadString(FSkin, Key));
    return Color ? ToFrameworkColor(*Color) : fw::kColorRed;
}

bool TLookAndFeelService::Take() {
    const auto Skin = FConfig.ReadString(kWorkstationSection, kPreferenceSkin);
    const auto Palette = FConfig.ReadString(kWorkstationSection, kPreferencePalette);
    if (Skin == FSkin && Palette == FPalette) return false;
    FSkin = Skin;
    FPalette = Palette;
    return true;
}

void TLookAndFeelService::Follow() {
    if (Take()) FEvents.Notify("skin", this, nullptr);
}

}  // namespace ws
