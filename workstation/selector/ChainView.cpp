// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/selector/ChainView.h"

#include <algorithm>

#include <QHelpEvent>
#include <QScrollBar>
#include <QToolTip>

#include "workstation/renderers/QtText.h"

namespace ws {

namespace {

constexpr int kMaxFutures = 2;  // seen at once
constexpr int kRowPadding = 2;
constexpr int kHeadPadding = 4;
constexpr int kStrikePadding = 8;
constexpr int kWheelNotch = 120;
constexpr int kRowsPerNotch = 2;

}  // namespace

TChainView::TChainView(TChainSelector& Selector, TRenderContext& Context, QWidget* Parent)
    : QAbstractScrollArea(Parent), FSelector(Selector), FContext(Context) {
    setFocusPolicy(Qt::NoFocus);
    InstallAccessibleTables();
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setAutoFillBackground(true);
    const auto Redraw = [this] { viewport()->update(); };
    FLinks += Selector.OnRowsChanged.Connect([this] { Reload(); });
    FLinks += Selector.OnCursorMoved.Connect([this] {
        ShowCurrent(false);
        TellCurrentCell(*this);
    });
    FLinks += Selector.OnQuotesChanged.Connect(Redraw);
    FLinks += Context.OnSkinChanged.Connect(Redraw);
    Reload();
}

// --- geometry

int TChainView::LineHeight() const { return fontMetrics().height() + kHeadPadding; }
int TChainView::RowHeight() const { return 2 * fontMetrics().height() + kRowPadding; }
int TChainView::ShownFutures() const { return std::min(FSelector.FutureCount(), kMaxFutures); }

// The futures that are seen follow the cursor.
int TChainView::FirstFuture() const {
    const auto Current = FSelector.Current();
    const int First = -FSelector.FutureCount();
    if (!Current || Current->Row >= 0) return First;
    return std::max(First, Current->Row - ShownFutures() + 1);
}

int TChainView::StrikesTop() const {
    return FuturesTop() + ShownFutures() * RowHeight() + (FSelector.Chain().Strikes.empty() ? 0 : LineHeight());
}
int TChainView::FirstRow() const { return verticalScrollBar()->value(); }
int TChainView::PageRows() const { return std::max(1, (viewport()->height() - StrikesTop()) / RowHeight()); }

int TChainView::VisibleRows() const {
    const int Room = std::max(0, viewport()->height() - StrikesTop());
    return std::clamp(FSelector.StrikeCount() - FirstRow(), 0, (Room + RowHeight() - 1) / RowHeight());
}

QRect TChainView::SideRect(ECallPut Side, int Y, int Height) const {
    const int Wide = (viewport()->width() - StrikeWidth()) / 2;
    return {Side == ECallPut::Call ? 0 : viewport()->width() - Wide, Y, Wide, Height};
}

QRect TChainView::CellRect(TChainCell Cell) const {
    if (Cell.Row < 0) {
        const int Line = Cell.Row - FirstFuture();
        if (Line < 0 || Line >= ShownFutures()) return {};
        return {0, FuturesTop() + Line * RowHeight(), viewport()->width(), RowHeight()};
    }
    if (Cell.Row < FirstRow() || Cell.Row >= FirstRow() + VisibleRows()) return {};
    return SideRect(Cell.Side, StrikesTop() + (Cell.Row - FirstRow()) * RowHeight(), RowHeight());
}

std::optional<TChainCell> TChainView::CellAt(QPoint Point) const {
    const ECallPut Side = Point.x() < viewport()->width() / 2 ? ECallPut::Call : ECallPut::Put;
    for (int i = 0; i < ShownFutures(); ++i)
        if (CellRect({FirstFuture() + i, Side}).contains(Point)) return TChainCell{FirstFuture() + i, Side};
    const int Line = (Point.y() - StrikesTop()) / RowHeight();
    if (Point.y() < StrikesTop() || Line >= VisibleRows()) return std::nullopt;
    return TChainCell{FirstRow() + Line, Side};
}

// --- what is seen

void TChainView::UpdateScrollBar() {
    verticalScrollBar()->setRange(0, std::max(0, FSelector.StrikeCount() - PageRows()));
    verticalScrollBar()->setPageStep(PageRows());
}

void TChainView::Look() {
    if (isVisible()) FSelector.Look(FirstRow(), VisibleRows());
}

void TChainView::Reload() {
    const auto& Strikes = FSelector.Chain().Strikes;
    const auto Longest = std::max_element(Strikes.begin(), Strikes.end(),
                                          [](const auto& A, const auto& B) { return A.Shown.size() < B.Shown.size(); });
    QFont Bold = font();
    Bold.setBold(true);
    const QString Head = FContext.Translate("Res_StrikePrice");
    FStrikeWidth = QFontMetrics(Bold).horizontalAdvance(Head);
    if (Longest != Strikes.end())
        FStrikeWidth = std::max(FStrikeWidth, QFontMetrics(Bold).horizontalAdvance(ToQt(Longest->Shown)));
    FStrikeWidth += 2 * kStrikePadding;
    ShowCurrent(true);
    TellTableChanged(*this);
}

void TChainView::ShowCurrent(bool InMiddle) {
    UpdateScrollBar();
    const auto Current = FSelector.Current();
    auto& Bar = *verticalScrollBar();
    if (Current && Current->Row >= 0) {
        if (InMiddle)
            Bar.setValue(Current->Row - PageRows() / 2);
        else
            Bar.setValue(std::clamp(Bar.value(), Current->Row - PageRows() + 1, Current->Row));
    }
    Look();
    viewport()->update();
}

void TChainView::scrollContentsBy(int, int) {
    Look();
    viewport()->update();
}

void TChainView::resizeEvent(QResizeEvent* Event) {
    QAbstractScrollArea::resizeEvent(Event);
    ShowCurrent(true);
}

void TChainView::changeEvent(QEvent* Event) {
    QAbstractScrollArea::changeEvent(Event);
    if (Event->type() == QEvent::FontChange) Reload();
}

void TChainView::showEvent(QShowEvent* Event) {
    QAbstractScrollArea::showEvent(Event);
    ShowCurrent(true);
}

void TChainView::hideEvent(QHideEvent* Event) {
    QAbstractScrollArea::hideEvent(Event);
    FSelector.LookAway();
}

// --- input

void TChainView::wheelEvent(QWheelEvent* Event) {
    FWheelRest += Event->angleDelta().y() * kRowsPerNotch;
    const int Rows = FWheelRest / kWheelNotch;
    FWheelRest -= Rows * kWheelNotch;
    verticalScrollBar()->setValue(FirstRow() - Rows);
    Event->accept();
}

void TChainView::mousePressEvent(QMouseEvent* Event) {
    if (Event->button() != Qt::LeftButton) return;
    if (const auto Cell = CellAt(Event->position().toPoint())) FSelector.SetCurrent(*Cell);
}

void TChainView::mouseDoubleClickEvent(QMouseEvent* Event) {
    const auto Cell = CellAt(Event->position().toPoint());
    if (Event->button() == Qt::LeftButton && Cell && FSelector.CanChoose(*Cell) && OnTaken) OnTaken();
}

bool TChainView::viewportEvent(QEvent* Event) {
    if (Event->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(Event);
    const auto* Help = static_cast<QHelpEvent*>(Event);
    const auto Cell = CellAt(Help->pos());
    QToolTip::showText(Help->globalPos(), Cell ? Describe(*Cell) : QString(), viewport());
    return true;
}

}  // namespace ws
