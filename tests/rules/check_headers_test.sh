# SPDX-License-Identifier: Apache-2.0
. "$(dirname "${BASH_SOURCE[0]}")/planting.sh"

plant framework/A.h <<<'#pragma once
struct A {};'
plant view/B.h <<<'#pragma once
#include "framework/A.h"
struct B : A {};'
sound headers

breach headers view/C.h 'view/C.h does not compile alone' <<<'#pragma once
std::string C();'
breach headers orders/C.h 'orders/C.h does not compile alone' <<<'struct C {};'
breach headers engine/C.h 'unused parameter' <<<'#pragma once
inline int C(int Unused) { return 0; }'
rm -r "$tree/framework" "$tree/view"
if "$tools/check-headers" "$tree" 2>/dev/null; then echo "a tree without headers passes"; exit 1; fi
plant framework/A.h <<<'#pragma once'
all_noticed headers
