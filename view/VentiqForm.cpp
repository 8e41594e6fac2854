// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqForm.h"

#include "registration/VentiqConstDef.h"

namespace ventiq {

namespace {

// Pixels at scale 100; together they fill the default view of 1000 x 600.
constexpr int kPositionHeight = 180;
constexpr int kDetailWidth = 220;
constexpr int kRangeEditorWidth = 160;

struct TNamedControl {
    const char* Name;
    TControl* Control;
};

TGridOptions SharedGridOptions() {
    TGridOptions Options;
    Options.CellHints = true;
    Options.CellEndEllipsis = true;
    Options.HeaderEndEllipsis = true;
    Options.ColumnAutoWidth = true;
    Options.GroupByBox = false;
    Options.NoDataText = kNoDataText;
    return Options;
}

}  // namespace

TVentiqForm::TVentiqForm() : CaptionImages({"less", "more", "show-hint", "hide-hint"}) {
    SetUpEditors();
    SetUpGrids();
    SetUpLayout();
}

void TVentiqForm::SetUpEditors() {
    for (auto* Editor : {&edtDown, &edtUp, &edtInterval}) Editor->SetAlignment(EAlignment::Right);
    epiSide.FixedList = true;
    epiSide.AlwaysShowButton = true;
    edtAccount.SetEnabled(false);  // the host enables it when it serves it
}

void TVentiqForm::SetUpGrids() {
    DetailGridView.Options = SharedGridOptions();
    PositionGridView.Options = SharedGridOptions();
    PositionGridView.Options.Deleting = false;
    PositionGridView.Options.HideSelection = true;
    PositionGridView.Options.InvertSelection = false;
}

void TVentiqForm::SetUpLayout() {
    for (auto* Item : {&liExchange, &liSeries, &liExpiry, &liAccount, &liLoad}) SelectorGroup.Add(*Item);
    liExchange.Stretch = 3;
    liSeries.Stretch = 3;
    liExpiry.Stretch = 2;
    liAccount.Stretch = 2;

    PositionGroup.Add(liPositionGrid);
    liPositionGrid.Stretch = 1;

    for (auto* Item : {&liDown, &liUp, &liInterval}) {
        Item->PreferredSize = kRangeEditorWidth;
        RangeGroup.Add(*Item);
    }
    for (auto* Item : {&liCalc, &liClear, &liSubmit, &liRangeSpace}) RangeGroup.Add(*Item);
    liRangeSpace.Stretch = 1;

    ResultGroup.Add(liDataChart);
    ResultGroup.Add(liDetailGrid);
    ResultGroup.Splitter = true;
    liDataChart.Stretch = 3;
    liDetailGrid.Stretch = 1;
    liDetailGrid.PreferredSize = kDetailWidth;

    LowerGroup.Add(RangeGroup);
    LowerGroup.Add(ResultGroup);
    ResultGroup.Stretch = 1;

    WorkGroup.Add(PositionGroup);
    WorkGroup.Add(LowerGroup);
    WorkGroup.Splitter = true;
    PositionGroup.PreferredSize = kPositionHeight;
    LowerGroup.Stretch = 1;

    RootGroup.Add(SelectorGroup);
    RootGroup.Add(WorkGroup);
    WorkGroup.Stretch = 1;
}

void TVentiqForm::Attach(TFocusScope& Controls) {
    const TNamedControl Named[] = {
        {"cmbExchange", &cmbExchange},
        {"cmbSeries", &cmbSeries},
        {"cmbMonth", &cmbMonth},
        {"edtAccount", &edtAccount},
        {"btnLoad", &btnLoad},
        {"PositionGridView", &PositionGridView},
        {"edtDown", &edtDown},
        {"edtUp", &edtUp},
        {"edtInterval", &edtInterval},
        {"btnCalc", &btnCalc},
        {"btnClear", &btnClear},
        {"btnSubmit", &btnSubmit},
        {"DataChart", &DataChart},
        {"DetailGridView", &DetailGridView},
        {"PositionGridLv", &PositionGridLv},
        {"PositionGrid", &PositionGrid},
        {"DetailGridLv", &DetailGridLv},
        {"DetailGrid", &DetailGrid},
        {"liExchange", &liExchange},
        {"liSeries", &liSeries},
        {"liExpiry", &liExpiry},
        {"liAccount", &liAccount},
        {"liLoad", &liLoad},
        {"liCalc", &liCalc},
        {"liClear", &liClear},
        {"liSubmit", &liSubmit},
        {"liDown", &liDown},
        {"liUp", &liUp},
        {"liInterval", &liInterval},
        {"liRangeSpace", &liRangeSpace},
        {"liPositionGrid", &liPositionGrid},
        {"liDataChart", &liDataChart},
        {"liDetailGrid", &liDetailGrid},
        {"SelectorGroup", &SelectorGroup},
        {"PositionGroup", &PositionGroup},
        {"RangeGroup", &RangeGroup},
        {"ResultGroup", &ResultGroup},
        {"LowerGroup", &LowerGroup},
        {"WorkGroup", &WorkGroup},
        {"RootGroup", &RootGroup},
    };
    for (const auto& [Name, Control] : Named) Controls.Attach(Name, *Control);
}

}  // namespace ventiq
