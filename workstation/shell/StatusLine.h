// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QStatusBar>
#include <QToolButton>

#include "workstation/shell/MessageList.h"

namespace ws {

// What is missing to go on, how far a batch of orders is, what just happened, and the newest warning or error; a click
// on that opens the messages.
class TStatusLine : public QStatusBar {
public:
    TStatusLine(TMessageList& Messages, TRenderContext& Context, QWidget* Parent);

    // Resource key; null: nothing is missing.
    void ShowHint(const char* Key);
    // Stands for some seconds before the hint comes back. A sentence that is made anew with the language.
    using TSentence = std::function<QString()>;
    void Say(TSentence Sentence);
    // In the hint's place until it ends with an empty text; what is said stands before it.
    void ShowProgress(const QString& Text);
    void Retranslate();
    QString Hint() const { return FHint->text(); }
    QString Problem() const { return FProblem->text(); }

    std::function<void()> OnProblemClicked;

private:
    void UpdateHint();
    void UpdateProblem();

    TMessageList& FMessages;
    TRenderContext& FContext;
    QLabel* FHint;
    QToolButton* FProblem;
    const char* FHintKey = nullptr;
    TSentence FSaid;  // none: the progress or the hint stands
    QString FProgress;
    int FSaidRound = 0;
    fw::TConnections FLinks;
};

}  // namespace ws
