// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqResultNote.h"

namespace ventiq {

TVentiqResultNote::TVentiqResultNote(TVentiqForm& Form, TVentiqContext& Context, TFrame& View)
    : FForm(Form), FContext(Context), FView(View) {
    const auto Changed = [this] { FChanged = true; };
    FLinks += Form.PositionGridView.OnRecordsChanged.Connect(Changed);
    FLinks += Form.PositionGridView.OnCellChanged.Connect([Changed](int, int) { Changed(); });
    for (auto* Editor : {&Form.edtDown, &Form.edtUp, &Form.edtInterval})
        FLinks += Editor->OnValueChanged.Connect(Changed);
    for (auto* Combo : {&Form.cmbExchange, &Form.cmbSeries, &Form.cmbMonth})
        FLinks += Combo->OnIndexChanged.Connect(Changed);
}

void TVentiqResultNote::Calculated() {
    FCalculated = Read();
    FTime = TClock::Now();
    FView.SetStaleSince({});
}

void TVentiqResultNote::Check() {
    if (!std::exchange(FChanged, false) || !FCalculated) return;
    FView.SetStaleSince(Read() == *FCalculated ? std::nullopt : std::optional(FTime));
}

TVentiqResultNote::TInputs TVentiqResultNote::Read() const {
    TInputs Result;
    const auto Rows = ReadLegRows(FForm);
    Result.Legs.assign(Rows.begin(), Rows.end());
    Result.Down = FForm.edtDown.GetFloat();
    Result.Up = FForm.edtUp.GetFloat();
    Result.Interval = FForm.edtInterval.GetFloat();
    if (const auto* Control = FContext.FMyDataControl.get()) {
        Result.Exchange = Control->GetExchange();
        Result.Series = Control->GetSeries();
        Result.Month = Control->GetMonth();
    }
    return Result;
}

}  // namespace ventiq
