// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/WindowedGridRenderer.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include <QScrollBar>

#include "framework/base/Dispatch.h"
#include "workstation/renderers/FocusBridge.h"
#include "workstation/renderers/QtText.h"

namespace ws {

TWindowedGridRenderer::TWindowedGridRenderer(fw::TGridTableView& View, TRenderContext& Context, QWidget* Parent)
    : QAbstractScrollArea(Parent), FView(View), FContext(Context) {
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setAutoFillBackground(true);
    new TFocusBridge(View, *this);
    InstallAccessibleTables();
    const auto Redraw = [this] { viewport()->update(); };
    FLinks += View.OnRecordsChanged.Connect([this] { Reload(); });
    FLinks += View.OnColumnsChanged.Connect([this] {
        viewport()->update();
        TellTableChanged(*this);
    });
    FLinks += View.OnRepaint.Connect(Redraw);
    FLinks += View.GetSelection().OnChanged.Connect([this] { UpdateSelection(); });
    FLinks += View.OnCellChanged.Connect([this](int Record, int) { UpdateRows(Record, Record); });
    FLinks += View.OnModelChanged.Connect([this] {
        setEnabled(FView->IsEnabled());
        setVisible(FView->IsVisible());
    });
    FLinks += Context.OnSkinChanged.Connect(Redraw);
    FLinks += Context.OnMetricsChanged.Connect([this] { Measure(); });
    UpdateSelection();
    Measure();
}

void TWindowedGridRenderer::Measure() {
    setMinimumSize(FContext.Scaled(120), 4 * RowHeight());
    Reload();
}

int TWindowedGridRenderer::GetRowCount() const { return FView ? FView->GetDataController().GetRecordCount() : 0; }
int TWindowedGridRenderer::GetTopRow() const { return verticalScrollBar()->value(); }

// A height of whole dots of the screen where a few units more give one: what stays in sight can be moved by whole dots
// only.
int TWindowedGridRenderer::InWholeDots(int Least) const {
    constexpr int kMostAdded = 4;
    for (int Height = Least; Height < Least + kMostAdded; ++Height)
        if (const double Dots = Height * devicePixelRatio(); Dots == std::round(Dots)) return Height;
    return Least;
}

int TWindowedGridRenderer::RowHeight() const { return InWholeDots(fontMetrics().height() + FContext.Scaled(kPadding)); }

int TWindowedGridRenderer::HeaderHeight() const {
    return InWholeDots(fontMetrics().height() + FContext.Scaled(2 * kPadding));
}

int TWindowedGridRenderer::GetFullRows() const {
    return std::max(1, (viewport()->height() - HeaderHeight()) / RowHeight());
}

int TWindowedGridRenderer::SeenLines() const {
    return (std::max(0, viewport()->height() - HeaderHeight()) + RowHeight() - 1) / RowHeight();
}

int TWindowedGridRenderer::RowAt(int Y) const {
    if (Y < HeaderHeight()) return -1;
    const int64_t Row = static_cast<int64_t>(GetTopRow()) + (Y - HeaderHeight()) / RowHeight();
    return Row < GetRowCount() ? static_cast<int>(Row) : -1;
}

void TWindowedGridRenderer::UpdateScrollBar() {
    const int Rows = GetFullRows();
    verticalScrollBar()->setRange(0, std::max(0, GetRowCount() - Rows));
    verticalScrollBar()->setPageStep(Rows);
    verticalScrollBar()->setSingleStep(1);
}

void TWindowedGridRenderer::Reload() {
    UpdateScrollBar();
    viewport()->update();
    TellTableChanged(*this);
}

void TWindowedGridRenderer::ScrollTo(int Row) {
    const int Rows = GetFullRows();
    if (Row < GetTopRow())
        verticalScrollBar()->setValue(Row);
    else if (static_cast<int64_t>(Row) >= static_cast<int64_t>(GetTopRow()) + Rows)
        verticalScrollBar()->setValue(Row - Rows + 1);
}

// What stays in sight is moved; only the rest is painted.
void TWindowedGridRenderer::scrollContentsBy(int, int Rows) {
    const QRect Body = viewport()->rect().adjusted(0, HeaderHeight(), 0, 0);
    const int64_t Pixels = static_cast<int64_t>(Rows) * RowHeight();
    if (std::abs(Pixels) < Body.height())
        viewport()->scroll(0, static_cast<int>(Pixels), Body);
    else
        viewport()->update(Body);
}

void TWindowedGridRenderer::UpdateRows(int First, int Last) {
    const int64_t Top = GetTopRow();
    const auto From = static_cast<int>(std::max<int64_t>(First - Top, 0));
    const auto To = static_cast<int>(std::min<int64_t>(Last - Top, SeenLines() - 1));
    if (From <= To)
        viewport()->update(0, HeaderHeight() + From * RowHeight(), viewport()->width(), (To - From + 1) * RowHeight());
}

void TWindowedGridRenderer::UpdateSelection() {
    UpdateRows(FSelectedFirst, FSelectedLast);
    FSelectedFirst = FView->GetSelection().GetFirst();
    FSelectedLast = FView->GetSelection().GetLast();
    UpdateRows(FSelectedFirst, FSelectedLast);
}

// As it is shown: what a form's handler throws is logged and shows nothing.
QString TWindowedGridRenderer::CellText(int Row, int Column) const {
    return ToQt(fw::DispatchValue<fw::Text>("GetCellText", {}, [&] { return FView->GetCellText(Row, Column); }));
}

}  // namespace ws
