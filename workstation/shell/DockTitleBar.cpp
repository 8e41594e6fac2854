// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/DockTitleBar.h"

#include <QFile>
#include <QHBoxLayout>
#include <QPainter>
#include <QSvgRenderer>

#include "workstation/renderers/QtText.h"

namespace ws {

namespace {
constexpr int kIconSize = 16;  // pixels at scale 100
}

QIcon SkinIcon(const QString& Name, const QColor& Color) {
    QFile File(":/icons/" + Name + ".svg");
    if (!File.open(QIODevice::ReadOnly)) return {};
    const auto Source = QString::fromUtf8(File.readAll()).replace("currentColor", Color.name());
    QSvgRenderer Renderer(Source.toUtf8());
    QPixmap Pixmap(4 * kIconSize, 4 * kIconSize);
    Pixmap.fill(Qt::transparent);
    QPainter Painter(&Pixmap);
    Renderer.render(&Painter);
    return QIcon(Pixmap);
}

TDockTitleBar::TDockTitleBar(fw::TIBaseView& View, int64_t Handle, TRenderContext& Context, QWidget* Parent)
    : QWidget(Parent), FView(View), FContext(Context), FHandle(Handle), FCaption(new QLabel(this)), FButtonArea(new QWidget(this)) {
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Button);
    auto* Row = new QHBoxLayout(this);
    Row->setContentsMargins(8, 2, 4, 2);
    Row->setSpacing(2);
    QFont Bold = font();
    Bold.setBold(true);
    FCaption->setFont(Bold);
    Row->addWidget(FCaption);
    Row->addStretch(1);
    auto* Buttons = new QHBoxLayout(FButtonArea);
    Buttons->setContentsMargins(0, 0, 0, 0);
    Buttons->setSpacing(2);
    Row->addWidget(FButtonArea);
    FFloat = AddButton("float");
    FClose = AddButton("close");
    Row->addWidget(FFloat);
    Row->addWidget(FClose);
    connect(FFloat, &QToolButton::clicked, this, [this] { if (OnFloat) OnFloat(); });
    connect(FClose, &QToolButton::clicked, this, [this] { if (OnClose) OnClose(); });
    Refresh();
}

QToolButton* TDockTitleBar::AddButton(const QString& Icon) {
    auto* Button = new QToolButton(this);
    Button->setAutoRaise(true);
    Button->setFocusPolicy(Qt::NoFocus);
    Button->setObjectName(Icon);
    return Button;
}

void TDockTitleBar::Refresh() {
    RefreshCaption();
    RefreshButtons();
    const QColor Ink = FContext.Color("coButtonText");
    for (auto* Button : {FFloat, FClose}) {
        Button->setIcon(SkinIcon(Button->objectName(), Ink));
        Button->setIconSize(QSize(FContext.Scaled(kIconSize), FContext.Scaled(kIconSize)));
    }
    FFloat->setToolTip(FContext.Translate("Res_DockFloat"));
    FClose->setToolTip(FContext.Translate("Res_DockClose"));
    FFloat->setAccessibleName(FFloat->toolTip());
    FClose->setAccessibleName(FClose->toolTip());
}

void TDockTitleBar::RefreshCaption() {
    fw::Text Caption;
    if (!FView.GetViewCaption(FHandle, Caption) || Caption.empty()) FView.GetDefaultCaption(Caption);
    FCaption->setText(ToQt(Caption));
}

void TDockTitleBar::RefreshButtons() {
    fw::TCaptionButtonList List;
    fw::TImageList* Images = nullptr;
    FView.GetViewCaptionButtons(FHandle, List);
    FView.GetViewCaptionButtonImageList(FHandle, Images);
    while (FButtons.size() < List.size()) {
        const int Index = static_cast<int>(FButtons.size());
        auto* Button = AddButton("caption" + QString::number(Index));
        FButtonArea->layout()->addWidget(Button);
        connect(Button, &QToolButton::clicked, this, [this, Index] { FView.HandleCaptionButtonClick(FHandle, Index); });
        FButtons.push_back(Button);
    }
    for (size_t i = 0; i < FButtons.size(); ++i) {
        auto* Button = FButtons[i];
        Button->setVisible(i < List.size());
        if (i >= List.size()) continue;
        Button->setIcon(SkinIcon(Images ? ToQt(Images->GetIconName(List[i]->ImageIndex)) : QString(), FContext.Color("coButtonText")));
        Button->setIconSize(QSize(FContext.Scaled(kIconSize), FContext.Scaled(kIconSize)));
        Button->setToolTip(ToQt(List[i]->Hint));
        Button->setAccessibleName(ToQt(List[i]->Hint));
    }
}

}  // namespace ws
