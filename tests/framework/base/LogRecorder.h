// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

#include "framework/base/Log.h"

namespace fw {

// What was logged while it lives.
class TLogRecorder {
public:
    TLogRecorder() {
        FLinks += TLog::Entries().Connect([this](const TLogEntry& Entry) { Entries.push_back(Entry); });
    }
    std::vector<TLogEntry> Entries;

private:
    TConnections FLinks;
};

}  // namespace fw
