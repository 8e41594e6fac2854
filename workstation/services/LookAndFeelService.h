// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/base/OwnerRegistrations.h"
#include "framework/services/ConfigManager.h"
#include "framework/services/LookAndFeelService.h"

namespace ws {

// The configured skin; its colours are options in the section of its name.
class TLookAndFeelService : public fw::TCustomLookAndFeelService {
public:
    explicit TLookAndFeelService(fw::TCustomConfigManager& Config);

    fw::Text GetSkinName() override { return FSkin; }
    fw::TColor GetSkinColor(int Index, const fw::Text& Key) override;  // red where the key holds no colour
    void AddLookAndFeelChangedEvent(fw::TDataEvent Handler, fw::TObject* Owner) override {
        FEvents.Add(Owner, std::move(Handler));
    }
    void RemoveLookAndFeelChangedEvent(fw::TObject* Owner) override { FEvents.Remove(Owner); }

    fw::Text GetPaletteName() const { return FPalette; }  // of profit and loss

    // Takes up the configured skin and palette, and announces them to every view where one is another than before.
    void Follow();
    bool HasOwners() const { return !FEvents.IsEmpty(); }

private:
    bool Take();

    fw::TCustomConfigManager& FConfig;  // borrowed
    fw::Text FSkin, FPalette;
    fw::TOwnerRegistrations<fw::TObject*, fw::TObject*> FEvents;
};

}  // namespace ws
