// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "framework/base/Numbers.h"
#include "framework/base/Text.h"

namespace support {

// What the fakes of one host were asked to do, in order, one line a call: "Service.Operation(arguments)".
// Calls that change something (registrations, subscriptions, orders, messages, layouts, sorts) always stand here;
// plain reads (texts, fields, lists, settings) only while RecordReads is on. A handler's own calls follow the call
// that fired it.
class TJournal {
public:
    bool RecordReads = false;

    // Sees every call and read, recorded or not, and may throw in its place (a service that fails).
    std::function<void(const fw::Text& Line)> OnLine;

    void Call(fw::Text Line) {
        FLines.push_back(std::move(Line));
        if (OnLine) OnLine(FLines.back());
    }
    void Read(fw::Text Line) {
        if (OnLine) OnLine(Line);
        if (RecordReads) FLines.push_back(std::move(Line));
    }

    const std::vector<fw::Text>& Lines() const { return FLines; }
    // The lines so far; the journal starts again.
    std::vector<fw::Text> Take() { return std::exchange(FLines, {}); }
    void Clear() { FLines.clear(); }
    int Count(std::string_view Line) const {
        int Result = 0;
        for (const auto& L : FLines) Result += L == Line;
        return Result;
    }

private:
    std::vector<fw::Text> FLines;
};

inline fw::Text Arg(double Value) { return fw::FloatToShortestText(Value); }
inline fw::Text Arg(int Value) { return std::to_string(Value); }
inline fw::Text Arg(bool Value) { return Value ? "true" : "false"; }

}  // namespace support
