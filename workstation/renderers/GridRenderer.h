// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <memory>

#include <QTableView>
#include <QTimer>

#include "framework/controls/GridNavigation.h"
#include "workstation/renderers/CellEditors.h"
#include "workstation/renderers/GridClipboard.h"
#include "workstation/renderers/GridDelegates.h"
#include "workstation/renderers/GridModel.h"
#include "workstation/renderers/SymbolMarks.h"

namespace ws {

class TFocusBridge;

// An editable table. Cells come from the view, the view decides what is focused and edited; the toolkit's own editing
// and selection are off.
class TGridRenderer : public QTableView, public TGridClipboard {
public:
    TGridRenderer(fw::TGridTableView& View, TRenderContext& Context, QWidget* Parent);
    ~TGridRenderer() override;

    bool IsFocusedCell(const QModelIndex& Index) const;
    TCellEditorWidget* GetEditorWidget() const { return FEditor; }  // null while nothing is edited
    QRect CellRect(int Record, int Column) const;                   // in the viewport
    std::vector<TCellButton> CellButtons(int Record, int Column) const;
    QAbstractItemDelegate* itemDelegateForIndex(const QModelIndex& Index) const override;
    fw::TGridTableView* GetTable() const override { return FView.Get(); }
    void CopyRows() override;   // every row
    void PasteRows() override;  // one word is typed into the focused cell

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
    void Measure();
    void ReloadColumns();
    void LayOutColumns();
    void FollowFocus();
    void FollowEditor();
    void DropEditor();
    void PlaceEditor();
    // Keys and what they do to the focused cell.
    using TEntry = std::function<fw::ECellEntry(fw::TGridTableView& View)>;
    bool RunKey(const QKeyEvent& Event);
    bool TypeKey(QKeyEvent* Event);
    void Leave(ELeave Way);
    bool StartEdit(int Record, int Column);
    bool StartEdit();
    void OpenCell();
    void DropDown();
    void Empty();
    void FillDown();
    void GoToInputRow();
    void Enter(const TEntry& Entry);
    void TellRefused();
    void ShowKept(bool Again);
    void LookAtMarks();
    void TakeUserWidths();

    TModelRef<fw::TGridTableView> FView;
    TRenderContext& FContext;
    TGridModel* FModel;
    TFocusBridge* FBridge = nullptr;                           // child of this
    std::array<std::unique_ptr<TCellDelegate>, 4> FDelegates;  // by editor kind
    TCellEditorWidget* FEditor = nullptr;                      // its widget is a child of the viewport
    fw::TCellEditor* FEdited = nullptr;                        // whom FEditor shows; only compared
    QString FKept;                                             // why the editor cannot be left, as last told
    fw::TConnection FEditorLink;
    fw::TConnections FLinks;
    QModelIndex FPressed;
    bool FLayingOut = false;
    bool FUserResized = false;
    QTimer FMarkTimer;
    std::vector<ESymbolMark> FMarks;  // of the rows, when last looked at
};

}  // namespace ws
