// SPDX-License-Identifier: GPL-3.0-or-later
// Mouse, keyboard and selection of the long table.
#include <algorithm>

#include <QHelpEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QToolTip>

#include "workstation/renderers/ColumnWidths.h"
#include "workstation/renderers/WindowedGridRenderer.h"

namespace ws {

namespace {
constexpr int kWheelNotch = 120;
constexpr int kRowsPerNotch = 3;
}  // namespace

void TWindowedGridRenderer::SetCurrent(int64_t Row, bool Extend) {
    if (GetRowCount() == 0) return;
    FCurrent = static_cast<int>(std::clamp<int64_t>(Row, 0, GetRowCount() - 1));
    if (!Extend || FAnchor < 0) FAnchor = FCurrent;
    ScrollTo(FCurrent);
    viewport()->update();
}

void TWindowedGridRenderer::SelectAll() {
    if (GetRowCount() == 0) return;
    FAnchor = 0;
    FCurrent = GetRowCount() - 1;
    viewport()->update();
}

void TWindowedGridRenderer::CopyRows() {
    if (!FView || !FContext.OnCopyRows) return;
    const bool None = FCurrent < 0;
    FContext.OnCopyRows(*FView.Get(), None ? 0 : GetFirstSelected(), None ? GetRowCount() - 1 : GetLastSelected());
}

int TWindowedGridRenderer::ColumnAt(int X) const {
    const auto Widths = ColumnWidths(*FView.Get(), FContext, viewport()->width());
    for (size_t i = 0; i < Widths.size(); ++i) {
        if (X < Widths[i]) return static_cast<int>(i);
        X -= Widths[i];
    }
    return -1;
}

bool TWindowedGridRenderer::viewportEvent(QEvent* Event) {
    if (Event->type() != QEvent::ToolTip || !FView) return QAbstractScrollArea::viewportEvent(Event);
    const auto* Help = static_cast<QHelpEvent*>(Event);
    const int Row = RowAt(Help->pos().y()), Column = ColumnAt(Help->pos().x());
    if (FView->Options.CellHints && Row >= 0 && Column >= 0)
        QToolTip::showText(Help->globalPos(), CellText(Row, Column), viewport());
    else
        QToolTip::hideText();
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

void TWindowedGridRenderer::keyPressEvent(QKeyEvent* Event) {
    if (Event->matches(QKeySequence::Copy)) return CopyRows();
    if (Event->matches(QKeySequence::SelectAll)) return SelectAll();
    const int64_t Page = GetFullRows(), From = std::max(FCurrent, 0);
    const bool Extend = Event->modifiers() & Qt::ShiftModifier;
    switch (Event->key()) {
        case Qt::Key_Up: return SetCurrent(FCurrent < 0 ? GetTopRow() : From - 1, Extend);
        case Qt::Key_Down: return SetCurrent(FCurrent < 0 ? GetTopRow() : From + 1, Extend);
        case Qt::Key_PageUp: return SetCurrent(From - Page, Extend);
        case Qt::Key_PageDown: return SetCurrent(From + Page, Extend);
        case Qt::Key_Home: return SetCurrent(0, Extend);
        case Qt::Key_End: return SetCurrent(static_cast<int64_t>(GetRowCount()) - 1, Extend);
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
    const bool Extend = Event->modifiers() & Qt::ShiftModifier;
    if (const int Row = RowAt(Event->position().toPoint().y()); Row >= 0) SetCurrent(Row, Extend);
}

}  // namespace ws
