// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/WindowedGridRenderer.h"

#include <algorithm>
#include <cmath>

#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>

#include "framework/base/Dispatch.h"
#include "framework/data/ColumnIds.h"
#include "workstation/renderers/ColumnWidths.h"
#include "workstation/renderers/FocusBridge.h"
#include "workstation/renderers/GridModel.h"
#include "workstation/renderers/QtText.h"

namespace ws {

namespace {

constexpr int kPadding = 4;

// Above zero points up, below zero points down: the sign is seen without its colour.
void DrawSign(QPainter& Painter, const QRect& Box, double Value, const QColor& Color) {
    const double Up = Value > 0 ? -1.0 : 1.0;
    const QPointF Middle = QRectF(Box).center();
    const double Half = Box.width() / 2.0;
    const double Rise = Half * 0.85;
    QPainterPath Path(Middle + QPointF(-Half, -Up * Rise));
    Path.lineTo(Middle + QPointF(Half, -Up * Rise));
    Path.lineTo(Middle + QPointF(0, Up * Rise));
    Path.closeSubpath();
    Painter.setRenderHint(QPainter::Antialiasing);
    Painter.fillPath(Path, Color);
    Painter.setRenderHint(QPainter::Antialiasing, false);
}

}  // namespace

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
    FLinks += View.GetSelection().OnChanged.Connect(Redraw);
    FLinks += View.OnCellChanged.Connect([Redraw](int, int) { Redraw(); });
    FLinks += View.OnModelChanged.Connect([this] {
        setEnabled(FView->IsEnabled());
        setVisible(FView->IsVisible());
    });
    FLinks += Context.OnSkinChanged.Connect(Redraw);
    FLinks += Context.OnMetricsChanged.Connect([this] { Measure(); });
    Measure();
}

void TWindowedGridRenderer::Measure() {
    setMinimumSize(FContext.Scaled(120), 4 * RowHeight());
    Reload();
}

int TWindowedGridRenderer::GetRowCount() const { return FView ? FView->GetDataController().GetRecordCount() : 0; }
int TWindowedGridRenderer::GetTopRow() const { return verticalScrollBar()->value(); }
int TWindowedGridRenderer::RowHeight() const { return fontMetrics().height() + FContext.Scaled(kPadding); }
int TWindowedGridRenderer::HeaderHeight() const { return fontMetrics().height() + FContext.Scaled(2 * kPadding); }

int TWindowedGridRenderer::GetFullRows() const {
    return std::max(1, (viewport()->height() - HeaderHeight()) / RowHeight());
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

// --- painting

QString TWindowedGridRenderer::CellText(int Row, int Column) const {
    return ToQt(fw::DispatchValue<fw::Text>("GetCellText", {}, [&] { return FView->GetCellText(Row, Column); }));
}

void TWindowedGridRenderer::PaintHeader(QPainter& Painter, const std::vector<int>& Widths) const {
    const QRect Bar(0, 0, viewport()->width(), HeaderHeight());
    Painter.fillRect(Bar, FContext.Color("coHeader"));
    int X = 0;
    for (size_t i = 0; i < Widths.size(); ++i) {
        if (Widths[i] == 0) continue;
        const fw::TGridColumn& Column = *FView->GetColumn(static_cast<int>(i));
        const QRect Cell(X, 0, Widths[i], HeaderHeight());
        X += Widths[i];
        QRect Room = Cell.adjusted(kPadding, 0, -kPadding, 0);
        PaintArrow(Painter, Room, static_cast<int>(i));
        const QString Caption = ToQt(Column.GetCaption());
        const bool Right = Column.ValueType == fw::EValueType::Float && Column.HeaderAlignment == fw::EAlignment::Left;
        Painter.setPen(FContext.Color("coHeaderText"));
        Painter.drawText(
            Room,
            static_cast<int>(Right ? ToQtAlignment(fw::EAlignment::Right) : ToQtAlignment(Column.HeaderAlignment)),
            FView->Options.HeaderEndEllipsis ? fontMetrics().elidedText(Caption, Qt::ElideRight, Room.width())
                                             : Caption);
        Painter.setPen(FContext.Color("coGridLine"));
        Painter.drawLine(Cell.topRight(), Cell.bottomRight());
    }
    Painter.setPen(FContext.Color("coBorder"));
    Painter.drawLine(Bar.bottomLeft(), Bar.bottomRight());
}

// Behind the caption of the column that the table is sorted by: up for ascending.
void TWindowedGridRenderer::PaintArrow(QPainter& Painter, QRect& Room, int Column) const {
    if (FView->GetSortedColumn() != Column) return;
    const int Side = fontMetrics().ascent() * 2 / 3;
    const QRect Arrow(Room.right() - Side, Room.center().y() - Side / 2, Side, Side);
    DrawSign(Painter, Arrow, FView->GetSortOrder() == fw::ESortOrder::Ascending ? 1 : -1, FContext.Color("coAccent"));
    Room.setRight(Arrow.left() - 2);
}

void TWindowedGridRenderer::PaintCell(QPainter& Painter, int Row, int Column, const QRect& Cell) const {
    const fw::TGridColumn& Each = *FView->GetColumn(Column);
    QRect Room = Cell.adjusted(kPadding, 0, -kPadding, 0);
    QColor Ink = palette().color(QPalette::Text);
    QColor Background = palette().color(QPalette::Base);
    const fw::TStyle* Style = FView->GetCellStyle(Row, Column);
    if (Style && Style->TextColor) Ink = ToQColor(*Style->TextColor);
    if (FView->GetSelection().Contains(Row)) {
        Background = FContext.Color("coSelectedRow");
    } else if (Style && Style->Filled) {
        Background = ToQColor(Style->GetColor());
        Painter.fillRect(Cell, Background);
    }
    if (Each.Tag == fw::kColumnProfitLoss) {
        const double Value = fw::DispatchValue<double>(
            "GetValue", 0.0, [&] { return FView->GetDataController().GetValue(Row, Column).AsFloat(0.0); });
        if (Value != 0.0 && std::isfinite(Value)) {
            Ink = FContext.Color(Value > 0 ? "coProfit" : "coLoss");
            const int Side = fontMetrics().ascent() * 2 / 3;
            DrawSign(Painter, QRect(Room.left(), Room.center().y() - Side / 2, Side, Side), Value, Ink);
            Room.setLeft(Room.left() + Side + 2);
        }
    }
    const auto* Properties = FView->GetCellProperties(Row, Column);
    const auto Alignment = Properties                                ? Properties->Alignment
                           : Each.ValueType == fw::EValueType::Float ? fw::EAlignment::Right
                                                                     : fw::EAlignment::Left;
    const QString Text = CellText(Row, Column);
    Painter.setPen(ReadableOn(Background, Ink));
    QFont Font = font();
    Font.setBold(Style && Style->Bold);
    Painter.setFont(Font);
    Painter.drawText(
        Room, static_cast<int>(ToQtAlignment(Alignment)) | Qt::TextSingleLine,
        FView->Options.CellEndEllipsis ? Painter.fontMetrics().elidedText(Text, Qt::ElideRight, Room.width()) : Text);
    Painter.setFont(font());
}

void TWindowedGridRenderer::PaintRow(QPainter& Painter, int Row, int Y, const std::vector<int>& Widths) const {
    if (FView->GetSelection().Contains(Row))
        Painter.fillRect(QRect(0, Y, viewport()->width(), RowHeight()), FContext.Color("coSelectedRow"));
    int X = 0;
    for (size_t i = 0; i < Widths.size(); ++i) {
        if (Widths[i] == 0) continue;
        const QRect Cell(X, Y, Widths[i], RowHeight());
        PaintCell(Painter, Row, static_cast<int>(i), Cell);
        X += Widths[i];
        Painter.setPen(FContext.Color("coGridLine"));
        Painter.drawLine(Cell.topRight(), Cell.bottomRight());
    }
    Painter.setPen(FContext.Color("coGridLine"));
    Painter.drawLine(0, Y + RowHeight() - 1, viewport()->width(), Y + RowHeight() - 1);
    if (Row == GetCurrentRow() && hasFocus()) {
        Painter.setPen(FContext.Color("coAccent"));
        Painter.drawRect(0, Y, viewport()->width() - 1, RowHeight() - 2);
    }
}

void TWindowedGridRenderer::paintEvent(QPaintEvent*) {
    if (!FView) return;
    QPainter Painter(viewport());
    const auto Widths = ColumnWidths(*FView.Get(), FContext, viewport()->width());
    PaintHeader(Painter, Widths);
    const int Count = GetRowCount();
    if (Count == 0)
        Painter.drawText(viewport()->rect().adjusted(0, HeaderHeight(), 0, 0), Qt::AlignCenter,
                         ToQt(FView->Options.NoDataText));
    int64_t Row = GetTopRow();
    for (int Y = HeaderHeight(); Y < viewport()->height() && Row < Count; Y += RowHeight(), ++Row)
        PaintRow(Painter, static_cast<int>(Row), Y, Widths);
}

}  // namespace ws
