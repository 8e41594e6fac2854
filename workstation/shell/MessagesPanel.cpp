// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/MessagesPanel.h"

#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QHeaderView>
#include <QKeyEvent>

#include "workstation/renderers/QtText.h"

namespace ws {

namespace {

struct TLevelLook {
    const char* Key;    // the word
    const char* Color;  // skin key
};

const TLevelLook& LookOf(fw::ELogLevel Level) {
    static const TLevelLook kLooks[] = {{"Res_LevelInfo", "coText"}, {"Res_LevelWarning", "coWarning"}, {"Res_LevelError", "coError"}};
    return kLooks[static_cast<int>(Level)];
}

}  // namespace

const char* LevelKey(fw::ELogLevel Level) { return LookOf(Level).Key; }

TMessagesPanel::TMessagesPanel(TMessageLog& Log, const TLanguageService& Language, TRenderContext& Context, QWidget* Parent)
    : QDockWidget(Parent), FLog(Log), FLanguage(Language), FContext(Context), FList(new QTreeWidget(this)) {
    setObjectName("MessagesPanel");
    FList->setRootIsDecorated(false);
    FList->setUniformRowHeights(true);
    FList->setAlternatingRowColors(true);
    FList->setSelectionMode(QAbstractItemView::ExtendedSelection);
    FList->setColumnCount(3);
    FList->header()->setStretchLastSection(true);
    setWidget(FList);
    FLinks += FLog.OnAdded.Connect([this](const TMessage& Message) { Add(Message); });
    FLinks += FLog.OnChanged.Connect([this] { Reload(); });
    FLinks += FContext.OnSkinChanged.Connect([this] { Reload(); });
    Retranslate();
}

void TMessagesPanel::Retranslate() {
    setWindowTitle(FContext.Translate("Res_Messages"));
    FList->setHeaderLabels({FContext.Translate("Res_MessageTime"), FContext.Translate("Res_MessageLevel"), FContext.Translate("Res_MessageText")});
    Reload();
}

void TMessagesPanel::Reload() {
    FList->clear();
    for (const auto& Message : FLog.Messages()) Add(Message);
    FList->resizeColumnToContents(0);
    FList->resizeColumnToContents(1);
}

void TMessagesPanel::Add(const TMessage& Message) {
    const auto& Look = LookOf(Message.Entry.Level);
    const auto Time = QDateTime::fromSecsSinceEpoch(std::chrono::system_clock::to_time_t(Message.Time));
    auto* Item = new QTreeWidgetItem({Time.toString("HH:mm:ss"), FContext.Translate(Look.Key), ToQt(FLanguage.Resource(Message.Entry.Key, Message.Entry.Args))});
    Item->setForeground(1, FContext.Color(Look.Color));
    Item->setToolTip(2, Item->text(2));
    FList->addTopLevelItem(Item);
    FList->scrollToItem(Item);
}

void TMessagesPanel::CopySelection() {
    QString Copied;
    for (const auto* Item : FList->selectedItems()) Copied += Item->text(0) + '\t' + Item->text(1) + '\t' + Item->text(2) + '\n';
    if (!Copied.isEmpty()) QApplication::clipboard()->setText(Copied);
}

void TMessagesPanel::keyPressEvent(QKeyEvent* Event) {
    if (Event->matches(QKeySequence::Copy)) return CopySelection();
    QDockWidget::keyPressEvent(Event);
}

}  // namespace ws
