// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/SpinEditRenderer.h"

#include <QKeyEvent>

#include "workstation/renderers/FocusBridge.h"
#include "workstation/renderers/QtText.h"

namespace ws {

namespace {

constexpr ushort kLastAscii = 0x7F;

}  // namespace

TSpinEditRenderer::TSpinEditRenderer(fw::TSpinEdit& Model, TRenderContext&, QWidget* Parent)
    : TButtonLine(Parent, ELineButtons::SpinAround), FModel(Model) {
    setFocusPolicy(Qt::StrongFocus);
    auto* Bridge = new TFocusBridge(Model, *this, [this] {
        if (FModel) FModel->Exit();
    });
    Bridge->Watch(Line());
    Line().setMinimumWidth(fontMetrics().averageCharWidth() * 9);
    OnTyped = [this](const QString& Text) {
        if (FModel) FModel->SetEditText(FromQt(Text));
    };
    OnStep = [this](int Steps) {
        if (FModel) FModel->Spin(Steps);
    };
    OnKey = [this](QKeyEvent* Event) { return KeyPressed(Event); };
    FLinks += Model.OnValueChanged.Connect([this] { Reload(); });
    FLinks += Model.OnModelChanged.Connect([this] { Reload(); });
    Reload();
}

void TSpinEditRenderer::Reload() {
    Line().setAlignment(ToQtAlignment(FModel->GetAlignment()));
    ShowText(ToQt(FModel->GetText()));
    setEnabled(FModel->IsEnabled());
    setVisible(FModel->IsVisible());
}

bool TSpinEditRenderer::KeyPressed(QKeyEvent* Event) {
    if (!FModel) return false;
    if (Event->key() == Qt::Key_Return || Event->key() == Qt::Key_Enter) {
        FModel->KeyPress(fw::kKeyEnter);
        if (FModel) Reload();
        return true;
    }
    if (Event->key() == Qt::Key_Escape && FModel->IsModified()) {
        FModel->CancelEdit();
        return true;
    }
    const QString Typed = Event->text();
    if (Typed.size() == 1 && Typed[0].isPrint() && Typed[0].unicode() <= kLastAscii)
        FModel->KeyPress(static_cast<char>(Typed[0].unicode()));
    return false;
}

}  // namespace ws
