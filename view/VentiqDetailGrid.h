// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/data/GridDataSource.h"
#include "view/VentiqColumns.h"
#include "view/VentiqContext.h"
#include "view/VentiqForm.h"

namespace ventiq {

// The read-only table beside the chart: a row a price step, with texts and rows of the detail data control.
class TVentiqDetailGrid {
public:
    explicit TVentiqDetailGrid(TVentiqForm& Form) : FForm(Form) {}

    void InitializeGrid();
    void UpdateGridHeader();

    // Creates the data source with its data control and shows it in the view.
    void CreateDataSource();
    // Takes the data control along; the view forgets it.
    void FreeDataSource();
    TCustomVentiqDetailDataControl* GetDataControl() const { return FDataControl; }  // null outside the two calls above

    void DetailGridColumnGetDisplayText(TGridColumn& Column, int Record, Text& Shown);

private:
    TVentiqForm& FForm;                                  // borrowed from the frame
    TColumnInfoList* FColumnInfos = nullptr;             // kept by the process for good
    std::unique_ptr<TCustomGridDataSource> FDataSource;  // owns the data control
    TCustomVentiqDetailDataControl* FDataControl = nullptr;
};

}  // namespace ventiq
