// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqDetailGrid.h"

#include "framework/base/KeepList.h"
#include "view/VentiqTexts.h"

namespace ventiq {

void TVentiqDetailGrid::InitializeGrid() {
    FColumnInfos = Keep(std::make_unique<TColumnInfoList>());
    FillColumnInfos(*FColumnInfos, kDetailColumns);
    auto& View = FForm.DetailGridView;
    const TViewUpdate Update(View);
    View.ClearColumns();
    for (const auto& Info : *FColumnInfos) {
        auto& Column = CreateColumn(View, *Info, GetResourceHeader(Info->CaptionKey));
        Column.Focusing = false;
        if (Info->RightAlignedText)
            Column.OnGetDisplayText = [this](TGridColumn& Of, int Record, Text& Shown) {
                DetailGridColumnGetDisplayText(Of, Record, Shown);
            };
    }
}

void TVentiqDetailGrid::UpdateGridHeader() { RetitleColumns(FForm.DetailGridView, *FColumnInfos, GetResourceHeader); }

void TVentiqDetailGrid::CreateDataSource() {
    FDataSource =
        std::make_unique<TCustomGridDataSource>([] { return std::make_unique<TCustomVentiqDetailDataControl>(); });
    FDataControl = static_cast<TCustomVentiqDetailDataControl*>(FDataSource->GetDataControl());
    FForm.DetailGridView.SetCustomDataSource(FDataSource.get());
}

void TVentiqDetailGrid::FreeDataSource() {
    FDataControl = nullptr;
    FDataSource.reset();
}

void TVentiqDetailGrid::DetailGridColumnGetDisplayText(TGridColumn& Column, int Record, Text& Shown) {
    if (FDataControl) Shown = FDataControl->GetDisplayValue(Record, Column.Tag);
}

}  // namespace ventiq
