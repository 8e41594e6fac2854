// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractTableModel>

#include "framework/controls/GridTableView.h"
#include "workstation/renderers/ModelRef.h"
#include "workstation/renderers/RenderContext.h"

namespace ws {

// The toolkit's door to a table view: asks it for every cell and keeps none. Rows are records, columns are the view's.
class TGridModel : public QAbstractTableModel {
public:
    TGridModel(fw::TGridTableView& View, TRenderContext& Context, QObject* Parent);

    fw::TGridTableView* View() const { return FView.Get(); }  // null once it is gone

    int rowCount(const QModelIndex& Parent = {}) const override;
    int columnCount(const QModelIndex& Parent = {}) const override;
    QVariant data(const QModelIndex& Index, int Role) const override;
    QVariant headerData(int Section, Qt::Orientation Orientation, int Role) const override;

    // After a change of the view.
    void ColumnsChanged();
    void RecordsChanged();
    void CellChanged(int Record, int Column);

private:
    QVariant ToolTip(const QModelIndex& Index) const;
    bool IsMarked(const QModelIndex& Index) const;

    TModelRef<fw::TGridTableView> FView;
    TRenderContext& FContext;
    int FRows = 0;
    int FColumns = 0;
};

// The text colour on a cell's own background: the palette's where it can be read, else black or white.
QColor ReadableOn(const QColor& Background, const QColor& Wanted);

}  // namespace ws
