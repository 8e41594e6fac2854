// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <vector>

#include <QStyledItemDelegate>

#include "framework/controls/EditorProperties.h"
#include "workstation/renderers/RenderContext.h"

namespace ws {

// A button that a cell always shows: what it does once the cell's editor is open.
struct TCellButton {
    QRect Rect;
    Qt::ArrowType Arrow;
    int Steps;  // 0: opens the drop-down
};

// Draws the cells of one kind of editor. Kinds differ in the buttons that a cell shows while it is not edited.
class TCellDelegate : public QStyledItemDelegate {
public:
    TCellDelegate(TRenderContext& Context, QObject* Parent) : QStyledItemDelegate(Parent), FContext(Context) {}

    virtual std::vector<TCellButton> Buttons(const fw::TcxEditProperties* Properties, const QRect& Cell) const;

    void paint(QPainter* Painter, const QStyleOptionViewItem& Option, const QModelIndex& Index) const override;
    QSize sizeHint(const QStyleOptionViewItem& Option, const QModelIndex& Index) const override;

protected:
    TRenderContext& FContext;
};

// One delegate for each kind.
std::unique_ptr<TCellDelegate> MakeCellDelegate(fw::EEditorKind Kind, TRenderContext& Context);

}  // namespace ws
