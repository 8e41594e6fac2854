// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqRangeInputs.h"

#include "framework/services/MessageBoxCtrl.h"
#include "registration/VentiqConstDef.h"
#include "view/VentiqLegRows.h"

namespace ventiq {

void TVentiqRangeInputs::InitEditors() {
    for (auto* Editor : {&FForm.edtDown, &FForm.edtUp, &FForm.edtInterval}) Editor->SetDisplayFormat(kRangeFormat);
    FForm.edtInterval.SetMinValue(0.0);
}

void TVentiqRangeInputs::btnCalcClick(TObject*) {
    auto* Control = FContext.FMyDataControl.get();
    if (!Control) return;
    const double Down = FForm.edtDown.GetFloat(), Up = FForm.edtUp.GetFloat(), Interval = FForm.edtInterval.GetFloat();
    if (Down - Up > -kPriceTolerance || Interval < kPriceTolerance) {
        TCustomMessageBoxCtrl::GetInstance().ShowMessageText(nullptr, GetResourceHeader("Res_CalculateInputInvalid"), 0,
                                                             0, 0);
        return;
    }
    Control->SetInterval(Interval);
    Control->SetDownLimit(Down);
    Control->SetUpLimit(Up);
    Control->Reset();
    AddLegs(*Control);
    Control->Calculate();
}

void TVentiqRangeInputs::AddLegs(TCustomVentiqDataControl& Control) {
    for (const TLegRow& Row : ReadLegRows(FForm))
        Control.AddRecord(Row.Symbol, Row.Side, GetRealPriceValue(Row.Premium, Row.Symbol), Row.Quantity);
}

void TVentiqRangeInputs::edtDownExit(TObject*) {
    if (FContext.FMyDataControl) FContext.FMyDataControl->SetDownLimit(FForm.edtDown.GetFloat());
}

void TVentiqRangeInputs::edtUpExit(TObject*) {
    if (FContext.FMyDataControl) FContext.FMyDataControl->SetUpLimit(FForm.edtUp.GetFloat());
}

void TVentiqRangeInputs::edtIntervalExit(TObject*) {
    if (FContext.FMyDataControl) FContext.FMyDataControl->SetInterval(FForm.edtInterval.GetFloat());
}

void TVentiqRangeInputs::edtDownKeyPress(TObject* Sender, char& Key) {
    if (Key == kKeyEnter) edtDownExit(Sender);
}

void TVentiqRangeInputs::edtUpKeyPress(TObject* Sender, char& Key) {
    if (Key == kKeyEnter) edtUpExit(Sender);
}

void TVentiqRangeInputs::edtIntervalKeyPress(TObject* Sender, char& Key) {
    if (Key == kKeyEnter) edtIntervalExit(Sender);
}

void TVentiqRangeInputs::UpdateDefaultPrice(TObject*) {
    auto* Control = FContext.FMyDataControl.get();
    if (!Control) return;
    FForm.edtDown.SetValue(Control->GetDefaultDownPrice());
    FForm.edtUp.SetValue(Control->GetDefaultUpPrice());
    FForm.edtInterval.SetValue(Control->GetDefaultInterval());
}

}  // namespace ventiq
