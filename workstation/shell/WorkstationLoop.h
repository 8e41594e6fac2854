// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

#include "workstation/services/Workstation.h"

namespace ws {

// Runs a workstation on the toolkit's event loop: its ticks, and its queue as soon as something is posted.
class TWorkstationLoop : public QObject {
public:
    explicit TWorkstationLoop(TWorkstation& Workstation);
    ~TWorkstationLoop() override;

private:
    TWorkstation& FWorkstation;  // borrowed, outlives the loop
    QTimer FTicks;
    QTimer FPump;  // single shot of no time: the next turn of the event loop
};

}  // namespace ws
