// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/ColorField.h"

#include <array>

#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>

#include "workstation/renderers/QtText.h"
#include "workstation/resources/Skins.h"

namespace ws {

namespace {

constexpr int kLineCharacters = 11;

// What the skin has to offer for a line and for the ground of a row.
constexpr std::array kLineColors{"coAccent", "coBuy", "coProfit", "coLoss", "coWarning", "coNoData", "coChartText"};
constexpr std::array kRowColors{"coBase",    "coAlternateBase", "coSelectedRow", "coAtTheMoney",
                                "coToolTip", "coHeader",        "coButton"};

QIcon Swatch(const QColor& Color, const QColor& Border, int Side) {
    QPixmap Picture(Side, Side);
    Picture.fill(Color);
    QPainter Painter(&Picture);
    Painter.setPen(Border);
    Painter.drawRect(0, 0, Side - 1, Side - 1);
    return QIcon(Picture);
}

}  // namespace

TColorField::TColorField(const TPreference& Preference, TPreferencesVisit& Visit, const TRenderContext& Context)
    : TPreferenceField(Preference, Visit, Context, nullptr),
      FLine(new QLineEdit(this)),
      FChoose(new QToolButton(this)),
      FMenu(new QMenu(this)),
      FSkinsOwn(new QPushButton(this)) {
    auto* Holder = new QWidget(this);
    auto* Row = new QHBoxLayout(Holder);
    Row->setContentsMargins(0, 0, 0, 0);
    Row->addWidget(FLine);
    Row->addWidget(FChoose);
    Row->addWidget(FSkinsOwn);
    Row->addStretch(1);
    Place(*Holder);
    FSkinsOwn->setAutoDefault(false);
    FChoose->setFocusPolicy(Qt::StrongFocus);
    FChoose->setPopupMode(QToolButton::InstantPopup);
    FChoose->setMenu(FMenu);
    connect(FLine, &QLineEdit::editingFinished, this, [this] { Take(); });
    connect(FMenu, &QMenu::aboutToShow, this, [this] { FillMenu(); });
    connect(FSkinsOwn, &QPushButton::clicked, this, [this] {
        FLine->setModified(false);
        Refuse({});
        Guarded([this] { FVisit.Reset(FPreference); });
    });
    Retranslate();
}

QWidget& TColorField::Editor() { return *FLine; }

void TColorField::Reload() {
    FLine->setFixedWidth(FLine->fontMetrics().averageCharWidth() * kLineCharacters);
    const std::string Now = FVisit.Value(FPreference);
    FChoose->setIcon(Swatch(QColor(ToQt(Now)), FContext.Color("coBorder"), FChoose->iconSize().height()));
    FSkinsOwn->setEnabled(Now != FVisit.Shipped(FPreference));
    if (FLine->isModified() && !Refusal().isEmpty()) return;  // what is wrong is there to be mended
    FLine->setText(ToQt(Now));
    Refuse({});
}

void TColorField::Retranslate() {
    TPreferenceField::Retranslate();
    FSkinsOwn->setText(FContext.Translate("Res_PreferenceSkinsOwn"));
    FChoose->setToolTip(FContext.Translate("Res_PreferenceChooseColor"));
    FChoose->setAccessibleName(Caption() + QStringLiteral(": ") + FChoose->toolTip());
    FSkinsOwn->setAccessibleName(Caption() + QStringLiteral(": ") + FSkinsOwn->text().remove(QLatin1Char('&')));
    Reload();
    if (!Refusal().isEmpty()) Take();
}

void TColorField::Take() {
    const QString Typed = FLine->text().trimmed().toUpper();
    if (Typed == ToQt(FVisit.Value(FPreference)).toUpper()) return Refuse({});
    if (!ParseRgb(FromQt(Typed))) return Refuse(FContext.Translate("Res_PreferenceNotColor", {FromQt(FLine->text())}));
    Refuse({});
    Choose(FromQt(Typed));
}

void TColorField::FillMenu() {
    FMenu->clear();
    const auto& Keys = FPreference.Key == kPreferenceAlertColor ? kLineColors : kRowColors;
    for (const char* Key : Keys) {
        const QColor Color = FContext.Color(Key);
        const QString Name = Color.name().toUpper();
        QAction* Entry = FMenu->addAction(
            Swatch(Color, FContext.Color("coBorder"), style()->pixelMetric(QStyle::PM_SmallIconSize)), Name);
        connect(Entry, &QAction::triggered, this, [this, Name] {
            FLine->setModified(false);
            Refuse({});
            Choose(FromQt(Name));
        });
    }
}

}  // namespace ws
