# SPDX-License-Identifier: Apache-2.0
. "$(dirname "${BASH_SOURCE[0]}")/planting.sh"

plant framework/CMakeLists.txt <<<'add_library(framework SHARED
  base/Text.cpp base/Log.cpp)'
plant framework/base/Text.h </dev/null
plant framework/base/Text.cpp <<<'#include "framework/base/Text.h"'
plant framework/base/Log.cpp </dev/null
plant workstation/CMakeLists.txt <<<'add_subdirectory(shell)'
plant workstation/shell/CMakeLists.txt <<<'add_executable(workstation main.cpp)'
plant workstation/shell/main.cpp </dev/null
plant tests/gui/CMakeLists.txt <<<'foreach(package good:Good bad:Bad)'
plant tests/gui/packages/Good.cpp </dev/null
sound sources

breach sources framework/base/Og.cpp 'framework/base/Og.cpp: no CMakeLists.txt names it' </dev/null
breach sources framework/Text.cpp 'framework/Text.cpp: no CMakeLists.txt names it' </dev/null
breach sources examples/mine/View.cpp 'View.cpp: no CMakeLists.txt names it' </dev/null
breach sources workstation/shell/Dock.cpp 'Dock.cpp: no CMakeLists.txt names it' </dev/null
breach sources workstation/shell/Dock.h 'Dock.h: nothing includes it' </dev/null
breach sources workstation/CMakeLists.txt 'named one by one' <<<'file(GLOB sources shell/*.cpp)'
all_noticed sources
