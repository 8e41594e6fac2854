// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/MessageLog.h"

namespace ws {

TMessageLog::TMessageLog() {
    FLink = fw::TLog::Entries().Connect([this](const fw::TLogEntry& Entry) {
        FMessages.push_back({fw::TClock::Now(), Entry});
        if (FMessages.size() > kMost) {
            FMessages.pop_front();
            OnChanged();
        } else {
            OnAdded(FMessages.back());
        }
    });
}

void TMessageLog::Clear() {
    FMessages.clear();
    OnChanged();
}

}  // namespace ws
