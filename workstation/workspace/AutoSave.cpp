// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/workspace/AutoSave.h"

namespace ws {

bool TAutoSave::IsDue(const std::string& Now, TTime Time) {
    if (!IsChanged(Now)) {
        FSince.reset();
        return false;
    }
    if (!FSince) FSince = Time;
    return Time - *FSince >= FDelay;
}

void TAutoSave::Settle(std::string Now) {
    FSettled = std::move(Now);
    FSince.reset();
}

}  // namespace ws
