// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/base/OwnerRegistrations.h"
#include "framework/services/ConfigManager.h"
#include "workstation/resources/Skins.h"
#include "workstation/store/Store.h"

namespace ws {

// Options by section and key: what the store holds, and below it the colours that ship with the skins (a section named
// like a skin). Writing an option notifies at once.
class TConfigService : public fw::TCustomConfigManager {
public:
    TConfigService(TStore& Store, const TSkinTable& Skins) : FStore(&Store), FSkins(Skins) {}

    void AddConfigUpdateEvent(fw::TDataEvent Handler, fw::TObject* Owner) override {
        FEvents.Add(Owner, std::move(Handler));
    }
    void RemoveConfigUpdateEvent(fw::TObject* Owner) override { FEvents.Remove(Owner); }
    fw::Text ReadString(const fw::Text& Section, const fw::Text& Key) override;
    int ReadInteger(const fw::Text& Section, const fw::Text& Key) override;
    fw::Text GetUserSection() override { return "User." + FUser; }
    bool GetKeepColumnLayout() override;

    void WriteString(const fw::Text& Section, const fw::Text& Key, const fw::Text& Value);
    void SetUser(fw::Text User);
    void Notify() { FEvents.Notify("configuration", this, nullptr); }
    bool HasOwners() const { return !FEvents.IsEmpty(); }

private:
    TStore* FStore;            // borrowed
    const TSkinTable& FSkins;  // borrowed
    fw::Text FUser;
    fw::TOwnerRegistrations<fw::TObject*, fw::TObject*> FEvents;
};

}  // namespace ws
