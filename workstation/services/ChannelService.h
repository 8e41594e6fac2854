// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>

#include "framework/base/OwnerRegistrations.h"
#include "framework/services/GlobalChannelManager.h"

namespace ws {

class TChannelService : public fw::TCustomGlobalChannelManager {
public:
    void Subscribe(int Channel, fw::TDataEvent Handler, fw::TObject* Owner) override {
        FChannels[Channel].Add(Owner, std::move(Handler));
    }
    void Unsubscribe(int Channel, fw::TObject* Owner) override;
    void SendData(int Channel, fw::TObject* Record) override;
    bool HasOwners() const;

private:
    std::map<int, fw::TOwnerRegistrations<fw::TObject*, fw::TObject*>> FChannels;
};

}  // namespace ws
