// SPDX-License-Identifier: Apache-2.0
#pragma once

// The parts that calculate and show, around those of PartsFixture.h. Options of HSI 2026-12 have market data: strikes
// 100, 110, 120, multiplier 1, currency HKD.

#include "framework/view/BaseView.h"
#include "framework/view/Frame.h"
#include "tests/view/PartsFixture.h"
#include "view/VentiqDetailGrid.h"
#include "view/VentiqLayoutData.h"
#include "view/VentiqPayoffChart.h"
#include "view/VentiqRangeInputs.h"

namespace ventiq {

class TDisplayFixture : public TPartsFixture {
protected:
    TFrame View;
    TVentiqConfig Config{Form};
    TVentiqCaptionButtons Buttons{Form, View};
    TVentiqDetailGrid Detail{Form};
    TVentiqPayoffChart Chart{Form, Context, Config, Buttons};
    TVentiqRangeInputs Range{Form, Context, Grid};
    int Updates = 0;  // how often the data control has told that it calculated

    TDisplayFixture() {
        Host.Language.SetText("Res_PL", "P/L");
        Host.Language.SetText(0, kTagCurrency, "HKD", "Dollar");
        for (const int Strike : {100, 110, 120})
            for (const char* Type : {"C", "P"})
                Host.Subscriptions.AddOption("HSI" + Text(Type) + std::to_string(Strike), Strike, Type)
                    .Set(kFieldCurrency, "HKD");
        Host.Subscriptions.AddFuture("HSIZ6").Set(kFieldCurrency, "HKD");

        Range.InitEditors();
        Buttons.CreateList();
        Buttons.CreateButtons();
        Buttons.UpdateCaptionButtons();
        Config.ConfigUpdate(nullptr, nullptr);
        Detail.InitializeGrid();
        Chart.InitChart();
        Detail.CreateDataSource();
        Context.FMyDataControl->SetDetailControl(Detail.GetDataControl());
        Context.FMyDataControl->SetOnDataUpdate([this](TObject* Sender) {
            ++Updates;
            Chart.DataChanged(Sender);
        });
        Form.btnCalc.OnClick = [this](TObject* Sender) { Range.btnCalcClick(Sender); };
        Form.btnClear.OnClick = [this](TObject* Sender) { Grid.btnClearClick(Sender); };
        SelectMarket();
    }

    ~TDisplayFixture() override { Detail.FreeDataSource(); }

    TCustomVentiqDataControl& Control() { return *Context.FMyDataControl; }

    // Puts a leg into the next row, as typed; rows are added as needed.
    void AddLeg(const Text& Symbol, const Variant& Side, const Variant& Premium, const Variant& Quantity) {
        const int Row = FNextRow++;
        Grid.SetRecordCount(Row + 2);
        Grid.SetCell(Row, kColSymbol, Symbol);
        Grid.SetCell(Row, kColSide, Side);
        Grid.SetCell(Row, kColPremium, Premium);
        Grid.SetCell(Row, kColQty, Quantity);
    }

    void SetRange(const Variant& Down, const Variant& Up, const Variant& Interval) {
        Form.edtDown.SetValue(Down);
        Form.edtUp.SetValue(Up);
        Form.edtInterval.SetValue(Interval);
    }

    void Calculate(double Down, double Up, double Interval) {
        SetRange(Down, Up, Interval);
        Form.btnCalc.Click();
    }

    using TPoints = std::vector<std::pair<double, double>>;
    static TPoints PointsOf(const TLineSeries* Series) {
        TPoints Result;
        for (int i = 0; i < Series->GetCount(); ++i) Result.emplace_back(Series->GetX(i), Series->GetY(i));
        return Result;
    }

private:
    int FNextRow = 0;
};

}  // namespace ventiq
