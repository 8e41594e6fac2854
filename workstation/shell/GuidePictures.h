// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <functional>

#include "workstation/shell/MainWindow.h"

namespace ws {

// Plays the scenes of the user guide on the window and writes one PNG file a scene into the folder. Wait lets the loop
// run. False at the first file that cannot be written, or scene that does not come about; Wrote is called with each
// file.
bool MakeGuidePictures(TMainWindow& Window, const std::filesystem::path& Folder,
                       const std::function<void(int Milliseconds)>& Wait,
                       const std::function<void(const std::filesystem::path& File)>& Wrote);

}  // namespace ws
