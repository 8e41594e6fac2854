// SPDX-License-Identifier: GPL-3.0-or-later
// Mouse and keyboard of the editable table.
#include <array>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>

#include "framework/base/Dispatch.h"
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
    if (Opened || !FView) return Opened;
    const fw::TGridColumn* Asked = FView->GetColumn(Column);
    if (Asked && Asked->Editing && FContext.OnEditRefused) FContext.OnEditRefused(*FView.Get());
    return false;
}

void TGridRenderer::mousePressEvent(QMouseEvent* Event) {
    FPressed = Event->button() == Qt::LeftButton ? indexAt(Event->position().toPoint()) : QModelIndex();
    setFocus(Qt::MouseFocusReason);
    if (!FView) return;
    if (!FPressed.isValid()) return FView->PostEditor();
    fw::Dispatch("SetFocusedCell", [this] { FView->SetFocusedCell(FPressed.row(), FPressed.column()); });
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

// Moves over visible cells, stopping at the edges. False when the focus stays where it was.
bool TGridRenderer::MoveFocus(int Records, int Columns) {
    if (!FView || FModel->rowCount() == 0) return false;
    const int Record = std::clamp(FView->GetFocusedRecord() + Records, 0, FModel->rowCount() - 1);
    int Column = std::max(0, FView->GetFocusedColumn());
    const int Way = Columns < 0 ? -1 : 1;
    for (int Left = std::abs(Columns), Next = Column + Way; Left > 0 && Next >= 0 && Next < FModel->columnCount();
         Next += Way)
        if (!isColumnHidden(Next) && FView->GetColumn(Next)->Focusing) Column = Next, --Left;
    if (Record == FView->GetFocusedRecord() && Column == FView->GetFocusedColumn()) return false;
    FView->SetFocusedCell(Record, Column);
    return true;
}

// Tab walks over the cells of editable columns, row by row. False past the last one.
bool TGridRenderer::MoveToEditable(bool Forward, bool Edit) {
    if (!FView || FModel->columnCount() == 0) return false;
    const int Columns = FModel->columnCount(), Way = Forward ? 1 : -1;
    const int64_t Last = static_cast<int64_t>(FModel->rowCount()) * Columns;
    const int Row = FView->GetFocusedRecord(), Column = FView->GetFocusedColumn();
    int64_t Cell = Row < 0 ? (Forward ? -1 : Last) : static_cast<int64_t>(Row) * Columns + Column;
    for (Cell += Way; Cell >= 0 && Cell < Last; Cell += Way) {
        const int NextColumn = static_cast<int>(Cell % Columns), NextRow = static_cast<int>(Cell / Columns);
        const fw::TGridColumn& Next = *FView->GetColumn(NextColumn);
        if (isColumnHidden(NextColumn) || !Next.Editing || !Next.Focusing) continue;
        FView->SetFocusedCell(NextRow, NextColumn);
        if (Edit) StartEdit(NextRow, NextColumn);
        return true;
    }
    return false;
}

// The open editor is left by a key.
void TGridRenderer::Leave(ELeave Way) {
    if (!FView) return;
    if (Way == ELeave::Cancel) return FView->CancelEdit();
    FView->PostEditor();
    if (!FView) return;
    if (FView->GetEditor()) {  // refused: the editor says why and stays
        const QRect Cell = CellRect(FView->GetEditor()->GetRecord(), FView->GetEditor()->GetColumn().GetIndex());
        if (!FView->GetErrorText().empty())
            QToolTip::showText(viewport()->mapToGlobal(Cell.bottomLeft()), ToQt(FView->GetErrorText()), this);
        return;
    }
    const bool Forward = Way == ELeave::Next;
    if (Way == ELeave::Up || Way == ELeave::Down)
        MoveFocus(Way == ELeave::Up ? -1 : 1, 0);
    else if (Way != ELeave::Post && !MoveToEditable(Forward, true))
        QWidget::focusNextPrevChild(Forward);
}

bool TGridRenderer::focusNextPrevChild(bool Next) {
    if (hasFocus() && MoveToEditable(Next, false)) return true;
    return QWidget::focusNextPrevChild(Next);
}

// F2 and Enter open the focused cell, Delete empties it, a character opens it and stands in it.
bool TGridRenderer::StartByKey(QKeyEvent* Event) {
    const int Record = FView->GetFocusedRecord(), Column = FView->GetFocusedColumn();
    if (Record < 0 || Column < 0) return false;
    if (Event->key() == Qt::Key_F2 || Event->key() == Qt::Key_Return || Event->key() == Qt::Key_Enter) {
        StartEdit(Record, Column);
        return true;
    }
    if (Event->key() == Qt::Key_F4) {
        if (StartEdit(Record, Column) && FEditor) FEditor->Open();
        return true;
    }
    if (Event->key() == Qt::Key_Delete) {
        if (!StartEdit(Record, Column)) return true;
        if (FView->GetEditor()->IsCombo()) return FView->CancelEdit(), true;
        FView->GetEditor()->SetEditText("");
        if (FView) FView->PostEditor();
        return true;
    }
    const QString Typed = Event->text();
    const bool Printable = !Typed.isEmpty() && Typed[0].isPrint();
    if (!Printable || Event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
    if (StartEdit(Record, Column) && FEditor) FEditor->TypeFirst(Event);
    return true;
}

void TGridRenderer::keyPressEvent(QKeyEvent* Event) {
    if (!FView) return;
    for (const TMoveKey& Key : kMoveKeys) {
        if (Key.Key != Event->key()) continue;
        MoveFocus(Key.Records, Key.Columns);
        return Event->accept();
    }
    if (StartByKey(Event)) return Event->accept();
    Event->ignore();
}

}  // namespace ws
