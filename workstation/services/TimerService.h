// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/base/OwnerRegistrations.h"
#include "framework/services/TimerControl.h"

namespace ws {

inline constexpr int kTimerPeriodMs = 100;

// The shared tick; whoever runs the loop calls Tick every kTimerPeriodMs.
class TTimerService : public fw::TCustomTimerControl {
public:
    void AddTimerEvent(fw::TObject* Owner, fw::TNotifyEvent Handler) override {
        FEvents.Add(Owner, std::move(Handler));
    }
    void RemoveTimerEvent(fw::TObject* Owner) override { FEvents.Remove(Owner); }
    void Tick() { FEvents.Notify("timer", this); }
    bool HasOwners() const { return !FEvents.IsEmpty(); }

private:
    fw::TOwnerRegistrations<fw::TObject*> FEvents;
};

}  // namespace ws
