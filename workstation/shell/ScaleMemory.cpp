// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/ScaleMemory.h"

#include <QMainWindow>
#include <QTimer>

namespace ws {

TScaleMemory::TPlaces TScaleMemory::Now() const { return {FWindow.size(), FWindow.saveState()}; }

void TScaleMemory::Leave(int Scale) {
    const TPlaces Places = Now();
    if (!(Places == FSettled)) FPlaces.clear();
    FPlaces[Scale] = Places;
}

// Twice: what the docks share depends on the menu bar, which takes its size along with them.
void TScaleMemory::Arrive(int Scale) {
    const auto Settle = [this, Scale] {
        const auto Found = FPlaces.find(Scale);
        if (Found != FPlaces.end()) Restore(Found->second);
        FSettled = Now();
    };
    QTimer::singleShot(0, &FWindow, [this, Settle] {
        Settle();
        QTimer::singleShot(0, &FWindow, Settle);
    });
}

void TScaleMemory::Restore(const TPlaces& Places) {
    if (!FWindow.isMaximized() && !FWindow.isFullScreen()) FWindow.resize(Places.Window);
    if (FWindow.size() != Places.Window) return;
    if (FWindow.saveState() != Places.Docks) FWindow.restoreState(Places.Docks);
}

}  // namespace ws
