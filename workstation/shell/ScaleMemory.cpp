// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/ScaleMemory.h"

#include <QDockWidget>
#include <QMainWindow>
#include <QTimer>

namespace ws {

TScaleMemory::TPlaces TScaleMemory::Now() const {
    TPlaces Result;
    Result.Window = FWindow.size();
    for (QDockWidget* Each : FWindow.findChildren<QDockWidget*>(Qt::FindDirectChildrenOnly)) {
        if (Each->isFloating() || !Each->isVisible()) continue;
        Result.Docks << Each;
        Result.Widths << Each->width();
        Result.Heights << Each->height();
    }
    return Result;
}

void TScaleMemory::Leave(int Scale) {
    const TPlaces Places = Now();
    if (Places.Window != FSettled.Window || Places.Docks != FSettled.Docks) FPlaces.clear();
    FPlaces[Scale] = Places;
}

// Twice: what the docks share depends on the menu bar, which takes its size along with them.
void TScaleMemory::Arrive(int Scale) {
    const auto Settle = [this, Scale] {
        const auto Found = FPlaces.find(Scale);
        if (Found != FPlaces.end() && Found->second.Docks == Now().Docks) Restore(Found->second);
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
    FWindow.resizeDocks(Places.Docks, Places.Widths, Qt::Horizontal);
    FWindow.resizeDocks(Places.Docks, Places.Heights, Qt::Vertical);
}

}  // namespace ws
