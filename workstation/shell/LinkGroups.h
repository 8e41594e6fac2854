// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QToolButton>

#include "workstation/renderers/RenderContext.h"

class QMenu;

namespace ws {

// The link groups that a view may belong to, by number from 1; their ids are the numbers as text. 0 and "": none.
inline constexpr int kLinkGroupCount = 6;
fw::Text LinkGroupId(int Number);
int LinkGroupNumber(const fw::Text& Id);  // 0 also for an id of no group

// The number on the group's colour; without a group a dim symbol.
QIcon LinkGroupIcon(int Number, const TRenderContext& Context);

// Shows the group of a view and lets the user choose another.
class TLinkGroupButton : public QToolButton {
public:
    TLinkGroupButton(TRenderContext& Context, QWidget* Parent);

    void SetNumber(int Number);  // tells nobody
    int Number() const { return FNumber; }
    void Retranslate();
    QMenu* Menu() const { return FMenu; }  // null while it is not open

    std::function<void(int Number)> OnChosen;

private:
    void OpenMenu();
    QString Name(int Number) const;

    TRenderContext& FContext;
    int FNumber = 0;
    QMenu* FMenu = nullptr;  // owned by this widget while it is open
};

}  // namespace ws
