// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include <QLabel>
#include <QPointer>

#include "framework/controls/HintController.h"

namespace ws {

// The one hint window of a form: text at a point of the screen. The controller must live as long as this, or stop
// speaking; it is only looked at while it speaks.
class THintRenderer {
public:
    THintRenderer(fw::THintController& Model, QWidget& Form);
    ~THintRenderer();
    QLabel* GetWindow() const { return FWindow; }

private:
    void Reload(fw::THintController& Model);

    QPointer<QLabel> FWindow;  // child of the form
    fw::TConnection FLink;
};

}  // namespace ws
