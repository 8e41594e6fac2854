// SPDX-License-Identifier: GPL-3.0-or-later
// Mouse and keyboard of the editable table.
#include <array>

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>

#include "framework/base/Dispatch.h"
#include "framework/controls/GridNavigation.h"
#include "workstation/renderers/GridRenderer.h"
#include "workstation/renderers/QtText.h"

namespace ws {

namespace {

struct TMoveKey {
    int Key;
    int Records;
    int Columns;
};
constexpr int kFar = 1 << 20;
constexpr std::array kMoveKeys{TMoveKey{Qt::Key_Up, -1, 0},      TMoveKey{Qt::Key_Down, 1, 0},
                               TMoveKey{Qt::Key_Left, 0, -1},    TMoveKey{Qt::Key_Right, 0, 1},
                               TMoveKey{Qt::Key_PageUp, -10, 0}, TMoveKey{Qt::Key_PageDown, 10, 0},
                               TMoveKey{Qt::Key_Home, 0, -kFar}, TMoveKey{Qt::Key_End, 0, kFar}};

}  // namespace

bool TGridRenderer::StartEdit(int Record, int Column) {
    if (!FView) return false;
    bool Opened = false;
    fw::Dispatch("StartEdit", [&] { Opened = FView->StartEdit(Record, Column) != nullptr; });
    if (!Opened) TellRefused();
    return Opened;
}

bool TGridRenderer::StartEdit() { return FView && StartEdit(FView->GetFocusedRecord(), FView->GetFocusedColumn()); }

void TGridRenderer::OpenCell() { StartEdit(); }

// An editor that refuses to be left says why; so does a cell that did not open, unless it never does.
void TGridRenderer::TellRefused() {
    if (!FView) return;
    if (FView->GetEditor()) return ShowKept(true);
    const fw::TGridColumn* Asked = FView->GetColumn(FView->GetFocusedColumn());
    if (Asked && Asked->Editing && FView->IsEnabled() && FContext.OnEditRefused) FContext.OnEditRefused(*FView.Get());
}

void TGridRenderer::Enter(const TEntry& Entry) {
    auto Result = fw::ECellEntry::Posted;
    fw::Dispatch("Enter", [&] { Result = Entry(*FView.Get()); });
    if (Result != fw::ECellEntry::Posted) TellRefused();
}

void TGridRenderer::mousePressEvent(QMouseEvent* Event) {
    FPressed = Event->button() == Qt::LeftButton ? indexAt(Event->position().toPoint()) : QModelIndex();
    setFocus(Qt::MouseFocusReason);
    if (!FView) return;
    fw::Dispatch("mouse press", [this] {
        if (FPressed.isValid())
            FView->SetFocusedCell(FPressed.row(), FPressed.column());
        else
            FView->PostEditor();
    });
    const fw::TCellEditor* Editor = FView ? FView->GetEditor() : nullptr;
    if (Editor && FModel->index(Editor->GetRecord(), Editor->GetColumn().GetIndex()) != FPressed) ShowKept(true);
}

void TGridRenderer::mouseMoveEvent(QMouseEvent* Event) { Event->accept(); }

void TGridRenderer::mouseReleaseEvent(QMouseEvent* Event) {
    const QPoint At = Event->position().toPoint();
    const QModelIndex Cell = indexAt(At);
    if (!FView || !Cell.isValid() || Cell != FPressed || Event->button() != Qt::LeftButton) return;
    if (FView->GetFocusedRecord() != Cell.row() || FView->GetFocusedColumn() != Cell.column()) return;
    const auto Pressed = CellButtons(Cell.row(), Cell.column());
    if (!StartEdit(Cell.row(), Cell.column()) || !FEditor) return;
    for (const TCellButton& Button : Pressed) {
        if (!Button.Rect.contains(At)) continue;
        if (Button.Steps != 0)
            FEditor->Step(Button.Steps);
        else
            FEditor->Open();
        return;
    }
    if (FView->GetEditor() && FView->GetEditor()->IsCombo()) FEditor->Open();
}

void TGridRenderer::mouseDoubleClickEvent(QMouseEvent* Event) { mousePressEvent(Event); }

// The open editor is left by a key.
void TGridRenderer::Leave(ELeave Way) {
    if (!FView) return;
    switch (Way) {
        case ELeave::Cancel: return FView->CancelEdit();
        case ELeave::Empty: return Empty();
        case ELeave::FillDown: return FillDown();
        default: break;
    }
    fw::Dispatch("PostEditor", [this] { FView->PostEditor(); });
    if (!FView) return;
    if (FView->GetEditor()) return ShowKept(true);
    const bool Forward = Way == ELeave::Next;
    if (Way == ELeave::Up || Way == ELeave::Down)
        fw::MoveCell(*FView.Get(), Way == ELeave::Up ? -1 : 1, 0);
    else if (Way == ELeave::InputRow)
        fw::MoveToInputRow(*FView.Get());
    else if (!fw::MoveToEditable(*FView.Get(), Forward))
        QWidget::focusNextPrevChild(Forward);
    else
        StartEdit();
}

bool TGridRenderer::focusNextPrevChild(bool Next) {
    if (hasFocus() && FView && fw::MoveToEditable(*FView.Get(), Next)) return true;
    return QWidget::focusNextPrevChild(Next);
}

void TGridRenderer::CopyRows() {
    if (FView && FContext.OnCopyRows) FContext.OnCopyRows(*FView.Get(), 0, FModel->rowCount() - 1);
}

// One word goes into the focused cell as if it were typed; rows are whole entries.
void TGridRenderer::PasteRows() {
    if (!FView) return;
    QString Text = QGuiApplication::clipboard()->text();
    while (Text.endsWith(QLatin1Char('\n')) || Text.endsWith(QLatin1Char('\r'))) Text.chop(1);
    if (Text.isEmpty()) return;
    if (!Text.contains(QLatin1Char('\t')) && !Text.contains(QLatin1Char('\n')))
        Enter([&](auto& View) { return fw::EnterText(View, FromQt(Text), 'V'); });
    else if (FContext.OnPasteRows)
        FContext.OnPasteRows(*FView.Get(), FromQt(Text));
}

void TGridRenderer::DropDown() {
    if (StartEdit() && FEditor) FEditor->Open();
}

void TGridRenderer::Empty() {
    Enter([](auto& View) { return fw::EmptyCell(View, kCodeDelete); });
}

void TGridRenderer::FillDown() {
    Enter([](auto& View) { return fw::FillDown(View, 'D'); });
}

void TGridRenderer::GoToInputRow() { fw::MoveToInputRow(*FView.Get()); }

// Keys of the table while no cell is open.
bool TGridRenderer::RunKey(const QKeyEvent& Event) {
    struct TAction {
        int Key;
        Qt::KeyboardModifier Modifier;
        void (TGridRenderer::*Run)();
    };
    static constexpr std::array kActions{
        TAction{Qt::Key_F2, Qt::NoModifier, &TGridRenderer::OpenCell},
        TAction{Qt::Key_Return, Qt::NoModifier, &TGridRenderer::OpenCell},
        TAction{Qt::Key_Enter, Qt::NoModifier, &TGridRenderer::OpenCell},
        TAction{Qt::Key_F4, Qt::NoModifier, &TGridRenderer::DropDown},
        TAction{Qt::Key_Down, Qt::AltModifier, &TGridRenderer::DropDown},
        TAction{Qt::Key_Delete, Qt::NoModifier, &TGridRenderer::Empty},
        TAction{Qt::Key_Insert, Qt::NoModifier, &TGridRenderer::GoToInputRow},
        TAction{Qt::Key_D, Qt::ControlModifier, &TGridRenderer::FillDown},
        TAction{Qt::Key_C, Qt::ControlModifier, &TGridRenderer::CopyRows},
        TAction{Qt::Key_Insert, Qt::ControlModifier, &TGridRenderer::CopyRows},
        TAction{Qt::Key_V, Qt::ControlModifier, &TGridRenderer::PasteRows},
        TAction{Qt::Key_Insert, Qt::ShiftModifier, &TGridRenderer::PasteRows},
    };
    const auto Modifiers = Event.modifiers() & ~Qt::KeypadModifier;
    for (const TAction& Action : kActions)
        if (Action.Key == Event.key() && Modifiers == Action.Modifier) return (this->*Action.Run)(), true;
    if (Modifiers != Qt::NoModifier) return false;
    for (const TMoveKey& Key : kMoveKeys)
        if (Key.Key == Event.key()) return fw::MoveCell(*FView.Get(), Key.Records, Key.Columns), true;
    return false;
}

// A character opens the focused cell and stands in it.
bool TGridRenderer::TypeKey(QKeyEvent* Event) {
    const QString Typed = Event->text();
    const bool Printable = !Typed.isEmpty() && Typed[0].isPrint();
    if (!Printable || Event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
    if (StartEdit() && FEditor) FEditor->TypeFirst(Event);
    return true;
}

void TGridRenderer::keyPressEvent(QKeyEvent* Event) {
    if (FView && (RunKey(*Event) || TypeKey(Event))) return Event->accept();
    Event->ignore();
}

}  // namespace ws
