// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqLayoutData.h"

#include "framework/view/BaseView.h"
#include "tests/view/PartsFixture.h"

namespace ventiq {
namespace {

class LayoutData : public TPartsFixture {
protected:
    TFrame View;
    TVentiqCaptionButtons Buttons{Form, View};
    TVentiqLayoutData Part{Form, Grid, Selectors, Buttons, View};
    const Text Applied = "Editors.SetGridColumnLayout(0,100)";
    std::vector<int> Notified;
    TConnection Link = Baseview::Notifications().Connect([this](TFrame*, int Code) { Notified.push_back(Code); });

    LayoutData() {
        for (const char* Key : {"Res_More", "Res_Less", "Res_ShowHint", "Res_HideHint"})
            Host.Language.SetText(Key, Text("the ") + Key);
        Buttons.CreateList();
        Buttons.CreateButtons();
        Buttons.UpdateCaptionButtons();
        Form.edtAccount.OnExit = [this](TObject* S) { Selectors.edtAccountExit(S); };
        Context.FMyDataControl->SetOnMarketListUpdate([this](TObject* S) { Selectors.MarketListUpdate(S); });
    }
    Text Market() {
        const auto& C = *Context.FMyDataControl;
        return C.GetExchange() + " " + C.GetSeries() + " " + C.GetMonth();
    }
};

TEST_F(LayoutData, WithoutMarketListsNothingIsSaved) {
    Buttons.GetShowHideButton()->State = 1;
    Form.edtAccount.SetHint("A100");
    EXPECT_EQ(Part.GetLayoutData(), "");
}

TEST_F(LayoutData, CodesStatesAndColumnsAreSavedInOrder) {
    Selectors.InitExchangeList();
    EXPECT_EQ(Part.GetLayoutData(), "Exchange=HKFE,Series=HSI,Month=2026-12,ShowHideState=0,ShowHintState=0");
    Form.edtAccount.SetText("shown");
    Form.edtAccount.SetHint("A 100");
    Buttons.GetShowHideButton()->State = 1;
    Buttons.GetHintButton()->State = 5;
    Host.Editors.ColumnLayout = "0,100;\"x\"";
    EXPECT_EQ(Part.GetLayoutData(),
              "Exchange=HKFE,Series=HSI,Month=2026-12,\"Account=A 100\",ShowHideState=1,ShowHintState=5,"
              "\"ColList=0,100;\"\"x\"\"\"");
}

TEST_F(LayoutData, ASelectorWithoutSelectionWritesNoPair) {
    Selectors.InitExchangeList();
    Form.cmbSeries.SetItemIndex(-1);
    EXPECT_EQ(Part.GetLayoutData(), "Exchange=HKFE,Month=2026-12,ShowHideState=0,ShowHintState=0");
    Selectors.FMonthList.Clear();  // the index points past the codes
    EXPECT_EQ(Part.GetLayoutData(), "Exchange=HKFE,ShowHideState=0,ShowHintState=0");
}

TEST_F(LayoutData, ARestoreSelectsLevelByLevelAsAUserDoes) {
    Selectors.InitExchangeList();
    EXPECT_TRUE(Part.SetLayoutData("Exchange=XONE,Series=SOLO,Month=2026-12"));
    EXPECT_EQ(Market(), "XONE SOLO 2026-12");
    EXPECT_EQ(Selectors.FLayoutExchange, "XONE");
    EXPECT_TRUE(Part.SetLayoutData("Exchange=HKFE,Series=HSI,Month=2027-01"));
    EXPECT_EQ(Market(), "HKFE HSI 2027-01");
}

TEST_F(LayoutData, ARestoreBeforeTheListsEndsAsOneAfterThem) {
    const Text Data = "Exchange=XDER,Series=DEF,Month=2026-12,ShowHideState=0,ShowHintState=1";
    Part.SetLayoutData(Data);
    EXPECT_EQ(Market(), "  ");
    Selectors.MarketListUpdate(nullptr);
    EXPECT_EQ(Market(), "XDER DEF 2026-12");
    EXPECT_EQ(Part.GetLayoutData(), Data);
    Selectors.MarketListUpdate(nullptr);
    EXPECT_EQ(Market(), "XDER DEF 2026-12") << "a further report does not lead away from it";
}

TEST_F(LayoutData, ASecondRestoreBeforeTheListsReplacesTheFirstWhole) {
    Part.SetLayoutData("Exchange=XDER,Series=DEF,Month=2026-12");
    Part.SetLayoutData("Series=HHI");
    EXPECT_EQ(Selectors.FLayoutExchange, "");
    EXPECT_EQ(Selectors.FLayoutSeries, "HHI");
    EXPECT_EQ(Selectors.FLayoutMonth, "");
}

TEST_F(LayoutData, WhatIsNotOfferedLeavesItsSelectorAndTheOthersAreRestored) {
    Selectors.InitExchangeList();
    Part.SetLayoutData("Exchange=GONE,Series=HSI,Month=2027-01");
    EXPECT_EQ(Market(), "HKFE HSI 2027-01");
    Part.SetLayoutData("Month=1999-01,Unknown=1,no pair");
    EXPECT_EQ(Market(), "HKFE HSI 2027-01");
}

TEST_F(LayoutData, AnEmptyTextKeepsTheMarketAndExpandsThePanels) {
    Selectors.InitExchangeList();
    Buttons.GetShowHideButton()->State = 1;
    Buttons.UpdateCaptionButtons();
    EXPECT_TRUE(Part.SetLayoutData(""));
    EXPECT_EQ(Market(), "HKFE HSI 2026-12");
    EXPECT_EQ(Buttons.GetShowHideButton()->State, 0);
    EXPECT_TRUE(Form.PositionGroup.IsVisible());
    EXPECT_EQ(Notified, std::vector<int>{1026});
}

TEST_F(LayoutData, TheStatesCollapseThePanelsAndReadAsZeroWhenMalformed) {
    Part.SetLayoutData("ShowHideState=1,ShowHintState=x");
    EXPECT_FALSE(Form.PositionGroup.IsVisible());
    EXPECT_FALSE(Form.liDetailGrid.IsVisible());
    EXPECT_EQ(Buttons.GetShowHideButton()->Hint, "the Res_More");
    EXPECT_EQ(Buttons.GetHintButton()->State, 0);
    Part.SetLayoutData("ShowHideState=5,ShowHintState=-1");
    EXPECT_EQ(Buttons.GetShowHideButton()->State, 5);
    EXPECT_EQ(Buttons.GetHintButton()->State, -1);
}

TEST_F(LayoutData, TheAccountGoesThroughTheHostWhereTheEditorIsServed) {
    Form.edtAccount.SetEnabled(false);
    Part.SetLayoutData("Account=A200");
    EXPECT_EQ(Host.Journal.Count("Editors.SetAccountLayoutAccount(A200)"), 0);
    Selectors.RegisterAccountEditor();
    Part.SetLayoutData("Account=A200");
    EXPECT_EQ(Host.Journal.Count("Editors.SetAccountLayoutAccount(A200)"), 1);
    EXPECT_EQ(Context.FMyDataControl->GetAccount(), "A200");
    Part.SetLayoutData("ShowHideState=0");
    EXPECT_EQ(Form.edtAccount.GetHint(), "A200") << "no account in the text, no change";
}

TEST_F(LayoutData, ColumnsAreAppliedAtOnceAndOnceMoreWhenTheHostHasSettled) {
    Host.Config.KeepColumnLayout = true;
    Part.SetLayoutData("\"ColList=0,100\"");
    EXPECT_EQ(Host.Journal.Count(Applied), 1);
    EXPECT_EQ(Part.FPendingColumnLayout, "0,100");
    Part.LoadLayoutComp(nullptr, nullptr);
    Part.MainFormShow(nullptr, nullptr);
    EXPECT_EQ(Host.Journal.Count(Applied), 2);
    Part.SetLayoutData("ShowHideState=0");
    Part.MainFormShow(nullptr, nullptr);
    EXPECT_EQ(Host.Journal.Count(Applied), 2);
}

TEST_F(LayoutData, APendingColumnLayoutIsAppliedOnceWhereLayoutsAreKept) {
    Host.Config.KeepColumnLayout = true;
    Part.FPendingColumnLayout = "0,100";
    Part.LoadLayoutComp(nullptr, nullptr);
    EXPECT_EQ(Host.Journal.Count(Applied), 1);
    EXPECT_EQ(Part.FPendingColumnLayout, "");
    Part.MainFormShow(nullptr, nullptr);
    EXPECT_EQ(Host.Journal.Count(Applied), 1);
}

TEST_F(LayoutData, WithoutTheOptionTheLayoutGoesOnWaiting) {
    Part.FPendingColumnLayout = "0,100";
    Part.MainFormShow(nullptr, nullptr);
    EXPECT_EQ(Host.Journal.Count(Applied), 0);
    EXPECT_EQ(Part.FPendingColumnLayout, "0,100");
    Host.Config.KeepColumnLayout = true;
    Part.MainFormShow(nullptr, nullptr);
    EXPECT_EQ(Host.Journal.Count(Applied), 1);
}

TEST_F(LayoutData, NothingPendingNothingDone) {
    Host.Config.KeepColumnLayout = true;
    Host.Journal.Clear();
    Part.AdjustLayout();
    EXPECT_TRUE(Host.Journal.Lines().empty());
}

}  // namespace
}  // namespace ventiq
