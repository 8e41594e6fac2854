// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAccessible>
#include <QPointer>

#include "workstation/renderers/AccessibleTable.h"

namespace ws {

inline constexpr int kHeadRow = -1;

// One cell, or the head of a column, of a painted table. Knows its place and asks for the rest; lives on when the
// widget dies and is invalid then.
class TAccessibleCell : public QAccessibleInterface,
                        public QAccessibleTableCellInterface,
                        public QAccessibleActionInterface {
public:
    TAccessibleCell(QWidget& Widget, TPaintedTable::TPlace Place) : FWidget(&Widget), FPlace(Place) {}

    TPaintedTable::TPlace Place() const { return FPlace; }

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text Kind) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override;
    QAccessible::Role role() const override { return IsHead() ? QAccessible::ColumnHeader : QAccessible::Cell; }
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType Type) override;

    bool isSelected() const override;
    QList<QAccessibleInterface*> columnHeaderCells() const override;
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return FPlace.Column; }
    int rowIndex() const override { return FPlace.Row; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

    QStringList actionNames() const override;
    void doAction(const QString& Name) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    bool IsHead() const { return FPlace.Row == kHeadRow; }
    // Null while the widget is being destroyed.
    TPaintedTable* Table() const { return dynamic_cast<TPaintedTable*>(FWidget.data()); }

    QPointer<QWidget> FWidget;
    TPaintedTable::TPlace FPlace;
};

}  // namespace ws
