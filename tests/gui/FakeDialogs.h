// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPrinter>

#include "workstation/renderers/QtText.h"
#include "workstation/shell/Dialogs.h"

namespace gui {

// Remembers what was told and asked, and answers as the test says.
class TFakeDialogs : public ws::TDialogs {
public:
    using TDialogs::TDialogs;
    std::vector<fw::Text> Told, Asked;
    bool Yes = true;
    int Choice = -1;
    QString File, SaveFile;
    QString PrintFile;    // PDF that a printer writes; empty: no printer is chosen
    QStringList Offered;  // of the last list
    std::optional<QString> Text;

    void Tell(QWidget*, const QString& Message) override { Told.push_back(ws::FromQt(Message)); }
    bool Ask(QWidget*, const QString& Question) override {
        Asked.push_back(ws::FromQt(Question));
        return Yes;
    }
    int Choose(QWidget*, const QString& Question, const QStringList&) override {
        Asked.push_back(ws::FromQt(Question));
        return Choice;
    }
    int Pick(QWidget*, const QString& Question, const QStringList& Items, int) override {
        Asked.push_back(ws::FromQt(Question));
        Offered = Items;
        return Choice;
    }
    std::optional<QString> AskText(QWidget*, const QString& Question, const QString&) override {
        Asked.push_back(ws::FromQt(Question));
        return Text;
    }
    QString AskFile(QWidget*, const QString&, const QString&) override { return File; }
    QString AskSaveFile(QWidget*, const QString&, const QString&, const QString&) override { return SaveFile; }
    bool AskPrinter(QWidget*, QPrinter& Printer) override {
        Printer.setOutputFormat(QPrinter::PdfFormat);
        Printer.setOutputFileName(PrintFile);
        return !PrintFile.isEmpty();
    }
};

}  // namespace gui
