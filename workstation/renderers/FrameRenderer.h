// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include <QWidget>

#include "framework/view/Frame.h"
#include "workstation/renderers/HintRenderer.h"
#include "workstation/renderers/RenderContext.h"

namespace ws {

// One open view on the screen: its layout tree and its hint window. Destroy it before the frame.
class TFrameRenderer : public QWidget {
public:
    TFrameRenderer(fw::TFrame& Frame, TRenderContext& Context, QWidget* Parent);

private:
    std::unique_ptr<THintRenderer> FHint;
    fw::TConnections FLinks;
};

}  // namespace ws
