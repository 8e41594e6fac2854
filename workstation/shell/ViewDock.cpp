// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/ViewDock.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QToolButton>

#include "framework/base/Dispatch.h"
#include "workstation/renderers/QtText.h"
#include "workstation/shell/Icons.h"

namespace ws {

// --- title bar

TDockTitleBar::TDockTitleBar(QDockWidget& Dock, TRenderContext& Context, std::function<void()> OnClose)
    : QWidget(&Dock),
      FContext(Context),
      FRow(new QHBoxLayout(this)),
      FGroup(new TLinkGroupButton(Context, this)),
      FCaption(new QLabel(this)) {
    const auto Measure = [this] { FRow->setContentsMargins(FContext.Scaled(8), 2, 4, 2); };
    Measure();
    FLinks += Context.OnMetricsChanged.Connect(Measure);
    FRow->setSpacing(2);
    QFont Bold = font();
    Bold.setBold(true);
    FCaption->setFont(Bold);
    FCaption->setTextFormat(Qt::PlainText);
    FCaption->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    FRow->addWidget(FGroup);
    FRow->addWidget(FCaption, 1);
    FFloat = AddButton();
    FClose = AddButton();
    FRow->addWidget(FFloat);
    FRow->addWidget(FClose);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Light);
    connect(FFloat, &QToolButton::clicked, &Dock, [&Dock] { Dock.setFloating(!Dock.isFloating()); });
    connect(FClose, &QToolButton::clicked, this, [OnClose] { OnClose(); });
    Retranslate();
}

QToolButton* TDockTitleBar::AddButton() {
    auto* Button = new QToolButton(this);
    Button->setAutoRaise(true);
    Button->setFocusPolicy(Qt::TabFocus);
    return Button;
}

void TDockTitleBar::SetCaption(const QString& Caption) {
    FCaption->setText(Caption);
    FCaption->setToolTip(Caption);
}

void TDockTitleBar::Retranslate() {
    const QColor Ink = FContext.Color("coHeaderText");
    FFloat->setIcon(SkinIcon(QStringLiteral("float"), Ink));
    FClose->setIcon(SkinIcon(QStringLiteral("close"), Ink));
    FFloat->setToolTip(FContext.Translate("Res_TitleFloat"));
    FClose->setToolTip(FContext.Translate("Res_TitleClose"));
    FFloat->setAccessibleName(FFloat->toolTip());
    FClose->setAccessibleName(FClose->toolTip());
    FGroup->Retranslate();
}

void TDockTitleBar::SetButtons(const fw::TCaptionButtonList& Buttons, const fw::TImageList* Images,
                               const std::function<void(int Index)>& OnButton) {
    while (FButtons.size() > Buttons.size()) {
        FButtons.back()->hide();
        FButtons.back()->deleteLater();  // it may be the one that was just clicked
        FButtons.pop_back();
    }
    while (FButtons.size() < Buttons.size()) {
        const int Index = static_cast<int>(FButtons.size());
        FButtons.push_back(AddButton());
        FRow->insertWidget(FRow->indexOf(FCaption) + 1 + Index, FButtons.back());
        connect(FButtons.back(), &QToolButton::clicked, this, [OnButton, Index] { OnButton(Index); });
    }
    for (size_t i = 0; i < Buttons.size(); ++i) {
        const QString Name = Images ? ToQt(Images->GetIconName(Buttons[i]->ImageIndex)) : QString();
        FButtons[i]->setIcon(SkinIcon(Name, FContext.Color("coAccent")));
        FButtons[i]->setToolTip(ToQt(Buttons[i]->Hint));
        FButtons[i]->setAccessibleName(ToQt(Buttons[i]->Hint));
    }
}

// --- dock

TViewDock::TViewDock(fw::TIBaseView& View, int64_t Handle, const std::string& Key, TRenderContext& Context,
                     QWidget* Parent, std::function<void(TViewDock&)> OnClose)
    : QDockWidget(Parent), FView(View), FHandle(Handle), FKey(Key), FContext(Context), FOnClose(std::move(OnClose)) {
    setObjectName(QLatin1String("view-") + ToQt(Key));
    setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    FTitle = new TDockTitleBar(*this, Context, [this] { FOnClose(*this); });
    setTitleBarWidget(FTitle);
    if (fw::TFrame* Opened = Frame()) {
        FRenderer = new TFrameRenderer(*Opened, Context, this);
        setWidget(FRenderer);
    }
    int Width = 0, Height = 0;
    if (View.GetDefaultSize(Width, Height)) FDefaultSize = QSize(Width, Height);
    connect(this, &QDockWidget::topLevelChanged, this, [this](bool Floats) {
        if (!Floats || !FDefaultSize.isValid()) return;
        const QSize Size(FContext.Scaled(FDefaultSize.width()), FContext.Scaled(FDefaultSize.height()));
        resize(Size.boundedTo(screen()->availableSize()));
    });
    FLinks += Context.OnSkinChanged.Connect([this] {
        FTitle->Retranslate();
        UpdateButtons();
    });
    if (fw::TFrame* Opened = Frame()) FLinks += Opened->OnStaleChanged.Connect([this] { UpdateCaption(); });
    FTitle->GroupButton().setVisible(SetGroup(GetGroup()));
    FTitle->GroupButton().OnChosen = [this](int Number) { SetGroup(LinkGroupId(Number)); };
    UpdateCaption();
    UpdateButtons();
}

TViewDock::~TViewDock() { CloseInstance(); }

fw::Text TViewDock::GetGroup() const {
    fw::Text Group;
    return FView.GetGroupID(FHandle, Group) ? Group : fw::Text();
}

bool TViewDock::SetGroup(const fw::Text& Group) {
    const int Number = LinkGroupNumber(Group);
    if (LinkGroupId(Number) != Group || !FView.SetGroupID(FHandle, Group)) return false;
    FTitle->GroupButton().SetNumber(Number);
    return true;
}

void TViewDock::UpdateCaption() {
    fw::Text Caption;
    if (!FView.GetViewCaption(FHandle, Caption) || Caption.empty()) FView.GetDefaultCaption(Caption);
    QString Shown = ToQt(Caption);
    const fw::TFrame* Shows = Frame();
    if (const auto Calculated = Shows ? Shows->GetStaleSince() : std::nullopt)
        Shown = FContext.Translate("Res_TitleStale", {Caption, FromQt(ClockText(*Calculated))});
    setWindowTitle(Shown);
    FTitle->SetCaption(Shown);
}

void TViewDock::UpdateButtons() {
    fw::TCaptionButtonList Buttons;
    fw::TImageList* Images = nullptr;
    FView.GetViewCaptionButtons(FHandle, Buttons);
    FView.GetViewCaptionButtonImageList(FHandle, Images);
    FTitle->SetButtons(Buttons, Images, [this](int Index) { FView.HandleCaptionButtonClick(FHandle, Index); });
}

void TViewDock::Retranslate() {
    UpdateCaption();
    FTitle->Retranslate();
}

void TViewDock::CloseInstance() {
    if (FHandle == 0) return;
    const int64_t Handle = std::exchange(FHandle, 0);
    delete std::exchange(FRenderer, nullptr);
    fw::Dispatch("CloseInstance", [&] { FView.CloseInstance(Handle); });
}

// The instance may be in the middle of a handler: the owner closes it later.
void TViewDock::closeEvent(QCloseEvent* Event) {
    Event->ignore();
    FOnClose(*this);
}

}  // namespace ws
