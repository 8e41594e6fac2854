// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>

#include <QAbstractScrollArea>

#include "workstation/renderers/AccessibleTable.h"
#include "workstation/renderers/RenderContext.h"
#include "workstation/selector/ChainSelector.h"

namespace ws {

// Draws an option chain: the futures above, which stay, and calls | strike | puts, which scroll. A contract takes two
// lines, bid and ask over last and age, so that prices of any length stand whole. It draws the rows that are seen and
// nothing else, and tells the selector which these are.
// Screen readers find a table of calls, strikes and puts, the futures in its first rows and first column.
class TChainView : public QAbstractScrollArea, public TPaintedTable {
public:
    TChainView(TChainSelector& Selector, TRenderContext& Context, QWidget* Parent);

    std::function<void()> OnTaken;  // a contract was chosen by a double click

    int FirstRow() const;     // the first strike that is seen
    int VisibleRows() const;  // strikes that are seen, the one cut off below included
    int PageRows() const;     // strikes that are seen whole
    void ShowCurrent(bool InMiddle);
    // Where a contract stands in the viewport; empty when it is not seen.
    QRect CellRect(TChainCell Cell) const;
    std::optional<TChainCell> CellAt(QPoint Point) const;
    // "HSI26400L6 · Call 26,400 · 2026/12/30"
    QString Describe(TChainCell Cell) const;

    QString TableName() const override { return FContext.Translate("Res_ChainTable"); }
    int TableRows() const override { return FSelector.FutureCount() + FSelector.StrikeCount(); }
    int TableColumns() const override;
    QString HeadText(int Column) const override;
    QString TextAt(TPlace Place) const override;
    QString RowText(int Row) const override;
    QRect HeadRect(int Column) const override;
    QRect RectAt(TPlace Place) const override;
    std::vector<int> SeenRows() const override;
    std::optional<TPlace> CurrentPlace() const override;
    bool IsSelectedAt(TPlace Place) const override { return CurrentPlace() == Place; }
    bool IsEnabledAt(TPlace Place) const override;
    void ChooseAt(TPlace Place) override;
    void TakeAt(TPlace Place) override;

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent* Event) override;
    void changeEvent(QEvent* Event) override;
    void showEvent(QShowEvent* Event) override;
    void hideEvent(QHideEvent* Event) override;
    void scrollContentsBy(int, int) override;
    void wheelEvent(QWheelEvent* Event) override;
    void mousePressEvent(QMouseEvent* Event) override;
    void mouseDoubleClickEvent(QMouseEvent* Event) override;
    bool viewportEvent(QEvent* Event) override;

private:
    void Reload();
    void Look();
    void UpdateScrollBar();
    int RowHeight() const;
    int LineHeight() const;
    int ShownFutures() const;
    int FirstFuture() const;
    int FuturesTop() const { return LineHeight(); }
    int StrikesTop() const;  // below the futures and the heads
    int StrikeWidth() const { return FStrikeWidth; }
    QRect SideRect(ECallPut Side, int Y, int Height) const;
    QString Price(const std::optional<double>& Value, const fw::Text& Symbol) const;
    QString Age(const TChainQuote& Quote) const;
    void PaintHeads(QPainter& Painter) const;
    void PaintFuture(QPainter& Painter, int Row, int Y) const;
    void PaintStrike(QPainter& Painter, int Row, int Y) const;
    void PaintContract(QPainter& Painter, TChainCell Cell, const QRect& Room) const;
    void PaintSentence(QPainter& Painter) const;
    bool IsCurrent(TChainCell Cell) const;
    std::optional<TChainCell> ContractAt(TPlace Place) const;

    TChainSelector& FSelector;  // both outlive the view
    TRenderContext& FContext;
    int FStrikeWidth = 0;
    int FWheelRest = 0;
    fw::TConnections FLinks;
};

}  // namespace ws
