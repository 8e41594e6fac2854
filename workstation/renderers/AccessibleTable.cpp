// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/AccessibleTable.h"

#include <algorithm>
#include <deque>
#include <map>

#include <QAccessibleWidget>

#include "workstation/renderers/AccessibleCell.h"

namespace ws {

namespace {

using TPlace = TPaintedTable::TPlace;

// Cells that have been asked for stay known up to this number, more than any screen shows; then the oldest go.
constexpr size_t kKnownCells = 4096;

class TAccessibleTable : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit TAccessibleTable(QWidget& Widget) : QAccessibleWidget(&Widget, QAccessible::Table) {}
    ~TAccessibleTable() override {
        for (const auto& [Place, Id] : FIds) QAccessible::deleteAccessibleInterface(Id);
    }

    // Null while the widget is being destroyed.
    TPaintedTable* Table() const { return dynamic_cast<TPaintedTable*>(widget()); }

    QString text(QAccessible::Text Kind) const override {
        const QString Given = QAccessibleWidget::text(Kind);
        return Given.isEmpty() && Kind == QAccessible::Name && Table() ? Table()->TableName() : Given;
    }

    // --- children: heads, then the cells that are seen, row by row
    int childCount() const override {
        return Table() ? columnCount() * (1 + static_cast<int>(Table()->SeenRows().size())) : 0;
    }
    QAccessibleInterface* child(int Index) const override {
        if (Index < 0 || Index >= childCount()) return nullptr;
        const int Line = Index / columnCount(), Column = Index % columnCount();
        return CellOf({Line == 0 ? kHeadRow : Table()->SeenRows()[static_cast<size_t>(Line) - 1], Column});
    }
    int indexOfChild(const QAccessibleInterface* Child) const override {
        const auto* Cell = dynamic_cast<const TAccessibleCell*>(Child);
        if (!Cell || !Table() || Cell->parent() != this || Cell->Place().Column >= columnCount()) return -1;
        if (Cell->Place().Row == kHeadRow) return Cell->Place().Column;
        const auto Rows = Table()->SeenRows();
        const auto Found = std::find(Rows.begin(), Rows.end(), Cell->Place().Row);
        if (Found == Rows.end()) return -1;
        return columnCount() * static_cast<int>(1 + (Found - Rows.begin())) + Cell->Place().Column;
    }
    QAccessibleInterface* childAt(int X, int Y) const override {
        for (int i = 0; i < childCount(); ++i)
            if (QAccessibleInterface* Each = child(i); Each->rect().contains(X, Y)) return Each;
        return nullptr;
    }
    QAccessibleInterface* focusChild() const override {
        const auto Current = Table() ? Table()->CurrentPlace() : std::nullopt;
        return Current ? cellAt(Current->Row, Current->Column) : nullptr;
    }

    void* interface_cast(QAccessible::InterfaceType Type) override {
        if (Type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
        return QAccessibleWidget::interface_cast(Type);
    }

    // --- the table
    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    int rowCount() const override { return Table() ? Table()->TableRows() : 0; }
    int columnCount() const override { return Table() ? Table()->TableColumns() : 0; }
    QAccessibleInterface* cellAt(int Row, int Column) const override {
        return IsRow(Row) && IsColumn(Column) ? CellOf({Row, Column}) : nullptr;
    }
    QString columnDescription(int Column) const override {
        return IsColumn(Column) ? Table()->HeadText(Column) : QString();
    }
    QString rowDescription(int Row) const override { return IsRow(Row) ? Table()->RowText(Row) : QString(); }

    // --- selection, of the rows that are seen
    QList<QAccessibleInterface*> selectedCells() const override {
        QList<QAccessibleInterface*> Result;
        for (int i = columnCount(); i < childCount(); ++i)
            if (QAccessibleInterface* Each = child(i); Each->tableCellInterface()->isSelected()) Result << Each;
        return Result;
    }
    int selectedCellCount() const override { return static_cast<int>(selectedCells().size()); }
    bool isRowSelected(int Row) const override {
        for (int Column = 0; IsRow(Row) && Column < columnCount(); ++Column)
            if (!Table()->IsSelectedAt({Row, Column})) return false;
        return IsRow(Row) && columnCount() > 0;
    }
    QList<int> selectedRows() const override {
        QList<int> Result;
        for (const int Row : Table() ? Table()->SeenRows() : std::vector<int>())
            if (isRowSelected(Row)) Result << Row;
        return Result;
    }
    int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
    bool selectRow(int Row) override {
        if (!IsRow(Row)) return false;
        Table()->ChooseAt({Row, 0});
        return true;
    }
    bool unselectRow(int) override { return false; }
    bool isColumnSelected(int) const override { return false; }
    QList<int> selectedColumns() const override { return {}; }
    int selectedColumnCount() const override { return 0; }
    bool selectColumn(int) override { return false; }
    bool unselectColumn(int) override { return false; }

    void modelChange(QAccessibleTableModelChangeEvent*) override {}  // nothing is kept but places

private:
    bool IsRow(int Row) const { return Row >= 0 && Row < rowCount(); }
    bool IsColumn(int Column) const { return Column >= 0 && Column < columnCount(); }

    QAccessibleInterface* CellOf(TPlace Place) const {
        if (const auto Known = FIds.find(Place); Known != FIds.end())
            return QAccessible::accessibleInterface(Known->second);
        if (FOrder.size() >= kKnownCells) {
            QAccessible::deleteAccessibleInterface(FIds.at(FOrder.front()));
            FIds.erase(FOrder.front());
            FOrder.pop_front();
        }
        auto* Made = new TAccessibleCell(*widget(), Place);
        FIds.emplace(Place, QAccessible::registerAccessibleInterface(Made));
        FOrder.push_back(Place);
        return Made;
    }

    mutable std::map<TPlace, QAccessible::Id> FIds;  // owned by the toolkit's register
    mutable std::deque<TPlace> FOrder;               // as they were first asked for
};

QAccessibleInterface* MakeAccessibleTable(const QString&, QObject* Object) {
    auto* Widget = qobject_cast<QAbstractScrollArea*>(Object);
    return dynamic_cast<TPaintedTable*>(Widget) ? new TAccessibleTable(*Widget) : nullptr;
}

bool IsHeard() { return QAccessible::isActive() || AccessibleEvents().HasListeners(); }

void Tell(QAccessibleEvent& Event) {
    QAccessible::updateAccessibility(&Event);
    AccessibleEvents()(Event);
}

}  // namespace

void InstallAccessibleTables() { QAccessible::installFactory(&MakeAccessibleTable); }

fw::TSignal<QAccessibleEvent&>& AccessibleEvents() {
    static fw::TSignal<QAccessibleEvent&> Events;
    return Events;
}

void TellCurrentCell(QAbstractScrollArea& Widget) {
    if (!IsHeard()) return;
    const QAccessibleInterface* Table = QAccessible::queryAccessibleInterface(&Widget);
    QAccessibleInterface* Cell = Table ? Table->focusChild() : nullptr;
    if (!Cell) return;
    for (const auto Type : {QAccessible::Focus, QAccessible::Selection}) {
        QAccessibleEvent Event(Cell, Type);
        Tell(Event);
    }
}

void TellTableChanged(QAbstractScrollArea& Widget) {
    if (!IsHeard()) return;
    QAccessibleTableModelChangeEvent Change(&Widget, QAccessibleTableModelChangeEvent::ModelReset);
    Tell(Change);
}

}  // namespace ws
