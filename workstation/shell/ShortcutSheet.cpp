// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/ShortcutSheet.h"

#include <algorithm>

#include <QDialog>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QTableWidget>
#include <QVBoxLayout>

#include "workstation/renderers/QtText.h"

namespace ws {

namespace {

constexpr QSize kSheetSize(640, 620);
constexpr char kSheetName[] = "shortcut-sheet";
enum EColumn { kMenuColumn, kCommandColumn, kKeysColumn, kColumnCount };

// Keys that a table answers to itself.
struct TTableKey {
    const char* Keys;
    const char* TextKey;
};
constexpr TTableKey kTableKeys[] = {{"Return", "Res_KeyOpenCell"}, {"F2", "Res_KeyOpenCell"},
                                    {"Tab", "Res_KeyNextCell"},    {"F4", "Res_KeyDropDown"},
                                    {"Ins", "Res_KeyInputRow"},    {"Del", "Res_KeyEmptyCell"},
                                    {"Ctrl+D", "Res_KeyFillDown"}, {"Esc", "Res_KeyCancelEdit"}};

class TSheet : public QDialog {
public:
    TSheet(TCommands& Commands, const TRenderContext& Context, QWidget* Parent);

protected:
    void keyPressEvent(QKeyEvent* Event) override {
        if (Event->key() == Qt::Key_F1) return accept();
        QDialog::keyPressEvent(Event);
    }

private:
    void AddRow(const QString& Menu, const QString& Command, const QString& Keys);
    void Filter(const QString& Words);

    QLineEdit* FFilter;
    QTableWidget* FTable;
};

TSheet::TSheet(TCommands& Commands, const TRenderContext& Context, QWidget* Parent)
    : QDialog(Parent), FFilter(new QLineEdit(this)), FTable(new QTableWidget(0, kColumnCount, this)) {
    setObjectName(QLatin1String(kSheetName));
    setWindowTitle(Context.Translate("Res_ShortcutsTitle"));
    FFilter->setPlaceholderText(Context.Translate("Res_ShortcutsFilter"));
    FFilter->setAccessibleName(FFilter->placeholderText());
    FFilter->setClearButtonEnabled(true);
    FTable->setAccessibleName(windowTitle());
    FTable->setHorizontalHeaderLabels({Context.Translate("Res_ShortcutsMenu"),
                                       Context.Translate("Res_ShortcutsCommand"),
                                       Context.Translate("Res_ShortcutsKeys")});
    FTable->horizontalHeader()->setSectionResizeMode(kCommandColumn, QHeaderView::Stretch);
    FTable->verticalHeader()->hide();
    FTable->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    FTable->verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    FTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
    FTable->setSelectionBehavior(QAbstractItemView::SelectRows);
    FTable->setTabKeyNavigation(false);
    for (const auto& Each : Commands.All()) {
        QStringList Keys;
        for (const QKeySequence& Sequence : Commands.Keys(Each.Id)) Keys << Sequence.toString(QKeySequence::NativeText);
        AddRow(Each.Menu, Each.Caption, Keys.join(QStringLiteral(", ")));
    }
    for (const TTableKey& Each : kTableKeys)
        AddRow(Context.Translate("Res_ShortcutsTables"), Context.Translate(Each.TextKey),
               QKeySequence(QLatin1String(Each.Keys)).toString(QKeySequence::NativeText));
    FTable->resizeColumnToContents(kMenuColumn);
    FTable->resizeColumnToContents(kKeysColumn);
    auto* Box = new QVBoxLayout(this);
    Box->addWidget(FFilter);
    Box->addWidget(FTable, 1);
    resize(QSize(Context.Scaled(kSheetSize.width()), Context.Scaled(kSheetSize.height()))
               .boundedTo(screen()->availableSize() * 9 / 10));
    connect(FFilter, &QLineEdit::textChanged, this, [this](const QString& Words) { Filter(Words); });
}

void TSheet::AddRow(const QString& Menu, const QString& Command, const QString& Keys) {
    const int Row = FTable->rowCount();
    FTable->insertRow(Row);
    FTable->setItem(Row, kMenuColumn, new QTableWidgetItem(Menu));
    FTable->setItem(Row, kCommandColumn, new QTableWidgetItem(Command));
    FTable->setItem(Row, kKeysColumn, new QTableWidgetItem(Keys));
}

// A row stays where each word stands somewhere in it.
void TSheet::Filter(const QString& Words) {
    const QStringList Wanted = Words.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (int Row = 0; Row < FTable->rowCount(); ++Row) {
        QString Line;
        for (int Column = 0; Column < kColumnCount; ++Column)
            Line += FTable->item(Row, Column)->text() + QLatin1Char(' ');
        const bool Fits = std::all_of(Wanted.begin(), Wanted.end(),
                                      [&](const QString& Word) { return Line.contains(Word, Qt::CaseInsensitive); });
        FTable->setRowHidden(Row, !Fits);
    }
}

}  // namespace

void ShowShortcutSheet(TCommands& Commands, const TRenderContext& Context, QWidget* Parent) {
    if (auto* Open = Parent->findChild<QDialog*>(QLatin1String(kSheetName))) {
        Open->close();
        return;
    }
    auto* Sheet = new TSheet(Commands, Context, Parent);
    Sheet->setAttribute(Qt::WA_DeleteOnClose);
    Sheet->open();
}

}  // namespace ws
