// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/SpinEditRenderer.h"

#include <QKeyEvent>
#include <QToolTip>

#include "workstation/renderers/FocusBridge.h"
#include "workstation/renderers/QtText.h"

namespace ws {

namespace {

constexpr ushort kLastAscii = 0x7F;

}  // namespace

TSpinEditRenderer::TSpinEditRenderer(fw::TSpinEdit& Model, TRenderContext& Context, QWidget* Parent)
    : TButtonLine(Parent, ELineButtons::SpinAround), FModel(Model), FContext(Context) {
    setFocusPolicy(Qt::StrongFocus);
    auto* Bridge = new TFocusBridge(Model, *this, [this] {
        if (FModel) FModel->Exit();
    });
    Bridge->Watch(Line());
    SetLeastCharacters(9);
    OnTyped = [this](const QString& Text) {
        if (FModel) FModel->SetEditText(FromQt(Text));
    };
    OnStep = [this](int Steps) {
        if (FModel) FModel->Spin(Steps);
    };
    OnKey = [this](QKeyEvent* Event) { return KeyPressed(Event); };
    FLinks += Model.OnValueChanged.Connect([this] { Reload(); });
    FLinks += Model.OnModelChanged.Connect([this] { Reload(); });
    FLinks += Context.OnSkinChanged.Connect([this] {
        FTold.reset();
        if (FModel) ShowRefusal();
    });
    Reload();
}

void TSpinEditRenderer::Reload() {
    Line().setAlignment(ToQtAlignment(FModel->GetAlignment()));
    ShowText(ToQt(FModel->GetText()));
    setEnabled(FModel->IsEnabled());
    setVisible(FModel->IsVisible());
    ShowRefusal();
}

void TSpinEditRenderer::ShowRefusal() {
    const auto Refusal = FModel->IsModified() ? FModel->GetRefusal() : std::nullopt;
    if (Refusal == FTold) return;
    FTold = Refusal;
    QPalette Colors;
    if (Refusal) Colors.setColor(QPalette::Text, FContext.Color("coError"));
    Line().setPalette(Colors);
    Line().setToolTip(Refusal ? FContext.Translate(Refusal->Key.c_str(), Refusal->Args) : QString());
    if (!Refusal) return;
    // Once the focus is back: a note does not outlive a change of focus.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (isVisible()) QToolTip::showText(mapToGlobal(rect().bottomLeft()), Line().toolTip(), &Line());
        },
        Qt::QueuedConnection);
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
