// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/ConfigService.h"

#include "framework/base/Numbers.h"

namespace ws {

namespace {
constexpr const char* kSectionWorkstation = "Workstation";
constexpr const char* kKeyKeepColumnLayout = "KeepColumnLayout";
}  // namespace

fw::Text TConfigService::ReadString(const fw::Text& Section, const fw::Text& Key) {
    if (const auto Stored = FStore->ReadSetting(Section, Key)) return *Stored;
    if (const auto Color = FSkins.Color(Section, Key)) return FormatRgb(*Color);
    return {};
}

int TConfigService::ReadInteger(const fw::Text& Section, const fw::Text& Key) {
    return fw::TextToIntDef(ReadString(Section, Key), 0);
}

bool TConfigService::GetKeepColumnLayout() { return ReadString(kSectionWorkstation, kKeyKeepColumnLayout) != "0"; }

void TConfigService::WriteString(const fw::Text& Section, const fw::Text& Key, const fw::Text& Value) {
    FStore->WriteSetting(Section, Key, Value);
    Notify();
}

void TConfigService::SetUser(fw::Text User) {
    FUser = std::move(User);
    Notify();
}

}  // namespace ws
