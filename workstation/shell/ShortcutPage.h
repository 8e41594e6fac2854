// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>

#include "workstation/services/PreferencesVisit.h"
#include "workstation/shell/ShortcutKeys.h"

namespace ws {

// A line that takes the keys that are pressed in it instead of their letters.
class TKeyLine : public QLineEdit {
public:
    explicit TKeyLine(QWidget* Parent);
    std::function<void(const QKeySequence& Keys)> OnKeys;

protected:
    bool event(QEvent* Event) override;
};

// The commands and their keys: those of the chosen one are given by pressing them.
class TShortcutPage : public QWidget {
public:
    TShortcutPage(TPreferencesVisit& Visit, TCommands& Commands, const TShortcutKeys& Keys,
                  const TRenderContext& Context, QWidget* Parent);

    void Reload();
    void Retranslate();
    QTableWidget& Table() { return *FTable; }
    TKeyLine& Line() { return *FLine; }
    QPushButton& ResetButton() { return *FReset; }
    QPushButton& ResetAllButton() { return *FResetAll; }
    QString Said() const { return FSaid->text(); }

private:
    void TakeKeys(const QKeySequence& Keys);
    void Write(const std::vector<std::string>& Ids, const std::optional<std::string>& Keys);
    std::optional<TCommands::TShown> Chosen() const;
    QString CaptionOf(const std::string& Id) const;
    void ShowChosen();
    void Say(const QString& Sentence);

    TPreferencesVisit& FVisit;
    TCommands& FCommands;
    const TShortcutKeys& FKeys;
    const TRenderContext& FContext;
    std::vector<TCommands::TShown> FShown;  // by row
    QTableWidget* FTable;
    QLabel* FCaption;
    TKeyLine* FLine;
    QLabel* FSaid;
    QPushButton* FReset;
    QPushButton* FResetAll;
};

}  // namespace ws
