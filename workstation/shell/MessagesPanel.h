// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDockWidget>
#include <QTableView>

#include "workstation/shell/MessageList.h"

namespace ws {

// The log in a dock. New warnings are counted in its title until it is looked at; rows can be copied as text.
class TMessagesPanel : public QDockWidget {
public:
    TMessagesPanel(TMessageList& List, TRenderContext& Context, QWidget* Parent);

    void Retranslate();
    void CopySelected() const;  // all rows where none is selected
    QTableView& Table() { return *FTable; }

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;

private:
    void UpdateTitle();

    TMessageList& FList;
    TRenderContext& FContext;
    QTableView* FTable;
    QAction* FCopy;
    fw::TConnections FLinks;
};

}  // namespace ws
