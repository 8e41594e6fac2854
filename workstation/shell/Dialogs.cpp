// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/Dialogs.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QListView>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRegularExpression>

namespace ws {

TDialogs::~TDialogs() = default;

void TDialogs::Tell(QWidget* Parent, const QString& Message) {
    QMessageBox Box(QMessageBox::Information, FContext.Translate("Res_AppTitle"), Message, QMessageBox::NoButton,
                    Parent);
    Box.addButton(FContext.Translate("Res_ButtonOk"), QMessageBox::AcceptRole);
    Box.exec();
}

bool TDialogs::Ask(QWidget* Parent, const QString& Question) {
    return Choose(Parent, Question, {FContext.Translate("Res_ButtonOk")}) == 0;
}

int TDialogs::Choose(QWidget* Parent, const QString& Question, const QStringList& Answers) {
    QMessageBox Box(QMessageBox::Question, FContext.Translate("Res_AppTitle"), Question, QMessageBox::NoButton, Parent);
    QList<QPushButton*> Buttons;
    for (const QString& Answer : Answers) Buttons << Box.addButton(Answer, QMessageBox::AcceptRole);
    QPushButton* Cancel = Box.addButton(FContext.Translate("Res_ButtonCancel"), QMessageBox::RejectRole);
    Box.setEscapeButton(Cancel);
    Box.exec();
    return static_cast<int>(Buttons.indexOf(static_cast<QPushButton*>(Box.clickedButton())));
}

void TDialogs::SetUp(QInputDialog& Box, const QString& Question) const {
    Box.setWindowTitle(FContext.Translate("Res_AppTitle"));
    Box.setLabelText(Question);
    Box.setOkButtonText(FContext.Translate("Res_ButtonOk"));
    Box.setCancelButtonText(FContext.Translate("Res_ButtonCancel"));
}

int TDialogs::Pick(QWidget* Parent, const QString& Question, const QStringList& Items, int Current) {
    QInputDialog Box(Parent);
    SetUp(Box, Question);
    Box.setOption(QInputDialog::UseListViewForComboBoxItems);
    Box.setComboBoxItems(Items);
    auto* List = Box.findChild<QListView*>();
    if (List) List->setCurrentIndex(List->model()->index(Current, 0));
    if (Box.exec() != QDialog::Accepted) return -1;
    return List ? List->currentIndex().row() : static_cast<int>(Items.indexOf(Box.textValue()));
}

std::optional<QString> TDialogs::AskText(QWidget* Parent, const QString& Question, const QString& Proposed) {
    QInputDialog Box(Parent);
    SetUp(Box, Question);
    Box.setTextValue(Proposed);
    if (Box.exec() != QDialog::Accepted) return std::nullopt;
    return Box.textValue();
}

QString TDialogs::AskFile(QWidget* Parent, const QString& Title, const QString& Filter) {
    return QFileDialog::getOpenFileName(Parent, Title, {}, Filter);
}

QString TDialogs::AskSaveFile(QWidget* Parent, const QString& Title, const QString& Name, const QString& Filters) {
    QFileDialog Dialog(Parent, Title, {}, Filters);
    Dialog.setAcceptMode(QFileDialog::AcceptSave);
    Dialog.selectFile(Name);
    // Before the question whether a file is to be replaced, so that the file with the ending is asked about.
    const auto TakeEnding = [&Dialog](const QString& Filter) {
        static const QRegularExpression kEnding(QStringLiteral("\\*\\.(\\w+)"));
        Dialog.setDefaultSuffix(kEnding.match(Filter).captured(1));
    };
    TakeEnding(Dialog.selectedNameFilter());
    QObject::connect(&Dialog, &QFileDialog::filterSelected, TakeEnding);
    return Dialog.exec() == QDialog::Accepted ? Dialog.selectedFiles().value(0) : QString();
}

bool TDialogs::AskPrinter(QWidget* Parent, QPrinter& Printer) {
    return QPrintDialog(&Printer, Parent).exec() == QDialog::Accepted;
}

}  // namespace ws
