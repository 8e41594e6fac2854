// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/GridDelegates.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>

#include "workstation/renderers/ButtonLine.h"
#include "workstation/renderers/GridModel.h"
#include "workstation/renderers/GridRenderer.h"

namespace ws {

namespace {

constexpr int kPadding = 4;

class TOpenDelegate : public TCellDelegate {
public:
    using TCellDelegate::TCellDelegate;
    std::vector<TCellButton> Buttons(const fw::TcxEditProperties* Properties, const QRect& Cell) const override {
        if (!Properties || !Properties->AlwaysShowButton) return {};
        const int Width = ButtonWidth(QFontMetrics(QApplication::font()));
        return {{QRect(Cell.right() - Width + 1, Cell.top(), Width, Cell.height()), Qt::DownArrow, 0}};
    }
};

class TSpinDelegate : public TCellDelegate {
public:
    using TCellDelegate::TCellDelegate;
    std::vector<TCellButton> Buttons(const fw::TcxEditProperties* Properties, const QRect& Cell) const override {
        const auto* Spin = dynamic_cast<const fw::TcxSpinEditProperties*>(Properties);
        if (!Spin || !Spin->AlwaysShowButton) return {};
        const int Width = ButtonWidth(QFontMetrics(QApplication::font()));
        const QRect Right(Cell.right() - Width + 1, Cell.top(), Width, Cell.height());
        const QRect Left = Spin->ButtonsLeftAndRight ? QRect(Cell.left(), Cell.top(), Width, Cell.height())
                                                     : Right.translated(-Width, 0);
        return {{Left, Qt::DownArrow, -1}, {Right, Qt::UpArrow, 1}};
    }
};

void DrawArrow(QPainter& Painter, const TCellButton& Button, const QColor& Color) {
    const double Half = std::max(3.0, Button.Rect.width() / 5.0);
    const double Up = Button.Arrow == Qt::UpArrow ? -1.0 : 1.0;
    const QPointF Middle = QRectF(Button.Rect).center();
    QPainterPath Path(Middle + QPointF(-Half, -Up * Half / 2));
    Path.lineTo(Middle + QPointF(Half, -Up * Half / 2));
    Path.lineTo(Middle + QPointF(0, Up * Half / 2));
    Path.closeSubpath();
    Painter.setRenderHint(QPainter::Antialiasing);
    Painter.fillPath(Path, Color);
}

// A small warning sign before the text.
void DrawMark(QPainter& Painter, const QRect& Box, const QColor& Color) {
    const QRectF Sign = QRectF(Box).adjusted(1, 1, -1, -1);
    QPainterPath Path(QPointF(Sign.center().x(), Sign.top()));
    Path.lineTo(Sign.bottomRight());
    Path.lineTo(Sign.bottomLeft());
    Path.closeSubpath();
    Painter.setRenderHint(QPainter::Antialiasing);
    Painter.setPen(QPen(Color, 1.4));
    Painter.drawPath(Path);
    const double X = Sign.center().x();
    Painter.drawLine(QPointF(X, Sign.top() + Sign.height() * 0.4), QPointF(X, Sign.top() + Sign.height() * 0.65));
    Painter.drawPoint(QPointF(X, Sign.top() + Sign.height() * 0.83));
}

}  // namespace

std::vector<TCellButton> TCellDelegate::Buttons(const fw::TcxEditProperties*, const QRect&) const { return {}; }

QSize TCellDelegate::sizeHint(const QStyleOptionViewItem& Option, const QModelIndex&) const {
    return QSize(Option.fontMetrics.averageCharWidth() * 8, Option.fontMetrics.height() + 2 * kPadding);
}

void TCellDelegate::paint(QPainter* Painter, const QStyleOptionViewItem& Option, const QModelIndex& Index) const {
    const auto* Grid = static_cast<const TGridRenderer*>(Option.widget);
    const auto* Model = static_cast<const TGridModel*>(Index.model());
    fw::TGridTableView* View = Model->View();
    if (!View) return;
    QStyleOptionViewItem Cell = Option;
    initStyleOption(&Cell, Index);
    const bool Focused = Grid->IsFocusedCell(Index);
    Painter->save();
    const QBrush Background =
        Cell.backgroundBrush.style() == Qt::NoBrush ? Cell.palette.brush(QPalette::Base) : Cell.backgroundBrush;
    Painter->fillRect(Cell.rect, Background);
    const QColor Ink = ReadableOn(Background.color(), Cell.palette.color(QPalette::Text));
    QRect Room = Cell.rect.adjusted(kPadding, 0, -kPadding, 0);
    for (const TCellButton& Button : Buttons(View->GetCellProperties(Index.row(), Index.column()), Cell.rect)) {
        DrawArrow(*Painter, Button, Grid->isEnabled() ? Ink : FContext.Color("coDisabledText"));
        if (Button.Rect.center().x() < Cell.rect.center().x())
            Room.setLeft(Button.Rect.right() + 2);
        else
            Room.setRight(std::min(Room.right(), Button.Rect.left() - 2));
    }
    if (Cell.font.italic()) {
        const int Side = Cell.fontMetrics.ascent();
        DrawMark(*Painter, QRect(Room.left(), Room.center().y() - Side / 2, Side, Side), Ink);
        Room.setLeft(Room.left() + Side + 3);
    }
    Painter->setFont(Cell.font);
    Painter->setPen(Cell.palette.color(QPalette::Text));
    const QString Shown = View->Options.CellEndEllipsis
                              ? Cell.fontMetrics.elidedText(Cell.text, Qt::ElideRight, Room.width())
                              : Cell.text;
    Painter->drawText(Room, static_cast<int>(Cell.displayAlignment) | Qt::TextSingleLine, Shown);
    if (Focused) {
        Painter->setRenderHint(QPainter::Antialiasing, false);
        Painter->setPen(QPen(ReadableOn(Background.color(), FContext.Color("coAccent")), 1));
        Painter->drawRect(Cell.rect.adjusted(0, 0, -1, -1));
    }
    Painter->restore();
}

std::unique_ptr<TCellDelegate> MakeCellDelegate(fw::EEditorKind Kind, TRenderContext& Context) {
    switch (Kind) {
        case fw::EEditorKind::Spin: return std::make_unique<TSpinDelegate>(Context, nullptr);
        case fw::EEditorKind::Combo:
        case fw::EEditorKind::Popup: return std::make_unique<TOpenDelegate>(Context, nullptr);
        case fw::EEditorKind::Plain: break;
    }
    return std::make_unique<TCellDelegate>(Context, nullptr);
}

}  // namespace ws
