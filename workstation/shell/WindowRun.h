// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workstation/script/CommandLine.h"

namespace ws {

// The window over the user's store, from its opening to the end of the loop; the exit code of the program. Raises what
// keeps the workstation from starting.
int RunWindow(const TCommandLine& Line);

}  // namespace ws
