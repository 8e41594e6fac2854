// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "framework/base/Refusal.h"

namespace ws {

// Any text can be a name; these make a file name of it that every file system takes, and back.
std::string FileNameOf(std::string_view Name);
std::string NameOfFile(std::string_view FileName);

// Why a workspace cannot have this name; none: it can. Blanks around it are not part of a name.
std::optional<fw::TRefusal> NameRefusal(const std::string& Name);

}  // namespace ws
