// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <set>

#include "framework/base/OwnerRegistrations.h"
#include "framework/services/ConfigManager.h"
#include "framework/services/GlobalChannelManager.h"
#include "framework/services/LanguageManager.h"
#include "framework/services/LookAndFeelService.h"
#include "framework/services/TimerControl.h"
#include "framework/services/UserAppProfile.h"
#include "tests/support/Journal.h"

namespace support {

// Texts per language index; tests may use any index. A key without text gives the key itself.
class TFakeLanguageManager : public fw::TCustomLanguageManager {
public:
    explicit TFakeLanguageManager(TJournal& Journal) : FJournal(Journal) {}
    int Language = 0;
    void SetText(int LanguageIndex, const fw::Text& Tag, const fw::Text& Key, const fw::Text& Value);
    // Caption or message of language 0.
    void SetText(const fw::Text& Key, const fw::Text& Value) { SetText(0, Const::ResourceStringTag, Key, Value); }

    void GetResourceString(fw::Text& Out, const fw::Text& Tag, const fw::Text& Key, int Kind, int Reserved,
                           void* Extra) override;
    int GetLanguage() override { return Language; }

private:
    TJournal& FJournal;
    std::map<std::pair<int, fw::Text>, std::map<fw::Text, fw::Text>> FTexts;
};

class TFakeConfigManager : public fw::TCustomConfigManager {
public:
    explicit TFakeConfigManager(TJournal& Journal) : FJournal(Journal) {}
    std::map<std::pair<fw::Text, fw::Text>, fw::Text> Values;  // section, key -> value
    fw::Text UserSection = "USER";
    bool KeepColumnLayout = false;
    void Set(const fw::Text& Section, const fw::Text& Key, const fw::Text& Value) { Values[{Section, Key}] = Value; }
    void FireConfigUpdate() { FHandlers.Notify("ConfigUpdate", this, nullptr); }
    int HandlerCount() const { return static_cast<int>(FHandlers.GetCount()); }

    void AddConfigUpdateEvent(fw::TDataEvent Handler, fw::TObject* Owner) override;
    void RemoveConfigUpdateEvent(fw::TObject* Owner) override;
    fw::Text ReadString(const fw::Text& Section, const fw::Text& Key) override;
    int ReadInteger(const fw::Text& Section, const fw::Text& Key) override;
    fw::Text GetUserSection() override { return UserSection; }
    bool GetKeepColumnLayout() override { return KeepColumnLayout; }

private:
    TJournal& FJournal;
    fw::TOwnerRegistrations<fw::TObject*, fw::TObject*> FHandlers;
};

// A full user unless a test says otherwise.
class TFakeUserAppProfile : public fw::TCustomUserAppProfile {
public:
    int UserType = 1;
    bool AccountSelectable = true;
    std::set<fw::Text> Functions{"PayOff"};
    std::set<fw::Text> Rights{"OEOpenC", "OEPrin"};
    int GetUserType() override { return UserType; }
    bool IsAccountSelectable() override { return AccountSelectable; }
    bool IsFunctionEnabled(const fw::Text& FunctionCode) override { return Functions.contains(FunctionCode); }
    bool HasRight(const fw::Text& Right) override { return Rights.contains(Right); }
};

class TFakeLookAndFeelService : public fw::TCustomLookAndFeelService {
public:
    explicit TFakeLookAndFeelService(TJournal& Journal) : FJournal(Journal) {}
    fw::Text SkinName = "Light";
    std::map<fw::Text, fw::TColor> Colors;  // by key; others 0
    void FireLookAndFeelChanged() { FHandlers.Notify("LookAndFeelChanged", this, nullptr); }
    int HandlerCount() const { return static_cast<int>(FHandlers.GetCount()); }

    fw::Text GetSkinName() override { return SkinName; }
    fw::TColor GetSkinColor(int Index, const fw::Text& Key) override;
    void AddLookAndFeelChangedEvent(fw::TDataEvent Handler, fw::TObject* Owner) override;
    void RemoveLookAndFeelChangedEvent(fw::TObject* Owner) override;

private:
    TJournal& FJournal;
    fw::TOwnerRegistrations<fw::TObject*, fw::TObject*> FHandlers;
};

class TFakeTimerControl : public fw::TCustomTimerControl {
public:
    explicit TFakeTimerControl(TJournal& Journal) : FJournal(Journal) {}
    void Tick() { FHandlers.Notify("Timer", this); }
    int HandlerCount() const { return static_cast<int>(FHandlers.GetCount()); }

    void AddTimerEvent(fw::TObject* Owner, fw::TNotifyEvent Handler) override;
    void RemoveTimerEvent(fw::TObject* Owner) override;

private:
    TJournal& FJournal;
    fw::TOwnerRegistrations<fw::TObject*> FHandlers;
};

class TFakeGlobalChannelManager : public fw::TCustomGlobalChannelManager {
public:
    explicit TFakeGlobalChannelManager(TJournal& Journal) : FJournal(Journal) {}
    // A listener of the test's own (the batch dialog, the symbol popup); a second one on the channel replaces it. What
    // it throws reaches the sender.
    void Listen(int Channel, std::function<void(fw::TObject* Record)> Listener) {
        FListeners[Channel] = std::move(Listener);
    }
    int SubscriberCount(int Channel) const;

    void Subscribe(int Channel, fw::TDataEvent Handler, fw::TObject* Owner) override;
    void Unsubscribe(int Channel, fw::TObject* Owner) override;
    void SendData(int Channel, fw::TObject* Record) override;

private:
    TJournal& FJournal;
    std::map<int, fw::TOwnerRegistrations<fw::TObject*, fw::TObject*>> FHandlers;
    std::map<int, std::function<void(fw::TObject*)>> FListeners;
};

}  // namespace support
