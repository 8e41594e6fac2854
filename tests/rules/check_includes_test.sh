# SPDX-License-Identifier: Apache-2.0
. "$(dirname "${BASH_SOURCE[0]}")/planting.sh"

for file in framework/base/Text.h engine/VentiqDataControl.h orders/VentiqSubmission.h view/VentiqForm.h view/VentiqTexts.h view/VentiqConfig.h view/VentiqOrderFlags.h \
            registration/VentiqInterface.h registration/VentiqConstDef.h workstation/shell/MainWindow.h; do
  plant "$file" </dev/null
done
plant engine/Leg.cpp <<<'#include <queue>
#include "framework/base/Text.h"
#include "registration/VentiqConstDef.h"'
plant view/VentiqTexts.cpp <<<'#include "view/VentiqTexts.h"
#include "view/VentiqForm.h"
#include "orders/VentiqSubmission.h"'
plant workstation/shell/MainWindow.cpp <<<'#include <QMainWindow>
#include "framework/base/Text.h"
#include "workstation/shell/MainWindow.h"'
plant tests/gui/Window_test.cpp <<<'#include <QTest>'
plant engine/CMakeLists.txt <<<'target_link_libraries(ventiq_engine PUBLIC framework ventiq_constdef)'
plant workstation/CMakeLists.txt <<<'target_link_libraries(workstation PRIVATE framework Qt6::Widgets)'
sound includes

breach includes framework/base/A.cpp 'may not be included from framework/' <<<'#include "engine/VentiqDataControl.h"'
breach includes framework/base/A.cpp 'no header of the standard library' <<<'#include <sqlite3.h>'
breach includes engine/A.cpp 'no header of the standard library' <<<'#include <QString>'
breach includes engine/A.cpp 'no header of the standard library' <<<'  #  include <qglobal.h>'
breach includes engine/A.cpp 'may not be included from engine/' <<<'#include "orders/VentiqSubmission.h"'
breach includes engine/A.cpp 'may not be included from engine/' <<<'#include "registration/VentiqInterface.h"'
breach includes orders/A.cpp 'may not be included from orders/' <<<'#include "view/VentiqForm.h"'
breach includes examples/mine/A.cpp 'may not be included from examples/' <<<'#include "workstation/shell/MainWindow.h"'
breach includes examples/mine/A.cpp 'no header of the standard library' <<<'#include <QWidget>'
breach includes view/A.cpp 'may not be included from view/' <<<'#include "registration/VentiqInterface.h"'
breach includes registration/A.cpp 'may not be included from registration/' <<<'#include "workstation/shell/MainWindow.h"'
breach includes workstation/A.cpp 'may not be included from workstation/' <<<'#include "engine/VentiqDataControl.h"'
breach includes workstation/A.h 'may not be included from workstation/' <<<'#include "registration/VentiqConstDef.h"'
breach includes workstation/A.h 'not found from the top folder' <<<'#include "MainWindow.h"'
breach includes view/VentiqForm.cpp "is of level 1, not below level 0" <<<'#include "view/VentiqConfig.h"'
breach includes view/VentiqConfig.cpp "is of level 1, not below level 1" <<<'#include "view/VentiqOrderFlags.h"'
breach includes tests/engine/A_test.cpp 'must run without it' <<<'#include <QTest>'
breach includes tests/scenarios/A_test.cpp 'may not be included from a test' <<<'#include "workstation/shell/MainWindow.h"'
breach includes engine/CMakeLists.txt 'may not name this' <<<'target_link_libraries(ventiq_engine PUBLIC framework Qt6::Core)'
breach includes workstation/CMakeLists.txt 'may not link the package' <<<'target_link_libraries(workstation PRIVATE
  ventiq_engine)'
all_noticed includes
