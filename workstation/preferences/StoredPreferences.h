// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "workstation/store/Store.h"

namespace ws {

// One warning for each stored preference that is not what it may be. Nothing is changed: the stored text stays until
// the user chooses anew, and until then the default holds.
std::vector<TStoreNotice> CheckStoredPreferences(const TSettings& Stored);

// A stored text as a message shows it: one line of a length that can be read.
std::string ShownStoredText(const std::string& Stored);

}  // namespace ws
