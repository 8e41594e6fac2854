// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqRangeInputs.h"

#include "tests/view/DisplayFixture.h"

namespace ventiq {
namespace {

class RangeInputs : public TDisplayFixture {};

struct TRangeCase {
    const char* Why;
    Variant Down, Up, Interval;
    bool Accepted;
};

TEST_F(RangeInputs, CalculateRejectsARangeWithoutLengthOrStep) {
    const TRangeCase Cases[] = {
        {"equal bounds", 100, 100, 5, false},
        {"5e-8 apart", 100, 100.00000005, 5, false},
        {"a thousandth apart", 100, 100.001, 5, true},
        {"bounds swapped", 110, 100, 5, false},
        {"step below the tolerance", 90, 110, 0.00000005, false},
        {"step above the tolerance", 90, 90.00001, 0.0000002, true},
        {"empty step counts as 0", 90, 110, Variant(), false},
        {"empty down counts as 0", Variant(), 110, 5, true},
        {"empty up counts as 0", 90, Variant(), 5, false},
        {"negative range", -10, 10, 5, true},
    };
    Host.Language.SetText("Res_CalculateInputInvalid", "check the range");
    for (const auto& Case : Cases) {
        SCOPED_TRACE(Case.Why);
        Host.MessageBox.Messages.clear();
        Updates = 0;
        SetRange(Case.Down, Case.Up, Case.Interval);
        Form.btnCalc.Click();
        EXPECT_EQ(Updates, Case.Accepted ? 1 : 0);
        ASSERT_EQ(Host.MessageBox.Messages.size(), Case.Accepted ? 0u : 1u);
        if (!Case.Accepted) {
            EXPECT_EQ(Host.MessageBox.Messages[0].Message, "check the range");
        }
    }
}

TEST_F(RangeInputs, ARejectedRangeChangesNothingAtAll) {
    AddLeg("HSIC100", "Buy", 5.0, 1);
    Calculate(90, 110, 5);
    AddLeg("HSIP100", "Buy", 5.0, 1);
    const auto Points = PointsOf(Chart.GetPLSeries());
    Calculate(110, 110, 2);
    EXPECT_EQ(Control().GetPayOffData().size(), 1u);
    EXPECT_EQ(PointsOf(Chart.GetPLSeries()), Points);
    EXPECT_EQ(Detail.GetDataControl()->GetCount(), 5);
    EXPECT_EQ(Control().GetDownLimit(), 90);
    EXPECT_EQ(Control().GetDefaultDownPrice(), 90);
    EXPECT_EQ(Control().GetInterval(), 5);
    EXPECT_EQ(Updates, 1);
}

class TDetailSpy : public TCustomVentiqDetailDataControl {
public:
    std::vector<Text> Calls;
    void SetUpLimit(double) override { Calls.emplace_back("up"); }
    void SetDownLimit(double) override { Calls.emplace_back("down"); }
    void SetInterval(double) override { Calls.emplace_back("interval"); }
    void Reset() override { Calls.emplace_back("reset"); }
    void Calculate() override { Calls.emplace_back("calculate"); }
};

TEST_F(RangeInputs, CalculateHandsTheRangeOverThenDropsTheOldLegs) {
    TDetailSpy Spy;
    Control().SetDetailControl(&Spy);
    Calculate(90, 110, 5);
    EXPECT_EQ(Spy.Calls, (std::vector<Text>{"interval", "down", "up", "reset", "calculate"}));
    Control().SetDetailControl(nullptr);
}

TEST_F(RangeInputs, ARowWithASymbolAndNoSideIsNoLegAndTheResultIsEmpty) {
    AddLeg("HSIC100", Variant(), 5.0, 1);
    Calculate(90, 110, 5);
    EXPECT_TRUE(Control().GetPayOffData().empty());
    EXPECT_EQ(Updates, 1);
    EXPECT_EQ(Chart.GetPLSeries()->GetCount(), 0);
    EXPECT_EQ(Detail.GetDataControl()->GetCount(), 0);
}

TEST_F(RangeInputs, OnlyTheExactSideTextsMakeALeg) {
    const std::pair<const char*, int> Cases[] = {{"Buy", 0},   {"Sell", 1}, {"buy", -1},
                                                 {" Buy", -1}, {"", -1},    {"Hold", -1}};
    for (const auto& [Shown, Side] : Cases) {
        SCOPED_TRACE(Shown);
        Grid.SetRecordCount(1);
        Grid.SetCell(0, kColSymbol, " HSIC100 ");
        Grid.SetCell(0, kColSide, Shown);
        Calculate(90, 110, 5);
        ASSERT_EQ(Control().GetPayOffData().size(), Side < 0 ? 0u : 1u);
        if (Side < 0) continue;
        EXPECT_EQ(Control().GetPayOffData()[0]->FSide, Side);
        EXPECT_EQ(Control().GetPayOffData()[0]->FSymbol, "HSIC100");
    }
}

TEST_F(RangeInputs, PremiumsAreTakenInRealUnitsAndEmptyCellsAsZero) {
    Host.Subscriptions.Item("HSIC100").Set(kFieldDisplayFactor, 100.0);
    AddLeg("HSIC100", "Buy", 123.45, 2.5);
    AddLeg("HSIC110", "Sell", Variant(), Variant());
    Calculate(90, 110, 5);
    const auto& Legs = Control().GetPayOffData();
    ASSERT_EQ(Legs.size(), 2u);
    EXPECT_DOUBLE_EQ(Legs[0]->FPremium, 1.2345);
    EXPECT_EQ(Legs[0]->FQty, 2.5);
    EXPECT_EQ(Legs[1]->FPremium, 0.0);
    EXPECT_EQ(Legs[1]->FQty, 0.0);
}

TEST_F(RangeInputs, LoadedRowsAreLegsLikeTypedOnesAndSymbolsRepeat) {
    AddLeg("HSIC100", "Buy", 5.0, 1);
    AddLeg("HSIC100", "Sell", 6.0, 2);
    AddLeg("HSIP100", "Buy", 7.0, 3);
    AddLeg("HSIP110", "Sell", 8.0, 4);
    Grid.FirstInputRow = 3;
    Calculate(90, 110, 5);
    ASSERT_EQ(Control().GetPayOffData().size(), 4u);
    EXPECT_EQ(Control().GetPayOffData()[1]->FSymbol, "HSIC100");
    EXPECT_EQ(Control().GetPayOffData()[3]->FQty, 4);
}

TEST_F(RangeInputs, ARefusedSymbolIsNoLeg) {
    AddLeg(" ", "Buy", 5.0, 1);
    Calculate(90, 110, 5);
    EXPECT_TRUE(Control().GetPayOffData().empty());
}

TEST_F(RangeInputs, CalculateTakesWhatIsStillBeingTyped) {
    TFocusScope Scope;
    Form.Attach(Scope);
    AddLeg("HSIC100", "Buy", 5.0, 1);
    SetRange(90, 110, 5);
    Form.edtDown.SetFocus();
    Form.edtDown.SetEditText("95");
    Form.btnCalc.Click();
    EXPECT_EQ(Control().GetDownLimit(), 95);
    EXPECT_EQ(Updates, 1);
}

TEST_F(RangeInputs, LeavingAnEditorAppliesItUncheckedAndWithoutCalculating) {
    AddLeg("HSIC100", "Buy", 5.0, 1);
    Calculate(90, 110, 5);
    const auto Points = PointsOf(Chart.GetPLSeries());
    SetRange(999, Variant(), 0);
    Range.edtDownExit(nullptr);
    Range.edtUpExit(nullptr);
    Range.edtIntervalExit(nullptr);
    EXPECT_EQ(Control().GetDownLimit(), 999);
    EXPECT_EQ(Control().GetUpLimit(), 0);
    EXPECT_EQ(Control().GetInterval(), 0);
    EXPECT_EQ(Control().GetDefaultDownPrice(), 999);
    EXPECT_EQ(Detail.GetDataControl()->GetDownLimit(), 999);
    EXPECT_TRUE(Host.MessageBox.Messages.empty());
    EXPECT_EQ(PointsOf(Chart.GetPLSeries()), Points);
    EXPECT_EQ(Updates, 1);
}

TEST_F(RangeInputs, EnterDoesWhatLeavingDoesAndIsNotSwallowed) {
    SetRange(1, 2, 3);
    char Key = 'x';
    Range.edtDownKeyPress(nullptr, Key);
    Range.edtUpKeyPress(nullptr, Key);
    Range.edtIntervalKeyPress(nullptr, Key);
    EXPECT_EQ(Control().GetUpLimit(), 0);
    Key = kKeyEnter;
    Range.edtDownKeyPress(nullptr, Key);
    Range.edtUpKeyPress(nullptr, Key);
    Range.edtIntervalKeyPress(nullptr, Key);
    EXPECT_EQ(Key, kKeyEnter);
    EXPECT_EQ(Control().GetDownLimit(), 1);
    EXPECT_EQ(Control().GetUpLimit(), 2);
    EXPECT_EQ(Control().GetInterval(), 3);
    EXPECT_EQ(Updates, 0);
}

TEST_F(RangeInputs, TheEditorsShowTheDefaultRangeAsItIs) {
    // A factor of 100 changes what premiums look like, not the range.
    for (const char* Symbol : {"HSJC100", "HSJP100", "HSJC110", "HSJP110"})
        Host.Subscriptions.AddOption(Symbol, 100, "C").Set(kFieldDisplayFactor, 100.0);
    Control().SetMonth("2027-01");
    Range.UpdateDefaultPrice(nullptr);
    EXPECT_EQ(Form.edtDown.GetFloat(), 100);
    EXPECT_EQ(Form.edtUp.GetFloat(), 110);
    EXPECT_EQ(Form.edtInterval.GetFloat(), 10);
    // Also over what is typed and not yet applied.
    Form.edtDown.SetEditText("5");
    Range.UpdateDefaultPrice(nullptr);
    EXPECT_EQ(Form.edtDown.GetText(), "100");
}

TEST_F(RangeInputs, TheEditorsShowThousandsAndTheIntervalHasAFloor) {
    for (auto* Editor : {&Form.edtDown, &Form.edtUp, &Form.edtInterval}) {
        Editor->SetValue(1234567.25);
        EXPECT_EQ(Editor->GetText(), "1,234,567.25");
        EXPECT_EQ(Editor->GetAlignment(), EAlignment::Right);
    }
    EXPECT_EQ(Form.edtInterval.GetMinValue(), 0.0);
    EXPECT_FALSE(Form.edtDown.GetMinValue());
    EXPECT_FALSE(Form.edtUp.GetMinValue());
}

TEST_F(RangeInputs, ClearLeavesTheResultsUntilTheNextCalculation) {
    AddLeg("HSIC100", "Buy", 5.0, 1);
    Calculate(90, 110, 5);
    Form.btnClear.Click();
    EXPECT_EQ(Control().GetPayOffData().size(), 1u);
    EXPECT_EQ(Chart.GetPLSeries()->GetCount(), 3);
    EXPECT_EQ(Detail.GetDataControl()->GetCount(), 5);
    Form.btnCalc.Click();
    EXPECT_TRUE(Control().GetPayOffData().empty());
    EXPECT_EQ(Chart.GetPLSeries()->GetCount(), 0);
    EXPECT_EQ(Detail.GetDataControl()->GetCount(), 0);
}

TEST_F(RangeInputs, WithoutADataControlNothingHappens) {
    Context.FMyDataControl.reset();
    SetRange(110, 90, 0);
    Range.btnCalcClick(nullptr);
    Range.edtDownExit(nullptr);
    Range.edtUpExit(nullptr);
    Range.edtIntervalExit(nullptr);
    Range.UpdateDefaultPrice(nullptr);
    EXPECT_EQ(Form.edtDown.GetFloat(), 110);
    EXPECT_TRUE(Host.MessageBox.Messages.empty());
}

TEST_F(RangeInputs, ALegWithoutDataCountsAsNothingAndTheLogNamesIt) {
    AddLeg("HSIC100", "Buy", 5.0, 1);
    AddLeg("NOBODY", "Buy", 5.0, 1);
    Calculate(90, 110, 5);
    EXPECT_EQ(PointsOf(Chart.GetPLSeries()), (TPoints{{90, -5}, {100, -5}, {110, 5}}));
    EXPECT_EQ(Host.TakeLog(), (std::vector<Text>{"Res_LogLegWithoutData(NOBODY)"}));
}

TEST_F(RangeInputs, AMonthWithOneStrikeIsRefusedByCalculateOnly) {
    Host.Market.AddOptions("HKFE", "HSI", "HSK", "2027/02/25", {"100"});
    SetRange(1, 2, 3);
    Control().SetMonth("2027-02");
    Range.UpdateDefaultPrice(nullptr);
    EXPECT_EQ(Form.edtDown.GetFloat(), 100);
    EXPECT_EQ(Form.edtUp.GetFloat(), 100);
    EXPECT_EQ(Form.edtInterval.GetFloat(), 0);
    EXPECT_TRUE(Host.MessageBox.Messages.empty());
    Form.edtUp.SetValue(120);
    Form.btnCalc.Click();
    EXPECT_EQ(Host.MessageBox.Messages.size(), 1u);
}

}  // namespace
}  // namespace ventiq
