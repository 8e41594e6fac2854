// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/LinkGroups.h"

#include <array>

#include <QActionGroup>
#include <QMenu>
#include <QPainter>

#include "framework/base/Numbers.h"
#include "workstation/shell/Icons.h"

namespace ws {

namespace {

// By number; no colour for none.
constexpr std::array<const char*, kLinkGroupCount + 1> kColors{nullptr,    "coGroup1", "coGroup2", "coGroup3",
                                                               "coGroup4", "coGroup5", "coGroup6"};
constexpr int kIconSizes[] = {16, 24, 32, 64};
constexpr double kCorner = 0.2, kDigit = 0.75;  // of the icon's side

}  // namespace

fw::Text LinkGroupId(int Number) { return Number > 0 && Number <= kLinkGroupCount ? std::to_string(Number) : ""; }

int LinkGroupNumber(const fw::Text& Id) {
    const int Number = fw::TextToIntDef(Id, 0);
    return LinkGroupId(Number) == Id ? Number : 0;
}

QIcon LinkGroupIcon(int Number, const TRenderContext& Context) {
    if (Number == 0) return SkinIcon(QStringLiteral("link"), Context.Color("coPlaceholderText"));
    QIcon Result;
    for (const int Size : kIconSizes) {
        QPixmap Picture(Size, Size);
        Picture.fill(Qt::transparent);
        QPainter Painter(&Picture);
        Painter.setRenderHint(QPainter::Antialiasing);
        Painter.setPen(Qt::NoPen);
        Painter.setBrush(Context.Color(kColors[static_cast<size_t>(Number)]));
        Painter.drawRoundedRect(Picture.rect(), Size * kCorner, Size * kCorner);
        QFont Font = Painter.font();
        Font.setBold(true);
        Font.setPixelSize(static_cast<int>(Size * kDigit));
        Painter.setFont(Font);
        Painter.setPen(Context.Color("coGroupText"));
        Painter.drawText(Picture.rect(), Qt::AlignCenter, QString::number(Number));
        Painter.end();
        Result.addPixmap(Picture);
    }
    return Result;
}

TLinkGroupButton::TLinkGroupButton(TRenderContext& Context, QWidget* Parent) : QToolButton(Parent), FContext(Context) {
    setAutoRaise(true);
    setFocusPolicy(Qt::TabFocus);
    connect(this, &QToolButton::clicked, this, [this] { OpenMenu(); });
    Retranslate();
}

void TLinkGroupButton::SetNumber(int Number) {
    FNumber = Number;
    Retranslate();
}

QString TLinkGroupButton::Name(int Number) const {
    return Number == 0 ? FContext.Translate("Res_LinkGroupNone")
                       : FContext.Translate("Res_LinkGroup", {LinkGroupId(Number)});
}

void TLinkGroupButton::Retranslate() {
    setIcon(LinkGroupIcon(FNumber, FContext));
    setAccessibleName(Name(FNumber));
    setAccessibleDescription(FContext.Translate("Res_LinkGroupHint"));
    setToolTip(Name(FNumber) + QLatin1Char('\n') + accessibleDescription());
}

void TLinkGroupButton::OpenMenu() {
    if (FMenu) return;
    FMenu = new QMenu(this);
    auto* Choices = new QActionGroup(FMenu);
    for (int Number = 0; Number <= kLinkGroupCount; ++Number) {
        QAction* Choice = FMenu->addAction(LinkGroupIcon(Number, FContext), Name(Number));
        Choice->setCheckable(true);
        Choice->setChecked(Number == FNumber);
        Choices->addAction(Choice);
        connect(Choice, &QAction::triggered, this, [this, Number] {
            if (OnChosen) OnChosen(Number);
        });
        if (Number == FNumber) FMenu->setActiveAction(Choice);
    }
    connect(FMenu, &QMenu::aboutToHide, this, [this] {
        FMenu->deleteLater();
        FMenu = nullptr;
    });
    FMenu->popup(mapToGlobal(QPoint(0, height())));
}

}  // namespace ws
