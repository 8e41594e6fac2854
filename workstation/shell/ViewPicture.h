// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

#include <QWidget>

#include "framework/view/Frame.h"
#include "workstation/renderers/RenderContext.h"

namespace ws {

// Draws a view as its window shows it, Width x Height pixels, into a PNG file. False when the file cannot be written.
bool DrawView(fw::TFrame& Frame, TRenderContext& Context, int Width, int Height, const std::filesystem::path& File);

// A widget that is on the screen, or would be.
bool GrabPng(QWidget& Widget, const std::filesystem::path& File);

}  // namespace ws
