// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/StrategyDialog.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "workstation/renderers/QtText.h"

namespace ws {

namespace {

constexpr QSize kSize(640, 380);  // at scale 100
constexpr int kMostLetters = 200;
enum EColumn { kName, kNote, kDate };

QString DateText(int64_t Seconds) {
    return QDateTime::fromSecsSinceEpoch(Seconds).toString(QStringLiteral("yyyy/MM/dd HH:mm"));
}

}  // namespace

TStrategyDialog::TStrategyDialog(EMode Mode, TStrategyShelf Shelf, const TRenderContext& Context, QWidget* Parent)
    : QDialog(Parent),
      FMode(Mode),
      FShelf(std::move(Shelf)),
      FLine(new QLineEdit(this)),
      FNote(new QLineEdit(this)),
      FList(new QTreeWidget(this)),
      FTake(new QPushButton(this)),
      FRemove(new QPushButton(this)),
      FCancel(new QPushButton(this)) {
    BuildLayout(Context);
    FLine->installEventFilter(this);
    FList->installEventFilter(this);
    connect(FLine, &QLineEdit::textEdited, this, [this] { Narrow(); });
    connect(FList, &QTreeWidget::currentItemChanged, this, [this] { Choose(); });
    connect(FList, &QTreeWidget::itemActivated, this, [this] { Take(); });
    connect(FTake, &QPushButton::clicked, this, [this] { Take(); });
    connect(FRemove, &QPushButton::clicked, this, [this] { Remove(); });
    connect(FCancel, &QPushButton::clicked, this, &QDialog::reject);
    Fill();
    FLine->setFocus();
}

void TStrategyDialog::BuildLayout(const TRenderContext& Context) {
    const bool Saves = FMode == EMode::Save;
    setWindowTitle(Context.Translate(Saves ? "Res_StrategySaveTitle" : "Res_StrategyOpenTitle"));
    FList->setHeaderLabels({Context.Translate("Res_StrategyNameColumn"), Context.Translate("Res_StrategyNoteColumn"),
                            Context.Translate("Res_StrategyDateColumn")});
    FList->header()->setStretchLastSection(false);
    FList->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    FList->header()->setSectionResizeMode(kNote, QHeaderView::Stretch);
    FList->setRootIsDecorated(false);
    FList->setUniformRowHeights(true);
    FList->setAllColumnsShowFocus(true);
    FList->setAccessibleName(windowTitle());
    FTake->setText(Context.Translate(Saves ? "Res_StrategySaveButton" : "Res_StrategyOpenButton"));
    FRemove->setText(Context.Translate("Res_StrategyDeleteButton"));
    FCancel->setText(Context.Translate("Res_ButtonCancel"));
    FTake->setDefault(true);
    for (QPushButton* Button : {FRemove, FCancel}) Button->setAutoDefault(false);
    for (QLineEdit* Line : {FLine, FNote}) Line->setMaxLength(kMostLetters);
    auto* Lines = new QFormLayout;
    Lines->addRow(Context.Translate(Saves ? "Res_StrategyName" : "Res_StrategyFind"), FLine);
    if (Saves)
        Lines->addRow(Context.Translate("Res_StrategyNote"), FNote);
    else
        FNote->hide();
    auto* Buttons = new QHBoxLayout;
    Buttons->addWidget(FRemove);
    Buttons->addStretch(1);
    Buttons->addWidget(FTake);
    Buttons->addWidget(FCancel);
    auto* Column = new QVBoxLayout(this);
    Column->addLayout(Lines);
    Column->addWidget(FList, 1);
    Column->addLayout(Buttons);
    resize(Context.Scaled(kSize.width()), Context.Scaled(kSize.height()));
    setModal(true);
}

void TStrategyDialog::Fill() {
    FList->clear();
    for (const TStrategyRow& Row : FShelf.Load())
        new QTreeWidgetItem(FList, {ToQt(Row.Name), ToQt(Row.Note), DateText(Row.Changed)});
    Narrow();
}

// What the line names stays in sight; to open, the first of them is chosen at once.
void TStrategyDialog::Narrow() {
    const QString Typed = FLine->text().trimmed();
    QTreeWidgetItem* First = nullptr;
    const QSignalBlocker Quiet(FList);  // what is typed is not overwritten by what it finds
    for (int i = 0; i < FList->topLevelItemCount(); ++i) {
        QTreeWidgetItem* Item = FList->topLevelItem(i);
        const bool Fits = Item->text(kName).contains(Typed, Qt::CaseInsensitive) ||
                          Item->text(kNote).contains(Typed, Qt::CaseInsensitive);
        Item->setHidden(!Fits);
        const bool Named = FMode == EMode::Open || Item->text(kName) == Typed;
        if (Fits && Named && !First) First = Item;
    }
    FList->setCurrentItem(First);
    Update();
}

void TStrategyDialog::Choose() {
    if (const auto* Item = FList->currentItem(); Item && FMode == EMode::Save) {
        FLine->setText(Item->text(kName));
        FNote->setText(Item->text(kNote));
    }
    Update();
}

std::string TStrategyDialog::Chosen() const {
    const auto* Item = FList->currentItem();
    return Item && !Item->isHidden() ? FromQt(Item->text(kName)) : std::string();
}

void TStrategyDialog::Update() {
    FTake->setEnabled(FMode == EMode::Save ? !FLine->text().trimmed().isEmpty() : !Chosen().empty());
    FRemove->setEnabled(!Chosen().empty());
}

void TStrategyDialog::Take() {
    if (!FTake->isEnabled()) return;
    const std::string Name = FMode == EMode::Save ? FromQt(FLine->text().trimmed()) : Chosen();
    if (FShelf.Take(Name, FromQt(FNote->text().trimmed()))) accept();
}

void TStrategyDialog::Remove() {
    const std::string Name = Chosen();
    if (Name.empty()) return;
    FShelf.Remove(Name);
    Fill();
}

bool TStrategyDialog::eventFilter(QObject* Watched, QEvent* Event) {
    if (Event->type() != QEvent::KeyPress) return QDialog::eventFilter(Watched, Event);
    const int Key = static_cast<QKeyEvent*>(Event)->key();
    const bool Moves = Key == Qt::Key_Up || Key == Qt::Key_Down || Key == Qt::Key_PageUp || Key == Qt::Key_PageDown;
    if (Watched == FLine && Moves) {
        QCoreApplication::sendEvent(FList, Event);
        return true;
    }
    if (Watched == FList && Key == Qt::Key_Delete) {
        Remove();
        return true;
    }
    return QDialog::eventFilter(Watched, Event);
}

}  // namespace ws
