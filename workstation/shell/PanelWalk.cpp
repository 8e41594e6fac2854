// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/PanelWalk.h"

#include <algorithm>
#include <vector>

#include <QApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QStatusBar>

#include "workstation/renderers/LayoutRenderer.h"

namespace ws {

namespace {

bool IsPanel(const QWidget& Widget) {
    return dynamic_cast<const TLayoutGroupRenderer*>(&Widget) || qobject_cast<const QDockWidget*>(&Widget) ||
           qobject_cast<const QStatusBar*>(&Widget);
}

QWidget* PanelOf(QWidget* Widget) {
    while (Widget && !IsPanel(*Widget)) Widget = Widget->parentWidget();
    return Widget;
}

bool TakesFocus(const QWidget& Widget) {
    return Widget.isVisible() && Widget.isEnabled() && !Widget.focusProxy() && (Widget.focusPolicy() & Qt::TabFocus);
}

struct TPanel {
    QWidget* Widget;
    QWidget* First;  // its first control
};

void TakePanels(QWidget& Area, std::vector<TPanel>& Panels) {
    const auto* Dock = qobject_cast<QDockWidget*>(&Area);
    const QWidget* Title = Dock ? Dock->titleBarWidget() : nullptr;
    for (QWidget* Each : Area.findChildren<QWidget*>()) {
        if (!TakesFocus(*Each) || (Title && Title->isAncestorOf(Each))) continue;
        QWidget* Panel = PanelOf(Each->parentWidget());
        const bool Known =
            std::any_of(Panels.begin(), Panels.end(), [&](const TPanel& Other) { return Other.Widget == Panel; });
        if (Panel && !Known) Panels.push_back({Panel, Each});
    }
}

}  // namespace

void WalkPanels(QMainWindow& Window, int Step) {
    std::vector<TPanel> Panels;
    for (QDockWidget* Dock : Window.findChildren<QDockWidget*>())
        if (Dock->isVisible() && !Dock->visibleRegion().isEmpty()) TakePanels(*Dock, Panels);
    TakePanels(*Window.statusBar(), Panels);
    if (Panels.empty()) return;
    const int Count = static_cast<int>(Panels.size());
    QWidget* Here = PanelOf(QApplication::focusWidget());
    const auto Found =
        std::find_if(Panels.begin(), Panels.end(), [&](const TPanel& Each) { return Each.Widget == Here; });
    const int Start = Found != Panels.end() ? static_cast<int>(Found - Panels.begin()) : Step > 0 ? -1 : Count;
    const TPanel& Next = Panels[static_cast<size_t>((Start + Step + Count) % Count)];
    QWidget* Stop = Next.Widget->focusWidget();
    if (!Stop || !TakesFocus(*Stop)) Stop = Next.First;
    if (Stop->window() != &Window) Stop->activateWindow();
    Stop->setFocus(Qt::TabFocusReason);
}

}  // namespace ws
