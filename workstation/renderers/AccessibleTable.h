// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

#include <QAbstractScrollArea>
#include <QString>

#include "framework/base/Signal.h"

class QAccessibleEvent;

namespace ws {

// What a scroll area that draws a table itself tells screen readers. Rows and columns count from 0, columns are those
// that are shown; rectangles are pixels of the viewport.
class TPaintedTable {
public:
    struct TPlace {
        int Row, Column;
        bool operator==(const TPlace&) const = default;
        auto operator<=>(const TPlace&) const = default;
    };

    virtual ~TPaintedTable() = default;
    virtual QString TableName() const = 0;  // where the widget has been given none
    virtual int TableRows() const = 0;
    virtual int TableColumns() const = 0;
    virtual QString HeadText(int Column) const = 0;
    virtual QString HeadNote(int) const { return {}; }
    virtual QString TextAt(TPlace Place) const = 0;
    virtual QString NoteAt(TPlace) const { return {}; }  // what the text alone does not say
    virtual QString RowText(int Row) const = 0;
    virtual QRect HeadRect(int Column) const = 0;
    virtual QRect RectAt(TPlace Place) const = 0;
    virtual std::vector<int> SeenRows() const = 0;
    virtual std::optional<TPlace> CurrentPlace() const = 0;
    virtual bool IsSelectedAt(TPlace Place) const = 0;
    virtual bool IsEnabledAt(TPlace) const { return true; }
    virtual void ChooseAt(TPlace Place) = 0;  // as a click
    virtual void TakeAt(TPlace Place) = 0;    // as a double click
};

// Screen readers find the table behind any widget that is a TPaintedTable from now on. They get every cell that they
// ask for by row and column; children are the heads and the cells that are seen, so that a table of any length can be
// walked. To be called by the constructor of such a widget.
void InstallAccessibleTables();

// The user moved to another cell; the rows or columns are others. Heard by screen readers, and by who listens to
// AccessibleEvents: the toolkit itself passes nothing on where no screen reader can run.
void TellCurrentCell(QAbstractScrollArea& Widget);
void TellTableChanged(QAbstractScrollArea& Widget);
fw::TSignal<QAccessibleEvent&>& AccessibleEvents();

}  // namespace ws
