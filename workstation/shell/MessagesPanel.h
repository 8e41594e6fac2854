// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDockWidget>
#include <QTreeWidget>

#include "workstation/renderers/RenderContext.h"
#include "workstation/services/LanguageService.h"
#include "workstation/shell/MessageLog.h"

namespace ws {

// The log on the screen: time, kind and text in the current language, newest at the bottom. The kind is a word, so that
// colour is never the only sign. Ctrl+C copies what is selected.
class TMessagesPanel : public QDockWidget {
public:
    TMessagesPanel(TMessageLog& Log, const TLanguageService& Language, TRenderContext& Context, QWidget* Parent);

    void Retranslate();
    QTreeWidget& List() const { return *FList; }

protected:
    void keyPressEvent(QKeyEvent* Event) override;

private:
    void Reload();
    void Add(const TMessage& Message);
    void CopySelection();

    TMessageLog& FLog;                  // all borrowed
    const TLanguageService& FLanguage;
    TRenderContext& FContext;
    QTreeWidget* FList;
    fw::TConnections FLinks;
};

// Resource key of the word for a level.
const char* LevelKey(fw::ELogLevel Level);

}  // namespace ws
