// SPDX-License-Identifier: GPL-3.0-or-later
// Mouse, keyboard and selection of the long table.
#include <algorithm>

#include <QHelpEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QToolTip>

#include "workstation/renderers/ColumnWidths.h"
#include "workstation/renderers/QtText.h"
#include "workstation/renderers/WindowedGridRenderer.h"

namespace ws {

namespace {
constexpr int kWheelNotch = 120;
constexpr int kRowsPerNotch = 3;
}  // namespace

void TWindowedGridRenderer::SetCurrent(int64_t Row, bool Extend) {
    if (GetRowCount() == 0) return;
    FView->GetSelection().Select(static_cast<int>(std::clamp<int64_t>(Row, 0, GetRowCount() - 1)), Extend);
    ScrollTo(GetCurrentRow());
    TellCurrentCell(*this);
}

void TWindowedGridRenderer::CopyRows() {
    if (!FView || !FContext.OnCopyRows) return;
    const fw::TGridSelection& Selection = FView->GetSelection();
    const bool None = Selection.IsEmpty();
    FContext.OnCopyRows(*FView.Get(), None ? 0 : Selection.GetFirst(), None ? GetRowCount() - 1 : Selection.GetLast());
}

int TWindowedGridRenderer::ColumnAt(int X) const {
    const auto Widths = ColumnWidths(*FView.Get(), FContext, viewport()->width());
    for (size_t i = 0; i < Widths.size(); ++i) {
        if (X < Widths[i]) return static_cast<int>(i);
        X -= Widths[i];
    }
    return -1;
}

QRect TWindowedGridRenderer::HeaderRect(int Column) const {
    const auto Widths = ColumnWidths(*FView.Get(), FContext, viewport()->width());
    int X = 0;
    for (int i = 0; i < Column; ++i) X += Widths[static_cast<size_t>(i)];
    return {X, 0, Widths[static_cast<size_t>(Column)], HeaderHeight()};
}

QRect TWindowedGridRenderer::CellRect(int Row, int Column) const {
    const int64_t Line = static_cast<int64_t>(Row) - GetTopRow();
    if (Line < 0 || Line >= SeenLines()) return {};
    const QRect Header = HeaderRect(Column);
    return {Header.left(), HeaderHeight() + static_cast<int>(Line) * RowHeight(), Header.width(), RowHeight()};
}

bool TWindowedGridRenderer::viewportEvent(QEvent* Event) {
    if (Event->type() != QEvent::ToolTip || !FView) return QAbstractScrollArea::viewportEvent(Event);
    const auto* Help = static_cast<QHelpEvent*>(Event);
    const int Row = RowAt(Help->pos().y()), Column = ColumnAt(Help->pos().x());
    const QString Hint = ToQt(FView->GetCellHint(Row, Column));
    if (Hint.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(Help->globalPos(), Hint, viewport());
    return true;
}

void TWindowedGridRenderer::resizeEvent(QResizeEvent* Event) {
    QAbstractScrollArea::resizeEvent(Event);
    UpdateScrollBar();
}

void TWindowedGridRenderer::changeEvent(QEvent* Event) {
    QAbstractScrollArea::changeEvent(Event);
    if (Event->type() == QEvent::FontChange) Reload();
}

// The current row has a frame while the table has the focus; the toolkit repaints around the viewport only.
void TWindowedGridRenderer::focusInEvent(QFocusEvent* Event) {
    QAbstractScrollArea::focusInEvent(Event);
    UpdateRows(GetCurrentRow(), GetCurrentRow());
}

void TWindowedGridRenderer::focusOutEvent(QFocusEvent* Event) {
    QAbstractScrollArea::focusOutEvent(Event);
    UpdateRows(GetCurrentRow(), GetCurrentRow());
}

void TWindowedGridRenderer::keyPressEvent(QKeyEvent* Event) {
    if (Event->matches(QKeySequence::Copy)) return CopyRows();
    if (!FView) return;
    if (Event->matches(QKeySequence::SelectAll)) {
        FView->GetSelection().SelectAll();
        return TellCurrentCell(*this);
    }
    const int Current = GetCurrentRow();
    const int64_t Page = GetFullRows(), From = std::max(Current, 0);
    const bool Extend = Event->modifiers() & Qt::ShiftModifier;
    switch (Event->key()) {
        case Qt::Key_Up: return SetCurrent(Current < 0 ? GetTopRow() : From - 1, Extend);
        case Qt::Key_Down: return SetCurrent(Current < 0 ? GetTopRow() : From + 1, Extend);
        case Qt::Key_PageUp: return SetCurrent(From - Page, Extend);
        case Qt::Key_PageDown: return SetCurrent(From + Page, Extend);
        case Qt::Key_Home: return SetCurrent(0, Extend);
        case Qt::Key_End: return SetCurrent(static_cast<int64_t>(GetRowCount()) - 1, Extend);
        case Qt::Key_Return:
        case Qt::Key_Enter: return FView->Activate();
        default: QAbstractScrollArea::keyPressEvent(Event);
    }
}

void TWindowedGridRenderer::wheelEvent(QWheelEvent* Event) {
    FWheelRest += Event->angleDelta().y() * kRowsPerNotch;
    const int Rows = FWheelRest / kWheelNotch;
    FWheelRest -= Rows * kWheelNotch;
    const int64_t Target = static_cast<int64_t>(GetTopRow()) - Rows;
    verticalScrollBar()->setValue(static_cast<int>(std::clamp<int64_t>(Target, 0, verticalScrollBar()->maximum())));
    Event->accept();
}

void TWindowedGridRenderer::mousePressEvent(QMouseEvent* Event) {
    if (!FView) return;
    const QPoint At = Event->position().toPoint();
    if (At.y() < HeaderHeight()) {
        if (Event->button() == Qt::LeftButton) FView->SortBy(ColumnAt(At.x()));
        return;
    }
    const bool Extend = Event->modifiers() & Qt::ShiftModifier;
    if (const int Row = RowAt(At.y()); Row >= 0) SetCurrent(Row, Extend);
}

// Not the row under the mouse: rows may have come since the first of both clicks chose one.
void TWindowedGridRenderer::mouseDoubleClickEvent(QMouseEvent* Event) {
    if (!FView) return;
    const int Y = Event->position().toPoint().y();
    if (Y < HeaderHeight()) return mousePressEvent(Event);
    if (Event->button() == Qt::LeftButton && RowAt(Y) >= 0) FView->Activate();
}

}  // namespace ws
