// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqRangeInputs.h"

#include "framework/services/MessageBoxCtrl.h"
#include "registration/VentiqConstDef.h"

namespace ventiq {

namespace {

// What one row of the grid says about a leg; premium in display units.
struct TRow {
    Text Symbol;
    int Side = kSideUnknown;
    double Premium = 0.0;
    double Quantity = 0.0;
};

int SideOf(const Text& Shown, const std::vector<Text>& Items) {
    for (const int Side : {kSideBuy, kSideSell})
        if (static_cast<size_t>(Side) < Items.size() && Shown == Items[static_cast<size_t>(Side)]) return Side;
    return kSideUnknown;
}

TRow ReadRow(const TVentiqForm& Form, int Record) {
    TRow Row;
    const auto& View = Form.PositionGridView;
    for (int Index = 0; Index < View.GetColumnCount(); ++Index) {
        const Variant Cell = View.GetDataController().GetValue(Record, Index);
        switch (View.GetColumn(Index)->Tag) {
            case kColSymbol: Row.Symbol = Trim(Cell.AsText()); break;
            case kColSide: Row.Side = SideOf(Cell.AsText(), Form.epiSide.Items); break;
            case kColPremium: Row.Premium = Cell.AsFloat(0.0); break;
            case kColQty: Row.Quantity = Cell.AsFloat(0.0); break;
            default: break;  // the rest of a leg comes from market data
        }
    }
    return Row;
}

}  // namespace

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

// Loaded rows count as typed ones do. A row without symbol or with a side that is neither text is no leg.
void TVentiqRangeInputs::AddLegs(TCustomVentiqDataControl& Control) {
    for (int Record = 0; Record < FGrid.GetRecordCount(); ++Record) {
        const TRow Row = ReadRow(FForm, Record);
        if (Row.Symbol.empty() || Row.Side < 0) continue;
        Control.AddRecord(Row.Symbol, Row.Side, GetRealPriceValue(Row.Premium, Row.Symbol), Row.Quantity);
    }
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
