// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/AccessibleCell.h"

namespace ws {

bool TAccessibleCell::isValid() const {
    const TPaintedTable* Shown = Table();
    return Shown && FPlace.Row < Shown->TableRows() && FPlace.Column < Shown->TableColumns();
}

QAccessibleInterface* TAccessibleCell::parent() const { return QAccessible::queryAccessibleInterface(FWidget); }

QString TAccessibleCell::text(QAccessible::Text Kind) const {
    if (!isValid()) return {};
    if (Kind == QAccessible::Name) return IsHead() ? Table()->HeadText(FPlace.Column) : Table()->TextAt(FPlace);
    if (Kind == QAccessible::Description) return IsHead() ? Table()->HeadNote(FPlace.Column) : Table()->NoteAt(FPlace);
    return {};
}

QRect TAccessibleCell::rect() const {
    const auto* Area = qobject_cast<QAbstractScrollArea*>(FWidget);
    if (!Area || !isValid()) return {};
    const QRect Place = IsHead() ? Table()->HeadRect(FPlace.Column) : Table()->RectAt(FPlace);
    return Place.isEmpty() ? QRect() : Place.translated(Area->viewport()->mapToGlobal(QPoint(0, 0)));
}

QAccessible::State TAccessibleCell::state() const {
    QAccessible::State Result;
    Result.invalid = !isValid();
    if (Result.invalid) return Result;
    Result.invisible = !FWidget->isVisible();
    Result.offscreen = rect().isEmpty();
    Result.readOnly = true;
    if (IsHead()) return Result;
    const bool IsCurrent = Table()->CurrentPlace() == FPlace;
    Result.focusable = Result.selectable = true;
    Result.active = IsCurrent;
    Result.focused = IsCurrent && FWidget->hasFocus();
    Result.selected = isSelected();
    Result.disabled = !FWidget->isEnabled() || !Table()->IsEnabledAt(FPlace);
    return Result;
}

void* TAccessibleCell::interface_cast(QAccessible::InterfaceType Type) {
    if (Type == QAccessible::TableCellInterface) return static_cast<QAccessibleTableCellInterface*>(this);
    if (Type == QAccessible::ActionInterface && !IsHead()) return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
}

bool TAccessibleCell::isSelected() const { return isValid() && !IsHead() && Table()->IsSelectedAt(FPlace); }

// The heads are the first children.
QList<QAccessibleInterface*> TAccessibleCell::columnHeaderCells() const {
    if (IsHead() || !isValid()) return {};
    return {parent()->child(FPlace.Column)};
}

QStringList TAccessibleCell::actionNames() const { return {setFocusAction(), pressAction()}; }

void TAccessibleCell::doAction(const QString& Name) {
    if (!isValid() || state().disabled) return;
    if (Name == setFocusAction()) Table()->ChooseAt(FPlace);
    if (Name == pressAction()) Table()->TakeAt(FPlace);
}

}  // namespace ws
