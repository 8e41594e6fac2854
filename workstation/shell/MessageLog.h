// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>

#include "framework/base/Clock.h"
#include "framework/base/Log.h"

namespace ws {

struct TMessage {
    fw::TClock::TTimePoint Time;
    fw::TLogEntry Entry;
};

// What the framework, the packages and the workstation logged, oldest first; the oldest go when there are too many.
// Keys and arguments are kept, so that a language switch translates what stands there.
class TMessageLog {
public:
    static constexpr size_t kMost = 5000;

    TMessageLog();

    const std::deque<TMessage>& Messages() const { return FMessages; }
    void Clear();

    fw::TSignal<> OnChanged;                     // cleared, or the oldest went
    fw::TSignal<const TMessage&> OnAdded;

private:
    std::deque<TMessage> FMessages;
    fw::TConnection FLink;
};

}  // namespace ws
