# SPDX-License-Identifier: Apache-2.0
. "$(dirname "${BASH_SOURCE[0]}")/planting.sh"

apache='SPDX-License-Identifier: Apache-2.0'
gpl='SPDX-License-Identifier: GPL-3.0-or-later'
later="TO""DO"
mend="FIX""ME"
plant engine/A.cpp <<<"// $apache"
plant workstation/shell/A.cpp <<<"// $gpl"
plant tests/gui/A_test.cpp <<<"// $gpl"
plant CMakeLists.txt <<<"# $apache"
plant run <<<"#!/usr/bin/env bash
# $apache"
sound words

breach words engine/A.cpp 'engine/A.cpp: the first line names no licence' <<<'int A();'
breach words examples/mine/A.cpp 'another than Apache-2.0' <<<"// $gpl"
breach words engine/A.cpp 'another than Apache-2.0' <<<"// $gpl"
breach words workstation/shell/A.cpp 'another than GPL-3.0-or-later' <<<"// $apache"
breach words tests/gui/A_test.cpp 'names no licence' <<<'// SPDX-License-Identifier: MIT'
breach words run 'names no licence' <<<'#!/usr/bin/env bash'
breach words engine/A.cpp 'engine/A.cpp:2:' <<<"// $apache
// $later: later"
breach words workstation/shell/A.cpp 'A.cpp:2:' <<<"// $gpl
int A();  // $mend"
breach words engine/A.cpp 'A.cpp:2:' <<<"// $apache
int A();  // XX""X: mend"
plant engine/A.cpp <<<"// $apache
const char* NoCurrency = \"XX""X\";
// a ${later}list is a word of its own"
all_noticed words
