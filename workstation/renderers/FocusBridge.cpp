// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/FocusBridge.h"

#include <QApplication>
#include <QFocusEvent>

#include "framework/base/Dispatch.h"

namespace ws {

namespace {

const QWidget* FormOf(const QWidget* Widget) {
    while (Widget && Widget->objectName() != QLatin1String(kFormObjectName)) Widget = Widget->parentWidget();
    return Widget;
}

bool IsPassing(Qt::FocusReason Reason) {
    return Reason == Qt::PopupFocusReason || Reason == Qt::MenuBarFocusReason || Reason == Qt::ActiveWindowFocusReason;
}

}  // namespace

TFocusBridge::TFocusBridge(fw::TControl& Model, QWidget& Widget, std::function<void()> OnLeft)
    : QObject(&Widget), FModel(Model), FWidget(Widget), FOnLeft(std::move(OnLeft)) {
    Watch(Widget);
    FLink = Model.OnFocusRequested.Connect([this] {
        if (!FWidget.hasFocus() && !FWidget.isAncestorOf(QApplication::focusWidget())) FWidget.setFocus();
    });
}

void TFocusBridge::Watch(QWidget& Part) { Part.installEventFilter(this); }

bool TFocusBridge::StaysInForm(const QWidget* Now) const {
    const QWidget* Form = FormOf(&FWidget);
    return Form && FormOf(Now) == Form;  // through popup windows too
}

bool TFocusBridge::eventFilter(QObject* Watched, QEvent* Event) {
    const auto Type = Event->type();
    if (Type == QEvent::FocusIn && FModel && !FModel->HasFocus()) {
        fw::Dispatch("FocusIn", [this] { FModel->SetFocus(); });
        if (FModel && FModel->IsHeldElsewhere()) return true;  // the focus is back where it came from
    } else if ((Type == QEvent::MouseButtonPress || Type == QEvent::MouseButtonDblClick) && FModel &&
               FModel->IsHeldElsewhere()) {
        return true;
    } else if (Type == QEvent::FocusOut && FModel && FOnLeft) {
        const auto Reason = static_cast<QFocusEvent*>(Event)->reason();
        if (!IsPassing(Reason) && !StaysInForm(QApplication::focusWidget())) fw::Dispatch("FocusOut", FOnLeft);
    }
    return QObject::eventFilter(Watched, Event);
}

}  // namespace ws
