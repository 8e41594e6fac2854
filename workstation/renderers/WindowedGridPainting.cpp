// SPDX-License-Identifier: GPL-3.0-or-later
// How the long table is drawn: the rows that an event asks for and no others.
#include <cmath>

#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>

#include "framework/base/Dispatch.h"
#include "framework/data/ColumnIds.h"
#include "workstation/renderers/ColumnWidths.h"
#include "workstation/renderers/GridModel.h"
#include "workstation/renderers/QtText.h"
#include "workstation/renderers/WindowedGridRenderer.h"

namespace ws {

namespace {

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

// What the cells of one painting share, measured once. Lines are filled rectangles: the toolkit strokes a line pixel by
// pixel, and most of the time went there.
struct TWindowedGridRenderer::TPainting {
    QPainter& Painter;
    std::vector<int> Widths;
    int Width, HeaderHeight, RowHeight;
    int SignSide;
    QColor Line, Selected;
    QFont Bold;
};

void TWindowedGridRenderer::PaintHeader(const TPainting& In) const {
    QPainter& Painter = In.Painter;
    const QRect Bar(0, 0, In.Width, In.HeaderHeight);
    Painter.fillRect(Bar, FContext.Color("coHeader"));
    int X = 0;
    for (size_t i = 0; i < In.Widths.size(); ++i) {
        if (In.Widths[i] == 0) continue;
        const fw::TGridColumn& Column = *FView->GetColumn(static_cast<int>(i));
        const QRect Cell(X, 0, In.Widths[i], In.HeaderHeight);
        X += In.Widths[i];
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
        Painter.fillRect(Cell.right(), 0, 1, In.HeaderHeight, In.Line);
    }
    Painter.fillRect(0, Bar.bottom(), In.Width, 1, FContext.Color("coBorder"));
}

// Behind the caption of the column that the table is sorted by: up for ascending.
void TWindowedGridRenderer::PaintArrow(QPainter& Painter, QRect& Room, int Column) const {
    if (FView->GetSortedColumn() != Column) return;
    const int Side = fontMetrics().ascent() * 2 / 3;
    const QRect Arrow(Room.right() - Side, Room.center().y() - Side / 2, Side, Side);
    DrawSign(Painter, Arrow, FView->GetSortOrder() == fw::ESortOrder::Ascending ? 1 : -1, FContext.Color("coAccent"));
    Room.setRight(Arrow.left() - 2);
}

void TWindowedGridRenderer::PaintCell(const TPainting& In, int Row, int Column, const QRect& Cell) const {
    QPainter& Painter = In.Painter;
    const fw::TGridColumn& Each = *FView->GetColumn(Column);
    QRect Room = Cell.adjusted(kPadding, 0, -kPadding, 0);
    QColor Ink = palette().color(QPalette::Text);
    QColor Background = palette().color(QPalette::Base);
    const fw::TStyle* Style = FView->GetCellStyle(Row, Column);
    if (Style && Style->TextColor) Ink = ToQColor(*Style->TextColor);
    if (FView->GetSelection().Contains(Row)) {
        Background = In.Selected;
    } else if (Style && Style->Filled) {
        Background = ToQColor(Style->GetColor());
        Painter.fillRect(Cell, Background);
    }
    if (Each.Tag == fw::kColumnProfitLoss) {
        const double Value = fw::DispatchValue<double>(
            "GetValue", 0.0, [&] { return FView->GetDataController().GetValue(Row, Column).AsFloat(0.0); });
        if (Value != 0.0 && std::isfinite(Value)) {
            Ink = FContext.Color(Value > 0 ? "coProfit" : "coLoss");
            const int Side = In.SignSide;
            DrawSign(Painter, QRect(Room.left(), Room.center().y() - Side / 2, Side, Side), Value, Ink);
            Room.setLeft(Room.left() + Side + 2);
        }
    }
    const auto* Properties = FView->GetCellProperties(Row, Column);
    const auto Alignment = Properties                                ? Properties->Alignment
                           : Each.ValueType == fw::EValueType::Float ? fw::EAlignment::Right
                                                                     : fw::EAlignment::Left;
    const QString Text = CellText(Row, Column);
    const bool Bold = Style && Style->Bold;
    if (Bold) Painter.setFont(In.Bold);
    Painter.setPen(ReadableOn(Background, Ink));
    Painter.drawText(
        Room, static_cast<int>(ToQtAlignment(Alignment)) | Qt::TextSingleLine,
        FView->Options.CellEndEllipsis ? Painter.fontMetrics().elidedText(Text, Qt::ElideRight, Room.width()) : Text);
    if (Bold) Painter.setFont(font());
}

// Within its place on every screen: a pen's line is centred on the edge, and where a pixel is several dots half of it
// would be left on the next row.
void TWindowedGridRenderer::PaintFrame(QPainter& Painter, const QRect& Place) const {
    const QColor Color = FContext.Color("coAccent");
    Painter.fillRect(Place.left(), Place.top(), Place.width(), 1, Color);
    Painter.fillRect(Place.left(), Place.bottom(), Place.width(), 1, Color);
    Painter.fillRect(Place.left(), Place.top(), 1, Place.height(), Color);
    Painter.fillRect(Place.right(), Place.top(), 1, Place.height(), Color);
}

void TWindowedGridRenderer::PaintRow(const TPainting& In, int Row, int Y) const {
    QPainter& Painter = In.Painter;
    if (FView->GetSelection().Contains(Row)) Painter.fillRect(0, Y, In.Width, In.RowHeight, In.Selected);
    int X = 0;
    for (size_t i = 0; i < In.Widths.size(); ++i) {
        if (In.Widths[i] == 0) continue;
        const QRect Cell(X, Y, In.Widths[i], In.RowHeight);
        PaintCell(In, Row, static_cast<int>(i), Cell);
        X += In.Widths[i];
        Painter.fillRect(Cell.right(), Y, 1, In.RowHeight, In.Line);
    }
    Painter.fillRect(0, Y + In.RowHeight - 1, In.Width, 1, In.Line);
    if (Row == GetCurrentRow() && hasFocus()) PaintFrame(Painter, QRect(0, Y, In.Width, In.RowHeight - 1));
}

void TWindowedGridRenderer::paintEvent(QPaintEvent* Event) {
    if (!FView) return;
    QPainter Painter(viewport());
    QFont Bold = font();
    Bold.setBold(true);
    const TPainting In{Painter,
                       ColumnWidths(*FView.Get(), FContext, viewport()->width()),
                       viewport()->width(),
                       HeaderHeight(),
                       RowHeight(),
                       fontMetrics().ascent() * 2 / 3,
                       FContext.Color("coGridLine"),
                       FContext.Color("coSelectedRow"),
                       Bold};
    if (Event->rect().top() < In.HeaderHeight) PaintHeader(In);
    const int Count = GetRowCount();
    if (Count == 0) {
        Painter.setPen(palette().color(QPalette::Text));
        Painter.drawText(viewport()->rect().adjusted(0, In.HeaderHeight, 0, 0), Qt::AlignCenter,
                         ToQt(FView->Options.NoDataText));
    }
    int64_t Row = GetTopRow();
    for (int Y = In.HeaderHeight; Y < viewport()->height() && Row < Count; Y += In.RowHeight, ++Row)
        if (Event->region().intersects(QRect(0, Y, In.Width, In.RowHeight))) PaintRow(In, static_cast<int>(Row), Y);
}

}  // namespace ws
