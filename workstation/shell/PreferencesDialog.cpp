// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/PreferencesDialog.h"

#include <QCloseEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollArea>

#include "workstation/renderers/QtText.h"

namespace ws {

namespace {

constexpr QSize kSize(760, 520);

struct TPageName {
    EPreferencePage Page;
    const char* TextKey;
};
constexpr TPageName kPages[] = {{EPreferencePage::General, "Res_PreferencesPageGeneral"},
                                {EPreferencePage::Appearance, "Res_PreferencesPageAppearance"},
                                {EPreferencePage::Trading, "Res_PreferencesPageTrading"}};
constexpr char kShortcutPage[] = "Res_PreferencesPageShortcuts";

}  // namespace

TPreferencesDialog::TPreferencesDialog(TConfigService& Config, TCommands& Commands, const TShortcutKeys& Keys,
                                       TRenderContext& Context, QWidget* Parent)
    : QDialog(Parent),
      FVisit(Config),
      FContext(Context),
      FPages(new QListWidget(this)),
      FStack(new QStackedWidget(this)),
      FNote(new QLabel(this)) {
    setObjectName(QStringLiteral("preferences"));
    for (const TPageName& Each : kPages) {
        FPages->addItem(QString());
        FStack->addWidget(MakePage(Each.Page));
    }
    FPages->addItem(QString());
    FShortcuts = new TShortcutPage(FVisit, Commands, Keys, Context, FStack);
    FStack->addWidget(FShortcuts);
    // Last, as the focus walks through them.
    FUndo = new QPushButton(this);
    FCancel = new QPushButton(this);
    FClose = new QPushButton(this);
    FNote->setForegroundRole(QPalette::PlaceholderText);
    FNote->setTextFormat(Qt::PlainText);
    FNote->setWordWrap(true);
    auto* Buttons = new QHBoxLayout;
    Buttons->addWidget(FUndo);
    Buttons->addWidget(FNote, 1);
    Buttons->addWidget(FCancel);
    Buttons->addWidget(FClose);
    auto* Middle = new QHBoxLayout;
    Middle->addWidget(FPages);
    FPages->setSpacing(2);
    Middle->addWidget(FStack, 1);
    auto* Column = new QVBoxLayout(this);
    Column->addLayout(Middle, 1);
    Column->addLayout(Buttons);
    for (QPushButton* Button : {FUndo, FCancel, FClose}) Button->setAutoDefault(false);  // Enter ends an edit
    connect(FPages, &QListWidget::currentRowChanged, FStack, &QStackedWidget::setCurrentIndex);
    connect(FUndo, &QPushButton::clicked, this, [this] { Undo(); });
    connect(FCancel, &QPushButton::clicked, this, [this] { reject(); });
    connect(FClose, &QPushButton::clicked, this, &QDialog::accept);
    FLinks += Context.OnMetricsChanged.Connect([this] { Measure(); });
    FLinks += Context.OnSkinChanged.Connect([this] { Reload(); });
    FPages->setCurrentRow(0);
    Retranslate();
    Measure();
    FPages->setFocus();
}

QWidget* TPreferencesDialog::MakePage(EPreferencePage Page) {
    auto* Area = new QScrollArea(FStack);
    auto* Content = new QWidget(Area);
    auto* Form = new QFormLayout(Content);
    Form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    Form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    for (const TPreference& Each : Preferences()) {
        if (Each.Page != Page) continue;
        TPreferenceField* Field = MakePreferenceField(Each, FVisit, FContext).release();
        QLabel* Label = Field->NamesItself() ? nullptr : new QLabel(Content);
        if (Label) {
            Label->setBuddy(&Field->Editor());
            Form->addRow(Label, Field);
        } else {
            Form->addRow(Field);
        }
        FRows.push_back({Label, Field});
    }
    Area->setWidget(Content);
    Area->setWidgetResizable(true);
    Area->setFrameShape(QFrame::NoFrame);
    Area->setFocusPolicy(Qt::NoFocus);
    return Area;
}

TPreferenceField* TPreferencesDialog::Field(const std::string& Key) const {
    for (const TRow& Each : FRows)
        if (Each.Field->Preference().Key == Key) return Each.Field;
    return nullptr;
}

// As large as its scale asks for and the screen allows.
void TPreferencesDialog::Measure() {
    FPages->setFixedWidth(FPages->sizeHintForColumn(0) + 2 * FPages->frameWidth() + FContext.Scaled(24));
    QSize Wanted(FContext.Scaled(kSize.width()), FContext.Scaled(kSize.height()));
    if (const QScreen* Shown = screen()) Wanted = Wanted.boundedTo(Shown->availableGeometry().size() * 9 / 10);
    resize(Wanted);
}

void TPreferencesDialog::Reload() {
    for (const TRow& Each : FRows) Each.Field->Reload();
    FShortcuts->Reload();
    FUndo->setEnabled(FVisit.HasChanges());
}

void TPreferencesDialog::Retranslate() {
    setWindowTitle(FContext.Translate("Res_PreferencesTitle"));
    int Row = 0;
    for (const TPageName& Each : kPages) FPages->item(Row++)->setText(FContext.Translate(Each.TextKey));
    FPages->item(Row)->setText(FContext.Translate(kShortcutPage));
    FPages->setAccessibleName(FContext.Translate("Res_PreferencesPages"));
    for (const TRow& Each : FRows) {
        if (Each.Label) Each.Label->setText(FContext.Translate(Each.Field->Preference().CaptionKey.c_str()));
        Each.Field->Retranslate();
    }
    FShortcuts->Retranslate();
    FNote->setText(FContext.Translate("Res_PreferencesApply"));
    FUndo->setText(FContext.Translate("Res_PreferencesUndo"));
    FUndo->setToolTip(FContext.Translate("Res_PreferencesUndoHint"));
    FCancel->setText(FContext.Translate("Res_ButtonCancel"));
    FClose->setText(FContext.Translate("Res_PreferencesClose"));
    Measure();
    FUndo->setEnabled(FVisit.HasChanges());
}

void TPreferencesDialog::Undo() {
    try {
        FVisit.Undo();
    } catch (const EStoreError& Error) {
        FNote->setText(FContext.Translate(Error.Key().c_str(), Error.Args()));
    }
    Reload();
}

void TPreferencesDialog::reject() {
    Undo();
    QDialog::reject();
}

// The window's own button closes as Close does.
void TPreferencesDialog::closeEvent(QCloseEvent* Event) {
    Event->accept();
    QDialog::accept();
}

// Enter ends the edit of a line and presses the button that has the focus; it never closes the dialog.
void TPreferencesDialog::keyPressEvent(QKeyEvent* Event) {
    if (Event->key() != Qt::Key_Return && Event->key() != Qt::Key_Enter) return QDialog::keyPressEvent(Event);
    if (auto* Button = qobject_cast<QPushButton*>(focusWidget())) Button->click();
}

}  // namespace ws
