// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/base/OwnerRegistrations.h"
#include "framework/services/ConfigManager.h"
#include "framework/services/LookAndFeelService.h"

namespace ws {

// The current skin; its colours are options in the section of its name.
class TLookAndFeelService : public fw::TCustomLookAndFeelService {
public:
    TLookAndFeelService(fw::TCustomConfigManager& Config, fw::Text Skin) : FConfig(Config), FSkin(std::move(Skin)) {}

    fw::Text GetSkinName() override { return FSkin; }
    fw::TColor GetSkinColor(int Index, const fw::Text& Key) override;  // red where the key holds no colour
    void AddLookAndFeelChangedEvent(fw::TDataEvent Handler, fw::TObject* Owner) override {
        FEvents.Add(Owner, std::move(Handler));
    }
    void RemoveLookAndFeelChangedEvent(fw::TObject* Owner) override { FEvents.Remove(Owner); }

    // Announces the skin to every view.
    void SetSkin(fw::Text Skin);
    bool HasOwners() const { return !FEvents.IsEmpty(); }

private:
    fw::TCustomConfigManager& FConfig;  // borrowed
    fw::Text FSkin;
    fw::TOwnerRegistrations<fw::TObject*, fw::TObject*> FEvents;
};

}  // namespace ws
