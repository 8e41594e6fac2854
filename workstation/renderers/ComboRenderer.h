// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QComboBox>

#include "framework/controls/ComboBox.h"
#include "workstation/renderers/ModelRef.h"
#include "workstation/renderers/RenderContext.h"

namespace ws {

class TComboRenderer : public QComboBox {
public:
    TComboRenderer(fw::TComboBox& Model, TRenderContext& Context, QWidget* Parent);

    void showPopup() override;

protected:
    void wheelEvent(
        QWheelEvent* Event) override;  // the wheel turns a focused combo only, else it scrolls what is around

private:
    void ReloadItems();
    void ReloadIndex();
    void WidenList();

    TModelRef<fw::TComboBox> FModel;
    fw::TConnections FLinks;
};

}  // namespace ws
