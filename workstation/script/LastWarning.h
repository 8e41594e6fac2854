// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <utility>

#include "framework/base/Log.h"
#include "framework/base/Refusal.h"

namespace ws {

// The last warning that is logged while this lives: a view's own reason for what it did.
class TLastWarning {
public:
    const fw::TLogEntry& Entry() const { return FEntry; }
    // The editor's reason where it gave one, else the view's, else the one that is handed in.
    fw::TRefusal ReasonOr(const std::optional<fw::TRefusal>& OfEditor, fw::TRefusal Else) const {
        if (OfEditor) return *OfEditor;
        return FEntry.Key.empty() ? std::move(Else) : fw::TRefusal{FEntry.Key, FEntry.Args};
    }

private:
    fw::TLogEntry FEntry;
    fw::TConnection FLink = fw::TLog::Entries().Connect([this](const fw::TLogEntry& Entry) {
        if (Entry.Level != fw::ELogLevel::Info) FEntry = Entry;
    });
};

}  // namespace ws
