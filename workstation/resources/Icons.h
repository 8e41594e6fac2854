// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <string>

namespace ws {

// The icon of that name (a view's caption images: "less", "more", "show-hint", "hide-hint"; the program's own:
// "workstation"), drawn for light and dark grounds alike. An empty icon for an unknown name.
QIcon IconByName(const std::string& Name);

}  // namespace ws
