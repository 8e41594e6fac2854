// SPDX-License-Identifier: Apache-2.0
#include "tests/support/FakeSettings.h"

namespace support {

using namespace fw;

void TFakeLanguageManager::SetText(int LanguageIndex, const Text& Tag, const Text& Key, const Text& Value) {
    FTexts[{LanguageIndex, Tag}][Key] = Value;
}

void TFakeLanguageManager::GetResourceString(Text& Out, const Text& Tag, const Text& Key, int, int, void*) {
    FJournal.Read("Language.GetResourceString(" + Tag + ", " + Key + ")");
    const auto& Texts = FTexts[{Language, Tag}];
    const auto Found = Texts.find(Key);
    Out = Found == Texts.end() ? Key : Found->second;
}

void TFakeConfigManager::AddConfigUpdateEvent(TDataEvent Handler, TObject* Owner) {
    FJournal.Call("Config.AddConfigUpdateEvent()");
    FHandlers.Add(Owner, std::move(Handler));
}

void TFakeConfigManager::RemoveConfigUpdateEvent(TObject* Owner) {
    FJournal.Call("Config.RemoveConfigUpdateEvent()");
    FHandlers.Remove(Owner);
}

Text TFakeConfigManager::ReadString(const Text& Section, const Text& Key) {
    FJournal.Read("Config.ReadString(" + Section + ", " + Key + ")");
    const auto Found = Values.find({Section, Key});
    return Found == Values.end() ? Text() : Found->second;
}

int TFakeConfigManager::ReadInteger(const Text& Section, const Text& Key) {
    FJournal.Read("Config.ReadInteger(" + Section + ", " + Key + ")");
    const auto Found = Values.find({Section, Key});
    return Found == Values.end() ? 0 : TextToIntDef(Found->second, 0);
}

TColor TFakeLookAndFeelService::GetSkinColor(int Index, const Text& Key) {
    FJournal.Read("LookAndFeel.GetSkinColor(" + Arg(Index) + ", " + Key + ")");
    const auto Found = Colors.find(Key);
    return Found == Colors.end() ? 0 : Found->second;
}

void TFakeLookAndFeelService::AddLookAndFeelChangedEvent(TDataEvent Handler, TObject* Owner) {
    FJournal.Call("LookAndFeel.AddLookAndFeelChangedEvent()");
    FHandlers.Add(Owner, std::move(Handler));
}

void TFakeLookAndFeelService::RemoveLookAndFeelChangedEvent(TObject* Owner) {
    FJournal.Call("LookAndFeel.RemoveLookAndFeelChangedEvent()");
    FHandlers.Remove(Owner);
}

void TFakeTimerControl::AddTimerEvent(TObject* Owner, TNotifyEvent Handler) {
    FJournal.Call("Timer.AddTimerEvent()");
    FHandlers.Add(Owner, std::move(Handler));
}

void TFakeTimerControl::RemoveTimerEvent(TObject* Owner) {
    FJournal.Call("Timer.RemoveTimerEvent()");
    FHandlers.Remove(Owner);
}

int TFakeGlobalChannelManager::SubscriberCount(int Channel) const {
    const auto Found = FHandlers.find(Channel);
    return Found == FHandlers.end() ? 0 : static_cast<int>(Found->second.GetCount());
}

void TFakeGlobalChannelManager::Subscribe(int Channel, TDataEvent Handler, TObject* Owner) {
    FJournal.Call("Channels.Subscribe(" + Arg(Channel) + ")");
    FHandlers[Channel].Add(Owner, std::move(Handler));
}

void TFakeGlobalChannelManager::Unsubscribe(int Channel, TObject* Owner) {
    FJournal.Call("Channels.Unsubscribe(" + Arg(Channel) + ")");
    FHandlers[Channel].Remove(Owner);
}

void TFakeGlobalChannelManager::SendData(int Channel, TObject* Record) {
    FJournal.Call("Channels.SendData(" + Arg(Channel) + ")");
    if (const auto Found = FListeners.find(Channel); Found != FListeners.end()) Found->second(Record);
    FHandlers[Channel].Notify("Channel", this, Record);
}

}  // namespace support
