// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqOrderCollector.h"

#include "engine/VentiqPriceConversion.h"
#include "framework/base/FlagGuard.h"
#include "view/VentiqLegRows.h"

namespace ventiq {

void TVentiqOrderCollector::btnSubmitClick(TObject*) {
    auto* Control = FContext.FMyDataControl.get();
    if (!Control || FSubmitting) return;
    const TFlagGuard Submitting(FSubmitting, EGuardEnd::Clear);
    Control->ResetOrderList();
    for (const TLegRow& Row : ReadLegRows(FForm))
        Control->AddOrderRecord(Row.Symbol, Row.Side, GetRealPriceValue(Row.Premium, Row.Symbol), Row.Quantity,
                                FFlags.GetOpenCloseFlag(Row.OpenClose), FFlags.GetPrincipalFlag(Row.Principal));
    Control->SubmitOrder();
}

}  // namespace ventiq
