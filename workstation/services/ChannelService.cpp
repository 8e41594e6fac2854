// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/ChannelService.h"

#include <algorithm>

namespace ws {

void TChannelService::Unsubscribe(int Channel, fw::TObject* Owner) {
    if (const auto It = FChannels.find(Channel); It != FChannels.end()) It->second.Remove(Owner);
}

void TChannelService::SendData(int Channel, fw::TObject* Record) {
    if (const auto It = FChannels.find(Channel); It != FChannels.end())
        It->second.Notify("channel " + std::to_string(Channel), this, Record);
}

bool TChannelService::HasOwners() const {
    return std::any_of(FChannels.begin(), FChannels.end(), [](const auto& Entry) { return !Entry.second.IsEmpty(); });
}

}  // namespace ws
