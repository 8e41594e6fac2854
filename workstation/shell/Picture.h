// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

#include <QSize>

#include "framework/view/Frame.h"
#include "workstation/renderers/RenderContext.h"

class QWidget;

namespace ws {

// What a widget shows, as a PNG file. False when the file cannot be written.
bool GrabPng(QWidget& Widget, const std::filesystem::path& File);

// A view as its window would show it, on no window at all.
bool DrawFramePng(fw::TFrame& Frame, TRenderContext& Context, QSize Size, const std::filesystem::path& File);

}  // namespace ws
