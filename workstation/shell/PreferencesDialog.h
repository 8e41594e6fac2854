// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>

#include "workstation/shell/PreferenceFields.h"
#include "workstation/shell/ShortcutPage.h"

namespace ws {

// The preferences, page by page, made from their table. Every choice holds at once; Cancel and Escape leave with
// everything as it was before.
class TPreferencesDialog : public QDialog {
public:
    TPreferencesDialog(TConfigService& Config, TCommands& Commands, const TShortcutKeys& Keys, TRenderContext& Context,
                       QWidget* Parent);

    // After a change of the configuration, or of the language.
    void Reload();
    void Retranslate();

    TPreferencesVisit& Visit() { return FVisit; }
    QListWidget& Pages() { return *FPages; }
    TPreferenceField* Field(const std::string& Key) const;  // null: no such preference
    TShortcutPage& Shortcuts() { return *FShortcuts; }
    QPushButton& UndoButton() { return *FUndo; }
    QPushButton& CloseButton() { return *FClose; }

    void reject() override;

protected:
    void closeEvent(QCloseEvent* Event) override;
    void keyPressEvent(QKeyEvent* Event) override;

private:
    struct TRow {
        QLabel* Label;  // null: the field names itself
        TPreferenceField* Field;
    };
    QWidget* MakePage(EPreferencePage Page);
    void Measure();
    void Undo();

    TPreferencesVisit FVisit;
    const TRenderContext& FContext;
    std::vector<TRow> FRows;
    QListWidget* FPages;
    QStackedWidget* FStack;
    TShortcutPage* FShortcuts = nullptr;
    QLabel* FNote;
    QPushButton* FUndo = nullptr;
    QPushButton* FCancel = nullptr;
    QPushButton* FClose = nullptr;
    fw::TConnections FLinks;
};

}  // namespace ws
