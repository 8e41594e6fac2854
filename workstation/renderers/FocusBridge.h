// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include <QObject>
#include <QWidget>

#include "framework/base/Signal.h"
#include "workstation/renderers/ModelRef.h"

namespace ws {

// Keeps the toolkit's focus and a model's together: a widget that gets the focus gives it to the model, a model that a
// program focuses gives it to the widget. While another control of the form keeps the focus, the widget gets neither
// focus nor mouse. Lives as a child of the widget.
class TFocusBridge : public QObject {
public:
    // OnLeft: the focus left for something outside the form (another dock), where no other model takes it over. Menus,
    // popups and other programs do not count.
    TFocusBridge(fw::TControl& Model, QWidget& Widget, std::function<void()> OnLeft = {});

    // Further widgets that belong to the same model (the text inside a composite). Borrowed; same life as the bridge's.
    void Watch(QWidget& Part);

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;

private:
    bool StaysInForm(const QWidget* Now) const;

    TModelRef<fw::TControl> FModel;
    QWidget& FWidget;
    std::function<void()> FOnLeft;
    fw::TConnection FLink;
};

// Name of the widget that holds one form; focus that moves inside of it is the business of the models.
inline constexpr const char* kFormObjectName = "form";

}  // namespace ws
