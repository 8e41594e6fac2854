// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "framework/controls/Button.h"
#include "framework/controls/Chart.h"
#include "framework/controls/ComboBox.h"
#include "framework/controls/GridTableView.h"
#include "framework/controls/HintController.h"
#include "framework/controls/ImageList.h"
#include "framework/controls/LayoutControl.h"
#include "framework/controls/PopupEdit.h"
#include "framework/controls/SpinEdit.h"

namespace ventiq {

using namespace fw;

// The form of the payoff view: every control by its form name, and where it stands. No rule lives here.
//
//   +-------------------------------------------------------------+
//   | exchange | series | expiry | account | Load                 |
//   | position grid                                    (group)    |
//   | Down | Up | Interval | Calculate | Clear | Submit           |
//   | chart                                   | detail grid       |
//   +-------------------------------------------------------------+
struct TVentiqForm {
    TVentiqForm();

    // Names every control within the frame's focus scope.
    void Attach(TFocusScope& Controls);

    TComboBox cmbExchange, cmbSeries, cmbMonth;
    TPopupEdit edtAccount;
    TButton btnLoad, btnCalc, btnClear, btnSubmit;
    TSpinEdit edtDown, edtUp, edtInterval;

    TGridTableView PositionGridView;
    TGridLevel PositionGridLv{PositionGridView};
    TGrid PositionGrid{PositionGridLv};
    TGridTableView DetailGridView;
    TGridLevel DetailGridLv{DetailGridView};
    TGrid DetailGrid{DetailGridLv};

    TChart DataChart;

    TcxComboBoxProperties epiSide;  // editor of the Side cells of input rows
    TStyle sInput;                  // background of input rows
    THintController HintController;
    TImageList CaptionImages;  // 0 less, 1 more, 2 show hint, 3 hide hint

    TLayoutItem liExchange{&cmbExchange}, liSeries{&cmbSeries}, liExpiry{&cmbMonth}, liAccount{&edtAccount};
    TLayoutItem liLoad{&btnLoad}, liCalc{&btnCalc}, liClear{&btnClear}, liSubmit{&btnSubmit};
    TLayoutItem liDown{&edtDown}, liUp{&edtUp}, liInterval{&edtInterval};
    TLayoutItem liPositionGrid{&PositionGrid}, liDataChart{&DataChart}, liDetailGrid{&DetailGrid};
    TLayoutItem liRangeSpace;  // takes what the range row has to spare

    TLayoutGroup SelectorGroup{EDirection::Horizontal};
    TLayoutGroup PositionGroup{EDirection::Vertical};  // hidden by the show/hide button, as liDetailGrid is
    TLayoutGroup RangeGroup{EDirection::Horizontal};
    TLayoutGroup ResultGroup{EDirection::Horizontal};  // with a movable border
    TLayoutGroup LowerGroup{EDirection::Vertical};     // range row above the results
    TLayoutGroup WorkGroup{EDirection::Vertical};      // positions above the rest, with a movable border
    TLayoutGroup RootGroup{EDirection::Vertical};

private:
    void SetUpEditors();
    void SetUpGrids();
    void SetUpLayout();
};

}  // namespace ventiq
