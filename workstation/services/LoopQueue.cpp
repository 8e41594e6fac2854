// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/LoopQueue.h"

#include <utility>

#include "framework/base/Dispatch.h"

namespace ws {

void TLoopQueue::Post(std::function<void()> Task) {
    FTasks.push_back(std::move(Task));
    if (OnPosted) OnPosted();
}

int TLoopQueue::Pump() {
    auto Round = std::exchange(FTasks, {});
    for (auto& Task : Round) fw::Dispatch("loop", Task);
    return static_cast<int>(Round.size());
}

}  // namespace ws
