// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/MessagesPanel.h"

#include <QAbstractButton>
#include <QAction>
#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLayout>

namespace ws {

TMessagesPanel::TMessagesPanel(TMessageList& List, TRenderContext& Context, QWidget* Parent)
    : QDockWidget(Parent), FList(List), FContext(Context), FTable(new QTableView(this)), FCopy(new QAction(this)) {
    setObjectName(QStringLiteral("messages"));
    FTable->setModel(&List);
    FTable->setSelectionBehavior(QAbstractItemView::SelectRows);
    FTable->setWordWrap(false);
    FTable->setShowGrid(false);
    FTable->verticalHeader()->hide();
    FTable->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    FTable->horizontalHeader()->setStretchLastSection(true);
    FTable->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    const auto Measure = [this] {
        FTable->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + FContext.Scaled(6));
        FTable->setColumnWidth(TMessageList::kTime, fontMetrics().averageCharWidth() * 11);
        FTable->setColumnWidth(TMessageList::kLevel, fontMetrics().averageCharWidth() * 17);
        layout()->invalidate();  // the dock's own title is measured by the font
        update();
    };
    Measure();
    FLinks += Context.OnMetricsChanged.Connect(Measure);
    FCopy->setShortcut(QKeySequence::Copy);
    FCopy->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    FTable->addAction(FCopy);
    FTable->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(FCopy, &QAction::triggered, this, [this] { CopySelected(); });
    setWidget(FTable);
    FTable->viewport()->installEventFilter(this);
    connect(&List, &QAbstractItemModel::rowsInserted, this, [this] { FTable->scrollToBottom(); });
    FLinks += List.OnProblem.Connect([this] { UpdateTitle(); });
    FLinks += Context.OnSkinChanged.Connect([this] { FTable->viewport()->update(); });
    Retranslate();
}

void TMessagesPanel::Retranslate() {
    FCopy->setText(FContext.Translate("Res_MessagesCopy"));
    FTable->setAccessibleName(FContext.Translate("Res_Messages"));
    // The toolkit's own buttons, which know no other language.
    const std::pair<const char*, const char*> Buttons[] = {{"qt_dockwidget_floatbutton", "Res_TitleFloat"},
                                                           {"qt_dockwidget_closebutton", "Res_TitleClose"}};
    for (const auto& [Name, Key] : Buttons) {
        auto* Button = findChild<QAbstractButton*>(QLatin1String(Name));
        if (!Button) continue;
        Button->setToolTip(FContext.Translate(Key));
        Button->setAccessibleName(Button->toolTip());
        Button->setAccessibleDescription({});
    }
    UpdateTitle();
}

void TMessagesPanel::UpdateTitle() {
    const int Unseen = FList.UnseenProblems();
    setWindowTitle(Unseen > 0 ? FContext.Translate("Res_MessagesNew", {std::to_string(Unseen)})
                              : FContext.Translate("Res_Messages"));
}

void TMessagesPanel::CopySelected() const {
    QStringList Lines;
    const auto Selected = FTable->selectionModel()->selectedRows();
    for (int Row = 0; Row < FList.rowCount(); ++Row)
        if (Selected.isEmpty() || FTable->selectionModel()->isRowSelected(Row, {})) Lines << FList.TextOf(Row);
    QGuiApplication::clipboard()->setText(Lines.join(QLatin1Char('\n')));
}

// The user looks at the panel when the mouse or the keyboard comes to it.
bool TMessagesPanel::eventFilter(QObject* Watched, QEvent* Event) {
    if (Event->type() == QEvent::Enter || Event->type() == QEvent::MouseButtonPress) FList.MarkSeen();
    return QDockWidget::eventFilter(Watched, Event);
}

}  // namespace ws
