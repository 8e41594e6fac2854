// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/LoopQueue.h"

#include <utility>

#include "framework/base/Dispatch.h"

namespace ws {

void TLoopQueue::Post(std::function<void()> Task) {
    FTasks.emplace_back(FNext++, std::move(Task));
    if (OnPosted) OnPosted();
}

// One at a time: a task that runs a loop of its own (a message box) does not hold back the tasks behind it.
int TLoopQueue::Pump() {
    int Count = 0;
    for (const std::uint64_t End = FNext; !FTasks.empty() && FTasks.front().first < End; ++Count) {
        const auto Task = std::move(FTasks.front().second);
        FTasks.pop_front();
        fw::Dispatch("loop", Task);
    }
    return Count;
}

}  // namespace ws
