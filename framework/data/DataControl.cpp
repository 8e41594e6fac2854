// SPDX-License-Identifier: Apache-2.0
#include "framework/data/DataControl.h"

namespace fw {

TBaseDataControl::TBaseDataControl(TObject* Owner) : FOwner(Owner) {}
TBaseDataControl::~TBaseDataControl() = default;

int32_t TBaseDataControl::GetCount() { return 0; }
Variant TBaseDataControl::GetValue(int32_t, int32_t) { return {}; }
Text TBaseDataControl::GetDisplayValue(int32_t, int32_t) { return {}; }
bool TBaseDataControl::GetRowValue(int32_t, void*&) { return false; }
bool TBaseDataControl::GetColValue(int32_t, void*&) { return false; }
TColumnInfoList* TBaseDataControl::GetColList() { return nullptr; }

TCustomDataControl::TCustomDataControl(TObject* Owner) : TBaseDataControl(Owner) {}
TCustomDataControl::~TCustomDataControl() = default;

void TCustomDataControl::NotifyDataChanged() { OnChanged(); }

}  // namespace fw
