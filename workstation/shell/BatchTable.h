// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <exception>
#include <functional>

#include <QAbstractTableModel>
#include <QTableView>

#include "framework/data/DataControl.h"
#include "workstation/renderers/RenderContext.h"
#include "workstation/trading/BatchReview.h"

namespace ws {

using TReasonText = std::function<QString(const TReason& Reason)>;

// A reviewed batch as the toolkit's table: the ticks, the columns that the batch table names, and the order's flags
// where a row has some. Asks for every cell when it is drawn; what a cell throws goes to OnFailure. All borrowed.
class TBatchTable : public QAbstractTableModel {
public:
    TBatchTable(TBatchReview& Review, fw::TCustomDataControl& Table, const TRenderContext& Context, TReasonText Text,
                QObject* Parent);

    int rowCount(const QModelIndex& Parent = {}) const override;
    int columnCount(const QModelIndex& Parent = {}) const override;
    QVariant data(const QModelIndex& Index, int Role) const override;
    bool setData(const QModelIndex& Index, const QVariant& Value, int Role) override;
    Qt::ItemFlags flags(const QModelIndex& Index) const override;
    QVariant headerData(int Section, Qt::Orientation Orientation, int Role) const override;

    int ColumnOf(int Id) const;     // -1 when no column has the id
    int WidthOf(int Column) const;  // pixels at scale 100
    bool IsTickColumn(int Column) const { return Column == 0; }
    bool IsBlocked(int Row) const { return RowAt(Row).Blocked; }
    void Refresh();  // every cell and caption may have changed

    std::function<void(const std::vector<int>& Rows, bool Ticked)> OnTick;
    std::function<void(const std::string& What)> OnFailure;

private:
    struct TColumn {
        int Id = 0;
        std::string CaptionKey;
        int Width = 0;
        bool Numeric = false;
        int TOrderTicket::*Flag = nullptr;  // none: the batch table has the cell
    };
    void BuildColumns();
    static QVariant AlignmentOf(const TColumn& Column);
    const TReviewRow& RowAt(int Row) const { return FReview.Rows()[static_cast<size_t>(Row)]; }
    QVariant Cell(const QModelIndex& Index, int Role) const;
    QString CellText(int Row, const TColumn& Column) const;
    QVariant CellColor(const TReviewRow& Row, const TColumn& Column) const;

    TBatchReview& FReview;
    fw::TCustomDataControl& FTable;
    const TRenderContext& FContext;
    TReasonText FText;
    std::vector<TColumn> FColumns;
};

// The table's widget: Space turns the ticks of the selected rows over.
class TBatchView : public QTableView {
public:
    TBatchView(TBatchTable& Model, const TRenderContext& Context, QWidget* Parent);

protected:
    void keyPressEvent(QKeyEvent* Event) override;

private:
    TBatchTable& FModel;
};

}  // namespace ws
