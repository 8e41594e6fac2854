// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "framework/controls/Button.h"
#include "framework/controls/Chart.h"
#include "framework/controls/ComboBox.h"
#include "framework/controls/GridTableView.h"
#include "framework/controls/SpinEdit.h"
#include "registration/VentiqConstDef.h"
#include "registration/VentiqInterface.h"
#include "tests/support/FakeHost.h"

namespace ventiq {
namespace {

using TPoints = std::vector<std::pair<double, double>>;

// A trader's hands: the controls of one open view by their form names.
class Payoff : public testing::Test {
protected:
    support::TFakeHost Host;
    TIVentiq Descriptor;
    int64_t Handle = 0;

    Payoff() {
        Host.FailOnLeftovers = true;
        Host.Market.AddOptions("XDER", "ABC", "ABC", "2026/12/18", {"10", "20"});
        Host.Market.AddOptions("HKFE", "HSI", "HSI", "2026/12/30", {"100", "110", "120"});
        Host.Market.AddOptions("HKFE", "HSI", "HSJ", "2027/01/28", {"100", "110"});
        Host.Market.AddSeries("HKFE", "HHI");
        const std::pair<const char*, const char*> Texts[] = {{"Res_Side_Buy", "Buy"},
                                                             {"Res_Side_Sell", "Sell"},
                                                             {"Res_Call", "Call"},
                                                             {"Res_Put", "Put"},
                                                             {"Res_PL", "P/L"}};
        for (const auto& [Key, Value] : Texts) {
            Host.Language.SetText(Key, Value);
            Host.Language.SetText(1, Const::ResourceStringTag, Key, Text(Value) + "*");
        }
        for (const int Language : {0, 1})
            Host.Language.SetText(Language, kTagCurrency, "HKD", Language ? "HKD*" : "Dollar");
        Handle = Descriptor.OpenNewInstance();
    }
    ~Payoff() override { Descriptor.CloseInstance(Handle); }

    template <class T>
    T& Find(const char* Name) {
        return *Descriptor.FindView(Handle)->FindControl<T>(Name);
    }
    TGridTableView& Legs() { return Find<TGridTableView>("PositionGridView"); }
    int ColumnOf(int Id) {
        int Index = 0;
        while (Legs().GetColumn(Index)->Tag != Id) ++Index;
        return Index;
    }
    void Select(const char* Combo, const Text& Shown) {
        auto& Box = Find<TComboBox>(Combo);
        for (int i = 0; i < Box.GetCount(); ++i)
            if (Box.GetItem(i).starts_with(Shown)) return Box.SetItemIndex(i);
        FAIL() << Combo << " does not offer " << Shown;
    }
    void Type(int Row, int Id, const Text& Typed) {
        auto* Editor = Legs().StartEdit(Row, ColumnOf(Id));
        ASSERT_NE(Editor, nullptr) << Row << " " << Id;
        Editor->SetEditText(Typed);
        Legs().PostEditor();
        ASSERT_EQ(Legs().GetErrorText(), "");
    }
    void TypeLeg(int Row, const Text& Symbol, const Text& Side, const Text& Premium, const Text& Quantity) {
        Type(Row, kColSymbol, Symbol);
        Type(Row, kColSide, Side);
        Type(Row, kColPremium, Premium);
        Type(Row, kColQty, Quantity);
    }
    void TypeFourLegs() {
        Select("cmbExchange", "HKFE");
        Select("cmbSeries", "HSI");
        Select("cmbMonth", "2026-12");
        TypeLeg(0, "hsic100", "Buy", "12", "1");
        TypeLeg(1, "HSIC110", "Sell", "5", "1");
        TypeLeg(2, " hsip110 ", "Sell", "6", "1");
        TypeLeg(3, "HSIP120", "Buy", "14", "1");
    }
    void TypeRange(const Text& Down, const Text& Up, const Text& Interval) {
        const std::pair<const char*, Text> Edits[] = {{"edtDown", Down}, {"edtUp", Up}, {"edtInterval", Interval}};
        for (const auto& [Name, Typed] : Edits) {
            Find<TSpinEdit>(Name).SetFocus();
            Find<TSpinEdit>(Name).SetEditText(Typed);
        }
    }
    void DataOf(const Text& Symbol, double Strike, const char* Type) {
        Host.Subscriptions.AddOption(Symbol, Strike, Type, 50)
            .Set(kFieldCurrency, "HKD")
            .Set(kFieldReferencePrice, 7.5);
    }
    void AllData() {
        for (const int Strike : {100, 110, 120})
            for (const char* T : {"C", "P"}) DataOf("HSI" + Text(T) + std::to_string(Strike), Strike, T);
    }
    TPoints Line(size_t Series) {
        TPoints Result;
        const auto* Points = Find<TChart>("DataChart").Series().at(Series);
        for (int i = 0; i < Points->GetCount(); ++i) Result.emplace_back(Points->GetX(i), Points->GetY(i));
        return Result;
    }
    std::vector<Text> Row(TGridTableView& Table, int Record) {
        std::vector<Text> Result;
        for (int i = 0; i < Table.GetColumnCount(); ++i) Result.push_back(Table.GetCellText(Record, i));
        return Result;
    }
};

// Premiums paid and received: -12 + 5 + 6 - 14 = -15. At expiry the four legs are worth 10 below 100 and above 120, and
// 20 at 110; times the multiplier of 50.
TEST_F(Payoff, FourLegsFromTheMarketToTheChartAndBack) {
    AllData();
    TypeFourLegs();
    ASSERT_EQ(Legs().GetDataController().GetRecordCount(), 5);
    EXPECT_EQ(Row(Legs(), 2), (std::vector<Text>{"HSIP110", "Sell", "Put", "", "1:110", "1:6", "4:1", "", ""}));
    EXPECT_EQ(Legs().GetCellStyle(4, 0), nullptr);

    TypeRange("90", "130", "5");
    Find<TButton>("btnCalc").Click();
    EXPECT_EQ(Line(0), (TPoints{{90, -250}, {100, -250}, {110, 250}, {120, -250}, {130, -250}}));
    EXPECT_EQ(Line(1), (TPoints{{90, 0}, {130, 0}}));
    EXPECT_EQ(Find<TChart>("DataChart").GetTitle(), "P/L(Dollar)");
    auto& Detail = Find<TGridTableView>("DetailGridView");
    ASSERT_EQ(Detail.GetDataController().GetRecordCount(), 9);
    EXPECT_EQ(Row(Detail, 0), (std::vector<Text>{"1:90", "3:-250"}));
    EXPECT_EQ(Row(Detail, 3), (std::vector<Text>{"1:105", "3:0"}));
    EXPECT_EQ(Row(Detail, 8), (std::vector<Text>{"1:130", "3:-250"}));

    Host.Language.Language = 1;
    EXPECT_TRUE(Descriptor.SetLanguage(Handle, 1));
    EXPECT_EQ(Row(Legs(), 2), (std::vector<Text>{"HSIP110", "Sell*", "Put*", "", "1:110", "1:6", "4:1", "", ""}));
    EXPECT_EQ(Find<TChart>("DataChart").GetTitle(), "P/L*(HKD*)");
    Find<TButton>("btnCalc").Click();  // the sides are understood in the new language
    EXPECT_EQ(Line(0).size(), 5u);
    EXPECT_EQ(Line(0)[2], (std::pair<double, double>{110, 250}));

    Find<TButton>("btnClear").Click();
    EXPECT_EQ(Legs().GetDataController().GetRecordCount(), 1);
    EXPECT_EQ(Line(0).size(), 5u);
    Find<TButton>("btnCalc").Click();
    EXPECT_TRUE(Line(0).empty());
    EXPECT_EQ(Detail.GetDataController().GetRecordCount(), 0);
    EXPECT_EQ(Find<TChart>("DataChart").GetTitle(), "P/L*");
    EXPECT_TRUE(Host.MessageBox.Messages.empty());
    EXPECT_EQ(Host.TakeLog(), std::vector<Text>{});
}

TEST_F(Payoff, AMonthProposesItsRange) {
    AllData();
    Select("cmbExchange", "HKFE");
    Select("cmbSeries", "HSI");
    Select("cmbMonth", "2027-01");
    EXPECT_EQ(Find<TSpinEdit>("edtDown").GetText(), "100");
    EXPECT_EQ(Find<TSpinEdit>("edtUp").GetText(), "110");
    Select("cmbMonth", "2026-12");
    EXPECT_EQ(Find<TSpinEdit>("edtUp").GetText(), "120");
    EXPECT_EQ(Find<TSpinEdit>("edtInterval").GetText(), "10");
}

TEST_F(Payoff, ASymbolOfAnotherMonthIsRefusedAndTheLogSaysWhy) {
    AllData();
    DataOf("HSJC100", 100, "C");
    Select("cmbExchange", "HKFE");
    Select("cmbSeries", "HSI");
    Select("cmbMonth", "2026-12");
    Type(0, kColSymbol, "hsjc100");
    EXPECT_EQ(Legs().GetDataController().GetValue(0, 0), Variant(" "));
    EXPECT_NE(Legs().GetCellStyle(0, 0), nullptr);
    const auto Log = Host.TakeLog();
    ASSERT_EQ(Log.size(), 1u);
    EXPECT_TRUE(Log[0].starts_with("Res_LogSymbolForeign(hsjc100")) << Log[0];
    TypeRange("90", "130", "5");
    Find<TButton>("btnCalc").Click();
    EXPECT_TRUE(Line(0).empty());
}

TEST_F(Payoff, ARowIsFilledWhenItsDataArrive) {
    Select("cmbExchange", "HKFE");
    Select("cmbSeries", "HSI");
    Select("cmbMonth", "2026-12");
    Type(0, kColSymbol, "HSIC110");
    EXPECT_EQ(Host.Subscriptions.Subscribed(), (std::vector<Text>{"HSIC110"}));
    EXPECT_TRUE(Legs().GetDataController().GetValue(0, ColumnOf(kColPremium)).IsNull());
    DataOf("HSIC110", 110, "C");
    Host.Subscriptions.Deliver();
    EXPECT_EQ(Legs().GetDataController().GetValue(0, ColumnOf(kColPremium)), Variant(7.5));
    EXPECT_TRUE(Host.Subscriptions.Subscribed().empty());
    EXPECT_EQ(Legs().GetDataController().GetRecordCount(), 2);
}

TEST_F(Payoff, WhatStandsInAnOpenEditorCounts) {
    AllData();
    Select("cmbExchange", "HKFE");
    TypeLeg(0, "HSIC100", "Buy", "12", "1");
    TypeRange("90", "130", "5");
    const auto TypePremium = [this](const char* Typed) {
        auto* Editor = Legs().StartEdit(0, ColumnOf(kColPremium));
        ASSERT_NE(Editor, nullptr);
        Editor->SetEditText(Typed);
    };
    TypePremium("2");
    Find<TButton>("btnCalc").Click();
    ASSERT_EQ(Line(0).size(), 3u);
    EXPECT_EQ(Line(0)[0], (std::pair<double, double>{90, -100}));
    TypePremium("4");
    EXPECT_TRUE(Descriptor.SetLanguage(Handle, 0));
    EXPECT_EQ(Legs().GetEditor(), nullptr);
    EXPECT_EQ(Legs().GetDataController().GetValue(0, ColumnOf(kColPremium)), Variant(4.0));
}

TEST_F(Payoff, LegsOfAnotherMonthStayAndCount) {
    AllData();
    Select("cmbExchange", "HKFE");
    TypeLeg(0, "HSIC100", "Buy", "12", "1");
    Select("cmbMonth", "2027-01");
    EXPECT_EQ(Legs().GetDataController().GetValue(0, 0), Variant("HSIC100"));
    TypeRange("90", "130", "5");
    Find<TButton>("btnCalc").Click();
    EXPECT_EQ(Line(0), (TPoints{{90, -600}, {100, -600}, {130, 900}}));
}

}  // namespace
}  // namespace ventiq
