// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/GridRenderer.h"

#include <QFocusEvent>
#include <QHeaderView>
#include <QPainter>
#include <QToolTip>

#include "framework/base/FlagGuard.h"
#include "framework/data/ColumnIds.h"
#include "workstation/renderers/ColumnWidths.h"
#include "workstation/renderers/ControlName.h"
#include "workstation/renderers/FocusBridge.h"
#include "workstation/renderers/QtText.h"
#include "workstation/renderers/TableName.h"

namespace ws {

namespace {

constexpr int kMarkInterval = 400;  // milliseconds
constexpr int kRowPadding = 8;

void PrepareHeader(QHeaderView& Header, bool Ellipsis) {
    Header.setHighlightSections(false);
    Header.setSectionsClickable(false);
    Header.setTextElideMode(Ellipsis ? Qt::ElideRight : Qt::ElideNone);
    Header.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

}  // namespace

TGridRenderer::TGridRenderer(fw::TGridTableView& View, TRenderContext& Context, QWidget* Parent)
    : QTableView(Parent), FView(View), FContext(Context), FModel(new TGridModel(View, Context, this)) {
    for (size_t Kind = 0; Kind < FDelegates.size(); ++Kind)
        FDelegates[Kind] = MakeCellDelegate(static_cast<fw::EEditorKind>(Kind), Context);
    setModel(FModel);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::NoSelection);
    setTabKeyNavigation(false);
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setCornerButtonEnabled(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    PrepareHeader(*horizontalHeader(), View.Options.HeaderEndEllipsis);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this] { FUserResized |= !FLayingOut; });
    horizontalHeader()->viewport()->installEventFilter(this);
    FBridge = new TFocusBridge(View, *this, [this] {
        if (FView) FView->PostEditor();
    });
    FMarkTimer.setInterval(kMarkInterval);
    connect(&FMarkTimer, &QTimer::timeout, this, [this] { LookAtMarks(); });
    FMarkTimer.start();
    Connect();
    Measure();
    ReloadColumns();
    FollowFocus();
    FollowEditor();
}

TGridRenderer::~TGridRenderer() {
    FLinks.Clear();
    FEditorLink.Disconnect();
}

void TGridRenderer::Connect() {
    fw::TGridTableView& View = *FView.Get();
    FLinks += View.OnColumnsChanged.Connect([this] { ReloadColumns(); });
    FLinks += View.OnRecordsChanged.Connect([this] {
        FModel->RecordsChanged();
        FollowFocus();
        PlaceEditor();
    });
    FLinks += View.OnCellChanged.Connect([this](int Record, int Column) { FModel->CellChanged(Record, Column); });
    FLinks += View.OnFocusChanged.Connect([this] { FollowFocus(); });
    FLinks += View.OnEditorChanged.Connect([this] { FollowEditor(); });
    FLinks += View.OnRepaint.Connect([this] { viewport()->update(); });
    FLinks += View.OnModelChanged.Connect([this] {
        setEnabled(FView->IsEnabled());
        setVisible(FView->IsVisible());
    });
    FLinks += FContext.OnSkinChanged.Connect([this] { viewport()->update(); });
    FLinks += FContext.OnMetricsChanged.Connect([this] {
        Measure();
        LayOutColumns();
        PlaceEditor();
    });
}

void TGridRenderer::Measure() {
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + FContext.Scaled(kRowPadding));
    horizontalHeader()->setMinimumSectionSize(horizontalHeader()->fontMetrics().averageCharWidth() * 3);
}

// --- columns

void TGridRenderer::ReloadColumns() {
    FModel->ColumnsChanged();
    setAccessibleName(NameOfTable(*FView.Get(), FContext));
    LayOutColumns();
    FollowFocus();
    PlaceEditor();
}

void TGridRenderer::LayOutColumns() {
    if (!FView) return;
    const fw::TFlagGuard Guard(FLayingOut, fw::EGuardEnd::Restore);
    const auto Widths = ColumnWidths(*FView.Get(), FContext, viewport()->width());
    for (int i = 0; i < FModel->columnCount(); ++i) {
        setColumnHidden(i, Widths[static_cast<size_t>(i)] == 0);
        if (Widths[static_cast<size_t>(i)] > 0) setColumnWidth(i, Widths[static_cast<size_t>(i)]);
    }
}

// What the user pulled becomes the columns' widths once the mouse lets go; the room is shared by them.
void TGridRenderer::TakeUserWidths() {
    if (!FView) return;
    const int Unit = std::max(1, FContext.Scaled(100));
    FView->BeginUpdate();
    for (int i = 0; i < FView->GetColumnCount(); ++i)
        if (fw::TGridColumn* Each = FView->GetColumn(i); Each->IsVisible())
            Each->SetWidth(std::max(1, columnWidth(i) * 100 / Unit));
    FView->EndUpdate();
}

bool TGridRenderer::eventFilter(QObject* Watched, QEvent* Event) {
    const bool Done = QTableView::eventFilter(Watched, Event);
    if (Event->type() == QEvent::MouseButtonRelease && Watched == horizontalHeader()->viewport() && FUserResized) {
        FUserResized = false;
        QMetaObject::invokeMethod(
            this, [this] { TakeUserWidths(); }, Qt::QueuedConnection);
    }
    return Done;
}

// --- focus and editor follow the model

bool TGridRenderer::IsFocusedCell(const QModelIndex& Index) const {
    if (!FView || FView->GetFocusedRecord() != Index.row() || FView->GetFocusedColumn() != Index.column()) return false;
    return hasFocus() || FEditor || !FView->Options.HideSelection;
}

void TGridRenderer::FollowFocus() {
    if (!FView) return;
    const QModelIndex Cell = FModel->index(FView->GetFocusedRecord(), FView->GetFocusedColumn());
    if (Cell != currentIndex()) setCurrentIndex(Cell);
    if (Cell.isValid()) scrollTo(Cell);
    viewport()->update();
}

void TGridRenderer::FollowEditor() {
    fw::TCellEditor* Editor = FView ? FView->GetEditor() : nullptr;
    if (Editor && Editor == FEdited) return PlaceEditor();
    DropEditor();
    if (!Editor) return;
    FEdited = Editor;
    FEditor = MakeCellEditor(*FView.Get(), FContext, viewport());
    FBridge->Watch(*FEditor->FocusWidget());
    NameControl(*FEditor->Widget(), ToQt(Editor->GetColumn().GetCaption()), FContext);
    FEditor->OnLeave = [this](ELeave Way) { Leave(Way); };
    FEditorLink = Editor->OnChanged.Connect([this] {
        if (FEditor) FEditor->Reload();
        ShowKept(false);
    });
    scrollTo(FModel->index(Editor->GetRecord(), Editor->GetColumn().GetIndex()));
    PlaceEditor();
    FEditor->Widget()->show();
    FEditor->FocusWidget()->setFocus();
}

// The widget may be in the middle of an event of its own: it dies when control is back in the loop.
void TGridRenderer::DropEditor() {
    FEditorLink.Disconnect();
    FEdited = nullptr;
    FKept.clear();
    TCellEditorWidget* Gone = std::exchange(FEditor, nullptr);
    if (!Gone) return;
    Gone->OnLeave = nullptr;
    if (Gone->FocusWidget()->hasFocus()) setFocus();  // before it hides, or the toolkit would hand the focus on
    Gone->Widget()->hide();
    Gone->Widget()->setParent(this);  // scrolling moves every child of the viewport, those that wait for their end too
    Gone->Widget()->deleteLater();
    viewport()->update();
}

// Why the open editor cannot be left stands at the cell and goes to the status bar; Again: though it stands there.
void TGridRenderer::ShowKept(bool Again) {
    const fw::TCellEditor* Editor = FView ? FView->GetEditor() : nullptr;
    if (!FEditor || !Editor) return;
    QString Reason = ToQt(FView->GetErrorText());
    if (const auto Refusal = FView->GetRefusal()) Reason = FContext.Translate(Refusal->Key.c_str(), Refusal->Args);
    if (Reason == FKept && !Again) return;
    FKept = Reason;
    FEditor->ShowReason(Reason);
    if (Reason.isEmpty()) return QToolTip::hideText();
    const QRect Cell = CellRect(Editor->GetRecord(), Editor->GetColumn().GetIndex());
    QToolTip::showText(viewport()->mapToGlobal(Cell.bottomLeft()), Reason, FEditor->FocusWidget());
    if (FContext.OnEditKept) FContext.OnEditKept(Reason);
}

void TGridRenderer::focusInEvent(QFocusEvent* Event) {
    QTableView::focusInEvent(Event);
    if (FEditor) FEditor->FocusWidget()->setFocus(Event->reason());
}

void TGridRenderer::PlaceEditor() {
    const fw::TCellEditor* Editor = FView ? FView->GetEditor() : nullptr;
    if (!FEditor || !Editor || Editor != FEdited) return;
    const QRect Cell = CellRect(Editor->GetRecord(), Editor->GetColumn().GetIndex());
    FEditor->Widget()->setGeometry(Cell.adjusted(0, 0, -1, -1));
}

QRect TGridRenderer::CellRect(int Record, int Column) const { return visualRect(FModel->index(Record, Column)); }

std::vector<TCellButton> TGridRenderer::CellButtons(int Record, int Column) const {
    const QModelIndex Cell = FModel->index(Record, Column);
    if (!FView || !Cell.isValid()) return {};
    const auto* Delegate = static_cast<const TCellDelegate*>(itemDelegateForIndex(Cell));
    return Delegate->Buttons(FView->GetCellProperties(Record, Column), visualRect(Cell));
}

QAbstractItemDelegate* TGridRenderer::itemDelegateForIndex(const QModelIndex& Index) const {
    const auto* Properties = FView && Index.isValid() ? FView->GetCellProperties(Index.row(), Index.column()) : nullptr;
    const auto Kind = Properties ? Properties->GetKind() : fw::EEditorKind::Plain;
    return FDelegates[static_cast<size_t>(Kind)].get();
}

// --- painting and geometry

void TGridRenderer::paintEvent(QPaintEvent* Event) {
    QTableView::paintEvent(Event);
    if (!FView || FModel->rowCount() > 0) return;
    QPainter Painter(viewport());
    Painter.drawText(viewport()->rect(), Qt::AlignCenter, ToQt(FView->Options.NoDataText));
}

void TGridRenderer::resizeEvent(QResizeEvent* Event) {
    QTableView::resizeEvent(Event);
    LayOutColumns();
    PlaceEditor();
}

void TGridRenderer::updateGeometries() {
    QTableView::updateGeometries();
    PlaceEditor();
}

void TGridRenderer::scrollContentsBy(int Dx, int Dy) {
    QTableView::scrollContentsBy(Dx, Dy);
    PlaceEditor();
}

// Marks change when data arrive, of which the table itself hears nothing.
void TGridRenderer::LookAtMarks() {
    if (!FView || !isVisible()) return;
    int Column = -1;
    for (int i = 0; i < FView->GetColumnCount() && Column < 0; ++i)
        if (FView->GetColumn(i)->Tag == fw::kColumnSymbol) Column = i;
    std::vector<ESymbolMark> Now;
    for (int Row = 0; Column >= 0 && Row < FModel->rowCount(); ++Row)
        Now.push_back(SymbolMark(FView->GetDataController().GetValue(Row, Column).AsText()));
    if (Now == FMarks) return;
    FMarks = std::move(Now);
    viewport()->update();
}

}  // namespace ws
