// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/LayoutRenderer.h"

#include <QBoxLayout>
#include <QSplitter>

#include "framework/controls/Button.h"
#include "workstation/renderers/ControlName.h"
#include "workstation/renderers/QtText.h"
#include "workstation/renderers/RendererFactory.h"

namespace ws {

namespace {

bool IsLow(const fw::TControl* Control) {
    return Control && !dynamic_cast<const fw::TLayoutGroup*>(Control) && dynamic_cast<const fw::TButton*>(Control);
}

void SetExtent(QWidget& Widget, bool Horizontal, int Size) {
    if (Horizontal)
        Widget.setFixedWidth(Size);
    else
        Widget.setFixedHeight(Size);
}

}  // namespace

TLayoutItemRenderer::TLayoutItemRenderer(fw::TLayoutItem& Model, TRenderContext& Context, QWidget* Parent)
    : QWidget(Parent), FModel(Model), FContext(Context) {
    auto* Column = new QVBoxLayout(this);
    Column->setContentsMargins(0, 0, 0, 0);
    Column->setSpacing(1);
    FCaption = new QLabel(this);
    Column->addWidget(FCaption);
    if (fw::TControl* Control = Model.GetControl()) {
        FContent = MakeRenderer(*Control, Context, this);
        if (IsLow(Control)) Column->addStretch(1);  // a button stands on the same line as the editors beside it
        if (FContent) Column->addWidget(FContent, IsLow(Control) ? 0 : 1);
    }
    FCaption->setBuddy(FContent);
    FLinks += Model.OnModelChanged.Connect([this] { Reload(); });
    Reload();
}

void TLayoutItemRenderer::Reload() {
    const QString Caption = ToQt(FModel->GetCaption());
    FCaption->setText(Caption);
    FCaption->setVisible(!Caption.isEmpty());
    if (FContent && !Caption.isEmpty()) NameControl(*FContent, Caption, FContext);
    setEnabled(FModel->IsEnabled());
    setVisible(FModel->IsVisible());
}

TLayoutGroupRenderer::TLayoutGroupRenderer(fw::TLayoutGroup& Model, TRenderContext& Context, QWidget* Parent)
    : QWidget(Parent), FModel(Model), FContext(Context) {
    const bool Horizontal = Model.GetDirection() == fw::EDirection::Horizontal;
    auto* Box = new QBoxLayout(Horizontal ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom, this);
    Box->setContentsMargins(0, 0, 0, 0);
    if (Model.Splitter) {
        FSplitter = new QSplitter(Horizontal ? Qt::Horizontal : Qt::Vertical, this);
        FSplitter->setChildrenCollapsible(false);
        connect(FSplitter, &QSplitter::splitterMoved, this, [this] {
            FMoved = true;
            FSizesAt.clear();
        });
        Box->addWidget(FSplitter, 1);
    }
    bool Stretches = Model.Splitter;
    for (fw::TLayoutNode* Node : Model.Nodes()) {
        QWidget* Widget = MakeRenderer(*Node, Context, FSplitter ? static_cast<QWidget*>(FSplitter) : this);
        if (!Widget) continue;
        Stretches |= Node->Stretch > 0;
        FParts.push_back({Node, Widget});
        if (FSplitter)
            AddToSplitter(*Node, Widget);
        else
            Box->addWidget(Widget, Node->Stretch);
    }
    if (!Stretches) Box->addStretch(1);
    Measure();
    FLinks += Context.OnMetricsChanged.Connect([this] { Measure(); });
    FLinks += Model.OnModelChanged.Connect([this] { setVisible(FModel->IsVisible()); });
    setVisible(Model.IsVisible());
}

void TLayoutGroupRenderer::Measure() {
    if (!FModel) return;
    layout()->setSpacing(FContext.Scaled(6));
    if (FSplitter) return MeasureSplitter();
    const bool Horizontal = FModel->GetDirection() == fw::EDirection::Horizontal;
    for (const auto& [Node, Widget] : FParts) {
        if (Node->PreferredSize <= 0) continue;
        const int Size = FContext.Scaled(Node->PreferredSize);
        if (Node->Stretch <= 0)
            SetExtent(*Widget, Horizontal, Size);
        else if (Horizontal)
            Widget->setMinimumWidth(Size);
        else
            Widget->setMinimumHeight(Size);
    }
}

// What stood at a scale comes back with it: the sizes are kept until the room is another, or the user moves a border.
void TLayoutGroupRenderer::MeasureSplitter() {
    if (FShared) FSizesAt[FScale] = {size(), FSplitter->sizes()};
    FScale = FContext.GetScale();
    FSplitter->setHandleWidth(FContext.Scaled(6));
    // Once the parts know how small they may be.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (!TakeFormerSizes() && FShared && !FMoved && FModel) ShareRoom();
        },
        Qt::QueuedConnection);
}

bool TLayoutGroupRenderer::TakeFormerSizes() {
    const auto Found = FSizesAt.find(FScale);
    if (Found == FSizesAt.end() || Found->second.first != size()) return false;
    FSplitter->setSizes(Found->second.second);
    return true;
}

void TLayoutGroupRenderer::AddToSplitter(fw::TLayoutNode& Node, QWidget* Widget) {
    FSplitter->addWidget(Widget);
    FSplitter->setStretchFactor(FSplitter->indexOf(Widget), Node.Stretch);
}

void TLayoutGroupRenderer::resizeEvent(QResizeEvent* Event) {
    QWidget::resizeEvent(Event);
    if (FSplitter && !FShared && FModel) ShareRoom();
    if (FSplitter) TakeFormerSizes();
}

// Preferred sizes first, what is left by stretch; a node with neither gets its size hint.
void TLayoutGroupRenderer::ShareRoom() {
    const bool Horizontal = FSplitter->orientation() == Qt::Horizontal;
    const auto& Nodes = FModel->Nodes();
    if (static_cast<int>(Nodes.size()) != FSplitter->count()) return;
    const int Room = Horizontal ? width() : height();
    if (Room <= 0) return;
    QList<int> Sizes;
    int Taken = 0, Stretches = 0;
    for (int i = 0; i < FSplitter->count(); ++i) {
        const fw::TLayoutNode& Node = *Nodes[static_cast<size_t>(i)];
        const QSize Hint = FSplitter->widget(i)->sizeHint();
        int Size = Node.PreferredSize > 0 ? FContext.Scaled(Node.PreferredSize) : 0;
        if (Size == 0 && Node.Stretch <= 0) Size = Horizontal ? Hint.width() : Hint.height();
        Sizes << Size;
        Taken += Size;
        Stretches += std::max(Node.Stretch, 0);
    }
    for (int i = 0; i < FSplitter->count() && Stretches > 0 && Room > Taken; ++i)
        Sizes[i] += (Room - Taken) * std::max(Nodes[static_cast<size_t>(i)]->Stretch, 0) / Stretches;
    FSplitter->setSizes(Sizes);
    FShared = true;
}

}  // namespace ws
