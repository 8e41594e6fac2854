// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace ws {

// When what the user arranges is saved by itself: some time after the first change since the last save. What could not
// be saved is tried again at the next change.
class TAutoSave {
public:
    using TTime = std::chrono::steady_clock::time_point;
    explicit TAutoSave(std::chrono::milliseconds Delay = std::chrono::seconds(5)) : FDelay(Delay) {}

    // Tells how it looks now; asked again and again. True: save it.
    bool IsDue(const std::string& Now, TTime Time);
    void Settle(std::string Now);  // saved, failed to, or just restored
    bool IsChanged(const std::string& Now) const { return Now != FSettled; }

private:
    std::chrono::milliseconds FDelay;
    std::string FSettled;
    std::optional<TTime> FSince;  // when it was first seen changed
};

}  // namespace ws
