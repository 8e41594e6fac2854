// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/PopupEditRenderer.h"

#include <QKeyEvent>
#include <QMenu>

#include "framework/controls/SpinEdit.h"
#include "workstation/renderers/FocusBridge.h"
#include "workstation/renderers/QtText.h"

namespace ws {

TPopupEditRenderer::TPopupEditRenderer(fw::TPopupEdit& Model, TRenderContext&, QWidget* Parent)
    : TButtonLine(Parent, ELineButtons::Open), FModel(Model) {
    setFocusPolicy(Qt::StrongFocus);
    Line().setReadOnly(true);
    SetLeastCharacters(12);
    auto* Bridge = new TFocusBridge(Model, *this, [this] {
        if (FModel) FModel->Exit();
    });
    Bridge->Watch(Line());
    OnOpen = [this] { OpenChoices(); };
    OnKey = [this](QKeyEvent* Event) { return KeyPressed(Event); };
    FLinks += Model.OnModelChanged.Connect([this] { Reload(); });
    Reload();
}

void TPopupEditRenderer::Reload() {
    Line().setText(ToQt(FModel->GetText()));
    Line().setPlaceholderText(ToQt(FModel->GetPlaceholder()));
    Line().setToolTip(ToQt(FModel->GetText()));
    Line().setCursorPosition(0);
    setEnabled(FModel->IsEnabled());
    setVisible(FModel->IsVisible());
}

void TPopupEditRenderer::OpenChoices() {
    if (!FModel || !FModel->IsEnabled() || FModel->GetChoices().empty() || FMenu) return;
    FMenu = new QMenu(this);
    const auto& Choices = FModel->GetChoices();
    for (size_t i = 0; i < Choices.size(); ++i) {
        QString Shown = ToQt(Choices[i].Shown);
        QAction* Entry = FMenu->addAction(Shown.replace(QLatin1Char('&'), QLatin1String("&&")));
        Entry->setCheckable(true);
        Entry->setChecked(Choices[i].Code == FModel->GetHint());
        connect(Entry, &QAction::triggered, this, [this, i] {
            if (FModel) FModel->Choose(static_cast<int>(i));
        });
    }
    connect(FMenu, &QMenu::aboutToHide, this, [this] {
        FMenu->deleteLater();
        FMenu = nullptr;
    });
    FMenu->setMinimumWidth(width());
    FMenu->popup(mapToGlobal(QPoint(0, height())));
}

bool TPopupEditRenderer::KeyPressed(QKeyEvent* Event) {
    if (!FModel) return false;
    if (Event->key() == Qt::Key_Down || Event->key() == Qt::Key_F4 || Event->key() == Qt::Key_Space) {
        OpenChoices();
        return true;
    }
    if (Event->key() == Qt::Key_Return || Event->key() == Qt::Key_Enter) {
        FModel->KeyPress(fw::kKeyEnter);
        return true;
    }
    const QString Typed = Event->text();
    if (Typed.size() != 1 || !Typed[0].isPrint()) return false;
    OpenChoices();
    if (!FMenu) return true;
    for (QAction* Entry : FMenu->actions()) {
        if (!Entry->text().startsWith(Typed, Qt::CaseInsensitive)) continue;
        FMenu->setActiveAction(Entry);
        break;
    }
    return true;
}

bool TPopupEditRenderer::eventFilter(QObject* Watched, QEvent* Event) {
    if (Watched == &Line() && Event->type() == QEvent::MouseButtonPress && isEnabled()) {
        Line().setFocus(Qt::MouseFocusReason);
        OpenChoices();
        return true;
    }
    return TButtonLine::eventFilter(Watched, Event);
}

}  // namespace ws
