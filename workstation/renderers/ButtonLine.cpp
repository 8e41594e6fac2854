// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/ButtonLine.h"

#include <array>

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QWheelEvent>

namespace ws {

namespace {

constexpr int kWheelNotch = 120;

struct TStepKey {
    int Key;
    int Steps;
};
constexpr std::array kStepKeys{TStepKey{Qt::Key_Up, 1}, TStepKey{Qt::Key_Down, -1}, TStepKey{Qt::Key_PageUp, 10},
                               TStepKey{Qt::Key_PageDown, -10}};

QToolButton* MakeButton(QWidget* Parent, Qt::ArrowType Arrow, bool Repeats) {
    auto* Button = new QToolButton(Parent);
    Button->setArrowType(Arrow);
    Button->setAutoRaise(true);
    Button->setAutoRepeat(Repeats);
    Button->setFocusPolicy(Qt::NoFocus);
    Button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    return Button;
}

}  // namespace

int ButtonWidth(const QFontMetrics& Metrics) { return Metrics.height() + 2; }

TButtonLine::TButtonLine(QWidget* Parent, ELineButtons Buttons) : QWidget(Parent), FLine(new QLineEdit(this)) {
    auto* Row = new QHBoxLayout(this);
    Row->setContentsMargins(0, 0, 0, 0);
    Row->setSpacing(0);
    Row->addWidget(FLine, 1);
    if (Buttons == ELineButtons::SpinAround || Buttons == ELineButtons::SpinRight) {
        FDown = MakeButton(this, Qt::DownArrow, true);
        FUp = MakeButton(this, Qt::UpArrow, true);
        Row->insertWidget(Buttons == ELineButtons::SpinAround ? 0 : 1, FDown);
        Row->addWidget(FUp);
        connect(FDown, &QToolButton::clicked, this, [this] { Step(-1); });
        connect(FUp, &QToolButton::clicked, this, [this] { Step(1); });
    }
    if (Buttons == ELineButtons::Open) {
        FOpen = MakeButton(this, Qt::DownArrow, false);
        Row->addWidget(FOpen);
        connect(FOpen, &QToolButton::clicked, this, [this] {
            FLine->setFocus();
            if (OnOpen) OnOpen();
        });
    }
    Measure();
    setFocusProxy(FLine);
    FLine->installEventFilter(this);
    connect(FLine, &QLineEdit::textEdited, this, [this](const QString& Text) {
        if (OnTyped) OnTyped(Text);
    });
}

void TButtonLine::SetLeastCharacters(int Count) {
    FLeastCharacters = Count;
    Measure();
}

void TButtonLine::Measure() {
    for (QToolButton* Button : {FDown, FUp, FOpen})
        if (Button) Button->setFixedWidth(ButtonWidth(fontMetrics()));
    FLine->setMinimumWidth(FLine->fontMetrics().averageCharWidth() * FLeastCharacters);
}

void TButtonLine::changeEvent(QEvent* Event) {
    QWidget::changeEvent(Event);
    if (Event->type() == QEvent::FontChange) Measure();
}

void TButtonLine::ShowText(const QString& Text) {
    if (FLine->text() == Text) return;
    const int Caret = FLine->cursorPosition();
    const bool AtEnd = Caret == FLine->text().size();
    FLine->setText(Text);
    FLine->setCursorPosition(AtEnd ? static_cast<int>(Text.size()) : Caret);
}

bool TButtonLine::Step(int Steps) {
    if (!OnStep) return false;
    if (!FLine->hasFocus()) FLine->setFocus();
    OnStep(Steps);
    return true;
}

bool TButtonLine::eventFilter(QObject* Watched, QEvent* Event) {
    if (Watched == FLine && Event->type() == QEvent::KeyPress) {
        auto* Key = static_cast<QKeyEvent*>(Event);
        if (OnKey && OnKey(Key)) return true;
        if (FUp && Key->modifiers() == Qt::NoModifier)
            for (const TStepKey& K : kStepKeys)
                if (K.Key == Key->key()) return Step(K.Steps);
    }
    return QWidget::eventFilter(Watched, Event);
}

void TButtonLine::wheelEvent(QWheelEvent* Event) {
    if (!FUp || !FLine->hasFocus() || !OnStep) {
        Event->ignore();
        return;
    }
    FWheelRest += Event->angleDelta().y();
    const int Notches = FWheelRest / kWheelNotch;
    FWheelRest -= Notches * kWheelNotch;
    if (Notches) OnStep(Notches);
    Event->accept();
}

}  // namespace ws
