// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/ButtonRenderer.h"

#include "workstation/renderers/FocusBridge.h"
#include "workstation/renderers/QtText.h"

namespace ws {

TButtonRenderer::TButtonRenderer(fw::TButton& Model, TRenderContext&, QWidget* Parent)
    : QPushButton(Parent), FModel(Model) {
    new TFocusBridge(Model, *this);
    FLinks += Model.OnModelChanged.Connect([this] { Reload(); });
    connect(this, &QPushButton::clicked, this, [this] {
        if (FModel) FModel->Click();
    });
    Reload();
}

void TButtonRenderer::Reload() {
    setText(ToQt(FModel->GetCaption()));
    setEnabled(FModel->CanClick());
    setVisible(FModel->IsVisible());
}

}  // namespace ws
