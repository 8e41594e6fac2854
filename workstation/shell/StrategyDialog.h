// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <vector>

#include <QDialog>

#include "workstation/renderers/RenderContext.h"
#include "workstation/store/StoreJournal.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;

namespace ws {

// What the dialog asks its owner for.
struct TStrategyShelf {
    std::function<std::vector<TStrategyRow>()> Load;
    // Opens or saves under the name; true: it is done.
    std::function<bool(const std::string& Name, const std::string& Note)> Take;
    std::function<void(const std::string& Name)> Remove;  // asks first
};

// The named strategies with note and date. Typing narrows the list; to open, the line is a filter, to save, it is the
// name. Up and Down move in the list from there, Enter takes, Delete in the list removes.
class TStrategyDialog : public QDialog {
public:
    enum class EMode { Open, Save };
    TStrategyDialog(EMode Mode, TStrategyShelf Shelf, const TRenderContext& Context, QWidget* Parent);

    QLineEdit& Line() { return *FLine; }
    QLineEdit& Note() { return *FNote; }
    QTreeWidget& List() { return *FList; }
    QPushButton& TakeButton() { return *FTake; }
    QPushButton& RemoveButton() { return *FRemove; }

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;

private:
    void BuildLayout(const TRenderContext& Context);
    void Fill();
    void Narrow();
    void Choose();
    void Update();
    void Take();
    void Remove();
    std::string Chosen() const;  // the name that stands in the list's current line; "": none

    EMode FMode;
    TStrategyShelf FShelf;
    QLineEdit* FLine;
    QLineEdit* FNote;
    QTreeWidget* FList;
    QPushButton* FTake;
    QPushButton* FRemove;
    QPushButton* FCancel;
};

}  // namespace ws
