// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/FrameRenderer.h"

#include <QVBoxLayout>

#include "workstation/renderers/FocusBridge.h"
#include "workstation/renderers/RendererFactory.h"

namespace ws {

TFrameRenderer::TFrameRenderer(fw::TFrame& Frame, TRenderContext& Context, QWidget* Parent) : QWidget(Parent) {
    setObjectName(QLatin1String(kFormObjectName));
    auto* Box = new QVBoxLayout(this);
    const auto Measure = [Box, &Context] {
        const int Margin = Context.Scaled(8);
        Box->setContentsMargins(Margin, Margin, Margin, Margin);
    };
    Measure();
    FLinks += Context.OnMetricsChanged.Connect(Measure);
    if (fw::TLayoutGroup* Root = Frame.GetLayout())
        if (QWidget* Widget = MakeRenderer(*Root, Context, this)) Box->addWidget(Widget);
    if (fw::THintController* Hint = Frame.GetHintController()) FHint = std::make_unique<THintRenderer>(*Hint, *this);
}

}  // namespace ws
