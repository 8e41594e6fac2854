// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include <QString>
#include <QStringList>

#include "workstation/renderers/RenderContext.h"

class QInputDialog;
class QPrinter;
class QWidget;

namespace ws {

// Every question that the shell asks. Tests answer in its place.
class TDialogs {
public:
    explicit TDialogs(const TRenderContext& Context) : FContext(Context) {}
    virtual ~TDialogs();

    virtual void Tell(QWidget* Parent, const QString& Message);
    virtual bool Ask(QWidget* Parent, const QString& Question);
    // Index of the chosen answer; -1 when the user will have none of them.
    virtual int Choose(QWidget* Parent, const QString& Question, const QStringList& Answers);
    // Index of the item chosen from a list; -1: none. Current is marked at first.
    virtual int Pick(QWidget* Parent, const QString& Question, const QStringList& Items, int Current);
    virtual std::optional<QString> AskText(QWidget* Parent, const QString& Question, const QString& Proposed);
    virtual QString AskFile(QWidget* Parent, const QString& Title, const QString& Filter);  // empty: none
    // Where to write; a file that is there already is asked about. Filters apart by ";;", the first one proposed; a
    // name without an ending gets that of the chosen filter. Empty: nowhere.
    virtual QString AskSaveFile(QWidget* Parent, const QString& Title, const QString& Name, const QString& Filters);
    // Which printer and how; false: none.
    virtual bool AskPrinter(QWidget* Parent, QPrinter& Printer);

private:
    void SetUp(QInputDialog& Box, const QString& Question) const;

    const TRenderContext& FContext;  // borrowed; for the texts of the buttons
};

}  // namespace ws
