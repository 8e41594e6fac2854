// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/WorkstationLoop.h"

namespace ws {

TWorkstationLoop::TWorkstationLoop(TWorkstation& Workstation) : FWorkstation(Workstation) {
    FPump.setSingleShot(true);
    connect(&FPump, &QTimer::timeout, this, [this] { FWorkstation.Pump(); });
    connect(&FTicks, &QTimer::timeout, this, [this] { FWorkstation.Tick(); });
    FWorkstation.SetOnWork([this] { FPump.start(0); });
    FTicks.start(kTimerPeriodMs);
    FPump.start(0);
}

TWorkstationLoop::~TWorkstationLoop() { FWorkstation.SetOnWork({}); }

}  // namespace ws
