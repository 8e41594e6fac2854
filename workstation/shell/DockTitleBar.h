// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <vector>

#include <QLabel>
#include <QToolButton>
#include <QWidget>

#include "framework/view/BaseView.h"
#include "workstation/renderers/RenderContext.h"

namespace ws {

// Title bar of a view's dock: caption, the view's own caption buttons, float and close.
class TDockTitleBar : public QWidget {
public:
    TDockTitleBar(fw::TIBaseView& View, int64_t Handle, TRenderContext& Context, QWidget* Parent);

    // Caption and buttons as the view has them now.
    void Refresh();

    std::function<void()> OnFloat, OnClose;
    const std::vector<QToolButton*>& CaptionButtons() const { return FButtons; }
    const QString Caption() const { return FCaption->text(); }

private:
    QToolButton* AddButton(const QString& Icon);
    void RefreshCaption();
    void RefreshButtons();

    fw::TIBaseView& FView;  // both borrowed
    TRenderContext& FContext;
    int64_t FHandle;
    QLabel* FCaption;
    QWidget* FButtonArea;
    std::vector<QToolButton*> FButtons;
    QToolButton* FFloat;
    QToolButton* FClose;
};

// An icon of the program, drawn in a colour of the skin. Unknown names give an empty icon.
QIcon SkinIcon(const QString& Name, const QColor& Color);

}  // namespace ws
