// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

#include "framework/base/Signal.h"
#include "framework/base/Text.h"

namespace fw {

enum class ELogLevel { Info, Warning, Error };

// Key is a resource key whose text may hold %1..%9 for Args; the workstation translates it when it is shown.
struct TLogEntry {
    ELogLevel Level = ELogLevel::Info;
    Text Key;
    std::vector<Text> Args;
};

// The one way in which the framework and packages tell what happened without a dialog. Listeners (the Messages
// panel, a file, a test) connect to Entries(); entries written while nobody listens are dropped.
class FRAMEWORK_API TLog {
public:
    static void Write(ELogLevel Level, Text Key, std::vector<Text> Args = {});
    static void Info(Text Key, std::vector<Text> Args = {}) { Write(ELogLevel::Info, std::move(Key), std::move(Args)); }
    static void Warning(Text Key, std::vector<Text> Args = {}) {
        Write(ELogLevel::Warning, std::move(Key), std::move(Args));
    }
    static void Error(Text Key, std::vector<Text> Args = {}) {
        Write(ELogLevel::Error, std::move(Key), std::move(Args));
    }
    static TSignal<const TLogEntry&>& Entries();
};

}  // namespace fw
