// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include <QAbstractScrollArea>

#include "framework/controls/GridTableView.h"
#include "workstation/renderers/AccessibleTable.h"
#include "workstation/renderers/GridClipboard.h"
#include "workstation/renderers/ModelRef.h"
#include "workstation/renderers/RenderContext.h"

namespace ws {

// A read-only table over a data control with any number of rows up to 2^31 - 1: only the visible rows are asked for,
// and nothing is kept for the others. The scroll bar counts rows, not pixels. A click on the caption of a column sorts
// by it where the view allows that.
class TWindowedGridRenderer : public QAbstractScrollArea, public TGridClipboard, public TPaintedTable {
public:
    TWindowedGridRenderer(fw::TGridTableView& View, TRenderContext& Context, QWidget* Parent);

    int GetRowCount() const;
    int GetTopRow() const;
    int GetFullRows() const;  // rows that are wholly visible
    int RowAt(int Y) const;   // row at a height of the viewport; -1 none
    int GetCurrentRow() const { return FView ? FView->GetSelection().GetCurrent() : -1; }
    QRect HeaderRect(int Column) const;         // in the viewport; empty for a hidden column
    QRect CellRect(int Row, int Column) const;  // empty for a row that is not seen
    fw::TGridTableView* GetTable() const override { return FView.Get(); }
    void CopyRows() override;  // every row where none is selected
    void ScrollTo(int Row);

    QString TableName() const override;
    int TableRows() const override { return GetRowCount(); }
    int TableColumns() const override;
    QString HeadText(int Column) const override;
    QString HeadNote(int Column) const override;
    QString TextAt(TPlace Place) const override;
    QString NoteAt(TPlace Place) const override;
    QString RowText(int Row) const override;
    QRect HeadRect(int Column) const override;
    QRect RectAt(TPlace Place) const override { return CellRect(Place.Row, ColumnOf(Place.Column)); }
    std::vector<int> SeenRows() const override;
    std::optional<TPlace> CurrentPlace() const override;
    bool IsSelectedAt(TPlace Place) const override;
    void ChooseAt(TPlace Place) override;
    void TakeAt(TPlace Place) override;

protected:
    bool viewportEvent(QEvent* Event) override;
    void paintEvent(QPaintEvent* Event) override;
    void scrollContentsBy(int X, int Rows) override;
    void resizeEvent(QResizeEvent* Event) override;
    void keyPressEvent(QKeyEvent* Event) override;
    void wheelEvent(QWheelEvent* Event) override;
    void mousePressEvent(QMouseEvent* Event) override;
    void mouseDoubleClickEvent(QMouseEvent* Event) override;
    void changeEvent(QEvent* Event) override;
    void focusInEvent(QFocusEvent* Event) override;
    void focusOutEvent(QFocusEvent* Event) override;

private:
    static constexpr int kPadding = 4;  // between a cell's text and its border
    struct TPainting;
    void Reload();
    void Measure();
    void UpdateScrollBar();
    int InWholeDots(int Least) const;
    int HeaderHeight() const;
    int RowHeight() const;
    int SeenLines() const;  // places for rows of which something can be seen
    void UpdateRows(int First, int Last);
    void UpdateSelection();
    void PaintHeader(const TPainting& In) const;
    void PaintArrow(QPainter& Painter, QRect& Room, int Column) const;
    void PaintRow(const TPainting& In, int Row, int Y) const;
    void PaintCell(const TPainting& In, int Row, int Column, const QRect& Cell) const;
    void PaintFrame(QPainter& Painter, const QRect& Place) const;
    QString CellText(int Row, int Column) const;
    int ColumnAt(int X) const;
    void SetCurrent(int64_t Row, bool Extend);
    std::vector<int> ShownColumns() const;
    int ColumnOf(int Shown) const { return ShownColumns().at(static_cast<size_t>(Shown)); }

    TModelRef<fw::TGridTableView> FView;
    TRenderContext& FContext;
    fw::TConnections FLinks;
    int FSelectedFirst = -1, FSelectedLast = -1;  // as the viewport was last told to paint it
    int FWheelRest = 0;
};

}  // namespace ws
