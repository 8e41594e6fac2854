// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <utility>

namespace ws {

// Work that waits for the host's loop: deliveries that must not come from inside the call that caused them. One thread.
class TLoopQueue {
public:
    void Post(std::function<void()> Task);
    // Runs what was posted before the call; what it posts waits for the next round. Returns the number of tasks run.
    int Pump();
    bool IsEmpty() const { return FTasks.empty(); }

    // Wakes the loop; called on every Post. May be empty.
    std::function<void()> OnPosted;

private:
    std::deque<std::pair<std::uint64_t, std::function<void()>>> FTasks;  // numbered as posted
    std::uint64_t FNext = 0;
};

}  // namespace ws
