// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <memory>

#include <QTableView>
#include <QTimer>

#include "framework/controls/GridTableView.h"
#include "workstation/renderers/CellEditors.h"
#include "workstation/renderers/GridDelegates.h"
#include "workstation/renderers/GridModel.h"
#include "workstation/renderers/SymbolMarks.h"

namespace ws {

class TFocusBridge;

// An editable table. Cells come from the view, the view decides what is focused and edited; the toolkit's own editing
// and selection are off.
class TGridRenderer : public QTableView {
public:
    TGridRenderer(fw::TGridTableView& View, TRenderContext& Context, QWidget* Parent);
    ~TGridRenderer() override;

    bool IsFocusedCell(const QModelIndex& Index) const;
    TCellEditorWidget* GetEditorWidget() const { return FEditor; }  // null while nothing is edited
    QRect CellRect(int Record, int Column) const;                   // in the viewport
    std::vector<TCellButton> CellButtons(int Record, int Column) const;
    QAbstractItemDelegate* itemDelegateForIndex(const QModelIndex& Index) const override;

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;
    void mousePressEvent(QMouseEvent* Event) override;
    void mouseMoveEvent(QMouseEvent* Event) override;
    void mouseReleaseEvent(QMouseEvent* Event) override;
    void mouseDoubleClickEvent(QMouseEvent* Event) override;
    void keyPressEvent(QKeyEvent* Event) override;
    bool focusNextPrevChild(bool Next) override;
    void focusInEvent(QFocusEvent* Event) override;
    void resizeEvent(QResizeEvent* Event) override;
    void updateGeometries() override;
    void scrollContentsBy(int Dx, int Dy) override;
    void paintEvent(QPaintEvent* Event) override;

private:
    void Connect();
    void ReloadColumns();
    void LayOutColumns();
    void FollowFocus();
    void FollowEditor();
    void DropEditor();
    void PlaceEditor();
    void Leave(ELeave Way);
    bool StartEdit(int Record, int Column);
    bool MoveFocus(int Records, int Columns);
    bool MoveToEditable(bool Forward, bool Edit);
    bool StartByKey(QKeyEvent* Event);
    void LookAtMarks();
    void TakeUserWidths();

    TModelRef<fw::TGridTableView> FView;
    TRenderContext& FContext;
    TGridModel* FModel;
    TFocusBridge* FBridge = nullptr;                           // child of this
    std::array<std::unique_ptr<TCellDelegate>, 4> FDelegates;  // by editor kind
    TCellEditorWidget* FEditor = nullptr;                      // its widget is a child of the viewport
    fw::TCellEditor* FEdited = nullptr;                        // whom FEditor shows; only compared
    fw::TConnection FEditorLink;
    fw::TConnections FLinks;
    QModelIndex FPressed;
    bool FLayingOut = false;
    bool FUserResized = false;
    QTimer FMarkTimer;
    std::vector<ESymbolMark> FMarks;  // of the rows, when last looked at
};

}  // namespace ws
