// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqLayoutData.h"

#include "framework/services/ConfigManager.h"
#include "framework/services/EditorManager.h"

namespace ventiq {

void TVentiqLayoutData::AdjustLayout() {
    if (!TCustomConfigManager::GetInstance().GetKeepColumnLayout() || FPendingColumnLayout.empty()) return;
    TEditorManager::GetInstance().SetGridColumnLayout(&FForm.PositionGridView, FPendingColumnLayout,
                                                      FGrid.GetColumnInfos());
    FPendingColumnLayout.clear();
}

void TVentiqLayoutData::LoadLayoutComp(TObject*, TObject*) { AdjustLayout(); }
void TVentiqLayoutData::MainFormShow(TObject*, TObject*) { AdjustLayout(); }

}  // namespace ventiq
