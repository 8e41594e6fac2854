// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/GridModel.h"

#include <QApplication>
#include <QFont>
#include <QPalette>

#include "framework/controls/GridText.h"
#include "framework/data/ColumnIds.h"
#include "workstation/renderers/QtText.h"
#include "workstation/renderers/SymbolMarks.h"
#include "workstation/resources/Skins.h"

namespace ws {

namespace {

constexpr double kReadableContrast = 4.5;

TRgb ToRgb(const QColor& C) {
    return {static_cast<uint8_t>(C.red()), static_cast<uint8_t>(C.green()), static_cast<uint8_t>(C.blue())};
}

Qt::Alignment CellAlignment(fw::TGridTableView& View, int Record, int Column) {
    if (const auto* Properties = View.GetCellProperties(Record, Column))
        if (Properties->Alignment != fw::EAlignment::Left) return ToQtAlignment(Properties->Alignment);
    const bool IsFloat = View.GetColumn(Column)->ValueType == fw::EValueType::Float;
    return ToQtAlignment(IsFloat ? fw::EAlignment::Right : fw::EAlignment::Left);
}

}  // namespace

QColor ReadableOn(const QColor& Background, const QColor& Wanted) {
    if (ContrastRatio(ToRgb(Background), ToRgb(Wanted)) >= kReadableContrast) return Wanted;
    const bool Light = ContrastRatio(ToRgb(Background), {0, 0, 0}) >= ContrastRatio(ToRgb(Background), {255, 255, 255});
    return Light ? QColor(Qt::black) : QColor(Qt::white);
}

TGridModel::TGridModel(fw::TGridTableView& View, TRenderContext& Context, QObject* Parent)
    : QAbstractTableModel(Parent), FView(View), FContext(Context) {
    ColumnsChanged();
}

int TGridModel::rowCount(const QModelIndex& Parent) const { return Parent.isValid() || !FView ? 0 : FRows; }
int TGridModel::columnCount(const QModelIndex& Parent) const { return Parent.isValid() || !FView ? 0 : FColumns; }

bool TGridModel::IsMarked(const QModelIndex& Index) const {
    return FView->GetColumn(Index.column())->Tag == fw::kColumnSymbol &&
           SymbolMark(FView->GetDataController().GetValue(Index.row(), Index.column()).AsText()) != ESymbolMark::None;
}

QVariant TGridModel::ToolTip(const QModelIndex& Index) const {
    const fw::Text Shown = FView->GetCellText(Index.row(), Index.column());
    if (FView->GetColumn(Index.column())->Tag == fw::kColumnSymbol) {
        const QString Hint = SymbolMarkHint(SymbolMark(Shown), Shown, FContext);
        if (!Hint.isEmpty()) return Hint;
    }
    return FView->Options.CellHints && !fw::Trim(Shown).empty() ? QVariant(ToQt(Shown)) : QVariant();
}

QVariant TGridModel::data(const QModelIndex& Index, int Role) const {
    if (!FView || !Index.isValid() || !FView->GetColumn(Index.column())) return {};
    switch (Role) {
        case Qt::DisplayRole: return ToQt(FView->GetCellText(Index.row(), Index.column()));
        case Qt::TextAlignmentRole: return QVariant(CellAlignment(*FView.Get(), Index.row(), Index.column()));
        case Qt::ToolTipRole: return ToolTip(Index);
        case Qt::BackgroundRole: {
            const auto* Style = FView->GetCellStyle(Index.row(), Index.column());
            return Style ? QVariant(ToQColor(Style->GetColor())) : QVariant();
        }
        case Qt::ForegroundRole: {
            const auto* Style = FView->GetCellStyle(Index.row(), Index.column());
            const QColor Background =
                Style ? ToQColor(Style->GetColor()) : QApplication::palette().color(QPalette::Base);
            const QColor Wanted =
                IsMarked(Index) ? FContext.Color("coNoData") : QApplication::palette().color(QPalette::Text);
            return ReadableOn(Background, Wanted);
        }
        case Qt::FontRole: {
            if (!IsMarked(Index)) return {};
            QFont Font = QApplication::font();
            Font.setItalic(true);
            return Font;
        }
        default: return {};
    }
}

QVariant TGridModel::headerData(int Section, Qt::Orientation Orientation, int Role) const {
    if (FView && Orientation == Qt::Vertical && Role == Qt::AccessibleTextRole)
        return fw::HasContent(*FView.Get(), Section) ? QString::number(Section + 1)
                                                     : FContext.Translate("Res_EmptyRow");
    const fw::TGridColumn* Column = FView && Orientation == Qt::Horizontal ? FView->GetColumn(Section) : nullptr;
    if (!Column) return {};
    if (Role == Qt::DisplayRole || Role == Qt::ToolTipRole) return ToQt(Column->GetCaption());
    if (Role == Qt::TextAlignmentRole) return QVariant(ToQtAlignment(Column->HeaderAlignment));
    return {};
}

void TGridModel::ColumnsChanged() {
    beginResetModel();
    FColumns = FView->GetColumnCount();
    FRows = FView->GetDataController().GetRecordCount();
    endResetModel();
}

void TGridModel::RecordsChanged() {
    const int Now = FView->GetDataController().GetRecordCount();
    if (Now > FRows) {
        beginInsertRows({}, FRows, Now - 1);
        FRows = Now;
        endInsertRows();
    } else if (Now < FRows) {
        beginRemoveRows({}, Now, FRows - 1);
        FRows = Now;
        endRemoveRows();
    }
    if (FRows > 0 && FColumns > 0) emit dataChanged(index(0, 0), index(FRows - 1, FColumns - 1));
}

// The whole row: its background depends on every cell of it.
void TGridModel::CellChanged(int Record, int) {
    if (Record >= 0 && Record < FRows && FColumns > 0) emit dataChanged(index(Record, 0), index(Record, FColumns - 1));
}

}  // namespace ws
