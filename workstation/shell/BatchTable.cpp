// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/BatchTable.h"

#include <algorithm>

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include "framework/data/ColumnIds.h"
#include "workstation/renderers/QtText.h"

namespace ws {

namespace {

constexpr int kTickId = -1, kFlagId = -2;
constexpr int kRemarkId = 25;
constexpr int kTickWidth = 48;
constexpr int kFlagWidth = 84;
constexpr int kRowPadding = 8;
constexpr int kBoxSide = 13;
constexpr QChar kBuyArrow(0x25B2), kSellArrow(0x25BC);

// Draws the tick itself: a box that can be seen on every ground, and none where nothing can be ticked.
class TTickDelegate : public QStyledItemDelegate {
public:
    TTickDelegate(const TBatchTable& Model, const TRenderContext& Context, QObject* Parent)
        : QStyledItemDelegate(Parent), FModel(Model), FContext(Context) {}

    void paint(QPainter* Painter, const QStyleOptionViewItem& Option, const QModelIndex& Index) const override {
        QStyledItemDelegate::paint(Painter, Option, Index);
        if (!FModel.IsTickColumn(Index.column()) || FModel.IsBlocked(Index.row())) return;
        const bool Ticked = Index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        const bool Selected = Option.state & QStyle::State_Selected;
        const int Side = FContext.Scaled(kBoxSide);
        QRectF Box(0, 0, Side, Side);
        Box.moveCenter(QRectF(Option.rect).center());
        Painter->save();
        Painter->setRenderHint(QPainter::Antialiasing);
        const QColor Ink = FContext.Color(Selected ? "coHighlightedText" : Ticked ? "coText" : "coPlaceholderText");
        Painter->setPen(QPen(Ink, 1.2));
        Painter->drawRoundedRect(Box, 2, 2);
        Painter->setPen(QPen(Ink, 2.0));
        const QPointF Tick[] = {{0.22, 0.52}, {0.43, 0.74}, {0.79, 0.27}};
        QPolygonF Line;
        for (const QPointF& At : Tick) Line << Box.topLeft() + At * Side;
        if (Ticked) Painter->drawPolyline(Line);
        Painter->restore();
    }

    // The whole cell takes the click.
    bool editorEvent(QEvent* Event, QAbstractItemModel* Model, const QStyleOptionViewItem& Option,
                     const QModelIndex& Index) override {
        const bool Clicked =
            Event->type() == QEvent::MouseButtonRelease && static_cast<QMouseEvent*>(Event)->button() == Qt::LeftButton;
        if (!FModel.IsTickColumn(Index.column()) || !Clicked)
            return QStyledItemDelegate::editorEvent(Event, Model, Option, Index);
        const bool Ticked = Index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        return Model->setData(Index, Ticked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    }

protected:
    void initStyleOption(QStyleOptionViewItem* Option, const QModelIndex& Index) const override {
        QStyledItemDelegate::initStyleOption(Option, Index);
        Option->features &= ~QStyleOptionViewItem::HasCheckIndicator;
    }

private:
    const TBatchTable& FModel;
    const TRenderContext& FContext;
};

}  // namespace

// --- model

TBatchTable::TBatchTable(TBatchReview& Review, fw::TCustomDataControl& Table, const TRenderContext& Context,
                         TReasonText Text, QObject* Parent)
    : QAbstractTableModel(Parent), FReview(Review), FTable(Table), FContext(Context), FText(std::move(Text)) {
    BuildColumns();
}

void TBatchTable::BuildColumns() {
    FColumns.push_back({kTickId, "Res_BatchTick", kTickWidth, false, nullptr});
    if (const auto* Given = FTable.GetColList())
        for (const auto& Each : *Given)
            if (Each && Each->Visible)
                FColumns.push_back({Each->Id, Each->CaptionKey, Each->Width, Each->Numeric, nullptr});
    // No flag goes out unseen.
    const TColumn Flags[] = {{kFlagId, "Res_OpenClose", kFlagWidth, false, &TOrderTicket::OpenClose},
                             {kFlagId, "Res_Principal", kFlagWidth, false, &TOrderTicket::Principal}};
    for (const auto& Flag : Flags) {
        const auto HasIt = [&](const TReviewRow& Row) { return Row.Order.*Flag.Flag != 0; };
        if (std::none_of(FReview.Rows().begin(), FReview.Rows().end(), HasIt)) continue;
        const int Remark = ColumnOf(kRemarkId);
        FColumns.insert(Remark < 0 ? FColumns.end() : FColumns.begin() + Remark, Flag);
    }
}

int TBatchTable::rowCount(const QModelIndex& Parent) const {
    return Parent.isValid() ? 0 : static_cast<int>(FReview.Rows().size());
}
int TBatchTable::columnCount(const QModelIndex& Parent) const {
    return Parent.isValid() ? 0 : static_cast<int>(FColumns.size());
}

int TBatchTable::ColumnOf(int Id) const {
    const auto It = std::find_if(FColumns.begin(), FColumns.end(), [&](const TColumn& Each) { return Each.Id == Id; });
    return It == FColumns.end() ? -1 : static_cast<int>(It - FColumns.begin());
}

int TBatchTable::WidthOf(int Column) const { return FColumns[static_cast<size_t>(Column)].Width; }

QString TBatchTable::CellText(int Row, const TColumn& Column) const {
    if (Column.Id == kTickId) return {};
    const TReviewRow& Shown = RowAt(Row);
    if (Column.Flag) {
        const char* Key = FlagKey(Column.Flag, Shown.Order.*Column.Flag);
        return Key ? FContext.Translate(Key) : QString();
    }
    const QString Text = ToQt(FTable.GetDisplayValue(Row, Column.Id));
    if (Column.Id == fw::kColumnSide && Shown.LineId != 0)
        return (Shown.Order.Side == 0 ? kBuyArrow : kSellArrow) + QLatin1Char(' ') + Text;
    if (Column.Id != kRemarkId) return Text;
    if (Text.isEmpty() && !Shown.Findings.empty()) return FText(Shown.Findings.front().Reason);
    return Shown.Findings.size() < 2 ? Text : Text + QStringLiteral("  (+%1)").arg(Shown.Findings.size() - 1);
}

QVariant TBatchTable::CellColor(const TReviewRow& Row, const TColumn& Column) const {
    if (Column.Id == kRemarkId && !Row.Findings.empty()) return FContext.Color(Row.Blocked ? "coError" : "coWarning");
    if (!Row.Ticked) return FContext.Color("coPlaceholderText");
    if (Column.Id == fw::kColumnSide) return FContext.Color(Row.Order.Side == 0 ? "coBuy" : "coSell");
    return {};
}

QVariant TBatchTable::AlignmentOf(const TColumn& Column) {
    return QVariant(ToQtAlignment(Column.Flag      ? fw::EAlignment::Center
                                  : Column.Numeric ? fw::EAlignment::Right
                                                   : fw::EAlignment::Left));
}

QVariant TBatchTable::Cell(const QModelIndex& Index, int Role) const {
    const TReviewRow& Row = RowAt(Index.row());
    const TColumn& Column = FColumns[static_cast<size_t>(Index.column())];
    switch (Role) {
        case Qt::DisplayRole: return CellText(Index.row(), Column);
        case Qt::AccessibleTextRole:
            return Column.Id == kTickId ? FContext.Translate(Column.CaptionKey.c_str()) : QVariant();
        case Qt::TextAlignmentRole: return AlignmentOf(Column);
        case Qt::ForegroundRole: return CellColor(Row, Column);
        case Qt::CheckStateRole:
            return Column.Id == kTickId ? QVariant(Row.Ticked ? Qt::Checked : Qt::Unchecked) : QVariant();
        case Qt::ToolTipRole: {
            QStringList Lines;
            for (const auto& Finding : Row.Findings) Lines << FText(Finding.Reason);
            return Lines.isEmpty() ? QVariant() : QVariant(Lines.join(QLatin1Char('\n')));
        }
        default: return {};
    }
}

QVariant TBatchTable::data(const QModelIndex& Index, int Role) const {
    if (!Index.isValid() || Index.row() >= rowCount()) return {};
    try {
        return Cell(Index, Role);
    } catch (const std::exception& Error) {
        if (OnFailure) OnFailure(Error.what());
    } catch (...) {
        if (OnFailure) OnFailure({});
    }
    return {};
}

Qt::ItemFlags TBatchTable::flags(const QModelIndex& Index) const {
    const bool Tickable = Index.isValid() && IsTickColumn(Index.column()) && !IsBlocked(Index.row());
    return QAbstractTableModel::flags(Index) | (Tickable ? Qt::ItemIsUserCheckable : Qt::NoItemFlags);
}

bool TBatchTable::setData(const QModelIndex& Index, const QVariant& Value, int Role) {
    if (Role != Qt::CheckStateRole || !Index.isValid() || !OnTick) return false;
    OnTick({Index.row()}, Value.toInt() == Qt::Checked);
    return true;
}

QVariant TBatchTable::headerData(int Section, Qt::Orientation Orientation, int Role) const {
    if (Orientation != Qt::Horizontal || Section < 0 || Section >= columnCount()) return {};
    const TColumn& Column = FColumns[static_cast<size_t>(Section)];
    if (Role == Qt::DisplayRole) return FContext.Translate(Column.CaptionKey.c_str());
    if (Role == Qt::TextAlignmentRole) return AlignmentOf(Column);
    return {};
}

void TBatchTable::Refresh() {
    if (rowCount() > 0) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

// --- widget

TBatchView::TBatchView(TBatchTable& Model, const TRenderContext& Context, QWidget* Parent)
    : QTableView(Parent), FModel(Model) {
    setModel(&Model);
    setItemDelegate(new TTickDelegate(Model, Context, this));
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + Context.Scaled(kRowPadding));
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setHighlightSections(false);
    for (int i = 0; i < Model.columnCount(); ++i) setColumnWidth(i, Context.Scaled(Model.WidthOf(i)));
    if (Model.rowCount() > 0) setCurrentIndex(Model.index(0, 0));
}

void TBatchView::keyPressEvent(QKeyEvent* Event) {
    if (Event->key() != Qt::Key_Space || !currentIndex().isValid() || !FModel.OnTick)
        return QTableView::keyPressEvent(Event);
    if (Event->isAutoRepeat()) return;
    std::vector<int> Rows{currentIndex().row()};
    for (const QModelIndex& Each : selectionModel()->selectedRows()) Rows.push_back(Each.row());
    const auto Tick = FModel.data(FModel.index(currentIndex().row(), 0), Qt::CheckStateRole).toInt();
    FModel.OnTick(Rows, Tick != Qt::Checked);
}

}  // namespace ws
