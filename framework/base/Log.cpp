// SPDX-License-Identifier: Apache-2.0
#include "framework/base/Log.h"

namespace fw {

void TLog::Write(ELogLevel Level, Text Key, std::vector<Text> Args) {
    const TLogEntry Entry{Level, std::move(Key), std::move(Args)};
    Entries()(Entry);
}

TSignal<const TLogEntry&>& TLog::Entries() {
    // Never destroyed: what ends after the statics may still log.
    static auto* const Signal = new TSignal<const TLogEntry&>;
    return *Signal;
}

}  // namespace fw
