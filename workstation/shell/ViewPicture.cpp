// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/ViewPicture.h"

#include <QApplication>
#include <QPixmap>

#include "workstation/renderers/FrameRenderer.h"

namespace ws {

namespace {
// Layouts settle in a few turns of the event loop.
constexpr int kSettlingTurns = 5;
}  // namespace

bool GrabPng(QWidget& Widget, const std::filesystem::path& File) {
    for (int i = 0; i < kSettlingTurns; ++i) QApplication::processEvents();
    return Widget.grab().save(QString::fromStdString(File.string()), "PNG");
}

bool DrawView(fw::TFrame& Frame, TRenderContext& Context, int Width, int Height, const std::filesystem::path& File) {
    TFrameRenderer Renderer(Frame, Context, nullptr);
    Renderer.resize(Width, Height);
    Renderer.show();
    return GrabPng(Renderer, File);
}

}  // namespace ws
