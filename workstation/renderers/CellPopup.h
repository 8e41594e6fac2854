// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QWidget>

#include "framework/controls/GridTableView.h"
#include "workstation/renderers/ModelRef.h"
#include "workstation/renderers/RenderContext.h"

namespace ws {

// The drop-down of a popup cell: asks the view for its content, shows it below the cell, hides it when either side says
// so.
class TCellPopup {
public:
    TCellPopup(fw::TGridTableView& View, TRenderContext& Context, QWidget& Anchor);
    ~TCellPopup();

    // Nothing where the editor has no popup control or the program has no content for it.
    void Open();
    QWidget* GetWindow() const { return FWindow; }

private:
    void Hidden();

    TModelRef<fw::TGridTableView> FView;
    TRenderContext& FContext;
    QWidget& FAnchor;
    QPointer<QWidget> FWindow;
    fw::TPopupControl* FControl = nullptr;  // borrowed from the host while the window is shown
    fw::TConnection FLink;
};

}  // namespace ws
