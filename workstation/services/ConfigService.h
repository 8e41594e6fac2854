// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "framework/base/OwnerRegistrations.h"
#include "framework/services/ConfigManager.h"
#include "workstation/resources/Skins.h"
#include "workstation/store/Store.h"

namespace ws {

// An option to be stored; none: what is stored there is removed.
struct TConfigChange {
    fw::Text Section, Key;
    std::optional<fw::Text> Value;
};

// Options by section and key: what the store holds, and below it the defaults of the preferences and the colours that
// ship with the skins (a section named like a skin). A preference that holds what it may not counts as not stored.
// Writing notifies at once; it raises EStoreError, and nobody is told then.
class TConfigService : public fw::TCustomConfigManager {
public:
    TConfigService(TStore& Store, const TSkinTable& Skins) : FStore(&Store), FSkins(Skins) {}

    void AddConfigUpdateEvent(fw::TDataEvent Handler, fw::TObject* Owner) override {
        FEvents.Add(Owner, std::move(Handler));
    }
    void RemoveConfigUpdateEvent(fw::TObject* Owner) override { FEvents.Remove(Owner); }
    fw::Text ReadString(const fw::Text& Section, const fw::Text& Key) override;
    int ReadInteger(const fw::Text& Section, const fw::Text& Key) override;
    fw::Text GetUserSection() override;
    bool GetKeepColumnLayout() override;

    void WriteString(const fw::Text& Section, const fw::Text& Key, const fw::Text& Value);
    void Write(const std::vector<TConfigChange>& Changes);
    // What the store itself holds there.
    std::optional<fw::Text> Stored(const fw::Text& Section, const fw::Text& Key) const;

    void SetUser(fw::Text User);
    void Notify();
    bool HasOwners() const { return !FEvents.IsEmpty(); }

    // Before the owners are told: services that follow an option.
    std::function<void()> OnChanged;

private:
    TStore* FStore;            // borrowed
    const TSkinTable& FSkins;  // borrowed
    fw::Text FUser;
    fw::TOwnerRegistrations<fw::TObject*, fw::TObject*> FEvents;
};

}  // namespace ws
