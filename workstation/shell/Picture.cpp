// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/Picture.h"

#include <QCoreApplication>
#include <QWidget>

#include "workstation/renderers/FrameRenderer.h"
#include "workstation/renderers/QtText.h"

namespace ws {

namespace {
constexpr int kSettlingRounds = 3;  // layouts, what they queue, and what that queues
}

bool GrabPng(QWidget& Widget, const std::filesystem::path& File) {
    for (int i = 0; i < kSettlingRounds; ++i) QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    return Widget.grab().save(ToQt(File.string()), "PNG");
}

bool DrawFramePng(fw::TFrame& Frame, TRenderContext& Context, QSize Size, const std::filesystem::path& File) {
    TFrameRenderer Renderer(Frame, Context, nullptr);
    Renderer.setAttribute(Qt::WA_DontShowOnScreen);
    Renderer.resize(Size);
    Renderer.show();
    return GrabPng(Renderer, File);
}

}  // namespace ws
