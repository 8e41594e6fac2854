// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/ShortcutPage.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "workstation/renderers/QtText.h"

namespace ws {

namespace {

enum EColumn { kCommandColumn, kKeysColumn, kColumnCount };

// Enter has two keys; a command that has the one has the other.
std::string Portable(const QKeySequence& Keys) {
    QList<QKeySequence> All{Keys};
    if (Keys[0].key() == Qt::Key_Return)
        All << QKeySequence(QKeyCombination(Keys[0].keyboardModifiers(), Qt::Key_Enter));
    return FromQt(QKeySequence::listToString(All, QKeySequence::PortableText));
}

QString Native(const std::string& Keys) {
    return QKeySequence::listToString(QKeySequence::listFromString(ToQt(Keys), QKeySequence::PortableText),
                                      QKeySequence::NativeText);
}

}  // namespace

// --- line

TKeyLine::TKeyLine(QWidget* Parent) : QLineEdit(Parent) {
    setReadOnly(true);
    setContextMenuPolicy(Qt::NoContextMenu);
}

// Tab and Escape alone go on meaning what they do in every dialog.
bool TKeyLine::event(QEvent* Event) {
    if (Event->type() != QEvent::ShortcutOverride && Event->type() != QEvent::KeyPress) return QLineEdit::event(Event);
    const auto* Key = static_cast<QKeyEvent*>(Event);
    const auto Modifiers = Key->modifiers() & ~Qt::KeypadModifier;
    const bool Leaves = Key->key() == Qt::Key_Tab || Key->key() == Qt::Key_Backtab || Key->key() == Qt::Key_Escape;
    if (Leaves && !(Modifiers & ~Qt::ShiftModifier)) return QLineEdit::event(Event);
    Event->accept();
    const bool Held = Key->key() == 0 || Key->key() == Qt::Key_unknown || Key->key() == Qt::Key_Control ||
                      Key->key() == Qt::Key_Shift || Key->key() == Qt::Key_Alt || Key->key() == Qt::Key_Meta ||
                      Key->key() == Qt::Key_AltGr || Key->key() == Qt::Key_CapsLock;
    if (Event->type() == QEvent::ShortcutOverride || Held || Key->isAutoRepeat()) return true;
    const auto Code = Key->key() == Qt::Key_Enter     ? Qt::Key_Return
                      : Key->key() == Qt::Key_Backtab ? Qt::Key_Tab
                                                      : static_cast<Qt::Key>(Key->key());
    if (OnKeys) OnKeys(QKeySequence(QKeyCombination(Modifiers, Code)));
    return true;
}

// --- page

TShortcutPage::TShortcutPage(TPreferencesVisit& Visit, TCommands& Commands, const TShortcutKeys& Keys,
                             const TRenderContext& Context, QWidget* Parent)
    : QWidget(Parent),
      FVisit(Visit),
      FCommands(Commands),
      FKeys(Keys),
      FContext(Context),
      FTable(new QTableWidget(0, kColumnCount, this)),
      FCaption(new QLabel(this)),
      FLine(new TKeyLine(this)),
      FSaid(new QLabel(this)),
      FReset(new QPushButton(this)),
      FResetAll(new QPushButton(this)) {
    FTable->verticalHeader()->hide();
    FTable->horizontalHeader()->setSectionResizeMode(kCommandColumn, QHeaderView::Stretch);
    FTable->horizontalHeader()->setSectionResizeMode(kKeysColumn, QHeaderView::ResizeToContents);
    FTable->horizontalHeader()->setHighlightSections(false);
    FTable->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    FTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
    FTable->setSelectionBehavior(QAbstractItemView::SelectRows);
    FTable->setSelectionMode(QAbstractItemView::SingleSelection);
    FTable->setTabKeyNavigation(false);
    FTable->setShowGrid(false);
    FCaption->setBuddy(FLine);
    FSaid->setWordWrap(true);
    FSaid->setTextFormat(Qt::PlainText);
    FSaid->setForegroundRole(QPalette::BrightText);  // the skin's colour of errors
    for (QPushButton* Button : {FReset, FResetAll}) Button->setAutoDefault(false);
    auto* Row = new QHBoxLayout;
    Row->addWidget(FCaption);
    Row->addWidget(FLine, 1);
    Row->addWidget(FReset);
    Row->addWidget(FResetAll);
    auto* Column = new QVBoxLayout(this);
    Column->addWidget(FTable, 1);
    Column->addLayout(Row);
    Column->addWidget(FSaid);
    FLine->OnKeys = [this](const QKeySequence& Pressed) { TakeKeys(Pressed); };
    connect(FTable, &QTableWidget::currentCellChanged, this, [this] { ShowChosen(); });
    connect(FReset, &QPushButton::clicked, this, [this] {
        if (const auto Command = Chosen()) Write({Command->Id}, std::nullopt);
    });
    connect(FResetAll, &QPushButton::clicked, this, [this] {
        std::vector<std::string> Ids;
        for (const auto& Each : FShown) Ids.push_back(Each.Id);
        Write(Ids, std::nullopt);
    });
    Retranslate();
    FTable->setCurrentCell(0, kCommandColumn);
}

void TShortcutPage::Retranslate() {
    FTable->setHorizontalHeaderLabels(
        {FContext.Translate("Res_ShortcutCommand"), FContext.Translate("Res_ShortcutKeys")});
    FTable->setAccessibleName(FContext.Translate("Res_PreferencesPageShortcuts"));
    FCaption->setText(FContext.Translate("Res_ShortcutNew"));
    FLine->setAccessibleName(PlainCaption(FCaption->text()));
    FLine->setPlaceholderText(FContext.Translate("Res_ShortcutPress"));
    FReset->setText(FContext.Translate("Res_ShortcutReset"));
    FResetAll->setText(FContext.Translate("Res_ShortcutResetAll"));
    Say({});
    Reload();
}

void TShortcutPage::Reload() {
    const QSignalBlocker Silent(FTable);
    FShown = FCommands.All();
    FTable->setRowCount(static_cast<int>(FShown.size()));
    FTable->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + FContext.Scaled(8));
    for (size_t i = 0; i < FShown.size(); ++i) {
        const int Row = static_cast<int>(i);
        const auto Put = [&](int Column, const QString& Text) {
            if (!FTable->item(Row, Column)) FTable->setItem(Row, Column, new QTableWidgetItem);
            FTable->item(Row, Column)->setText(Text);
        };
        Put(kCommandColumn, FShown[i].Menu + QStringLiteral(" › ") + FShown[i].Caption);
        Put(kKeysColumn, Native(FKeys.KeysOf(FShown[i].Id).value_or("")));
    }
    ShowChosen();
}

std::optional<TCommands::TShown> TShortcutPage::Chosen() const {
    const int Row = FTable->currentRow();
    return Row < 0 || Row >= static_cast<int>(FShown.size()) ? std::nullopt
                                                             : std::optional(FShown[static_cast<size_t>(Row)]);
}

QString TShortcutPage::CaptionOf(const std::string& Id) const {
    for (const auto& Each : FShown)
        if (Each.Id == Id) return Each.Menu + QStringLiteral(" › ") + Each.Caption;
    return ToQt(Id);
}

void TShortcutPage::ShowChosen() {
    const auto Command = Chosen();
    const bool Free = Command && !Command->Fixed;
    FLine->setEnabled(Free);
    const std::string Keys = Command ? FKeys.KeysOf(Command->Id).value_or("") : "";
    FLine->setText(Native(Keys));
    FReset->setEnabled(Free && Keys != NormalKeys(Command->ShippedKeys));
    Say(Command && !Free ? FContext.Translate("Res_ShortcutFixed") : QString());
}

void TShortcutPage::TakeKeys(const QKeySequence& Pressed) {
    const auto Command = Chosen();
    if (!Command || Command->Fixed) return;
    const fw::Text Shown = FromQt(Pressed.toString(QKeySequence::NativeText));
    const std::string Keys = NormalKeys(Portable(Pressed));
    if (Keys.empty()) return Say(FContext.Translate("Res_ShortcutTyping", {Shown}));
    const std::string Other = OwnerOfKeys(FKeys.All(), Command->Id, Keys);
    if (!Other.empty()) return Say(FContext.Translate("Res_ShortcutTaken", {Shown, FromQt(CaptionOf(Other))}));
    Write({Command->Id}, Keys);
}

void TShortcutPage::Write(const std::vector<std::string>& Ids, const std::optional<std::string>& Keys) {
    try {
        for (const std::string& Id : Ids) FVisit.Write(kShortcutSection, Id, Keys);
    } catch (const EStoreError& Error) {
        Say(FContext.Translate(Error.Key().c_str(), Error.Args()));
    }
}

void TShortcutPage::Say(const QString& Sentence) { FSaid->setText(Sentence); }

}  // namespace ws
